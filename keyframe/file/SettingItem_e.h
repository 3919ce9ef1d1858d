#ifndef VEXUTILTOOLS_SETTINGITEM_E_H
#define VEXUTILTOOLS_SETTINGITEM_E_H

#include <cstdint>
#include <iosfwd>

#include "model/NameTable.h"

namespace vexplot {
namespace vexutiltools {

// The items of the settings section of a key frame settings file, in their order of writing. Each
// is named after the field of AnimationSettings_s it holds; names are matched without regard to
// case through NameTable<SettingItem_e>.
enum class SettingItem_e : int32_t {
    AnimateTime = 0,
    TimeAnimationOperation = 1,
    NumCycles = 2,
    AnimateStreamtraces = 3,
    FadeIn = 4,
    FadeOut = 5
};

template <>
const NameTable<SettingItem_e>& NameTable<SettingItem_e>::instance();

// Prints the name ("NumCycles"), or SettingItem_e(n) for a value outside the table.
std::ostream& operator<<(std::ostream& out, SettingItem_e item);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
