#ifndef VEXUTILTOOLS_ADDON_H
#define VEXUTILTOOLS_ADDON_H

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// The add-on's identity towards the host: its registered name and the identifier that the host
// returned at registration. Every host lock of the add-on (LockScope and the scopes built on it)
// passes this identifier, so the host can match each lock finish to its start.
//
// The identifier is written only by the entry point InitVexAddOn113 and read everywhere else. A
// host calls the entry point once per load; the test fixtures call it again after each host reset,
// which registers the add-on afresh and replaces the identifier of the host that was reset.
class AddOn {
public:
    // The name under which the add-on registers, records its macro commands and reports errors.
    static constexpr const char* Name = "Key Frame Animation";

    AddOn() = delete;

    // Null until the entry point has registered the add-on.
    static VexAddOn_pa getIdentifier();
    static void setIdentifier(VexAddOn_pa identifier);
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
