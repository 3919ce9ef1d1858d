#include "HardeningScene.h"

#include <utility>

#include "addon/AddOn.h"
#include "ui/DialogMain.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

namespace vextest {
namespace scene {

using vexhost::GuiControl;
using vexhost::GuiUser;
using vexhost::Host;
using namespace vexplot::vexutiltools;

namespace {

void runIdle() {
    Host::instance().idleQueue().runUntilEmpty();
}

const vexhost::GuiDialog& mainDialog(GuiUser& user) {
    return user.findDialog(MainTitle);
}

}  // namespace

void transientScene() {
    Host& host = Host::instance();
    host.frames().create(VexPlotType_Cartesian3D).setPosAndSize(0.5, 0.5, 8.0, 6.0);
    for (double time : {0.0, 0.5, 1.0}) {
        vexhost::Zone zone;
        zone.name = "Zone at " + std::to_string(time);
        zone.solutionTime = time;
        zone.strandId = 1;
        host.dataSet().addZone(std::move(zone));
    }
    host.style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
    // Values a run changes and puts back, none at the host's default: a value put back from
    // anywhere but the host would show.
    host.style().setBool({"Interface", "UseDisplayLists"}, false);
    host.style().setDouble({"GlobalThreeD", "LightSource", "Intensity"}, 60);
    host.style().setDouble({"GlobalThreeD", "LightSource", "BackgroundLight"}, 40);
    host.style().setBool({"ThreeDAxis", "FrameAxis", "Show"}, false);
    host.style().setDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0.3);
}

AnimationSettings_s everyStage(Destination_e destination) {
    return vextest::everyStage(TimeAnimationOperation_e::Loop, destination);
}

void giveDialog(const std::vector<KeyFrame_s>& keyFrames, const AnimationSettings_s& settings) {
    DialogMain& dialog = DialogMain::instance();
    dialog.getSettings() = settings;
    dialog.refreshOptions();
    dialog.getKeyFrameModel().setItems(keyFrames);
    dialog.refreshList();
    runIdle();
}

vexhost::AddOnRegistry::CommandResult runCommand(const std::string& command) {
    return Host::instance().addOns().runMacroCommand(AddOn::Name, command);
}

void openMainDialog() {
    GuiUser user(Host::instance());
    user.chooseHostMenuItem("Animate", "&Key Frame Animation...");
    runIdle();
}

void press(const std::string& button, const std::string& dialogTitle) {
    GuiUser user(Host::instance());
    user.press(
        user.findControl(user.findDialog(dialogTitle), button, {GuiControl::Kind::Button}).id);
    runIdle();
}

void selectLines(std::vector<int32_t> lines) {
    GuiUser user(Host::instance());
    user.selectLines(user.findControlOfKind(mainDialog(user), GuiControl::Kind::List, 1).id,
                     std::move(lines));
    runIdle();
}

void type(const std::string& field, const std::string& text) {
    GuiUser user(Host::instance());
    user.enterText(user.findControl(mainDialog(user), field, {GuiControl::Kind::TextField}).id,
                   text);
    runIdle();
}

void chooseMenu(const std::vector<std::string>& path) {
    GuiUser user(Host::instance());
    user.chooseMenuEntry(user.findMenuEntry(mainDialog(user), path).id);
    runIdle();
}

void chooseOption(const std::string& menu, const std::string& entry) {
    GuiUser user(Host::instance());
    const GuiControl& optionMenu =
        user.findControl(mainDialog(user), menu, {GuiControl::Kind::OptionMenu});
    user.chooseOption(optionMenu.id, user.findOptionEntry(optionMenu, entry));
    runIdle();
}

void dialogButton(const std::string& dialogTitle, GuiUser::DialogButton button) {
    GuiUser user(Host::instance());
    user.pressDialogButton(user.findDialog(dialogTitle).id, button);
    runIdle();
}

}  // namespace scene
}  // namespace vextest
