// The fixture of the main dialog's tests (vextest::UiFixture): a 3D frame of 800 x 600 pixels, and
// the main dialog opened through the host's Animate menu.
#ifndef VEXTEST_UI_MAINDIALOGFIXTURE_H
#define VEXTEST_UI_MAINDIALOGFIXTURE_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "UiFixture.h"
#include "ui/DialogMain.h"

namespace vextest {

class MainDialogFixture : public UiFixture {
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

// The suite of the main dialog's tests that need nothing beyond the fixture.
using MainDialogTest = MainDialogFixture;

}  // namespace vextest

#endif
