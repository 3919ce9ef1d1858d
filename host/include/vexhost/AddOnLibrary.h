// An add-on plug-in loaded as the application loads one: the shared library is opened
// (dlopen, symbols resolved now, kept local to the library) and its exported entry point
// InitVexAddOn113 is called once, which registers the add-on with the host.
//
// Owns the library handle: the library is closed when the object goes, so keep it alive as long
// as the host may call into the add-on (its menu items, macro commands, listeners, idle work).
#ifndef VEXHOST_ADDONLIBRARY_H
#define VEXHOST_ADDONLIBRARY_H

#include <memory>
#include <string>

namespace vexhost {

class AddOnLibrary {
public:
    // Opens the library and calls its entry point. std::runtime_error naming the path and the
    // loader's reason when the library cannot be opened or does not export the entry point.
    static std::unique_ptr<AddOnLibrary> load(const std::string& path);

    ~AddOnLibrary();
    AddOnLibrary(const AddOnLibrary&) = delete;
    AddOnLibrary& operator=(const AddOnLibrary&) = delete;

    const std::string& path() const { return path_; }

private:
    AddOnLibrary(std::string path, void* handle) : path_(std::move(path)), handle_(handle) {}

    std::string path_;
    void* handle_;  // owned: the dlopen handle
};

}  // namespace vexhost

#endif
