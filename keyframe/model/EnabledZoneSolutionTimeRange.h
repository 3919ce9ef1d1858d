#ifndef VEXUTILTOOLS_ENABLEDZONESOLUTIONTIMERANGE_H
#define VEXUTILTOOLS_ENABLEDZONESOLUTIONTIMERANGE_H

namespace vexplot {
namespace vexutiltools {

// The smallest and the largest solution time among the enabled zones of the active data set,
// walked in the host's order (the first zone sets both bounds, later zones widen them). Returns
// false and leaves both bounds untouched when no zone is enabled, so that the caller decides what
// a time range without zones means. The host's zone set is freed on every path.
bool getEnabledZoneSolutionTimeRange(double& minTime, double& maxTime);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
