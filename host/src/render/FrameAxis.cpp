#include "render/FrameAxis.h"

#include <cmath>

#include "render/TickScale.h"

namespace vexhost {
namespace {

const FrameAxis::Colour kBoxColour = {0.7f, 0.7f, 0.7f};
const FrameAxis::Colour kAxisColours[3] = {
    {0.9f, 0.2f, 0.2f}, {0.2f, 0.85f, 0.2f}, {0.3f, 0.45f, 1.0f}};
const FrameAxis::Colour kValueColour = {0.85f, 0.85f, 0.85f};
const char* const kAxisNames[3] = {"X", "Y", "Z"};
// Axis lines run this far past the data box, so they stand out from the box edges.
constexpr double kAxisOvershoot = 0.15;
// Tick marks, as a share of the box's diagonal: visible, yet short beside the box.
constexpr double kTickLength = 0.025;
constexpr int kTicksPerAxis = 5;
// Ticks point away from the box, in the plane of the other two axis lines: x ticks along -y, y
// ticks along -x, z ticks along the diagonal between them.
const double kTickDirections[3][3] = {{0, -1, 0}, {-1, 0, 0}, {-M_SQRT1_2, -M_SQRT1_2, 0}};

}  // namespace

FrameAxis::FrameAxis(const BoundingBox& box) {
    if (box.empty) {
        return;
    }
    reach_ = box;
    const double diagonal = box.diagonal();
    const Point corner = {box.min[0], box.min[1], box.min[2]};
    corner_ = corner;
    for (int axis = 0; axis < 3; ++axis) {
        // The edges parallel to this axis, but for the one at the minimum corner: the axis line.
        const int u = (axis + 1) % 3;
        const int v = (axis + 2) % 3;
        for (int edge = 1; edge < 4; ++edge) {
            Point a;
            a[axis] = box.min[axis];
            a[u] = (edge & 1) ? box.max[u] : box.min[u];
            a[v] = (edge & 2) ? box.max[v] : box.min[v];
            Point b = a;
            b[axis] = box.max[axis];
            addLine(a, b, kBoxColour);
        }

        const double extent = box.max[axis] - box.min[axis];
        Point end = corner;
        end[axis] += extent > 0 ? extent * (1 + kAxisOvershoot) : 0.1 * diagonal;
        addLine(corner, end, kAxisColours[axis]);
        ends_[axis] = end;

        const TickScale scale(box.min[axis], box.max[axis], kTicksPerAxis);
        for (double value : scale.values()) {
            Point base = corner;
            base[axis] = value;
            Point tip = base;
            for (int k = 0; k < 3; ++k) {
                tip[k] += kTickLength * diagonal * kTickDirections[axis][k];
            }
            addLine(base, tip, kAxisColours[axis]);
            labels_.push_back(Label{scale.label(value), axis, false, base, tip, kValueColour});
        }
        labels_.push_back(Label{kAxisNames[axis], axis, true, corner, end, kAxisColours[axis]});
    }
}

void FrameAxis::addLine(const Point& a, const Point& b, const Colour& colour) {
    for (const Point& p : {a, b}) {
        lines_.insert(lines_.end(), {static_cast<float>(p[0]), static_cast<float>(p[1]),
                                     static_cast<float>(p[2]), colour[0], colour[1], colour[2]});
        reach_.include(p[0], p[1], p[2]);
    }
}

}  // namespace vexhost
