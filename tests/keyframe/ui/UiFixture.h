// Fixtures for the dialog tests: the add-on loaded in a clean host (vextest::AddOnTest), a fresh
// main dialog state, and a user at the host's dialogs (vexhost::GuiUser).
//
// UiTest gives the user and a few ways of naming what the user acts on. MainDialogTest adds a 3D
// frame of 800 x 600 pixels and opens the main dialog through the host's Animate menu. Every action
// helper runs the host's idle queue afterwards, as the host's main loop does between user actions,
// and checks that the add-on's lock is back at depth 0 (at `lockDepthAfter` for actions that leave
// a modal dialog up).
#ifndef VEXTEST_UI_UITEST_H
#define VEXTEST_UI_UITEST_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/AddOnTest.h"
#include "ui/DialogMain.h"
#include "vexhost/GuiUser.h"

namespace vextest {

class UiTest : public AddOnTest {
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

class MainDialogTest : public UiTest {
protected:
    static constexpr const char* Title = "Key Frame Animation";

    void SetUp() override;

    void openMainDialog();
    DialogMain& dialog() { return DialogMain::instance(); }
    const vexhost::GuiControl& mainControl(const std::string& text) { return control(Title, text); }
    // The lines the list control shows.
    std::vector<std::string> listLines();
    std::vector<int32_t> selectedLines();
    bool isSensitive(const std::string& text) { return mainControl(text).sensitive; }
    void pressMain(const std::string& button, int lockDepthAfter = 0) {
        press(Title, button, lockDepthAfter);
    }
    void selectMain(std::vector<int32_t> lines) { selectLines(Title, std::move(lines)); }
    void appendKeyFrames(int count);
    // Turns the active frame's view about psi, so each captured key frame differs.
    void turnView(double psiDegrees);
};

}  // namespace vextest

#endif
