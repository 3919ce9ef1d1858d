#include "model/TimeAnimationOperation_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<TimeAnimationOperation_e>& NameTable<TimeAnimationOperation_e>::instance() {
    static const NameTable<TimeAnimationOperation_e> table{
        {TimeAnimationOperation_e::Forward, "Forward"},
        {TimeAnimationOperation_e::Loop, "Loop"},
        {TimeAnimationOperation_e::Bounce, "Bounce"},
        {TimeAnimationOperation_e::AsCaptured, "AsCaptured"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, TimeAnimationOperation_e operation) {
    return NameTable<TimeAnimationOperation_e>::instance().print(out, operation,
                                                                 "TimeAnimationOperation_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
