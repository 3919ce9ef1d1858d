#include "UiTest.h"

#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/UserDialogs.h"

namespace vextest {

using vexhost::GuiControl;
using Kind = vexhost::GuiControl::Kind;

void UiTest::SetUp() {
    AddOnTest::SetUp();
    DialogMain::resetInstance();
    user_ = std::make_unique<vexhost::GuiUser>(host());
}

void UiTest::TearDown() {
    user_.reset();
    DialogMain::resetInstance();
    AddOnTest::TearDown();
}

const vexhost::GuiDialog& UiTest::dialogNamed(const std::string& title) const {
    return user_->findDialog(title);
}

const GuiControl& UiTest::control(const std::string& title, const std::string& text,
                                  const std::vector<Kind>& kinds) {
    return user_->findControl(dialogNamed(title), text, kinds);
}

const GuiControl& UiTest::controlById(int32_t id) const {
    const GuiControl* control = host().guiModel().control(id);
    if (control == nullptr)
        throw std::logic_error("UiTest::controlById(): no control " + std::to_string(id));
    return *control;
}

void UiTest::press(const std::string& title, const std::string& button, int lockDepthAfter) {
    user_->press(control(title, button, {Kind::Button}).id);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after pressing " << button;
}

void UiTest::selectLines(const std::string& title, std::vector<int32_t> lines) {
    user_->selectLines(user_->findControlOfKind(dialogNamed(title), Kind::List, 1).id,
                       std::move(lines));
    runIdle();
    EXPECT_EQ(lockDepth(), 0) << "after selecting lines";
}

void UiTest::type(const std::string& title, const std::string& field, const std::string& text,
                  int lockDepthAfter) {
    user_->enterText(control(title, field, {Kind::TextField, Kind::SpinTextField}).id, text);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after typing in " << field;
}

void UiTest::chooseOption(const std::string& title, const std::string& menu,
                          const std::string& entry, int lockDepthAfter) {
    const GuiControl& optionMenu = control(title, menu, {Kind::OptionMenu});
    user_->chooseOption(optionMenu.id, user_->findOptionEntry(optionMenu, entry));
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after choosing " << entry;
}

void UiTest::chooseMenu(const std::string& title, const std::vector<std::string>& path,
                        int lockDepthAfter) {
    user_->chooseMenuEntry(user_->findMenuEntry(dialogNamed(title), path).id);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after choosing " << path.back();
}

void UiTest::pressDialogButton(const std::string& title, vexhost::GuiUser::DialogButton button,
                               int lockDepthAfter) {
    user_->pressDialogButton(dialogNamed(title).id, button);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after " << button << " of " << title;
}

void UiTest::runIdle() {
    host().idleQueue().runUntilEmpty();
}

int UiTest::lockDepth() const {
    return host().lock().depth();
}

std::vector<std::string> UiTest::errorMessages() const {
    return host().userDialogs().errorMessages();
}

void MainDialogTest::SetUp() {
    UiTest::SetUp();
    vexhost::Frame& frame = createFrame3D();
    // 8 x 6 inches: 800 x 600 pixels on the host's screen.
    frame.setPosAndSize(0.5, 0.5, 8.0, 6.0);
}

void MainDialogTest::openMainDialog() {
    user().chooseHostMenuItem("Animate", "&Key Frame Animation...");
    runIdle();
    ASSERT_EQ(lockDepth(), 0);
}

std::vector<std::string> MainDialogTest::listLines() {
    return user().findControlOfKind(dialogNamed(Title), Kind::List, 1).items;
}

std::vector<int32_t> MainDialogTest::selectedLines() {
    return user().findControlOfKind(dialogNamed(Title), Kind::List, 1).selection;
}

void MainDialogTest::appendKeyFrames(int count) {
    for (int i = 0; i < count; ++i) {
        turnView(10.0);
        pressMain("Append");
    }
}

void MainDialogTest::turnView(double psiDegrees) {
    vexhost::View3D& view = host().frames().active()->view();
    view.setPsi(view.psi() + psiDegrees);
}

}  // namespace vextest
