// Loading a data file into the host: the data set is replaced as a whole, the view fitted, the
// time and streamtrace markers set; a file that fails leaves the host as it was.
#include <gtest/gtest.h>

#include <string>

#include <vtkUnstructuredGrid.h>

#include "TemporaryDirectory.h"
#include "data/SampleData.h"
#include "support/HostFixture.h"
#include "vexhost/DataFileError.h"
#include "vexhost/DataFileLoader.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace {

using vexhost::DataFileLoader;
using vexhost::DataFileOptions;
using vextest::SampleData;

class DataFileLoaderTest : public vextest::HostFixture {
protected:
    std::string file(const std::string& name) const { return directory_.file(name); }

    // A series of three steps at 1, 2 and 4, with the box's uniform flow.
    std::string writeSeries() {
        const double times[] = {1, 2, 4};
        std::vector<std::string> files;
        for (int i = 0; i < 3; ++i) {
            files.push_back("step" + std::to_string(i) + ".vtu");
            SampleData::writeXml(*SampleData::boxAt(2, i), file(files.back()));
        }
        SampleData::writePvd(file("series.pvd"), files, {times[0], times[1], times[2]});
        return file("series.pvd");
    }

private:
    vextest::TemporaryDirectory directory_{"data-loader"};
};

TEST_F(DataFileLoaderTest, ReplacesTheDataSetAndShowsOneStepAtATime) {
    vexhost::Frame& frame = createFrame3D();
    vexhost::DataSet& data = host().dataSet();
    data.addZone(vexhost::Zone{"old", 0, 0, true, nullptr});
    const vexhost::LoadedData loaded = DataFileLoader::load(host(), writeSeries());
    ASSERT_EQ(3, data.zoneCount());
    EXPECT_EQ("series t=1", data.zone(1).name);
    EXPECT_EQ(1.0, data.solutionTime());
    EXPECT_EQ(std::vector<int32_t>{1}, data.zonesShownAt(1.0));
    EXPECT_EQ(std::vector<int32_t>{2}, data.zonesShownAt(3.0));
    EXPECT_EQ(std::vector<int32_t>{3}, data.zonesShownAt(4.0));
    EXPECT_EQ((std::vector<double>{1, 2, 4}), loaded.times);
    // Fitted as a fit asks: centred on the data.
    const vexhost::View3D::Vector& origin = frame.view().rotateOrigin();
    EXPECT_NEAR(1.0, origin[0], 1e-6);
    EXPECT_NEAR(0.5, origin[1], 1e-6);
    EXPECT_NEAR(0.5, origin[2], 1e-6);
    EXPECT_EQ(vexhost::View3D::DefaultPsi, frame.view().psi());
}

TEST_F(DataFileLoaderTest, SpacesStreamtraceMarkersAlongTheLongestTrace) {
    createFrame3D();
    SampleData::writeXml(*SampleData::box(8, 4, 4), file("box.vtu"));
    DataFileOptions options;
    options.streamtraceArray = "flow";
    options.seed.start = {0, 0.5, 0.5};
    options.seed.end = {0, 0.5, 0.6};
    options.seed.count = 2;
    const vexhost::LoadedData loaded = DataFileLoader::load(host(), file("box.vtu"), options);
    ASSERT_EQ(2u, host().dataSet().streamtraces().size());
    float longest = 0;
    for (const auto& trace : loaded.streamtraces)
        longest = std::max(longest, trace->times.back());
    EXPECT_TRUE(host().style().getBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}));
    EXPECT_NEAR(longest / DataFileLoader::MarkersAlongTrace,
                host().style().getDouble({"StreamAttributes", "StreamTiming", "DeltaTime"}), 1e-6);
}

TEST_F(DataFileLoaderTest, AFileThatFailsLeavesTheHostAsItWas) {
    vexhost::Frame& frame = createFrame3D();
    vexhost::DataSet& data = host().dataSet();
    data.addZone(vexhost::Zone{"kept", 0.5, 0, true, nullptr});
    data.setSolutionTime(0.5);
    frame.view().setWidth(3.25);
    SampleData::writeXml(*SampleData::box(2, 2, 2), file("box.vtu"));
    DataFileOptions options;
    options.colourBy = "density";
    EXPECT_THROW(DataFileLoader::load(host(), file("box.vtu"), options), vexhost::DataFileError);
    EXPECT_THROW(DataFileLoader::load(host(), file("missing.vtu")), vexhost::DataFileError);
    ASSERT_EQ(1, data.zoneCount());
    EXPECT_EQ("kept", data.zone(1).name);
    EXPECT_EQ(0.5, data.solutionTime());
    EXPECT_EQ(3.25, frame.view().width());
}

TEST_F(DataFileLoaderTest, NeedsAFrame) {
    SampleData::writeXml(*SampleData::box(2, 2, 2), file("box.vtu"));
    EXPECT_THROW(DataFileLoader::load(host(), file("box.vtu")), std::logic_error);
    EXPECT_EQ(0, host().dataSet().zoneCount());
}

}  // namespace
