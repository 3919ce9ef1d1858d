// A command line vexplot cannot take; the text names the option or value that was wrong.
#ifndef VEXPLOT_APP_USAGEERROR_H
#define VEXPLOT_APP_USAGEERROR_H

#include <stdexcept>
#include <string>

namespace vexplot {
namespace app {

class UsageError : public std::runtime_error {
public:
    explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace app
}  // namespace vexplot

#endif
