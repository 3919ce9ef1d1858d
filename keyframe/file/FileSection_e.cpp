#include "file/FileSection_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<FileSection_e>& NameTable<FileSection_e>::instance() {
    static const NameTable<FileSection_e> table{{FileSection_e::Settings, "%Settings"},
                                                {FileSection_e::KeyFrameView, "%KeyFrameView"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, FileSection_e section) {
    const NameTable<FileSection_e>& names = NameTable<FileSection_e>::instance();
    if (names.hasValue(section))
        return out << names.getName(section);
    return out << "FileSection_e(" << static_cast<int32_t>(section) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
