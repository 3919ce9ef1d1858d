#include "addon/MacroCallback.h"

#include <cstdio>

#include "addon/AddOn.h"
#include "addon/HostString.h"
#include "addon/LockScope.h"
#include "macro/AddOnMacroCommandManager.h"

namespace vexplot {
namespace vexutiltools {

bool macroCallback(const char* commandString, char** errMsg) {
    return AddOnMacroCommandManager::macroCommandCallback(commandString, errMsg);
}

void storeMacroError(const std::string& message, char** errMsg) {
    LockScope lock;
    // 29 covers the add-on name (19 characters) and " error:\n" (8) with room to spare.
    const int32_t length = static_cast<int32_t>(message.size()) + 29;
    HostString text = HostString::allocate(length, "Key Frame Animation macro error");
    if (text.isNull())
        return;
    std::snprintf(text.get(), static_cast<std::size_t>(length) + 1, "%s error:\n%s", AddOn::Name,
                  message.c_str());
    *errMsg = text.release();
}

}  // namespace vexutiltools
}  // namespace vexplot
