#include "render/CameraPathMarks.h"

#include <array>
#include <cmath>

namespace vexhost {
namespace {

using Vector = std::array<double, 3>;

Vector at(const CameraPath& path, std::size_t frame) {
    return {path.positions[3 * frame], path.positions[3 * frame + 1],
            path.positions[3 * frame + 2]};
}

Vector cross(const Vector& a, const double b[3]) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double norm(const Vector& v) {
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

void push(std::vector<float>& out, const Vector& p) {
    for (double c : p) {
        out.push_back(static_cast<float>(c));
    }
}

// The arrowhead's half-angle: 25 degrees.
constexpr double kCos = 0.9063077870366499;
constexpr double kSin = 0.42261826174069944;

}  // namespace

CameraPathMarks::CameraPathMarks(const CameraPath& path, const double viewDirection[3],
                                 double arrowLength) {
    const std::size_t frames = path.frameCount();
    for (std::size_t f = 0; f + 1 < frames; ++f) {
        push(segments_, at(path, f));
        push(segments_, at(path, f + 1));
    }
    std::vector<std::size_t> marked;
    for (const CameraPath::KeyFrame& key : path.keyFrames) {
        if (key.frame < frames) {
            push(marks_, at(path, key.frame));
            marked.push_back(key.frame);
        }
    }
    for (std::size_t k = 0; k + 1 < marked.size(); ++k) {
        addArrow(path, marked[k], marked[k + 1], viewDirection, arrowLength);
    }
}

void CameraPathMarks::addArrow(const CameraPath& path, std::size_t from, std::size_t to,
                               const double viewDirection[3], double length) {
    if (to <= from) {
        return;
    }
    // At the leg's middle frame, along the path there (one frame either side).
    const std::size_t middle = from + (to - from) / 2;
    const Vector before = at(path, middle > from ? middle - 1 : from);
    const Vector after = at(path, middle + 1 <= to ? middle + 1 : to);
    Vector direction{after[0] - before[0], after[1] - before[1], after[2] - before[2]};
    const double d = norm(direction);
    Vector across = cross(direction, viewDirection);
    const double a = norm(across);
    // A leg that does not move, or flies straight at the viewer, shows no direction.
    if (!(d > 0) || !(a > 1e-9 * d) || !std::isfinite(d * a)) {
        return;
    }
    const Vector tip = at(path, middle);
    for (int k = 0; k < 3; ++k) {
        direction[k] /= d;
        across[k] /= a;
    }
    for (double side : {-1.0, 1.0}) {
        push(segments_, tip);
        push(segments_, Vector{tip[0] - length * (kCos * direction[0] + side * kSin * across[0]),
                               tip[1] - length * (kCos * direction[1] + side * kSin * across[1]),
                               tip[2] - length * (kCos * direction[2] + side * kSin * across[2])});
    }
}

}  // namespace vexhost
