#include "MainDialogFixture.h"

#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"

namespace vextest {

using Kind = vexhost::GuiControl::Kind;

void MainDialogFixture::SetUp() {
    UiFixture::SetUp();
    vexhost::Frame& frame = createFrame3D();
    // 8 x 6 inches: 800 x 600 pixels on the host's screen.
    frame.setPosAndSize(0.5, 0.5, 8.0, 6.0);
}

void MainDialogFixture::openMainDialog() {
    user().chooseHostMenuItem("Animate", "&Key Frame Animation...");
    runIdle();
    ASSERT_EQ(lockDepth(), 0);
}

std::vector<std::string> MainDialogFixture::listLines() {
    return user().findControlOfKind(dialogNamed(Title), Kind::List, 1).items;
}

std::vector<int32_t> MainDialogFixture::selectedLines() {
    return user().findControlOfKind(dialogNamed(Title), Kind::List, 1).selection;
}

void MainDialogFixture::appendKeyFrames(int count) {
    for (int i = 0; i < count; ++i) {
        turnView(10.0);
        pressMain("Append");
    }
}

void MainDialogFixture::turnView(double psiDegrees) {
    vexhost::View3D& view = host().frames().active()->view();
    view.setPsi(view.psi() + psiDegrees);
}

}  // namespace vextest
