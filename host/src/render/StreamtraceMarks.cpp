#include "render/StreamtraceMarks.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace vexhost {
namespace {

// The point at travel time t on segment i (times[i] <= t <= times[i + 1]).
void pointAt(const Streamtrace& trace, std::size_t i, double t, std::vector<float>& out) {
    const double t0 = trace.times[i];
    const double t1 = trace.times[i + 1];
    const double f = t1 > t0 ? (t - t0) / (t1 - t0) : 0.0;
    for (int k = 0; k < 3; ++k) {
        const double a = trace.points[3 * i + k];
        const double b = trace.points[3 * (i + 1) + k];
        out.push_back(static_cast<float>(a + f * (b - a)));
    }
}

}  // namespace

StreamtraceMarks::StreamtraceMarks(const Streamtrace& trace, const StreamtraceTiming& timing) {
    if (trace.points.size() != 3 * trace.times.size()) {
        throw std::invalid_argument("StreamtraceMarks::StreamtraceMarks(): streamtrace has " +
                                    std::to_string(trace.points.size()) + " point values for " +
                                    std::to_string(trace.times.size()) + " times");
    }
    if (!std::is_sorted(trace.times.begin(), trace.times.end())) {
        throw std::invalid_argument(
            "StreamtraceMarks::StreamtraceMarks(): streamtrace times do not ascend");
    }
    if (trace.times.size() < 2) {
        return;
    }
    const double span = trace.times.back() - trace.times.front();
    const double d = timing.deltaTime;
    const bool timed = std::isfinite(d) && d > 0 && std::isfinite(timing.timeAnchor) &&
                       std::isfinite(span) && span / d < static_cast<double>(kMaxMarks);
    if (timed && timing.showDashes) {
        addDashes(trace, timing);
    } else {
        addWholeLine(trace);
    }
    if (timed && timing.showMarkers) {
        addMarkers(trace, timing);
    }
}

void StreamtraceMarks::addWholeLine(const Streamtrace& trace) {
    for (std::size_t i = 0; i + 1 < trace.times.size(); ++i) {
        segments_.insert(segments_.end(), trace.points.begin() + 3 * i,
                         trace.points.begin() + 3 * (i + 2));
    }
}

void StreamtraceMarks::addDashes(const Streamtrace& trace, const StreamtraceTiming& timing) {
    const double a = timing.timeAnchor;
    const double d = timing.deltaTime;
    for (std::size_t i = 0; i + 1 < trace.times.size(); ++i) {
        const double t0 = trace.times[i];
        const double t1 = trace.times[i + 1];
        // Split the segment at every interval boundary a + j * d inside it; a piece is drawn when
        // its middle lies in an even interval.
        double start = t0;
        double j = std::floor((t0 - a) / d) + 1;
        while (start < t1) {
            const double end = std::min(t1, a + j * d);
            const double middle = 0.5 * (start + end);
            const double interval = std::floor((middle - a) / d);
            if (end > start && std::fmod(std::fabs(interval), 2.0) == 0.0) {
                pointAt(trace, i, start, segments_);
                pointAt(trace, i, end, segments_);
            }
            start = std::max(end, start);
            if (end >= t1) {
                break;
            }
            j += 1;
        }
    }
}

void StreamtraceMarks::addMarkers(const Streamtrace& trace, const StreamtraceTiming& timing) {
    const double a = timing.timeAnchor;
    const double d = timing.deltaTime;
    const double first = std::ceil((trace.times.front() - a) / d);
    const double last = std::floor((trace.times.back() - a) / d);
    for (double k = first; k <= last; k += 1) {
        const double t = a + k * d;
        // The segment that holds t: the last one starting at or before it.
        auto upper = std::upper_bound(trace.times.begin(), trace.times.end(), t);
        std::size_t i = upper == trace.times.begin() ? 0 : (upper - trace.times.begin()) - 1;
        i = std::min(i, trace.times.size() - 2);
        pointAt(trace, i, std::clamp<double>(t, trace.times.front(), trace.times.back()), markers_);
    }
}

}  // namespace vexhost
