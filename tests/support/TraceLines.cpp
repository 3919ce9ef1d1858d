#include "support/TraceLines.h"

#include <charconv>

namespace vextest {

namespace {

// Numbers in shortest round-trip form, as the trace writes them.
std::string number(double value) {
    char buffer[32];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

const char* flag(bool value) {
    return value ? "true" : "false";
}

const std::string EventKey = "{\"event\": \"";

}  // namespace

std::string traceLine(const std::string& event, const TraceFields& fields) {
    return traceLineHead(event, fields) + " \"intensity\": " + number(fields.intensity) +
           ", \"backgroundLight\": " + number(fields.backgroundLight) +
           ", \"axisShow\": " + flag(fields.axisShow) +
           ", \"timeAnchor\": " + number(fields.timeAnchor) + "}";
}

std::string traceLineHead(const std::string& event, const TraceFields& fields) {
    return EventKey + event + "\", " + traceView(fields.view) +
           ", \"perspective\": " + flag(fields.perspective) +
           ", \"solutionTime\": " + number(fields.solutionTime) + ",";
}

std::string traceLineStart(const std::string& event) {
    return EventKey + event + "\", \"view\": [";
}

std::string traceView(const std::array<double, 7>& view) {
    std::string text = "\"view\": [";
    for (std::size_t i = 0; i < view.size(); ++i)
        text += (i > 0 ? ", " : "") + number(view[i]);
    return text + "]";
}

std::string traceEventOf(const std::string& line) {
    if (line.compare(0, EventKey.size(), EventKey) != 0)
        return "";
    return line.substr(EventKey.size(), line.find('"', EventKey.size()) - EventKey.size());
}

}  // namespace vextest
