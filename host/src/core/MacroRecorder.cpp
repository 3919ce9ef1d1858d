#include "vexhost/MacroRecorder.h"

namespace vexhost {

std::vector<std::string> MacroRecorder::take() {
    std::vector<std::string> taken;
    taken.swap(lines_);
    return taken;
}

bool MacroRecorder::recordAddOnCommand(const char* addOnName, const char* commandString) {
    if (!recording_)
        return false;
    // The line the macro player gives back to the add-on: the command string stands as it is.
    lines_.push_back(std::string("$!ADDON \"") + addOnName + "\" " + commandString);
    return true;
}

bool MacroRecorder::recordRaw(const char* line) {
    if (!recording_)
        return false;
    lines_.emplace_back(line);
    return true;
}

void MacroRecorder::reset() {
    recording_ = false;
    lines_.clear();
}

}  // namespace vexhost
