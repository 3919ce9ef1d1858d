// Something the user cannot do in the dialogs: a dialog or control that does not exist, a dialog
// that is not up or is covered by a modal one, an insensitive control, a list line that is not
// there. The text names what was wrong and, where it helps, lists what there is.
#ifndef VEXHOST_GUIERROR_H
#define VEXHOST_GUIERROR_H

#include <stdexcept>
#include <string>

namespace vexhost {

class GuiError : public std::runtime_error {
public:
    explicit GuiError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace vexhost

#endif
