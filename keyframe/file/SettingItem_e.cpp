#include "file/SettingItem_e.h"

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
    return NameTable<SettingItem_e>::instance().print(out, item, "SettingItem_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
