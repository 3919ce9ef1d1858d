// What of one streamtrace is drawn at the scene's stream timing: the line pieces and the marker
// positions.
//
// Without dashes the whole polyline is drawn; with dashes only the pieces whose travel time lies in
// [timeAnchor + 2k * deltaTime, timeAnchor + (2k + 1) * deltaTime] for some integer k. With
// markers, one marker stands at every time timeAnchor + k * deltaTime within the trace's times. A
// deltaTime that is not a positive finite number draws the whole line and no markers; so does a
// timing that would give more than kMaxMarks dash pieces or markers per trace, since those would be
// finer than any picture could show.
#ifndef VEXHOST_RENDER_STREAMTRACEMARKS_H
#define VEXHOST_RENDER_STREAMTRACEMARKS_H

#include <cstddef>
#include <vector>

#include "vexhost/Streamtrace.h"

namespace vexhost {

struct StreamtraceTiming {
    double timeAnchor = 0;
    double deltaTime = 1;
    bool showMarkers = false;
    bool showDashes = false;
};

class StreamtraceMarks {
public:
    static constexpr std::size_t kMaxMarks = 100000;

    // Throws std::invalid_argument naming the fault for a trace whose times do not match its
    // points or do not ascend.
    StreamtraceMarks(const Streamtrace& trace, const StreamtraceTiming& timing);

    // Pairs of points (x, y, z, x, y, z) for GL_LINES.
    const std::vector<float>& segments() const { return segments_; }
    // x, y, z per marker.
    const std::vector<float>& markers() const { return markers_; }

private:
    void addWholeLine(const Streamtrace& trace);
    void addDashes(const Streamtrace& trace, const StreamtraceTiming& timing);
    void addMarkers(const Streamtrace& trace, const StreamtraceTiming& timing);

    std::vector<float> segments_;
    std::vector<float> markers_;
};

}  // namespace vexhost

#endif
