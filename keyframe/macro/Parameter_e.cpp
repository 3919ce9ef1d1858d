#include "macro/Parameter_e.h"

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
    return NameTable<Parameter_e>::instance().print(out, parameter, "Parameter_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
