/*
 * Vexplot SDK toolbox: StringList, a host string list held by a scope.
 *
 * Owns the host list from construction to destruction (VexUtilStringListAlloc / Dealloc), so the
 * host's bookkeeping balances on every exit path. Not copyable; movable.
 */
#ifndef VXTOOLBOX_STRINGLIST_H
#define VXTOOLBOX_STRINGLIST_H

#include <cstdint>
#include <initializer_list>
#include <new>
#include <string>

#include "vxsdkbase.h"

namespace vexplot {
namespace toolbox {

class StringList {
public:
    StringList() : list_(VexUtilStringListAlloc()) {
        if (list_ == nullptr)
            throw std::bad_alloc();
    }
    StringList(std::initializer_list<const char*> strings) : StringList() {
        for (const char* s : strings)
            append(s);
    }
    ~StringList() {
        if (list_ != nullptr)
            VexUtilStringListDealloc(&list_);
    }
    StringList(const StringList&) = delete;
    StringList& operator=(const StringList&) = delete;
    StringList(StringList&& other) noexcept : list_(other.list_) { other.list_ = nullptr; }
    StringList& operator=(StringList&& other) noexcept {
        if (this != &other) {
            if (list_ != nullptr)
                VexUtilStringListDealloc(&list_);
            list_ = other.list_;
            other.list_ = nullptr;
        }
        return *this;
    }

    void append(const char* string) {
        if (!VexUtilStringListAppendString(list_, string))
            throw std::bad_alloc();
    }
    int32_t count() const { return VexUtilStringListGetCount(list_); }
    /* The 1-based entry. */
    std::string get(int32_t position) const {
        char* s = VexUtilStringListGetString(list_, position);
        std::string result = s != nullptr ? s : "";
        if (s != nullptr)
            VexUtilStringDealloc(&s);
        return result;
    }
    VexStringList_pa handle() const { return list_; }

private:
    VexStringList_pa list_;
};

} // namespace toolbox
} // namespace vexplot

#endif
