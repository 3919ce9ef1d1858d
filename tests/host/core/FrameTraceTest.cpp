#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/TemporaryDirectory.h"
#include "support/TraceLines.h"
#include "vexhost/FrameTrace.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexplot::toolbox::StyleValue;
using vextest::ScopedLock;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class FrameTraceTest : public vextest::HostFixture {
protected:
    void TearDown() override {
        host().trace().close();
        HostFixture::TearDown();
    }

    // A state whose numbers have short exact forms, reached through the SDK.
    void setUpScene(VexAddOn_pa addOn) {
        createFrame3D();
        ScopedLock lock(addOn);
        const StyleValue view("ThreeDView");
        view.set(1.0, "ViewerPosition", "X");
        view.set(2.5, "ViewerPosition", "Y");
        view.set(-3.0, "ViewerPosition", "Z");
        view.set(30.0, "PSIAngle");
        view.set(45.0, "ThetaAngle");
        view.set(0.0, "AlphaAngle");
        view.set(10.0, "ViewWidth");
        VexUtilSolutionTimeSetCurrent(0.25);
        StyleValue("GlobalThreeD", "LightSource").set(50.0, "Intensity");
        StyleValue("GlobalThreeD", "LightSource").set(12.5, "BackgroundLight");
        StyleValue("ThreeDAxis", "FrameAxis", "Show").set(false);
        StyleValue("StreamAttributes", "StreamTiming", "TimeAnchor").set(0.1);
    }

    const vextest::TemporaryDirectory directory_{"vexhost-trace"};
    const std::string path_ = directory_.file("trace.jsonl");
};

TEST_F(FrameTraceTest, RedrawWritesOneLineByteForByte) {
    VexAddOn_pa addOn = registerAddOn();
    setUpScene(addOn);
    host().trace().open(path_);
    {
        ScopedLock lock(addOn);
        VexUtilRedraw(true);
    }
    host().trace().close();
    vextest::TraceFields fields;
    fields.view = {1, 2.5, -3, 30, 45, 0, 10};
    fields.solutionTime = 0.25;
    fields.intensity = 50;
    fields.backgroundLight = 12.5;
    fields.axisShow = false;
    fields.timeAnchor = 0.1;
    EXPECT_EQ(readFile(path_), vextest::traceLine("redraw", fields) + "\n");
}

TEST_F(FrameTraceTest, ExportEventsAndExitAreTraced) {
    VexAddOn_pa addOn = registerAddOn();
    setUpScene(addOn);
    host().trace().open(path_);
    {
        ScopedLock lock(addOn);
        VexUtilExportStart();
        VexUtilExportNextFrame();
        VexUtilExportFinish();
        VexUtilExportStart();
        VexUtilExportCancel();
        VexUtilDrawGraphics(false);
        VexUtilRedraw(true);  // suspended: not drawn, not traced
        VexUtilDrawGraphics(true);
    }
    host().trace().writeExit();
    EXPECT_EQ(host().trace().linesWritten(), 6u);
    host().trace().close();
    std::istringstream lines(readFile(path_));
    std::vector<std::string> events;
    for (std::string line; std::getline(lines, line);)
        events.push_back(line.substr(0, line.find('[') + 1));
    std::vector<std::string> expected;
    for (const char* event :
         {"export-start", "export-frame", "export-finish", "export-start", "export-cancel", "exit"})
        expected.push_back(vextest::traceLineStart(event));
    EXPECT_EQ(events, expected);
}

TEST_F(FrameTraceTest, TwoRunsThatReachTheSameStateWriteTheSameBytes) {
    std::string runs[2];
    for (std::string& run : runs) {
        host().reset();
        VexAddOn_pa addOn = registerAddOn();
        createFrame3D();
        host().trace().open(path_);
        {
            ScopedLock lock(addOn);
            for (int i = 0; i < 5; ++i) {
                VexUtilViewRotate3D(VexRotateAxis_Psi, 7.3, 0, 0, 0,
                                    VexRotateOriginLocation_DefinedOrigin);
                VexUtilViewRotate3D(VexRotateAxis_Theta, -3.1, 0, 0, 0,
                                    VexRotateOriginLocation_DefinedOrigin);
                VexUtilSolutionTimeSetCurrent(i / 3.0);
                VexUtilRedraw(true);
            }
        }
        host().trace().writeExit();
        host().trace().close();
        run = readFile(path_);
    }
    EXPECT_EQ(runs[0], runs[1]);
    EXPECT_NE(runs[0].find("\"solutionTime\": 0.3333333333333333,"), std::string::npos);
}

TEST_F(FrameTraceTest, ClosedTraceWritesNothing) {
    createFrame3D();
    VexAddOn_pa addOn = registerAddOn();
    ScopedLock lock(addOn);
    VexUtilRedraw(true);
    EXPECT_FALSE(host().trace().isOpen());
    EXPECT_EQ(host().trace().linesWritten(), 0u);
}

TEST_F(FrameTraceTest, UnwritableTraceFileIsNamedInTheError) {
    try {
        host().trace().open("/nonexistent-dir/trace.jsonl");
        FAIL() << "opened";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()),
                  "Cannot write the frame trace file \"/nonexistent-dir/trace.jsonl\": No such "
                  "file or directory");
    }
}

}  // namespace
