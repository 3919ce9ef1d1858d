#include "core/Text.h"

#include <charconv>
#include <cstdio>

namespace vexhost {
namespace text {

void appendNumber(std::string& out, double value) {
    char buffer[32];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

void appendNumber(std::string& out, int64_t value) {
    char buffer[24];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

void appendQuoted(std::string& out, const char* text) {
    if (text == nullptr) {
        out += "NULL";
        return;
    }
    out += '"';
    for (const char* p = text; *p != '\0'; ++p) {
        const unsigned char c = static_cast<unsigned char>(*p);
        switch (c) {
            case '\\':
                out += "\\\\";
                break;
            case '"':
                out += "\\\"";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (c < 0x20 || c == 0x7f) {
                    char escaped[8];
                    std::snprintf(escaped, sizeof escaped, "\\x%02X", c);
                    out += escaped;
                } else {
                    out += static_cast<char>(c);
                }
        }
    }
    out += '"';
}

std::string listOf(const std::vector<std::string>& items, const char* last) {
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) {
            if (i + 1 == items.size()) {
                list += ' ';
                list += last;
                list += ' ';
            } else {
                list += ", ";
            }
        }
        list += items[i];
    }
    return list;
}

}  // namespace text
}  // namespace vexhost
