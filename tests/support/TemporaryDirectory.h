// vextest::TemporaryDirectory: a fresh, empty directory for one test's files, removed with
// everything in it when the test ends (also when it fails). Needs no test framework: the fuzz
// targets and the benchmarks make their scratch directories with it too.
#ifndef VEXTEST_TEMPORARYDIRECTORY_H
#define VEXTEST_TEMPORARYDIRECTORY_H

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace vextest {

class TemporaryDirectory {
public:
    // Named "<prefix>-XXXXXX" in the system's temporary directory, so a directory left behind by a
    // killed run shows whose it was.
    explicit TemporaryDirectory(const std::string& prefix = "vextest") {
        std::string pattern =
            (std::filesystem::temp_directory_path() / (prefix + "-XXXXXX")).string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("TemporaryDirectory: cannot create " + pattern);
        path_ = pattern;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // The UTF-8 text of a path inside the directory, as the add-on takes file names.
    std::string file(const std::string& utf8Name) const { return path_.string() + "/" + utf8Name; }

private:
    std::filesystem::path path_;
};

}  // namespace vextest

#endif
