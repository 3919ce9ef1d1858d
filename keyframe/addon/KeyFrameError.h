#ifndef VEXUTILTOOLS_KEYFRAMEERROR_H
#define VEXUTILTOOLS_KEYFRAMEERROR_H

#include <exception>
#include <string>

namespace vexplot {
namespace vexutiltools {

// The add-on's one exception type for failures the user sees. The message is the exact
// user-facing text; the callback that started the work shows it (dialogs) or returns it (macro
// commands). Thrown by value, so it is copyable; a copy carries the same text.
class KeyFrameError : public std::exception {
public:
    explicit KeyFrameError(std::string message);
    ~KeyFrameError() override;

    const char* what() const noexcept override;

private:
    std::string message_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
