#ifndef VEXUTILTOOLS_HOSTARRAY_H
#define VEXUTILTOOLS_HOSTARRAY_H

#include <cstddef>

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Owns one array that a host call handed out (for example the selected lines of a list control)
// and frees it with VexUtilArrayDealloc when the scope ends, so no path can leak it.
template <typename T>
class HostArray {
public:
    HostArray() = default;
    ~HostArray() { reset(); }

    HostArray(const HostArray&) = delete;
    HostArray& operator=(const HostArray&) = delete;

    // Frees what is held and returns the place where a host call stores a new array.
    T** receive() {
        reset();
        return &array_;
    }

    T* get() const { return array_; }
    bool isNull() const { return array_ == nullptr; }
    // No bounds check: the host call that filled the array also reported its length.
    const T& operator[](std::size_t index) const { return array_[index]; }

private:
    void reset() {
        if (array_ != nullptr) {
            void* array = array_;
            VexUtilArrayDealloc(&array);
        }
        array_ = nullptr;
    }

    T* array_ = nullptr;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
