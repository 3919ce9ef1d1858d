// The host's macro recorder: while recording, add-on commands are recorded as the line
// `$!ADDON "<add-on name>" <command string>` (the line the macro player hands back to the add-on)
// and raw command lines as they stand. Recording calls made while not recording answer false.
#ifndef VEXHOST_MACRORECORDER_H
#define VEXHOST_MACRORECORDER_H

#include <string>
#include <vector>

namespace vexhost {

class MacroRecorder {
public:
    void setRecording(bool on) { recording_ = on; }
    bool isRecording() const { return recording_; }

    const std::vector<std::string>& lines() const { return lines_; }
    std::vector<std::string> take();
    void clear() { lines_.clear(); }

    // SDK side (arguments checked by the SDK layer).
    bool recordAddOnCommand(const char* addOnName, const char* commandString);
    bool recordRaw(const char* line);

    void reset();

private:
    bool recording_ = false;
    std::vector<std::string> lines_;
};

}  // namespace vexhost

#endif
