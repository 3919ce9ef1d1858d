// The lines of the host's frame trace as the tests expect them, written in the one format the
// trace has (vexhost::FrameTrace, docs/host.md), so a test names the values and not the format.
#ifndef VEXTEST_TRACELINES_H
#define VEXTEST_TRACELINES_H

#include <array>
#include <string>

namespace vextest {

// What a trace line holds besides its event; the defaults are a fresh frame's lighting, axis and
// streamtrace timing at solution time 0.
struct TraceFields {
    std::array<double, 7> view{};  // x, y, z, psi, theta, alpha, width
    bool perspective = false;
    double solutionTime = 0;
    double intensity = 75;
    double backgroundLight = 25;
    bool axisShow = true;
    double timeAnchor = 0;
};

// The whole line, without its line feed.
std::string traceLine(const std::string& event, const TraceFields& fields);
// The line up to its solution time, for frames whose lighting, axis and time anchor are a fade's:
// {"event": "redraw", "view": [...], "perspective": false, "solutionTime": 1,
std::string traceLineHead(const std::string& event, const TraceFields& fields);
// How every line of the event begins, up to the view's first number: {"event": "exit", "view": [
std::string traceLineStart(const std::string& event);
// The view as a line holds it: "view": [x, y, z, psi, theta, alpha, width]
std::string traceView(const std::array<double, 7>& view);
// The event a line names ("" when it names none).
std::string traceEventOf(const std::string& line);

}  // namespace vextest

#endif
