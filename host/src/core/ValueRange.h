// The numbers a value may take: finite ones between two bounds, each of which is in or out. The
// style store checks every number set against the range of its path, whatever it was set through
// (an X-call, VexUtilExportSetup, a macro line or a control call).
#ifndef VEXHOST_CORE_VALUERANGE_H
#define VEXHOST_CORE_VALUERANGE_H

#include <cmath>
#include <limits>

namespace vexhost {

struct ValueRange {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    bool lowOpen = false;
    bool highOpen = false;

    // Any finite number.
    static constexpr ValueRange any() { return {}; }
    // [low, high]
    static constexpr ValueRange closed(double low, double high) {
        return {low, high, false, false};
    }
    // (low, high]
    static constexpr ValueRange aboveUpTo(double low, double high) {
        return {low, high, true, false};
    }
    // (low, high)
    static constexpr ValueRange open(double low, double high) { return {low, high, true, true}; }

    bool contains(double v) const {
        if (!std::isfinite(v))
            return false;
        if (lowOpen ? !(v > low) : !(v >= low))
            return false;
        return highOpen ? v < high : v <= high;
    }
};

}  // namespace vexhost

#endif
