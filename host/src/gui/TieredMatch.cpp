#include "gui/TieredMatch.h"

#include <cctype>
#include <utility>

namespace vexhost {

TieredMatch::TieredMatch(std::string text) : text_(std::move(text)), plain_(plainText(text_)) {}

std::string TieredMatch::plainText(std::string_view text) {
    std::string plain;
    bool blankPending = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '&') {
            if (i + 1 >= text.size() || text[i + 1] != '&')
                continue;  // a mnemonic marker
            ++i;           // "&&" is one literal '&'
        }
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
            blankPending = !plain.empty();
            continue;
        }
        if (blankPending)
            plain += ' ';
        blankPending = false;
        plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return plain;
}

bool TieredMatch::matches(std::string_view candidate, int tier) const {
    return tier == 0 ? candidate == text_ : matchesAsPlainText(candidate);
}

bool TieredMatch::matchesAsPlainText(std::string_view candidate) const {
    return plainText(candidate) == plain_;
}

}  // namespace vexhost
