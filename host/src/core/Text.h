// The host's text utilities: the forms shared by the call log and the frame trace, comparing words
// without regard to case (style paths, SDK attribute names, macro keywords) and listing choices in
// messages.
#ifndef VEXHOST_CORE_TEXT_H
#define VEXHOST_CORE_TEXT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexhost {
namespace text {

// The shortest text that reads back as the same double ("30", "0.1", "-2.5e-07").
void appendNumber(std::string& out, double value);
void appendNumber(std::string& out, int64_t value);
// The text in double quotes; backslash, double quote and control characters escaped as in C
// (\\, \", \n, \r, \t, \xHH); NULL (unquoted) for a null pointer.
void appendQuoted(std::string& out, const char* text);

// Whether the two texts are the same but for the case of the ASCII letters A to Z (ASCII only: the
// C library's tolower would follow the process's locale). Inline, as the style store compares
// path words with it on every X-call.
inline bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        // Callers nearly always spell a word as the host does: equal letters settle it at once.
        if (a[i] != b[i] && lower(a[i]) != lower(b[i]))
            return false;
    }
    return true;
}

// The items as a message lists them: "A, B <last> C", where last is "or" or "and".
std::string listOf(const std::vector<std::string>& items, const char* last);

}  // namespace text
}  // namespace vexhost

#endif
