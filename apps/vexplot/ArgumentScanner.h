// The shape every command line of the project's programs has: options take their value as the
// next argument or after '=' (--trace=out.jsonl), "--" ends the options so that every later
// argument is a plain one, and a lone "-" is a plain argument like any other (a file name).
#ifndef VEXPLOT_APP_ARGUMENTSCANNER_H
#define VEXPLOT_APP_ARGUMENTSCANNER_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vexplot {
namespace app {

class ArgumentScanner {
public:
    // Whether the option takes a value; nothing for an option the program does not know.
    using Kind = std::function<std::optional<bool>(const std::string& option)>;
    // An option and its value ("" for an option that takes none).
    using OnOption = std::function<void(const std::string& option, const std::string& value)>;
    using OnArgument = std::function<void(const std::string& argument)>;

    // Goes through the arguments in order. UsageError "unknown option '--x'", "--x takes no value"
    // or "--x needs a value"; and whatever the callbacks throw.
    static void scan(const std::vector<std::string>& arguments, const Kind& kind,
                     const OnOption& onOption, const OnArgument& onArgument);

    // The whole number the text holds in full, if it lies from min to max.
    static std::optional<int64_t> wholeNumber(const std::string& text, int64_t min, int64_t max);
};

}  // namespace app
}  // namespace vexplot

#endif
