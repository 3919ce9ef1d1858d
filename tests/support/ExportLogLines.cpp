#include "support/ExportLogLines.h"

namespace vextest {

namespace {

std::string quoted(const std::string& fileName) {
    return "\"" + fileName + "\"";
}

}  // namespace

std::string exportStartedLine(int format, int width, int height, const std::string& fileName) {
    return "Export started: format " + std::to_string(format) + ", " + std::to_string(width) +
           " x " + std::to_string(height) + " pixels, to " + quoted(fileName) + ".";
}

std::string wroteFrames(int frames, int width, int height, int framesPerSecond) {
    return "Wrote " + std::to_string(frames) + (frames == 1 ? " frame" : " frames") + " of " +
           std::to_string(width) + " x " + std::to_string(height) + " at " +
           std::to_string(framesPerSecond) + " fps";
}

std::string movieWrittenLine(int frames, int width, int height, int framesPerSecond,
                             const std::string& encoding, const std::string& fileName) {
    return wroteFrames(frames, width, height, framesPerSecond) + " as " + encoding + " to " +
           quoted(fileName) + ".";
}

std::string movieCanceledLine(const std::string& fileName) {
    return "Canceled: no movie was written to " + quoted(fileName) + ".";
}

}  // namespace vextest
