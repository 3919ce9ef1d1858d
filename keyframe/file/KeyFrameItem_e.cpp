#include "file/KeyFrameItem_e.h"

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
    return NameTable<KeyFrameItem_e>::instance().print(out, item, "KeyFrameItem_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
