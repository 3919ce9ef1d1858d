#include "HardeningScene.h"

#include <utility>

#include "addon/AddOn.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
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

KeyFrame_s keyFrame(const std::string& name, KeyFrameView_s view, uint64_t frameCount,
                    double solutionTime) {
    KeyFrame_s result;
    result.view = view;
    result.name = name;
    result.frameCount = frameCount;
    result.solutionTime = solutionTime;
    return result;
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

std::vector<KeyFrame_s> smallFlight() {
    return {keyFrame("Front", {8.66, -15, 10, 60, 30, 0, 10}, 6, 0.0),
            keyFrame("Side", {15, 8.66, 10, 60, 120, 0, 12}, 5, 0.5),
            keyFrame("Top", {0, 0, 20, 0, 0, 0, 8}, 1, 1.0)};
}

AnimationSettings_s everyStage(Destination_e destination) {
    AnimationSettings_s settings;
    settings.AnimateTime = true;
    settings.TimeAnimationOperation = TimeAnimationOperation_e::Loop;
    settings.NumCycles = 2;
    settings.Destination = destination;
    settings.AnimateStreamtraces = true;
    settings.FadeIn = true;
    settings.FadeOut = true;
    return settings;
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

void writeSettingsFile(const std::string& fileName, const std::vector<KeyFrame_s>& keyFrames,
                       const AnimationSettings_s& settings) {
    ListModelKeyFrame model;
    model.setItems(keyFrames);
    KeyFrameFile().write(fileName, settings, model);
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
