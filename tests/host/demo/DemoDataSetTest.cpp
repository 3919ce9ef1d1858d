// The built-in transient data set.
#include "vexhost/DemoDataSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vexhost {
namespace {

TEST(DemoDataSetTest, HasSixZonesOfOneStrandAtTimesZeroToOne) {
    const DemoDataSet set = DemoDataSet::build();
    ASSERT_EQ(set.zones.size(), 6u);
    const double times[] = {0, 0.2, 0.4, 0.6, 0.8, 1.0};
    const char* names[] = {"Surface t=0",   "Surface t=0.2", "Surface t=0.4",
                           "Surface t=0.6", "Surface t=0.8", "Surface t=1"};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(set.zones[i].solutionTime, times[i]) << "zone " << i;
        EXPECT_EQ(set.zones[i].name, names[i]);
        EXPECT_EQ(set.zones[i].strandId, 1);
        ASSERT_NE(set.zones[i].geometry, nullptr);
    }
}

TEST(DemoDataSetTest, TriangleCountFollowsTheOption) {
    EXPECT_EQ(DemoDataSet::build().zones[0].geometry->triangleCount(), 20000u);
    DemoDataSet::Options options;
    options.triangleCount = 100000;
    options.timeStepCount = 1;
    const std::size_t count = DemoDataSet::build(options).zones[0].geometry->triangleCount();
    EXPECT_NEAR(static_cast<double>(count), 100000.0, 1000.0);
}

TEST(DemoDataSetTest, GeometryArraysFitTogether) {
    const DemoDataSet set = DemoDataSet::build();
    for (const auto& zone : set.zones) {
        const ZoneGeometry& g = *zone.geometry;
        ASSERT_EQ(g.positions.size() % 3, 0u);
        ASSERT_EQ(g.normals.size(), g.positions.size());
        ASSERT_EQ(g.scalars.size(), g.vertexCount());
        for (uint32_t index : g.triangles) {
            ASSERT_LT(index, g.vertexCount());
        }
        for (std::size_t v = 0; v < g.vertexCount(); ++v) {
            const float* n = &g.normals[3 * v];
            ASSERT_NEAR(n[0] * n[0] + n[1] * n[1] + n[2] * n[2], 1.0f, 1e-5f);
        }
    }
}

TEST(DemoDataSetTest, SurfaceChangesFromOneTimeStepToTheNext) {
    const DemoDataSet set = DemoDataSet::build();
    for (std::size_t i = 1; i < set.zones.size(); ++i) {
        EXPECT_NE(set.zones[i].geometry->scalars, set.zones[i - 1].geometry->scalars);
        EXPECT_NE(set.zones[i].geometry->positions, set.zones[i - 1].geometry->positions);
    }
    // Not periodic over the span: the last step does not repeat the first.
    EXPECT_NE(set.zones.back().geometry->scalars, set.zones.front().geometry->scalars);
}

TEST(DemoDataSetTest, StreamtracesRunAboveTheSurfaceWithAscendingTimes) {
    const DemoDataSet set = DemoDataSet::build();
    ASSERT_EQ(set.streamtraces.size(), 4u);
    float surfaceTop = -INFINITY;
    for (const auto& zone : set.zones) {
        for (std::size_t v = 2; v < zone.geometry->positions.size(); v += 3) {
            surfaceTop = std::max(surfaceTop, zone.geometry->positions[v]);
        }
    }
    for (const auto& trace : set.streamtraces) {
        ASSERT_EQ(trace->points.size(), 3 * trace->times.size());
        EXPECT_EQ(trace->times.front(), 0.0f);
        EXPECT_TRUE(std::is_sorted(trace->times.begin(), trace->times.end()));
        EXPECT_GT(trace->times.back(), 1.0f);
        for (std::size_t v = 2; v < trace->points.size(); v += 3) {
            EXPECT_GT(trace->points[v], surfaceTop);
        }
    }
}

TEST(DemoDataSetTest, BoundsAndScalarRangeCoverEveryZone) {
    const DemoDataSet set = DemoDataSet::build();
    bool minimumReached = false;
    bool maximumReached = false;
    for (const auto& zone : set.zones) {
        const ZoneGeometry& g = *zone.geometry;
        for (std::size_t v = 0; v < g.vertexCount(); ++v) {
            for (int k = 0; k < 3; ++k) {
                EXPECT_GE(g.positions[3 * v + k], set.boundsMin[k]);
                EXPECT_LE(g.positions[3 * v + k], set.boundsMax[k]);
            }
            EXPECT_GE(g.scalars[v], set.scalarMin);
            EXPECT_LE(g.scalars[v], set.scalarMax);
            minimumReached = minimumReached || g.scalars[v] == set.scalarMin;
            maximumReached = maximumReached || g.scalars[v] == set.scalarMax;
        }
    }
    EXPECT_TRUE(minimumReached);
    EXPECT_TRUE(maximumReached);
    EXPECT_LT(set.scalarMin, set.scalarMax);
}

TEST(DemoDataSetTest, OneTimeStepStandsAtTimeZero) {
    DemoDataSet::Options options;
    options.timeStepCount = 1;
    const DemoDataSet set = DemoDataSet::build(options);
    ASSERT_EQ(set.zones.size(), 1u);
    EXPECT_EQ(set.zones[0].solutionTime, 0.0);
}

TEST(DemoDataSetTest, OptionsThatMakeNoDataSetAreRefused) {
    DemoDataSet::Options options;
    options.triangleCount = 1;
    EXPECT_THROW(DemoDataSet::build(options), std::invalid_argument);
    options = DemoDataSet::Options();
    options.timeStepCount = 0;
    EXPECT_THROW(DemoDataSet::build(options), std::invalid_argument);
    options = DemoDataSet::Options();
    options.endTime = NAN;
    EXPECT_THROW(DemoDataSet::build(options), std::invalid_argument);
    options = DemoDataSet::Options();
    options.endTime = 0;
    EXPECT_THROW(DemoDataSet::build(options), std::invalid_argument);
    options = DemoDataSet::Options();
    options.streamtraceCount = -1;
    EXPECT_THROW(DemoDataSet::build(options), std::invalid_argument);
}

}  // namespace
}  // namespace vexhost
