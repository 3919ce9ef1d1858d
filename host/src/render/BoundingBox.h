// An axis-aligned box in data units, grown point by point; empty until the first point.
#ifndef VEXHOST_RENDER_BOUNDINGBOX_H
#define VEXHOST_RENDER_BOUNDINGBOX_H

#include <algorithm>
#include <cmath>

namespace vexhost {

struct BoundingBox {
    double min[3] = {0, 0, 0};
    double max[3] = {0, 0, 0};
    bool empty = true;

    // Points with a non-finite coordinate are left out: they cannot be drawn anyway.
    void include(double x, double y, double z) {
        if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
            return;
        }
        const double p[3] = {x, y, z};
        for (int i = 0; i < 3; ++i) {
            min[i] = empty ? p[i] : std::min(min[i], p[i]);
            max[i] = empty ? p[i] : std::max(max[i], p[i]);
        }
        empty = false;
    }
    void include(const BoundingBox& other) {
        if (!other.empty) {
            include(other.min[0], other.min[1], other.min[2]);
            include(other.max[0], other.max[1], other.max[2]);
        }
    }
    double diagonal() const {
        if (empty) {
            return 0;
        }
        return std::sqrt((max[0] - min[0]) * (max[0] - min[0]) +
                         (max[1] - min[1]) * (max[1] - min[1]) +
                         (max[2] - min[2]) * (max[2] - min[2]));
    }
};

}  // namespace vexhost

#endif
