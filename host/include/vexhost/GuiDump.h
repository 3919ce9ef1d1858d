// The state of a dialog as text, one control per line, for $!UI DUMP and for tests that compare
// what a dialog shows (format in docs/ui-scripting.md). The text depends on the dialog's state
// only, so two runs that leave a dialog alike dump the same bytes.
#ifndef VEXHOST_GUIDUMP_H
#define VEXHOST_GUIDUMP_H

#include <cstdint>
#include <string>

namespace vexhost {

class GuiModel;

class GuiDump {
public:
    // The dialog's state, each line ending in a line feed; std::out_of_range for an id that is
    // not a dialog's.
    static std::string dialog(const GuiModel& model, int32_t dialogId);
};

}  // namespace vexhost

#endif
