#include "addon/KeyFrameError.h"

#include <utility>

namespace vexplot {
namespace vexutiltools {

KeyFrameError::KeyFrameError(std::string message) : message_(std::move(message)) {}

// Defined here so that the class's type information lives in one object file.
KeyFrameError::~KeyFrameError() = default;

const char* KeyFrameError::what() const noexcept {
    return message_.c_str();
}

}  // namespace vexutiltools
}  // namespace vexplot
