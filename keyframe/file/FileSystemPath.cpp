#include "file/FileSystemPath.h"

#include "common_strutil.h"

namespace vexplot {
namespace vexutiltools {

static_assert(sizeof(wchar_t) == sizeof(char32_t), "wide characters are UTF-32 code points here");

std::filesystem::path fileSystemPath(const std::string& utf8FileName) {
    const std::wstring wide = vexplot::utf8ToWideString(utf8FileName);
    // Not std::filesystem::path(wide): the standard library turns a wide string into the narrow
    // file name through the C locale, and a process that never called setlocale has the "C"
    // locale, in which any character beyond ASCII fails to convert. A char32_t string is converted
    // as UTF-32 to UTF-8 instead, independent of the locale; wchar_t holds UTF-32 code points on
    // this platform, so the code points carry over one to one.
    return std::filesystem::path(std::u32string(wide.begin(), wide.end()));
}

}  // namespace vexutiltools
}  // namespace vexplot
