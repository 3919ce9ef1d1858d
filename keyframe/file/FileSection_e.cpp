#include "file/FileSection_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<FileSection_e>& NameTable<FileSection_e>::instance() {
    static const NameTable<FileSection_e> table{{FileSection_e::Settings, "%Settings"},
                                                {FileSection_e::KeyFrameView, "%KeyFrameView"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, FileSection_e section) {
    return NameTable<FileSection_e>::instance().print(out, section, "FileSection_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
