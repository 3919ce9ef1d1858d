// vextest::printed: what a value's operator<< writes, for tests of the printers the add-on's
// records and enumerations have for diagnostics.
#ifndef VEXTEST_PRINTED_H
#define VEXTEST_PRINTED_H

#include <sstream>
#include <string>

namespace vextest {

template <typename T>
std::string printed(const T& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

}  // namespace vextest

#endif
