#include "file/TimeAnimationOperationNameTable.h"

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

}  // namespace vexutiltools
}  // namespace vexplot
