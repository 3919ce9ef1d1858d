#include "ArgumentScanner.h"

#include <charconv>

#include "UsageError.h"

namespace vexplot {
namespace app {

void ArgumentScanner::scan(const std::vector<std::string>& arguments, const Kind& kind,
                           const OnOption& onOption, const OnArgument& onArgument) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || argument.size() < 2 || argument[0] != '-') {
            onArgument(argument);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string option = argument.substr(0, equals);
        const std::optional<bool> takesValue = kind(option);
        if (!takesValue)
            throw UsageError("unknown option '" + option + "'");
        std::string value;
        if (!*takesValue) {
            if (equals != std::string::npos)
                throw UsageError(option + " takes no value");
        } else if (equals != std::string::npos) {
            value = argument.substr(equals + 1);
        } else {
            if (i + 1 == arguments.size())
                throw UsageError(option + " needs a value");
            value = arguments[++i];
        }
        onOption(option, value);
    }
}

std::optional<int64_t> ArgumentScanner::wholeNumber(const std::string& text, int64_t min,
                                                    int64_t max) {
    int64_t value = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (text.empty() || result.ec != std::errc() || result.ptr != end || value < min || value > max)
        return std::nullopt;
    return value;
}

}  // namespace app
}  // namespace vexplot
