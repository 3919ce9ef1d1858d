// A data file that cannot be shown. what() is one line for a person: it names the file and what
// was wrong with it, e.g. Cannot read "flow.vtu": no such file.
#ifndef VEXHOST_DATAFILEERROR_H
#define VEXHOST_DATAFILEERROR_H

#include <stdexcept>
#include <string>

namespace vexhost {

class DataFileError : public std::runtime_error {
public:
    explicit DataFileError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace vexhost

#endif
