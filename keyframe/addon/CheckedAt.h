#ifndef VEXUTILTOOLS_CHECKEDAT_H
#define VEXUTILTOOLS_CHECKEDAT_H

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace vexplot {
namespace vexutiltools {

// The add-on's positional access to its vectors: a position not below the size raises
// std::out_of_range with the text "invalid vector subscript", the one range error that the
// add-on's users see, whatever the standard library would have said.
template <typename T>
const T& checkedAt(const std::vector<T>& items, uint64_t position) {
    if (position >= items.size())
        throw std::out_of_range("invalid vector subscript");
    return items[static_cast<std::size_t>(position)];
}

template <typename T>
T& checkedAt(std::vector<T>& items, uint64_t position) {
    if (position >= items.size())
        throw std::out_of_range("invalid vector subscript");
    return items[static_cast<std::size_t>(position)];
}

}  // namespace vexutiltools
}  // namespace vexplot

#endif
