// The fixture of the dialog tests: the add-on loaded in a clean host (vextest::AddOnFixture), a
// fresh main dialog state, and a user at the host's dialogs (vexhost::GuiUser), with a few ways of
// naming what the user acts on. Every action helper runs the host's idle queue afterwards, as the
// host's main loop does between user actions, and checks that the add-on's lock is back at depth 0
// (at `lockDepthAfter` for actions that leave a modal dialog up).
#ifndef VEXTEST_UI_UIFIXTURE_H
#define VEXTEST_UI_UIFIXTURE_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "ui/DialogMain.h"
#include "vexhost/GuiUser.h"

namespace vextest {

class UiFixture : public AddOnFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    vexhost::GuiUser& user() { return *user_; }
    const vexhost::GuiDialog& dialogNamed(const std::string& title) const;
    // A control of the dialog by label, tool tip or the label beside it (GuiUser's finding).
    const vexhost::GuiControl& control(const std::string& title, const std::string& text,
                                       const std::vector<vexhost::GuiControl::Kind>& kinds = {});
    const vexhost::GuiControl& controlById(int32_t id) const;

    // The user's actions; each runs the idle queue and expects the lock depth afterwards.
    void press(const std::string& title, const std::string& button, int lockDepthAfter = 0);
    void selectLines(const std::string& title, std::vector<int32_t> lines);
    void type(const std::string& title, const std::string& field, const std::string& text,
              int lockDepthAfter = 0);
    void chooseOption(const std::string& title, const std::string& menu, const std::string& entry,
                      int lockDepthAfter = 0);
    void chooseMenu(const std::string& title, const std::vector<std::string>& path,
                    int lockDepthAfter = 0);
    void pressDialogButton(const std::string& title, vexhost::GuiUser::DialogButton button,
                           int lockDepthAfter = 0);
    void runIdle();
    int lockDepth() const;
    std::vector<std::string> errorMessages() const;

private:
    std::unique_ptr<vexhost::GuiUser> user_;
};

}  // namespace vextest

#endif
