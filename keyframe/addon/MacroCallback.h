#ifndef VEXUTILTOOLS_MACROCALLBACK_H
#define VEXUTILTOOLS_MACROCALLBACK_H

#include <string>

namespace vexplot {
namespace vexutiltools {

// The handler of the add-on's macro commands, registered with the host under the add-on's name.
// The host passes the command string and a place for an error message; the answer is true when
// the command ran. On failure *errMsg receives a host string (which the host frees) holding
// "Key Frame Animation error:\n" followed by the message. The work is the macro command
// manager's (AddOnMacroCommandManager::macroCommandCallback): parsing, and the command's executer.
bool macroCallback(const char* commandString, char** errMsg);

// Stores the failure text for `message` in *errMsg, under the host lock: a host string of the
// message's length plus 29 characters holding "%s error:\n%s" of the add-on name and the message.
// When the host refuses the allocation nothing is stored.
void storeMacroError(const std::string& message, char** errMsg);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
