// The frame trace: while a trace file is open, one JSON object per line for every drawn frame
// ("redraw"), for export start, frame, finish and cancel, and for the exit ("exit", written by
// writeExit). Fields in this order:
//   {"event": "redraw", "view": [x, y, z, psi, theta, alpha, width], "perspective": false,
//    "solutionTime": 0, "intensity": 75, "backgroundLight": 25, "axisShow": true, "timeAnchor": 0}
// (one line). The view is the active frame's (the default view without frames); numbers are in
// shortest round-trip form, so two runs that reach the same state write the same bytes.
#ifndef VEXHOST_FRAMETRACE_H
#define VEXHOST_FRAMETRACE_H

#include <cstdint>
#include <cstdio>
#include <string>

#include "vexhost/SceneState.h"

namespace vexhost {

class SceneSource;

class FrameTrace {
public:
    explicit FrameTrace(const SceneSource& sceneSource) : sceneSource_(sceneSource) {}
    ~FrameTrace() { close(); }
    FrameTrace(const FrameTrace&) = delete;
    FrameTrace& operator=(const FrameTrace&) = delete;

    // Starts a new file (a file already open is closed first). std::runtime_error naming the path
    // when it cannot be written.
    void open(const std::string& path);
    void close();
    bool isOpen() const { return file_ != nullptr; }
    // Lines written to the open (or last) file.
    uint64_t linesWritten() const { return lines_; }

    // One line for the host's current state; nothing while closed.
    void writeEvent(const char* event);
    void writeExit() { writeEvent("exit"); }

    // The line (without line feed) for an event and a scene.
    static std::string formatLine(const char* event, const SceneState& scene);

    // Closed, no lines written.
    void reset() {
        close();
        lines_ = 0;
    }

private:
    const SceneSource& sceneSource_;
    std::FILE* file_ = nullptr;  // owned while open
    uint64_t lines_ = 0;
};

}  // namespace vexhost

#endif
