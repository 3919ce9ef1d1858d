#ifndef VEXUTILTOOLS_HOSTSTRING_H
#define VEXUTILTOOLS_HOSTSTRING_H

#include <cstdint>
#include <string>

namespace vexplot {
namespace vexutiltools {

// Owns one host-allocated string (VexUtilStringAlloc, or a string that a host call hands out) and
// frees it with VexUtilStringDealloc when the scope ends, so no path can leak it. Hand the string
// over to the host (for example as a macro callback's error message) with release().
class HostString {
public:
    HostString() = default;
    // Takes ownership of a host string (null allowed).
    explicit HostString(char* hostString) : string_(hostString) {}
    ~HostString();

    HostString(const HostString&) = delete;
    HostString& operator=(const HostString&) = delete;

    // A writable host string of maxLength characters plus the terminating NUL; holds null when
    // the host refuses the allocation.
    static HostString allocate(int32_t maxLength, const char* debugInfo);

    // Frees what is held and returns the place where a host call stores a new string.
    char** receive();

    char* get() const { return string_; }
    bool isNull() const { return string_ == nullptr; }
    // The text, or an empty text when nothing is held.
    std::string str() const { return string_ != nullptr ? std::string(string_) : std::string(); }
    // Gives up ownership: whoever takes the pointer (usually the host) frees it from now on.
    char* release();

private:
    void reset();

    char* string_ = nullptr;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
