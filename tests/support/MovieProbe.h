// Reading movies and pictures back the way a user's tools read them: ffprobe for what a movie
// holds, ffmpeg for its decoded frames (and for PNG stills). For tests that check what the host
// wrote.
#ifndef VEXTEST_MOVIEPROBE_H
#define VEXTEST_MOVIEPROBE_H

#include <map>
#include <string>
#include <vector>

#include "vexhost/Image.h"

namespace vextest {

// ffprobe's key=value answers for the movie's container and first video stream: format_name,
// codec_name, width, height, r_frame_rate and nb_read_frames (frames decoded and counted). A
// failing ffprobe is a test failure.
std::map<std::string, std::string> probeMovie(const std::string& path);

// The time of each frame ffprobe reads from a movie's first video stream, in seconds, in the order
// the frames come out of the decoder (ffprobe's best effort timestamps). A failing ffprobe is a
// test failure.
std::vector<double> frameTimes(const std::string& path);

// The frames ffmpeg decodes from a movie or picture file, as RGB pictures of width x height (the
// size the file holds; ffmpeg does not scale). At most maxFrames when it is above 0. Fewer bytes
// than a whole frame at the end is a test failure.
std::vector<vexhost::Image> decodeFrames(const std::string& path, int width, int height,
                                         int maxFrames = 0);

// The peak signal-to-noise ratio of a movie's frames against those of a reference movie of the same
// size and frame count, in decibels, as ffmpeg's psnr filter measures it (the average over the
// frames and over Y, U and V). A failing ffmpeg is a test failure.
double moviePeakSignalToNoise(const std::string& path, const std::string& reference);

// The peak signal-to-noise ratio between two pictures of one size, in decibels, over every channel
// of every pixel: how closely a lossy encoding kept a picture. Infinity for equal pictures.
double peakSignalToNoise(const vexhost::Image& a, const vexhost::Image& b);

}  // namespace vextest

#endif
