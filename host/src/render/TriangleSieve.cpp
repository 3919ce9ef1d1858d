#include "render/TriangleSieve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

namespace vexhost {
namespace {

// Below this many vertices or triangles per worker, starting a thread costs more than it saves.
constexpr std::size_t kMinPerWorker = 32768;

std::size_t workersFor(std::size_t items) {
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    return std::max<std::size_t>(1, std::min(cores, items / kMinPerWorker));
}

// Runs work(first, last, worker) over [0, items) split into contiguous parts, the last part on
// the calling thread.
template <typename Work>
void spread(std::size_t items, std::size_t workers, const Work& work) {
    std::vector<std::thread> threads;
    threads.reserve(workers - 1);
    const std::size_t share = (items + workers - 1) / workers;
    for (std::size_t w = 0; w + 1 < workers; ++w) {
        threads.emplace_back(work, w * share, std::min(items, (w + 1) * share), w);
    }
    const std::size_t w = workers - 1;
    work(std::min(items, w * share), items, w);
    for (std::thread& thread : threads) {
        thread.join();
    }
}

// floor() for values already clamped to a small range: std::floor is a library call on the
// processors this is built for, and this runs for every triangle.
inline int floorOf(float v) {
    const int i = static_cast<int>(v);
    return i > v ? i - 1 : i;
}

// The pixel centres k + 0.5 (0 <= k < size) within [low, high] widened by the margin, as the
// first and last k; none when first > last.
struct CentreRange {
    int first;
    int last;
    CentreRange(float low, float high, float size) {
        // Clamped first, so that coordinates far outside the picture convert safely.
        low = std::min(std::max(low - TriangleSieve::kMargin - 0.5f, -1.0f), size);
        high = std::min(std::max(high + TriangleSieve::kMargin - 0.5f, -1.0f), size);
        first = std::max(0, -floorOf(-low));
        last = std::min(static_cast<int>(size) - 1, floorOf(high));
    }
    bool empty() const { return first > last; }
    int count() const { return last - first + 1; }
};

// A triangle whose box holds more pixel centres than this is kept without testing them: it is
// large enough to cover one, and few triangles of a dense surface are.
constexpr int kMaxCentresTested = 4;
constexpr float kMargin2 = TriangleSieve::kMargin * TriangleSieve::kMargin;

// Whether the point lies in the triangle (a, b, c) or within the margin of it, whichever the
// triangle's winding; a triangle of no area counts as the segments between its corners.
inline bool nearTriangle(float px, float py, const float a[2], const float b[2], const float c[2]) {
    const float* corners[3] = {a, b, c};
    bool allAbove = true;
    bool allBelow = true;
    for (int i = 0; i < 3; ++i) {
        const float* from = corners[i];
        const float* to = corners[(i + 1) % 3];
        const float dx = to[0] - from[0];
        const float dy = to[1] - from[1];
        // Twice the signed area of (from, to, p): the point's distance from the edge's line
        // times the edge's length, compared in squares to spare a square root.
        const float side = dx * (py - from[1]) - dy * (px - from[0]);
        const bool near = side * side <= kMargin2 * (dx * dx + dy * dy);
        allAbove = allAbove && (side >= 0 || near);
        allBelow = allBelow && (side <= 0 || near);
    }
    return allAbove || allBelow;
}

inline void keep(std::vector<uint32_t>& kept, uint32_t a, uint32_t b, uint32_t c) {
    kept.push_back(a);
    kept.push_back(b);
    kept.push_back(c);
}

}  // namespace

void TriangleSieve::aim(const std::array<float, 16>& modelView,
                        const std::array<float, 16>& projection, int width, int height) {
    modelView_ = modelView;
    projection_ = projection;
    width_ = static_cast<float>(width);
    height_ = static_cast<float>(height);
}

bool TriangleSieve::precise(const BoundingBox& box) const {
    if (box.empty) {
        return true;
    }
    // An eye coordinate is a sum of four products; in float each of the shader's and this class's
    // is off by at most 4 epsilon times the sum of the terms' sizes (rotation entries are at most
    // 1 in size).
    double coordinates = 0;
    double translation = 0;
    for (int k = 0; k < 3; ++k) {
        coordinates += std::max(std::abs(box.min[k]), std::abs(box.max[k]));
        translation = std::max(translation, std::abs(static_cast<double>(modelView_[12 + k])));
    }
    const double eyeError =
        2 * 4 * std::numeric_limits<float>::epsilon() * (coordinates + translation);
    // Pixels per eye unit: the projection's scale, and for a perspective picture (w = -z_eye) its
    // largest value, at the near plane, with room for the change of w itself. The near plane's
    // distance comes back out of the projection: p10 = -(f + n) / (f - n), p14 = -2 f n / (f - n).
    double pixelsPerUnit =
        std::max(std::abs(projection_[0]) * width_, std::abs(projection_[5]) * height_) / 2;
    if (projection_[11] != 0) {
        const double near = projection_[14] / (projection_[10] - 1);
        if (!(near > 0)) {
            return false;
        }
        pixelsPerUnit *= 3 / near;
    }
    // The rest: the window coordinates' own float rounding, and the rasteriser's sub-pixel grid.
    const double windowError =
        4 * std::numeric_limits<float>::epsilon() * std::max(width_, height_) + 1.0 / 256;
    const double error = eyeError * pixelsPerUnit + windowError;
    return std::isfinite(error) && error < kMargin / 2;
}

void TriangleSieve::sift(const std::vector<float>& positions,
                         const std::vector<uint32_t>& triangles, std::vector<uint32_t>& kept) {
    const std::size_t vertices = positions.size() / 3;
    window_.resize(2 * vertices);
    spread(vertices, workersFor(vertices), [&](std::size_t first, std::size_t last, std::size_t) {
        projectVertices(positions.data(), first, last);
    });

    const std::size_t count = triangles.size() / 3;
    const std::size_t workers = workersFor(count);
    parts_.resize(workers);
    spread(count, workers, [&](std::size_t first, std::size_t last, std::size_t w) {
        std::vector<uint32_t>& part = w + 1 == workers ? kept : parts_[w];
        siftTriangles(triangles.data(), first, last, part);
    });
    // The calling thread's part (the last) is already in kept; put the others before it.
    if (workers > 1) {
        std::size_t before = 0;
        for (std::size_t w = 0; w + 1 < workers; ++w) {
            before += parts_[w].size();
        }
        kept.insert(kept.begin(), before, 0);
        auto out = kept.begin();
        for (std::size_t w = 0; w + 1 < workers; ++w) {
            out = std::copy(parts_[w].begin(), parts_[w].end(), out);
        }
    }
}

void TriangleSieve::projectVertices(const float* positions, std::size_t first, std::size_t last) {
    const float* v = modelView_.data();
    const float* p = projection_.data();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (std::size_t i = first; i < last; ++i) {
        const float x = positions[3 * i], y = positions[3 * i + 1], z = positions[3 * i + 2];
        // In two steps, as the vertex shader does: eye coordinates, then clip coordinates.
        const float ex = v[0] * x + v[4] * y + v[8] * z + v[12];
        const float ey = v[1] * x + v[5] * y + v[9] * z + v[13];
        const float ez = v[2] * x + v[6] * y + v[10] * z + v[14];
        const float cx = p[0] * ex + p[4] * ey + p[8] * ez + p[12];
        const float cy = p[1] * ex + p[5] * ey + p[9] * ez + p[13];
        const float cz = p[2] * ex + p[6] * ey + p[10] * ez + p[14];
        const float cw = p[3] * ex + p[7] * ey + p[11] * ez + p[15];
        // Written so that a NaN anywhere fails the test and the vertex counts as outside.
        const bool inside = cw > 0 && cz >= -cw && cz <= cw;
        window_[2 * i] = inside ? (cx / cw * 0.5f + 0.5f) * width_ : nan;
        window_[2 * i + 1] = inside ? (cy / cw * 0.5f + 0.5f) * height_ : nan;
    }
}

void TriangleSieve::siftTriangles(const uint32_t* triangles, std::size_t first, std::size_t last,
                                  std::vector<uint32_t>& kept) const {
    kept.clear();
    const float* w = window_.data();
    for (std::size_t t = first; t < last; ++t) {
        const uint32_t ia = triangles[3 * t], ib = triangles[3 * t + 1], ic = triangles[3 * t + 2];
        const float* a = &w[2 * ia];
        const float* b = &w[2 * ib];
        const float* c = &w[2 * ic];
        if (std::isnan(a[0]) || std::isnan(b[0]) || std::isnan(c[0])) {
            keep(kept, ia, ib, ic);  // clipping is OpenGL's
            continue;
        }
        const CentreRange columns(std::min(a[0], std::min(b[0], c[0])),
                                  std::max(a[0], std::max(b[0], c[0])), width_);
        const CentreRange rows(std::min(a[1], std::min(b[1], c[1])),
                               std::max(a[1], std::max(b[1], c[1])), height_);
        if (columns.empty() || rows.empty()) {
            continue;
        }
        bool covers = columns.count() * rows.count() > kMaxCentresTested;
        for (int y = rows.first; !covers && y <= rows.last; ++y) {
            for (int x = columns.first; !covers && x <= columns.last; ++x) {
                covers = nearTriangle(static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f, a,
                                      b, c);
            }
        }
        if (covers) {
            keep(kept, ia, ib, ic);
        }
    }
}

}  // namespace vexhost
