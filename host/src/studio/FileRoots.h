// The folders the studio may show and serve: the file chooser lists and picks files in them, and
// downloads come from them. A path from the network is a root's number and a path relative to that
// root; it is refused when it is absolute, has a ".." part or a NUL, or leads (through symbolic
// links) out of its root. Roots are made canonical once, when the studio starts.
#ifndef VEXHOST_STUDIO_FILEROOTS_H
#define VEXHOST_STUDIO_FILEROOTS_H

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vexhost {
namespace studio {

class FileRoots {
public:
    struct Entry {
        std::string name;
        bool directory = false;
        uintmax_t size = 0;  // files only
    };

    // Each folder must exist; std::runtime_error naming the first that does not.
    explicit FileRoots(const std::vector<std::filesystem::path>& folders);

    std::size_t size() const { return roots_.size(); }
    const std::filesystem::path& root(std::size_t index) const { return roots_.at(index); }
    // The name the page shows: the folder's own name ("/" for the file system's root).
    std::string name(std::size_t index) const;

    // The absolute path of `relative` inside root `index` (which need not exist yet: a new file's
    // name), or nullopt when it is refused (see above) or there is no such root.
    std::optional<std::filesystem::path> resolve(std::size_t index,
                                                 const std::string& relative) const;
    // The root and the relative path ('/' separated) of an absolute or working-directory-relative
    // path that lies inside a root; nullopt otherwise.
    std::optional<std::pair<std::size_t, std::string>> locate(
        const std::filesystem::path& path) const;
    // The entries of a folder inside a root, folders first, then by name; entries whose target
    // lies outside the roots are left out. std::runtime_error when it is refused or not a folder.
    std::vector<Entry> list(std::size_t index, const std::string& relative) const;

private:
    std::vector<std::filesystem::path> roots_;
};

}  // namespace studio
}  // namespace vexhost

#endif
