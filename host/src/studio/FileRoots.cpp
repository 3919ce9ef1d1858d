#include "studio/FileRoots.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

namespace vexhost {
namespace studio {

namespace fs = std::filesystem;

namespace {

// Whether `path` is `root` or lies below it, part by part (so "/data2" is not inside "/data").
bool isInside(const fs::path& path, const fs::path& root) {
    auto p = path.begin();
    for (auto r = root.begin(); r != root.end(); ++r, ++p) {
        if (r->empty())
            continue;  // the trailing empty part of "/data/"
        if (p == path.end() || *p != *r)
            return false;
    }
    return true;
}

}  // namespace

FileRoots::FileRoots(const std::vector<fs::path>& folders) {
    for (const fs::path& folder : folders) {
        std::error_code error;
        const fs::path canonical = fs::canonical(folder, error);
        if (error || !fs::is_directory(canonical, error))
            throw std::runtime_error("the folder \"" + folder.string() + "\" does not exist");
        roots_.push_back(canonical);
    }
}

std::string FileRoots::name(std::size_t index) const {
    const fs::path& root = roots_.at(index);
    return root.has_filename() ? root.filename().string() : root.string();
}

std::optional<fs::path> FileRoots::resolve(std::size_t index, const std::string& relative) const {
    if (index >= roots_.size() || relative.find('\0') != std::string::npos)
        return std::nullopt;
    const fs::path given(relative);
    if (given.is_absolute() || given.has_root_name() || given.has_root_directory())
        return std::nullopt;
    for (const fs::path& part : given)
        if (part == "..")
            return std::nullopt;
    // weakly_canonical follows every symbolic link of the part that exists, so a link inside the
    // root that points out of it ends up outside and is refused.
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(roots_[index] / given, error);
    if (error || !isInside(resolved, roots_[index]))
        return std::nullopt;
    return resolved;
}

std::optional<std::pair<std::size_t, std::string>> FileRoots::locate(const fs::path& path) const {
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(fs::absolute(path, error), error);
    if (error)
        return std::nullopt;
    for (std::size_t i = 0; i < roots_.size(); ++i) {
        if (isInside(resolved, roots_[i]))
            return std::make_pair(i, resolved.lexically_relative(roots_[i]).generic_string());
    }
    return std::nullopt;
}

std::vector<FileRoots::Entry> FileRoots::list(std::size_t index,
                                              const std::string& relative) const {
    const std::optional<fs::path> folder = resolve(index, relative);
    std::error_code error;
    if (!folder || !fs::is_directory(*folder, error))
        throw std::runtime_error("\"" + relative + "\" is not a folder the studio may show");
    std::vector<Entry> entries;
    for (fs::directory_iterator it(*folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        const std::string inside =
            relative.empty() || relative == "." ? name : relative + "/" + name;
        const std::optional<fs::path> target = resolve(index, inside);
        if (!target)
            continue;
        std::error_code statError;
        const fs::file_status status = fs::status(*target, statError);
        if (statError)
            continue;
        Entry entry;
        entry.name = name;
        entry.directory = fs::is_directory(status);
        if (fs::is_regular_file(status))
            entry.size = fs::file_size(*target, statError);
        else if (!entry.directory)
            continue;  // sockets, devices and the like are nothing to choose
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        return a.directory != b.directory ? a.directory : a.name < b.name;
    });
    return entries;
}

}  // namespace studio
}  // namespace vexhost
