#include "support/HostFixture.h"

#include "addon/ResetAddOnState.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/HostErrors.h"
#include "vexhost/LockState.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/Zone.h"

namespace vextest {

using vexhost::Bookkeeping;

void HostFixture::SetUp() {
    // The add-on's state from a test before belongs to the host about to be reset: it goes while
    // that host still knows it.
    vexplot::vexutiltools::resetAddOnState();
    host().reset();
}

void HostFixture::TearDown() {
    // Before the checks, so they also see what dropping the add-on's state leaves behind.
    vexplot::vexutiltools::resetAddOnState();
    vexhost::Host& h = host();
    EXPECT_TRUE(h.errors().empty()) << "host errors:\n"
                                    << ::testing::PrintToString(h.errors().texts());
    EXPECT_EQ(h.lock().depth(), 0) << "a lock is still held";
    EXPECT_FALSE(h.drawing().isSuspended()) << "drawing is still suspended";
    EXPECT_FALSE(h.progress().isOpen())
        << "the percent-done status \"" << h.progress().text() << "\" is still open";
    EXPECT_FALSE(h.exporter().isRecording()) << "an export is still recording";
    // A modal dialog left up holds the add-on's lock and takes every other dialog's input.
    for (int32_t id : h.guiModel().modalDialogsUp())
        ADD_FAILURE() << "the modal dialog \"" << h.guiModel().dialog(id)->title
                      << "\" is still up";
    const Bookkeeping& memory = h.bookkeeping();
    EXPECT_EQ(memory.outstanding(Bookkeeping::Kind::String), 0u) << "host strings leaked";
    EXPECT_EQ(memory.outstanding(Bookkeeping::Kind::Array), 0u) << "host arrays leaked";
    EXPECT_EQ(memory.outstanding(Bookkeeping::Kind::Set), 0u) << "host sets leaked";
    EXPECT_EQ(memory.outstanding(Bookkeeping::Kind::StringList), 0u) << "host string lists leaked";
}

vexhost::Frame& HostFixture::createFrame3D() {
    return createFrame(VexPlotType_Cartesian3D);
}

vexhost::Frame& HostFixture::createFrame(VexPlotType_e plotType) {
    return host().frames().create(plotType);
}

int32_t HostFixture::addZone(double solutionTime, int32_t strandId, const std::string& name) {
    vexhost::Zone zone;
    zone.name = name;
    zone.solutionTime = solutionTime;
    zone.strandId = strandId;
    return host().dataSet().addZone(std::move(zone));
}

VexAddOn_pa HostFixture::registerAddOn(const char* name) {
    VexUtilLockOn();
    VexAddOn_pa addOn = VexUtilAddOnRegister(110, name, "1.0", "Test Maker");
    VexUtilLockOff();
    return addOn;
}

std::vector<std::string> HostFixture::takeHostErrors() {
    return host().errors().take();
}

void HostFixture::startCallLog() {
    host().callLog().clear();
    host().callLog().setEnabled(true);
}

std::vector<std::string> HostFixture::takeCallLog() {
    return host().callLog().take();
}

}  // namespace vextest
