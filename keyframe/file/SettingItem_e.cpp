#include "file/SettingItem_e.h"

#include <ostream>

namespace vexplot {
namespace vexutiltools {

template <>
const NameTable<SettingItem_e>& NameTable<SettingItem_e>::instance() {
    static const NameTable<SettingItem_e> table{
        {SettingItem_e::AnimateTime, "AnimateTime"},
        {SettingItem_e::TimeAnimationOperation, "TimeAnimationOperation"},
        {SettingItem_e::NumCycles, "NumCycles"},
        {SettingItem_e::AnimateStreamtraces, "AnimateStreamtraces"},
        {SettingItem_e::FadeIn, "FadeIn"},
        {SettingItem_e::FadeOut, "FadeOut"}};
    return table;
}

std::ostream& operator<<(std::ostream& out, SettingItem_e item) {
    const NameTable<SettingItem_e>& names = NameTable<SettingItem_e>::instance();
    if (names.hasValue(item))
        return out << names.getName(item);
    return out << "SettingItem_e(" << static_cast<int32_t>(item) << ")";
}

}  // namespace vexutiltools
}  // namespace vexplot
