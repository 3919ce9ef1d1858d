// The frame every vexplot run animates in: its size, the data set it shows and its fitted view;
// and the options that set it up again in another program.
#include "RunScene.h"

#include <gtest/gtest.h>

#include "CommandLine.h"
#include "support/HostFixture.h"
#include "vexhost/DataFileError.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/View3D.h"

namespace {

using vexplot::app::RunOptions;
using vexplot::app::RunScene;

class RunSceneTest : public vextest::HostFixture {};

TEST_F(RunSceneTest, ShowsTheDemoInAFrameOfTheRunsSizeWithItsViewFitted) {
    RunOptions options;
    options.width = 640;
    options.height = 360;
    RunScene::show(host(), options);
    ASSERT_EQ(1, host().frames().count());
    const vexhost::Frame& frame = *host().frames().active();
    EXPECT_EQ(VexPlotType_Cartesian3D, frame.plotType());
    EXPECT_DOUBLE_EQ(6.4, frame.width());
    EXPECT_DOUBLE_EQ(3.6, frame.height());
    EXPECT_EQ(6, host().dataSet().zoneCount());
    // Fitted: the rotation origin is the centre of the demo's box, no longer the world's origin.
    EXPECT_NE((vexhost::View3D::Vector{0, 0, 0}), frame.view().rotateOrigin());
}

TEST_F(RunSceneTest, WithoutDataTheFrameKeepsANewFramesView) {
    RunOptions options;
    options.data = RunOptions::Data::None;
    RunScene::show(host(), options);
    EXPECT_EQ(0, host().dataSet().zoneCount());
    EXPECT_EQ(vexhost::View3D(), host().frames().active()->view());
}

TEST_F(RunSceneTest, ADataFileThatCannotBeReadLeavesTheFrameEmpty) {
    RunOptions options;
    options.data = RunOptions::Data::File;
    options.dataPath = "no such file.vtu";
    EXPECT_THROW(RunScene::show(host(), options), vexhost::DataFileError);
    EXPECT_EQ(1, host().frames().count());
    EXPECT_EQ(0, host().dataSet().zoneCount());
}

TEST_F(RunSceneTest, ItsArgumentsReadBackAsTheSameScene) {
    RunOptions options;
    options.data = RunOptions::Data::File;
    options.dataPath = "out/hill/hill.pvd";
    options.dataOptions.hiddenBlocks = {"ground", "air"};
    options.width = 640;
    options.height = 360;
    options.addOnPath = "lib/libkeyframe.so";
    const RunOptions read = vexplot::app::CommandLine::parse(RunScene::arguments(options));
    EXPECT_EQ(RunOptions::Data::File, read.data);
    EXPECT_EQ(options.dataPath, read.dataPath);
    EXPECT_EQ(options.dataOptions.hiddenBlocks, read.dataOptions.hiddenBlocks);
    EXPECT_EQ(640, read.width);
    EXPECT_EQ(360, read.height);
    EXPECT_EQ(options.addOnPath, read.addOnPath);

    RunOptions none;
    none.data = RunOptions::Data::None;
    EXPECT_EQ(RunOptions::Data::None,
              vexplot::app::CommandLine::parse(RunScene::arguments(none)).data);
    EXPECT_EQ(RunOptions::Data::Demo,
              vexplot::app::CommandLine::parse(RunScene::arguments(RunOptions())).data);
    EXPECT_EQ(std::vector<std::string>({"--data", "demo", "--size", "800x600"}),
              RunScene::arguments(RunOptions()))
        << "no --addon when the run took the one built with it";
}

}  // namespace
