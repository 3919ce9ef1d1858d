// The host's export log lines (vexhost::Exporter::log, and vexplot's standard error) and the movie
// writers' summaries as the tests expect them, each written in its one format.
#ifndef VEXTEST_EXPORTLOGLINES_H
#define VEXTEST_EXPORTLOGLINES_H

#include <string>

namespace vextest {

// Export started: format 21, 800 x 600 pixels, to "film.mp4".
std::string exportStartedLine(int format, int width, int height, const std::string& fileName);
// How a movie writer's summary of a written movie begins: Wrote 3 frames of 800 x 600 at 10 fps
std::string wroteFrames(int frames, int width, int height, int framesPerSecond);
// The whole summary: Wrote 3 frames of 800 x 600 at 10 fps as H.264 in MP4 to "film.mp4".
std::string movieWrittenLine(int frames, int width, int height, int framesPerSecond,
                             const std::string& encoding, const std::string& fileName);
// Canceled: no movie was written to "stopped.mp4".
std::string movieCanceledLine(const std::string& fileName);

}  // namespace vextest

#endif
