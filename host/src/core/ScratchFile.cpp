#include "vexhost/ScratchFile.h"

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace vexhost {

ScratchFile::ScratchFile(const std::string& prefix, const std::string& suffix) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / (prefix + "-XXXXXX" + suffix)).string();
    const int file = ::mkstemps(pattern.data(), static_cast<int>(suffix.size()));
    if (file < 0)
        throw std::runtime_error("Cannot make a scratch file " + pattern);
    ::close(file);
    path_ = pattern;
}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

}  // namespace vexhost
