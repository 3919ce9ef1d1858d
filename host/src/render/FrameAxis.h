// The 3D frame axis around the data box: the box's edges, one axis line per direction from the
// minimum corner to past the box, tick marks along the axis lines at round values (TickScale), and
// the texts that go with them (the values, and X, Y, Z at the line ends). Lines are in data units;
// texts are anchored in data units too, for the renderer to place in screen space after projecting.
#ifndef VEXHOST_RENDER_FRAMEAXIS_H
#define VEXHOST_RENDER_FRAMEAXIS_H

#include <array>
#include <string>
#include <vector>

#include "render/BoundingBox.h"

namespace vexhost {

class FrameAxis {
public:
    using Point = std::array<double, 3>;
    using Colour = std::array<float, 3>;

    // A tick value stands beside its tick's tip, on the side the tick points to; an axis name
    // stands beyond the end of its line.
    struct Label {
        std::string text;
        int axis = 0;        // 0, 1, 2 for x, y, z
        bool name = false;   // the axis name, not a tick value
        Point from{}, to{};  // the tick from the axis line to its tip, or the axis line
        Colour colour{};
    };

    // An empty box gives no axis.
    explicit FrameAxis(const BoundingBox& box);

    // x, y, z, r, g, b per vertex, two vertices per line.
    const std::vector<float>& lines() const { return lines_; }
    // Tick values axis by axis, each axis's name after its values.
    const std::vector<Label>& labels() const { return labels_; }
    // The axis lines: from the box's minimum corner to the end past the box.
    const Point& corner() const { return corner_; }
    const Point& end(int axis) const { return ends_[axis]; }
    // The box and everything the lines reach beyond it.
    const BoundingBox& reach() const { return reach_; }

private:
    void addLine(const Point& a, const Point& b, const Colour& colour);

    std::vector<float> lines_;
    std::vector<Label> labels_;
    Point corner_{};
    std::array<Point, 3> ends_{};
    BoundingBox reach_;
};

}  // namespace vexhost

#endif
