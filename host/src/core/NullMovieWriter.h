// The movie writer of a host without encoders: takes the frames, writes nothing, and says so.
#ifndef VEXHOST_CORE_NULLMOVIEWRITER_H
#define VEXHOST_CORE_NULLMOVIEWRITER_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "vexhost/MovieWriter.h"

namespace vexhost {

class NullMovieWriter final : public MovieWriter {
public:
    void open(const ExportSettings& settings, int width, int height) override;
    void addFrame(Image) override { ++frames_; }
    void finish() override { finished_ = true; }
    void cancel() override { canceled_ = true; }
    std::string summary() const override;

    // The default movie joiner (Exporter::setMovieJoiner): joins nothing, as there are no pieces
    // but what this writer wrote, and says so.
    static std::string joinNothing(const ExportSettings& settings, std::size_t pieces);

private:
    std::string fileName_;
    int width_ = 0, height_ = 0;
    uint64_t frames_ = 0;
    bool finished_ = false;
    bool canceled_ = false;
};

}  // namespace vexhost

#endif
