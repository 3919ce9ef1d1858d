#include "UiFixture.h"

#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/UserDialogs.h"

namespace vextest {

using vexhost::GuiControl;
using Kind = vexhost::GuiControl::Kind;

void UiFixture::SetUp() {
    AddOnFixture::SetUp();
    user_ = std::make_unique<vexhost::GuiUser>(host());
}

void UiFixture::TearDown() {
    user_.reset();
    AddOnFixture::TearDown();
}

const vexhost::GuiDialog& UiFixture::dialogNamed(const std::string& title) const {
    return user_->findDialog(title);
}

const GuiControl& UiFixture::control(const std::string& title, const std::string& text,
                                     const std::vector<Kind>& kinds) {
    return user_->findControl(dialogNamed(title), text, kinds);
}

const GuiControl& UiFixture::controlById(int32_t id) const {
    const GuiControl* control = host().guiModel().control(id);
    if (control == nullptr)
        throw std::logic_error("UiFixture::controlById(): no control " + std::to_string(id));
    return *control;
}

void UiFixture::press(const std::string& title, const std::string& button, int lockDepthAfter) {
    user_->press(control(title, button, {Kind::Button}).id);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after pressing " << button;
}

void UiFixture::selectLines(const std::string& title, std::vector<int32_t> lines) {
    user_->selectLines(user_->findControlOfKind(dialogNamed(title), Kind::List, 1).id,
                       std::move(lines));
    runIdle();
    EXPECT_EQ(lockDepth(), 0) << "after selecting lines";
}

void UiFixture::type(const std::string& title, const std::string& field, const std::string& text,
                     int lockDepthAfter) {
    user_->enterText(control(title, field, {Kind::TextField, Kind::SpinTextField}).id, text);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after typing in " << field;
}

void UiFixture::chooseOption(const std::string& title, const std::string& menu,
                             const std::string& entry, int lockDepthAfter) {
    const GuiControl& optionMenu = control(title, menu, {Kind::OptionMenu});
    user_->chooseOption(optionMenu.id, user_->findOptionEntry(optionMenu, entry));
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after choosing " << entry;
}

void UiFixture::chooseMenu(const std::string& title, const std::vector<std::string>& path,
                           int lockDepthAfter) {
    user_->chooseMenuEntry(user_->findMenuEntry(dialogNamed(title), path).id);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after choosing " << path.back();
}

void UiFixture::pressDialogButton(const std::string& title, vexhost::GuiUser::DialogButton button,
                                  int lockDepthAfter) {
    user_->pressDialogButton(dialogNamed(title).id, button);
    runIdle();
    EXPECT_EQ(lockDepth(), lockDepthAfter) << "after " << button << " of " << title;
}

void UiFixture::runIdle() {
    host().idleQueue().runUntilEmpty();
}

int UiFixture::lockDepth() const {
    return host().lock().depth();
}

std::vector<std::string> UiFixture::errorMessages() const {
    return host().userDialogs().errorMessages();
}

}  // namespace vextest
