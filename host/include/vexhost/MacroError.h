// A macro line that cannot run: the text says what was wrong, as the user reads it
// ("$!VIEW needs 7 numbers (x y z psi theta alpha width); found 3."). The runner adds the file and
// line when it reports it.
#ifndef VEXHOST_MACROERROR_H
#define VEXHOST_MACROERROR_H

#include <stdexcept>
#include <string>

namespace vexhost {

class MacroError : public std::runtime_error {
public:
    explicit MacroError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace vexhost

#endif
