#include "vexhost/AddOnLibrary.h"

#include <dlfcn.h>

#include <stdexcept>

#include "vxsdkbase.h"

namespace vexhost {

namespace {

std::string loaderReason() {
    const char* reason = dlerror();
    return reason != nullptr ? reason : "no reason given";
}

}  // namespace

std::unique_ptr<AddOnLibrary> AddOnLibrary::load(const std::string& path) {
    dlerror();  // clear a reason left from an earlier call
    // RTLD_LOCAL: two add-ons may carry classes of the same name without meeting.
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr)
        throw std::runtime_error("Cannot load the add-on library \"" + path +
                                 "\": " + loaderReason());
    std::unique_ptr<AddOnLibrary> library(new AddOnLibrary(path, handle));
    using EntryPoint = void (*)();
    const auto entryPoint = reinterpret_cast<EntryPoint>(dlsym(handle, VEXSDK_ADDON_ENTRY_POINT));
    if (entryPoint == nullptr)
        throw std::runtime_error("The add-on library \"" + path + "\" has no entry point " +
                                 VEXSDK_ADDON_ENTRY_POINT + ": " + loaderReason());
    entryPoint();
    return library;
}

AddOnLibrary::~AddOnLibrary() {
    dlclose(handle_);
}

}  // namespace vexhost
