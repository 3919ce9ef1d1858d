#include "script/MacroText.h"

#include <charconv>
#include <cmath>

#include "core/Text.h"

namespace vexhost {
namespace script {

namespace {

constexpr std::size_t MessageExcerptLength = 60;

}  // namespace

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trimBlanks(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && isBlank(text[begin]))
        ++begin;
    std::size_t end = text.size();
    while (end > begin && isBlank(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

std::vector<std::string> splitWords(std::string_view text) {
    std::vector<std::string> words;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i]))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && !isBlank(text[i]))
            ++i;
        if (i > start)
            words.emplace_back(text.substr(start, i - start));
    }
    return words;
}

std::string joinWords(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words) {
        if (!joined.empty())
            joined += ' ';
        joined += word;
    }
    return joined;
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

std::optional<double> parseNumber(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    // from_chars takes no leading '+'; people write one, so it is allowed (but not "+-1").
    if (text.front() == '+') {
        text.remove_prefix(1);
        if (text.empty() || text.front() == '-' || text.front() == '+')
            return std::nullopt;
    }
    double value = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<int64_t> parseWholeNumber(std::string_view text, int64_t min, int64_t max) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (text.empty() || text.front() == '-' || text.front() == '+')
            return std::nullopt;
    }
    if (text.empty())
        return std::nullopt;
    int64_t value = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || value < min || value > max)
        return std::nullopt;
    return value;
}

std::optional<bool> parseBoolean(std::string_view text) {
    if (text::equalsIgnoringCase(text, "true"))
        return true;
    if (text::equalsIgnoringCase(text, "false"))
        return false;
    return std::nullopt;
}

std::optional<std::string> parseQuoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return std::nullopt;
    return std::string(text.substr(1, text.size() - 2));
}

std::string quoteForMessage(std::string_view text) {
    bool cut = false;
    if (text.size() > MessageExcerptLength) {
        std::size_t length = MessageExcerptLength;
        // Back to the start of a UTF-8 sequence, so the excerpt is still valid text.
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
            --length;
        text = text.substr(0, length);
        cut = true;
    }
    // Lines with a NUL never get here (the player refuses them first), so a C string will do.
    std::string quoted;
    text::appendQuoted(quoted, std::string(text).c_str());
    if (cut)
        quoted.insert(quoted.size() - 1, "...");
    return quoted;
}

}  // namespace script
}  // namespace vexhost
