// Data files written with VTK's own writers, read back through the host's reader: zones, times,
// triangles, bounds and scalars are what the files hold.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <vtkImageData.h>
#include <vtkPolyData.h>
#include <vtkUnstructuredGrid.h>

#include "TemporaryDirectory.h"
#include "data/SampleData.h"
#include "vexhost/DataFileReader.h"

namespace {

using vexhost::DataFileOptions;
using vexhost::DataFileReader;
using vexhost::LoadedData;
using vextest::SampleData;

// The unit plane of n x n quads: 2 n^2 triangles.
constexpr int kPlane = 4;
constexpr std::size_t kPlaneTriangles = 2 * kPlane * kPlane;
// The 2 x 1 x 1 box of 4 x 2 x 2 hexahedra: its outer surface.
constexpr int kBoxX = 4, kBoxY = 2, kBoxZ = 2;
constexpr std::size_t kBoxTriangles = 4 * (kBoxX * kBoxY + kBoxY * kBoxZ + kBoxZ * kBoxX);

class DataFileReaderTest : public ::testing::Test {
protected:
    std::string file(const std::string& name) const { return directory_.file(name); }

    static void expectBounds(const LoadedData& data, std::vector<float> min,
                             std::vector<float> max) {
        for (int k = 0; k < 3; ++k) {
            EXPECT_NEAR(min[k], data.boundsMin[k], 1e-6) << "axis " << k;
            EXPECT_NEAR(max[k], data.boundsMax[k], 1e-6) << "axis " << k;
        }
    }

private:
    vextest::TemporaryDirectory directory_{"data-reader"};
};

struct Encoded {
    const char* name;
    SampleData::Encoding encoding;
};

class DataFileReaderEncodingTest : public DataFileReaderTest,
                                   public ::testing::WithParamInterface<Encoded> {};

TEST_P(DataFileReaderEncodingTest, ReadsAnUnstructuredVolumeAsItsOuterSurface) {
    SampleData::writeXml(*SampleData::box(kBoxX, kBoxY, kBoxZ), file("box.vtu"),
                         GetParam().encoding);
    const LoadedData data = DataFileReader::read(file("box.vtu"));
    ASSERT_EQ(1u, data.zones.size());
    EXPECT_EQ("box", data.zones[0].name);
    EXPECT_EQ(0, data.zones[0].strandId);
    EXPECT_EQ(0.0, data.zones[0].solutionTime);
    EXPECT_EQ(kBoxTriangles, data.triangleCount());
    expectBounds(data, {0, 0, 0}, {2, 1, 1});
    EXPECT_EQ("temperature", data.colourVariable);
    // temperature = x over the box.
    const vexhost::ZoneGeometry& g = *data.zones[0].geometry;
    ASSERT_EQ(g.vertexCount(), g.scalars.size());
    for (std::size_t v = 0; v < g.vertexCount(); ++v)
        ASSERT_NEAR(g.positions[3 * v], g.scalars[v], 1e-6);
}

INSTANTIATE_TEST_SUITE_P(Encodings, DataFileReaderEncodingTest,
                         ::testing::Values(Encoded{"Ascii", SampleData::Encoding::Ascii},
                                           Encoded{"Binary", SampleData::Encoding::Binary},
                                           Encoded{"AppendedRawZlib",
                                                   SampleData::Encoding::AppendedRawZlib}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(DataFileReaderTest, ReadsPolygonalDataTriangulated) {
    SampleData::writeXml(*SampleData::plane(kPlane), file("plane.vtp"));
    const LoadedData data = DataFileReader::read(file("plane.vtp"));
    ASSERT_EQ(1u, data.zones.size());
    EXPECT_EQ(kPlaneTriangles, data.triangleCount());
    expectBounds(data, {0, 0, 0}, {1, 1, 0});
}

TEST_F(DataFileReaderTest, ReadsStructuredRectilinearAndImageData) {
    SampleData::writeStructured(kBoxX, kBoxY, kBoxZ, file("box.vts"));
    SampleData::writeRectilinear(kBoxX, kBoxY, kBoxZ, file("box.vtr"));
    SampleData::writeXml(*SampleData::boxImage(kBoxX, kBoxY, kBoxZ), file("box.vti"));
    for (const char* name : {"box.vts", "box.vtr", "box.vti"}) {
        SCOPED_TRACE(name);
        const LoadedData data = DataFileReader::read(file(name));
        ASSERT_EQ(1u, data.zones.size());
        EXPECT_EQ("box", data.zones[0].name);
        EXPECT_EQ(kBoxTriangles, data.triangleCount());
        expectBounds(data, {0, 0, 0}, {2, 1, 1});
        EXPECT_EQ("temperature", data.colourVariable);
    }
}

TEST_F(DataFileReaderTest, ReadsEachBlockOfAMultiblockFileAsAZoneNamedAfterIt) {
    SampleData::writeMultiBlock(file("case.vtm"));
    const LoadedData data = DataFileReader::read(file("case.vtm"));
    ASSERT_EQ(2u, data.zones.size());
    EXPECT_EQ("case wall", data.zones[0].name);
    EXPECT_EQ("case fluid", data.zones[1].name);
    EXPECT_EQ(kPlaneTriangles, data.zones[0].geometry->triangleCount());
    EXPECT_EQ(4u * 3 * 2 * 2, data.zones[1].geometry->triangleCount());
    for (const vexhost::Zone& zone : data.zones)
        EXPECT_EQ(0, zone.strandId);
    expectBounds(data, {0, 0, 0}, {2, 1, 1});
}

TEST_F(DataFileReaderTest, AHiddenBlockKeepsItsZoneDisabledWithoutASurface) {
    SampleData::writeMultiBlock(file("case.vtm"));
    DataFileOptions options;
    options.hiddenBlocks = {"wall"};
    const LoadedData data = DataFileReader::read(file("case.vtm"), options);
    ASSERT_EQ(2u, data.zones.size());
    EXPECT_FALSE(data.zones[0].enabled);
    EXPECT_EQ(nullptr, data.zones[0].geometry);
    EXPECT_TRUE(data.zones[1].enabled);
    EXPECT_EQ(4u * 3 * 2 * 2, data.triangleCount());
    expectBounds(data, {0, 0, 0}, {2, 1, 1});
}

TEST_F(DataFileReaderTest, ReadsLegacyStlPlyAndObjSurfaces) {
    SampleData::writeLegacy(*SampleData::box(kBoxX, kBoxY, kBoxZ), file("box.vtk"));
    SampleData::writeStl(*SampleData::plane(kPlane), file("plane.stl"));
    SampleData::writePly(*SampleData::plane(kPlane), file("plane.ply"));
    SampleData::writeObj(*SampleData::plane(kPlane), file("plane.obj"));
    const LoadedData legacy = DataFileReader::read(file("box.vtk"));
    EXPECT_EQ(kBoxTriangles, legacy.triangleCount());
    EXPECT_EQ("temperature", legacy.colourVariable);
    expectBounds(legacy, {0, 0, 0}, {2, 1, 1});
    for (const char* name : {"plane.stl", "plane.ply", "plane.obj"}) {
        SCOPED_TRACE(name);
        const LoadedData data = DataFileReader::read(file(name));
        ASSERT_EQ(1u, data.zones.size());
        EXPECT_EQ("plane", data.zones[0].name);
        EXPECT_EQ(kPlaneTriangles, data.triangleCount());
        expectBounds(data, {0, 0, 0}, {1, 1, 0});
    }
}

TEST_F(DataFileReaderTest, UpperCaseExtensionsAreRead) {
    SampleData::writeXml(*SampleData::plane(kPlane), file("plane.vtp"));
    std::filesystem::rename(file("plane.vtp"), file("PLANE.VTP"));
    EXPECT_EQ(kPlaneTriangles, DataFileReader::read(file("PLANE.VTP")).triangleCount());
}

TEST_F(DataFileReaderTest, ASingleFileCarriesItsOwnTime) {
    vtkSmartPointer<vtkPolyData> plane = SampleData::plane(kPlane);
    SampleData::setTime(*plane, 2.5);
    SampleData::writeXml(*plane, file("plane.vtp"));
    const LoadedData data = DataFileReader::read(file("plane.vtp"));
    EXPECT_EQ(2.5, data.zones.at(0).solutionTime);
    EXPECT_EQ(std::vector<double>{2.5}, data.times);
}

TEST_F(DataFileReaderTest, APvdSeriesIsOneZonePerStepOfOneStrandAtItsTimes) {
    const std::vector<double> times = {0.0, 0.5, 1.25};
    std::vector<std::string> files;
    for (std::size_t i = 0; i < times.size(); ++i) {
        files.push_back("steps/flow_" + std::to_string(i) + ".vtu");
        std::filesystem::create_directories(file("steps"));
        SampleData::writeXml(*SampleData::boxAt(2, 10.0 * i), file(files.back()));
    }
    // Listed out of order: steps go by time.
    SampleData::writePvd(file("flow.pvd"), {files[2], files[0], files[1]},
                         {times[2], times[0], times[1]});
    const LoadedData data = DataFileReader::read(file("flow.pvd"));
    ASSERT_EQ(3u, data.zones.size());
    EXPECT_EQ(times, data.times);
    for (std::size_t i = 0; i < times.size(); ++i) {
        const vexhost::Zone& zone = data.zones[i];
        EXPECT_EQ(times[i], zone.solutionTime);
        EXPECT_EQ(1, zone.strandId);
        const std::string time = i == 0 ? "0" : i == 1 ? "0.5" : "1.25";
        EXPECT_EQ("flow t=" + time, zone.name);
        // Each step's own values: temperature = x + 10 i.
        EXPECT_NEAR(zone.geometry->positions[0] + 10.0 * i, zone.geometry->scalars[0], 1e-5);
    }
}

TEST_F(DataFileReaderTest, PartsOfAPvdStepAreStrandsOfTheirOwn) {
    SampleData::writeXml(*SampleData::plane(kPlane), file("wall.vtp"));
    SampleData::writeXml(*SampleData::box(2, 2, 2), file("fluid.vtu"));
    SampleData::writePvd(file("case.pvd"), {"wall.vtp", "fluid.vtu", "wall.vtp", "fluid.vtu"},
                         {0, 0, 1, 1}, {0, 1, 0, 1});
    const LoadedData data = DataFileReader::read(file("case.pvd"));
    ASSERT_EQ(4u, data.zones.size());
    const int strands[] = {1, 2, 1, 2};
    const double zoneTimes[] = {0, 0, 1, 1};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(strands[i], data.zones[i].strandId) << i;
        EXPECT_EQ(zoneTimes[i], data.zones[i].solutionTime) << i;
    }
    EXPECT_EQ((std::vector<double>{0, 1}), data.times);
}

TEST_F(DataFileReaderTest, ANumberedSeriesGoesByNumberWithTheFilesOwnTimes) {
    for (int i : {10, 0, 2}) {
        vtkSmartPointer<vtkUnstructuredGrid> step = SampleData::boxAt(2, i);
        SampleData::setTime(*step, 0.1 * i);
        char name[32];
        std::snprintf(name, sizeof name, "run_%04d.vtu", i);
        SampleData::writeXml(*step, file(name));
    }
    std::ofstream(file("run_notes.vtu")) << "not a step";
    const LoadedData data = DataFileReader::read(file("run_*.vtu"));
    ASSERT_EQ(3u, data.zones.size());
    EXPECT_EQ((std::vector<double>{0, 0.2, 1.0}), data.times);
    EXPECT_EQ("run t=0", data.zones[0].name);
    EXPECT_EQ("run t=1", data.zones[2].name);
    for (const vexhost::Zone& zone : data.zones)
        EXPECT_EQ(1, zone.strandId);
}

TEST_F(DataFileReaderTest, ANumberedSeriesWithoutTimesTakesTheNumbers) {
    for (int i : {3, 7})
        SampleData::writeXml(*SampleData::plane(2), file("s" + std::to_string(i) + ".vtp"));
    const LoadedData data = DataFileReader::read(file("s*.vtp"));
    EXPECT_EQ((std::vector<double>{3, 7}), data.times);
}

TEST_F(DataFileReaderTest, ColoursByANamedPointArrayComponentOrMagnitude) {
    SampleData::writeXml(*SampleData::plane(kPlane), file("plane.vtp"));
    struct Case {
        const char* request;
        const char* title;
    };
    for (const Case& c :
         {Case{"temperature", "temperature"}, Case{"velocity", "velocity magnitude"},
          Case{"velocity:Y", "velocity Y"}, Case{"velocity:1", "velocity Y"},
          Case{"velocity:magnitude", "velocity magnitude"}}) {
        SCOPED_TRACE(c.request);
        DataFileOptions options;
        options.colourBy = c.request;
        const LoadedData data = DataFileReader::read(file("plane.vtp"), options);
        EXPECT_EQ(c.title, data.colourVariable);
        const vexhost::ZoneGeometry& g = *data.zones.at(0).geometry;
        ASSERT_EQ(g.vertexCount(), g.scalars.size());
        for (std::size_t v = 0; v < g.vertexCount(); ++v) {
            const double x = g.positions[3 * v], y = g.positions[3 * v + 1];
            const double expected = std::string(c.request) == "temperature" ? x
                                    : std::string(c.title) == "velocity Y"
                                        ? 2 * y
                                        : std::sqrt(1 + 4 * y * y);
            ASSERT_NEAR(expected, g.scalars[v], 1e-5) << v;
        }
    }
}

TEST_F(DataFileReaderTest, ACellArrayGivesEachTriangleItsCellsOneValue) {
    SampleData::writeXml(*SampleData::plane(2), file("plane.vtp"));
    DataFileOptions options;
    options.colourBy = "pressure";
    const LoadedData data = DataFileReader::read(file("plane.vtp"), options);
    const vexhost::ZoneGeometry& g = *data.zones.at(0).geometry;
    // 4 quads, 8 triangles of three vertices each; the two triangles of quad q carry q.
    ASSERT_EQ(8u, g.triangleCount());
    ASSERT_EQ(24u, g.vertexCount());
    for (std::size_t t = 0; t < 8; ++t) {
        for (int corner = 0; corner < 3; ++corner)
            EXPECT_EQ(static_cast<float>(t / 2), g.scalars[g.triangles[3 * t + corner]]) << t;
    }
}

TEST_F(DataFileReaderTest, WithoutArraysTheSurfaceHasNoScalarsAndNoLegend) {
    SampleData::writeStl(*SampleData::plane(kPlane), file("plane.stl"));
    const LoadedData data = DataFileReader::read(file("plane.stl"));
    EXPECT_EQ("", data.colourVariable);
    EXPECT_TRUE(data.zones.at(0).geometry->scalars.empty());
}

TEST_F(DataFileReaderTest, StreamtracesFollowTheFlowWithGrowingTravelTime) {
    SampleData::writeXml(*SampleData::box(8, 4, 4), file("box.vtu"));
    DataFileOptions options;
    options.streamtraceArray = "flow";
    options.seed.kind = DataFileOptions::Seed::Kind::Line;
    options.seed.start = {0.05, 0.2, 0.2};
    options.seed.end = {0.05, 0.8, 0.2};
    options.seed.count = 4;
    const LoadedData data = DataFileReader::read(file("box.vtu"), options);
    ASSERT_EQ(4u, data.streamtraces.size());
    for (const auto& trace : data.streamtraces) {
        ASSERT_GE(trace->times.size(), 2u);
        ASSERT_EQ(3 * trace->times.size(), trace->points.size());
        EXPECT_FLOAT_EQ(0.0f, trace->times.front());
        for (std::size_t i = 1; i < trace->times.size(); ++i) {
            EXPECT_GT(trace->times[i], trace->times[i - 1]);
            // flow = (1, 0, 0.25 z): x grows with travel time at unit speed, y stays.
            EXPECT_NEAR(0.05 + trace->times[i], trace->points[3 * i], 1e-3);
            EXPECT_NEAR(trace->points[1], trace->points[3 * i + 1], 1e-5);
            EXPECT_GT(trace->points[3 * i + 2], trace->points[3 * i - 1]);
        }
        // It runs to the far side of the box.
        EXPECT_GT(trace->points[trace->points.size() - 3], 1.9f);
    }
}

TEST_F(DataFileReaderTest, APlaneSeedStartsAGridOfStreamtraces) {
    SampleData::writeXml(*SampleData::boxImage(8, 4, 4), file("box.vti"));
    DataFileOptions options;
    options.streamtraceArray = "flow";
    options.seed.kind = DataFileOptions::Seed::Kind::Plane;
    options.seed.start = {0.1, 0.2, 0.2};
    options.seed.end = {0.1, 0.8, 0.2};
    options.seed.across = {0.1, 0.2, 0.6};
    options.seed.count = 3;
    options.seed.countAcross = 2;
    EXPECT_EQ(6u, DataFileReader::read(file("box.vti"), options).streamtraces.size());
}

TEST_F(DataFileReaderTest, ExtensionsAreListedInOneOrder) {
    EXPECT_EQ((std::vector<std::string>{".vtu", ".vtp", ".vts", ".vtr", ".vti", ".vtm", ".pvd",
                                        ".vtk", ".stl", ".ply", ".obj"}),
              DataFileReader::extensions());
}

}  // namespace
