#include "macro/DestinationNameTable.h"

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<Destination_e>& NameTable<Destination_e>::instance() {
    static const NameTable<Destination_e> table{{Destination_e::OnScreen, "OnScreen"},
                                                {Destination_e::ToFile, "ToFile"}};
    return table;
}

}  // namespace vexutiltools
}  // namespace vexplot
