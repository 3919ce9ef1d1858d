// The round values at which an axis or a colour legend is marked: steps of 1, 2 or 5 times a power
// of ten, as close to the asked number of values as such steps come, and their labels.
#ifndef VEXHOST_RENDER_TICKSCALE_H
#define VEXHOST_RENDER_TICKSCALE_H

#include <string>
#include <vector>

namespace vexhost {

class TickScale {
public:
    // The values in [low, high]: one value for a range of no width, none for a range that is not
    // finite or runs backwards. target >= 1.
    TickScale(double low, double high, int target);

    const std::vector<double>& values() const { return values_; }
    // The compact text of a value ("0.2", "-1.5", "1000", "2e+07"): all values of the scale with
    // the same number of significant digits, never "-0".
    std::string label(double value) const;

private:
    std::vector<double> values_;
    int precision_ = 1;  // significant digits, for %g
};

}  // namespace vexhost

#endif
