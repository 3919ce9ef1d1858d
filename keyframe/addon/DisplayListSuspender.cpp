#include "addon/DisplayListSuspender.h"

namespace vexplot {
namespace vexutiltools {

DisplayListSuspender::DisplayListSuspender() : useDisplayLists_("Interface", "UseDisplayLists") {
    useDisplayLists_.get(kept_);
    useDisplayLists_.set(false);
}

DisplayListSuspender::~DisplayListSuspender() {
    useDisplayLists_.set(kept_);
}

}  // namespace vexutiltools
}  // namespace vexplot
