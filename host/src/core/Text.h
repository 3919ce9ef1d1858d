// Text forms shared by the call log and the frame trace.
#ifndef VEXHOST_CORE_TEXT_H
#define VEXHOST_CORE_TEXT_H

#include <cstdint>
#include <string>

namespace vexhost {
namespace text {

// The shortest text that reads back as the same double ("30", "0.1", "-2.5e-07").
void appendNumber(std::string& out, double value);
void appendNumber(std::string& out, int64_t value);
// The text in double quotes; backslash, double quote and control characters escaped as in C
// (\\, \", \n, \r, \t, \xHH); NULL (unquoted) for a null pointer.
void appendQuoted(std::string& out, const char* text);

}  // namespace text
}  // namespace vexhost

#endif
