#include "macro/Parameter_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<Parameter_e>& NameTable<Parameter_e>::instance() {
    static const NameTable<Parameter_e> table{
        {Parameter_e::FileName, "FileName"},
        {Parameter_e::AnimationDestination, "AnimationDestination"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, Parameter_e parameter) {
    const NameTable<Parameter_e>& names = NameTable<Parameter_e>::instance();
    if (names.hasValue(parameter))
        return out << names.getName(parameter);
    return out << "Parameter_e(" << static_cast<int32_t>(parameter) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
