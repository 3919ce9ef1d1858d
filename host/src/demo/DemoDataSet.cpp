#include "vexhost/DemoDataSet.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

namespace vexhost {
namespace {

// Above the highest point of the surface (0.15 + 0.12), so streamtraces stay visible.
constexpr double kStreamtraceHeight = 0.42;
constexpr int kStreamtracePoints = 200;

// The centre of the bump: three quarters of a circle over the time span 0..1, so no two times of
// the span look alike.
void bumpCentre(double t, double& cx, double& cy) {
    cx = 0.45 * std::cos(1.5 * M_PI * t);
    cy = 0.45 * std::sin(1.5 * M_PI * t);
}

double height(double x, double y, double t) {
    double cx, cy;
    bumpCentre(t, cx, cy);
    const double d2 = (x - cx) * (x - cx) + (y - cy) * (y - cy);
    return 0.15 * std::sin(2.5 * x + 1.5 * M_PI * t) * std::cos(2.0 * y) +
           0.12 * std::exp(-d2 / 0.12);
}

// A "temperature": hot where the bump is, with a ripple drifting across the surface.
double scalar(double x, double y, double t) {
    double cx, cy;
    bumpCentre(t, cx, cy);
    const double d2 = (x - cx) * (x - cx) + (y - cy) * (y - cy);
    return std::exp(-d2 / 0.25) + 0.35 * std::sin(3.0 * y - 2.0 * x + 1.5 * M_PI * t);
}

std::shared_ptr<const ZoneGeometry> surfaceAt(int cells, double t) {
    auto g = std::make_shared<ZoneGeometry>();
    const int side = cells + 1;
    const std::size_t vertices = static_cast<std::size_t>(side) * side;
    g->positions.reserve(3 * vertices);
    g->normals.reserve(3 * vertices);
    g->scalars.reserve(vertices);
    const double eps = 1e-4;
    for (int j = 0; j < side; ++j) {
        const double y = -1.0 + 2.0 * j / cells;
        for (int i = 0; i < side; ++i) {
            const double x = -1.0 + 2.0 * i / cells;
            g->positions.insert(g->positions.end(), {static_cast<float>(x), static_cast<float>(y),
                                                     static_cast<float>(height(x, y, t))});
            const double dx = (height(x + eps, y, t) - height(x - eps, y, t)) / (2 * eps);
            const double dy = (height(x, y + eps, t) - height(x, y - eps, t)) / (2 * eps);
            const double length = std::sqrt(dx * dx + dy * dy + 1.0);
            g->normals.insert(g->normals.end(),
                              {static_cast<float>(-dx / length), static_cast<float>(-dy / length),
                               static_cast<float>(1.0 / length)});
            g->scalars.push_back(static_cast<float>(scalar(x, y, t)));
        }
    }
    g->triangles.reserve(static_cast<std::size_t>(cells) * cells * 6);
    for (int j = 0; j < cells; ++j) {
        for (int i = 0; i < cells; ++i) {
            const auto a = static_cast<uint32_t>(j * side + i);
            const auto b = a + 1;
            const auto c = a + static_cast<uint32_t>(side);
            const auto d = c + 1;
            g->triangles.insert(g->triangles.end(), {a, b, d, a, d, c});
        }
    }
    return g;
}

std::shared_ptr<const Streamtrace> streamtrace(int index, int count) {
    auto trace = std::make_shared<Streamtrace>();
    const double y0 = count > 1 ? -0.6 + 1.2 * index / (count - 1) : 0.0;
    double time = 0;
    double previous[3] = {0, 0, 0};
    for (int k = 0; k < kStreamtracePoints; ++k) {
        const double s = static_cast<double>(k) / (kStreamtracePoints - 1);
        const double p[3] = {-0.95 + 1.9 * s, y0 + 0.18 * std::sin(M_PI * (2.0 * s + 0.5 * index)),
                             kStreamtraceHeight + 0.04 * std::sin(3.0 * M_PI * s + index)};
        if (k > 0) {
            const double length = std::sqrt((p[0] - previous[0]) * (p[0] - previous[0]) +
                                            (p[1] - previous[1]) * (p[1] - previous[1]) +
                                            (p[2] - previous[2]) * (p[2] - previous[2]));
            const double speed = 1.0 + 0.5 * std::sin(2.0 * M_PI * s + index);
            time += length / speed;
        }
        trace->points.insert(
            trace->points.end(),
            {static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])});
        trace->times.push_back(static_cast<float>(time));
        std::copy(p, p + 3, previous);
    }
    return trace;
}

std::string zoneName(double t) {
    std::ostringstream name;
    name << "Surface t=" << t;
    return name.str();
}

}  // namespace

DemoDataSet DemoDataSet::build() {
    return build(Options());
}

DemoDataSet DemoDataSet::build(const Options& options) {
    const bool endTimeOk = std::isfinite(options.endTime) && options.endTime >= 0 &&
                           (options.endTime > 0 || options.timeStepCount == 1);
    if (options.triangleCount < 2 || options.timeStepCount < 1 || !endTimeOk ||
        options.streamtraceCount < 0) {
        std::ostringstream message;
        message << "DemoDataSet::build(): " << options.triangleCount << " triangles, "
                << options.timeStepCount << " time steps up to " << options.endTime << ", "
                << options.streamtraceCount << " streamtraces";
        throw std::invalid_argument(message.str());
    }
    const int cells =
        std::max(1, static_cast<int>(std::lround(std::sqrt(options.triangleCount / 2.0))));

    DemoDataSet set;
    for (int step = 0; step < options.timeStepCount; ++step) {
        // Divided last, so that the times are the nearest doubles to 0.2, 0.4, ... and not sums
        // of rounded steps.
        const double t =
            options.timeStepCount > 1 ? options.endTime * step / (options.timeStepCount - 1) : 0.0;
        set.zones.push_back(Zone{zoneName(t), t, 1, surfaceAt(cells, t)});
    }
    for (int k = 0; k < options.streamtraceCount; ++k) {
        set.streamtraces.push_back(streamtrace(k, options.streamtraceCount));
    }

    bool first = true;
    auto include = [&](const float* p) {
        for (int k = 0; k < 3; ++k) {
            set.boundsMin[k] = first ? p[k] : std::min(set.boundsMin[k], p[k]);
            set.boundsMax[k] = first ? p[k] : std::max(set.boundsMax[k], p[k]);
        }
        first = false;
    };
    for (const Zone& zone : set.zones) {
        for (std::size_t v = 0; v < zone.geometry->vertexCount(); ++v) {
            include(&zone.geometry->positions[3 * v]);
        }
    }
    for (const auto& trace : set.streamtraces) {
        for (std::size_t v = 0; v + 2 < trace->points.size(); v += 3) {
            include(&trace->points[v]);
        }
    }
    const auto& scalars0 = set.zones.front().geometry->scalars;
    set.scalarMin = set.scalarMax = scalars0.front();
    for (const Zone& zone : set.zones) {
        const auto range =
            std::minmax_element(zone.geometry->scalars.begin(), zone.geometry->scalars.end());
        set.scalarMin = std::min(set.scalarMin, *range.first);
        set.scalarMax = std::max(set.scalarMax, *range.second);
    }
    return set;
}

}  // namespace vexhost
