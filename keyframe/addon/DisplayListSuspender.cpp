#include "addon/DisplayListSuspender.h"

namespace vexplot {
namespace vexutiltools {

DisplayListSuspender::DisplayListSuspender() : useDisplayLists_("Interface", "UseDisplayLists") {
    // A value made up in place of a refused read would be written back at the end, changing the
    // user's setting for good.
    if (useDisplayLists_.get(kept_) != VexGetValue_Ok)
        return;
    useDisplayLists_.set(false);
    switchedOff_ = true;
}

DisplayListSuspender::~DisplayListSuspender() {
    if (switchedOff_)
        useDisplayLists_.set(kept_);
}

}  // namespace vexutiltools
}  // namespace vexplot
