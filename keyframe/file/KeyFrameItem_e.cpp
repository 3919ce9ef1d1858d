#include "file/KeyFrameItem_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<KeyFrameItem_e>& NameTable<KeyFrameItem_e>::instance() {
    static const NameTable<KeyFrameItem_e> table{{KeyFrameItem_e::Name, "Name"},
                                                 {KeyFrameItem_e::Position, "Position"},
                                                 {KeyFrameItem_e::Angle, "Angle"},
                                                 {KeyFrameItem_e::Width, "Width"},
                                                 {KeyFrameItem_e::FrameCount, "FrameCount"},
                                                 {KeyFrameItem_e::SolutionTime, "SolutionTime"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, KeyFrameItem_e item) {
    const NameTable<KeyFrameItem_e>& names = NameTable<KeyFrameItem_e>::instance();
    if (names.hasValue(item))
        return out << names.getName(item);
    return out << "KeyFrameItem_e(" << static_cast<int32_t>(item) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
