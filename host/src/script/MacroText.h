// Reading the words and values of macro lines, and quoting what the user wrote in messages.
// Blanks are spaces and tabs. Every parser answers nullopt for text it does not take, so the caller
// says in its own message what was expected. Words are compared without regard to case with
// text::equalsIgnoringCase (core/Text.h).
#ifndef VEXHOST_SCRIPT_MACROTEXT_H
#define VEXHOST_SCRIPT_MACROTEXT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexhost {
namespace script {

bool isBlank(char c);
std::string_view trimBlanks(std::string_view text);
std::vector<std::string> splitWords(std::string_view text);
std::string joinWords(const std::vector<std::string>& words);
std::string upperCase(std::string_view text);

// A finite decimal number in the C form ("-2.5", "1e-3", ".5"); the whole text must be the number.
std::optional<double> parseNumber(std::string_view text);
// A whole decimal number within [min, max].
std::optional<int64_t> parseWholeNumber(std::string_view text, int64_t min, int64_t max);
// "true" or "false", any case.
std::optional<bool> parseBoolean(std::string_view text);
// The text between a leading and a trailing double quote. Quotes inside are kept as they are: the
// recorder writes file names without escaping, so reading must not unescape either.
std::optional<std::string> parseQuoted(std::string_view text);

// The text in double quotes with control characters escaped, cut after about 60 characters (at a
// character boundary, marked "..."), so that a message about a huge or binary line stays readable.
std::string quoteForMessage(std::string_view text);

}  // namespace script
}  // namespace vexhost

#endif
