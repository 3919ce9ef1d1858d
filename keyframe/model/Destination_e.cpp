#include "model/Destination_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<Destination_e>& NameTable<Destination_e>::instance() {
    static const NameTable<Destination_e> table{{Destination_e::OnScreen, "OnScreen"},
                                                {Destination_e::ToFile, "ToFile"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, Destination_e destination) {
    return NameTable<Destination_e>::instance().print(out, destination, "Destination_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
