#ifndef VEXUTILTOOLS_FILESYSTEMPATH_H
#define VEXUTILTOOLS_FILESYSTEMPATH_H

#include <filesystem>
#include <string>

namespace vexplot {
namespace vexutiltools {

// The path of a file named by UTF-8 text, as the add-on opens every file it reads or writes: the
// text goes through the host's vexplot::utf8ToWideString, so names beyond ASCII reach the file
// system unchanged whatever locale the process runs in. Malformed UTF-8 becomes U+FFFD, as the
// host decodes it.
std::filesystem::path fileSystemPath(const std::string& utf8FileName);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
