#include "support/MovieProbe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "support/CommandOutput.h"

namespace vextest {

std::map<std::string, std::string> probeMovie(const std::string& path) {
    const std::string command =
        "ffprobe -v error -count_frames -select_streams v:0 -show_entries "
        "format=format_name:stream=codec_name,width,height,r_frame_rate,nb_read_frames "
        "-of default=noprint_wrappers=1 " +
        shellQuoted(path) + " 2>&1";
    std::map<std::string, std::string> values;
    for (const std::string& line : commandOutputLines(command)) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos)
            values[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return values;
}

std::vector<double> frameTimes(const std::string& path) {
    const std::string command =
        "ffprobe -v error -select_streams v:0 -show_entries frame=best_effort_timestamp_time "
        "-of csv=p=0 " +
        shellQuoted(path) + " 2>&1";
    std::vector<double> times;
    for (const std::string& line : commandOutputLines(command)) {
        // A frame's line may carry a trailing comma, and frames with side data add empty lines.
        char* end = nullptr;
        const double time = std::strtod(line.c_str(), &end);
        if (end != line.c_str())
            times.push_back(time);
    }
    return times;
}

std::vector<vexhost::Image> decodeFrames(const std::string& path, int width, int height,
                                         int maxFrames) {
    // Every frame as decoded, none repeated or dropped to make a constant rate.
    const std::string command = "ffmpeg -v error -i " + shellQuoted(path) +
                                (maxFrames > 0 ? " -frames:v " + std::to_string(maxFrames) : "") +
                                " -fps_mode passthrough -f rawvideo -pix_fmt rgb24 - 2>/dev/null";
    std::vector<vexhost::Image> frames;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        ADD_FAILURE() << "cannot run ffmpeg";
        return frames;
    }
    const std::size_t frameBytes = static_cast<std::size_t>(width) * height * 3;
    for (;;) {
        vexhost::Image frame;
        frame.width = width;
        frame.height = height;
        frame.rgb.resize(frameBytes);
        const std::size_t read = std::fread(frame.rgb.data(), 1, frameBytes, pipe);
        if (read == 0)
            break;
        EXPECT_EQ(read, frameBytes) << "ffmpeg decoded part of a frame of " << path;
        if (read != frameBytes)
            break;
        frames.push_back(std::move(frame));
    }
    const int status = pclose(pipe);
    EXPECT_EQ(status, 0) << "ffmpeg failed on " << path;
    return frames;
}

double moviePeakSignalToNoise(const std::string& path, const std::string& reference) {
    const std::string command = "ffmpeg -v info -i " + shellQuoted(path) + " -i " +
                                shellQuoted(reference) + " -lavfi psnr -f null - 2>&1";
    for (const std::string& line : commandOutputLines(command)) {
        const std::size_t average = line.find(" average:");
        if (line.find("PSNR ") != std::string::npos && average != std::string::npos)
            return std::strtod(line.c_str() + average + 9, nullptr);
    }
    ADD_FAILURE() << "ffmpeg gave no PSNR of " << path << " against " << reference;
    return 0;
}

double peakSignalToNoise(const vexhost::Image& a, const vexhost::Image& b) {
    EXPECT_EQ(a.rgb.size(), b.rgb.size()) << "pictures of different sizes";
    double squares = 0;
    const std::size_t n = std::min(a.rgb.size(), b.rgb.size());
    for (std::size_t i = 0; i < n; ++i) {
        const double d = static_cast<double>(a.rgb[i]) - b.rgb[i];
        squares += d * d;
    }
    if (squares == 0)
        return std::numeric_limits<double>::infinity();
    return 10 * std::log10(255.0 * 255.0 * static_cast<double>(n) / squares);
}

}  // namespace vextest
