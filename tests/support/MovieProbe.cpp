#include "support/MovieProbe.h"

#include <gtest/gtest.h>

#include <cstdio>

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

std::vector<vexhost::Image> decodeFrames(const std::string& path, int width, int height,
                                         int maxFrames) {
    const std::string command = "ffmpeg -v error -i " + shellQuoted(path) +
                                (maxFrames > 0 ? " -frames:v " + std::to_string(maxFrames) : "") +
                                " -f rawvideo -pix_fmt rgb24 - 2>/dev/null";
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

}  // namespace vextest
