// vextest::RecordingWriter: a movie writer for the host's writer seam that notes every call in a
// WriterRecord the test keeps (the settings and size it was opened with, each picture's size) and
// fails where the record says: its open, or the addFrame of one picture.
#ifndef VEXTEST_RECORDINGWRITER_H
#define VEXTEST_RECORDINGWRITER_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "vexhost/MovieWriter.h"

namespace vextest {

struct WriterRecord {
    std::vector<std::string> calls;
    std::size_t failFrame = 0;  // the frame (from 1) whose addFrame throws; 0: none
    vexhost::ExportSettings settings;
    int width = 0, height = 0;
    std::vector<std::pair<int, int>> frameSizes;
};

class RecordingWriter : public vexhost::MovieWriter {
public:
    RecordingWriter(WriterRecord& record, bool failOpen) : record_(record), failOpen_(failOpen) {}
    void open(const vexhost::ExportSettings& settings, int width, int height) override {
        record_.calls.push_back("open");
        if (failOpen_)
            throw std::runtime_error("Cannot write \"" + settings.fileName + "\".");
        record_.settings = settings;
        record_.width = width;
        record_.height = height;
    }
    void addFrame(vexhost::Image frame) override {
        record_.calls.push_back("frame");
        record_.frameSizes.emplace_back(frame.width, frame.height);
        if (record_.frameSizes.size() == record_.failFrame)
            throw std::runtime_error("The disk is full.");
    }
    void finish() override { record_.calls.push_back("finish"); }
    void cancel() override { record_.calls.push_back("cancel"); }
    std::string summary() const override { return "recorded"; }

private:
    WriterRecord& record_;
    bool failOpen_;
};

}  // namespace vextest

#endif
