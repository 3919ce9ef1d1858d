#include "addon/AddOn.h"

namespace vexplot {
namespace vexutiltools {

namespace {
// Only the host's user-interface thread calls the add-on, so a plain variable suffices.
VexAddOn_pa addOnIdentifier = nullptr;
}  // namespace

VexAddOn_pa AddOn::getIdentifier() {
    return addOnIdentifier;
}

void AddOn::setIdentifier(VexAddOn_pa identifier) {
    addOnIdentifier = identifier;
}

}  // namespace vexutiltools
}  // namespace vexplot
