#ifndef VEXUTILTOOLS_ANIMATIONHOSTQUERIES_H
#define VEXUTILTOOLS_ANIMATIONHOSTQUERIES_H

namespace vexplot {
namespace vexutiltools {

// Questions asked before an animation runs with concurrent time or streamtrace animation. The
// solution time range of the enabled zones is getEnabledZoneSolutionTimeRange
// (model/EnabledZoneSolutionTimeRange.h).

// True when the host has a data set and at least one enabled zone belongs to a strand (strand id
// greater than 0); the walk stops at the first such zone. The host's zone set is freed on every
// path.
bool isDataSetTransient();

// True when streamtrace markers ("StreamAttributes", "StreamTiming", "ShowMarkers") or dashes
// ("ShowDashes") are shown: only then does moving the time anchor change the picture.
bool canAnimateStreamtraces();

}  // namespace vexutiltools
}  // namespace vexplot

#endif
