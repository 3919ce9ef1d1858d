#include "FlightViews.h"

#include <fstream>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "model/TotalFrameCount.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/ScratchFile.h"

namespace vexplot {
namespace flight {

namespace {

std::string addOnLine(const std::string& command) {
    return std::string("$!ADDON \"") + FlightViews::AddOnName + "\" " + command;
}

// The host's frame trace written to a scratch file of its own while the object lives, and the
// active frame's view put back when it goes, on every way out of fly().
class TraceCapture {
public:
    TraceCapture(vexhost::Host& host, vexhost::Frame& frame)
        : host_(host), frame_(frame), view_(frame.view()), trace_("vexflight", ".jsonl") {
        host_.trace().open(trace_.path());
    }
    ~TraceCapture() {
        host_.trace().close();
        frame_.view() = view_;
    }
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;

    // The view and solution time of every frame drawn so far, in order. Other events (an
    // export's) are not frames on screen and are passed over.
    void readDrawnFrames(std::vector<KeyFrameView_s>& views, std::vector<double>& times) {
        host_.trace().close();
        std::ifstream in(trace_.path());
        std::string line;
        while (std::getline(in, line)) {
            try {
                const nlohmann::json event = nlohmann::json::parse(line);
                if (event.at("event") != "redraw")
                    continue;
                const nlohmann::json& v = event.at("view");
                views.push_back({v.at(0), v.at(1), v.at(2), v.at(3), v.at(4), v.at(5), v.at(6)});
                times.push_back(event.at("solutionTime"));
            } catch (const nlohmann::json::exception& error) {
                throw std::runtime_error("Cannot read the frame trace line \"" + line +
                                         "\": " + error.what());
            }
        }
    }

private:
    vexhost::Host& host_;
    vexhost::Frame& frame_;
    const vexhost::View3D view_;
    vexhost::ScratchFile trace_;
};

}  // namespace

FlightViews FlightViews::read(vexhost::MacroFileRunner& runner, const std::string& keyFrameFile) {
    if (keyFrameFile.find('"') != std::string::npos)
        throw std::invalid_argument("The key frame add-on cannot open a file whose name holds a " +
                                    std::string("double quote: ") + keyFrameFile);
    runner.runLine(addOnLine("OpenSettingsFile FileName=\"" + keyFrameFile + "\""));
    // The add-on has just read the file; the same reader gives the tools its key frames.
    FlightViews flight;
    vexutiltools::ListModelKeyFrame list;
    vexutiltools::KeyFrameFile().read(keyFrameFile, flight.settings_, list);
    flight.keyFrames_ = list.getItems();
    return flight;
}

FlightViews FlightViews::open(vexhost::Host& host, const std::string& keyFrameFile) {
    vexhost::MacroFileRunner runner(host);
    return read(runner, keyFrameFile);
}

FlightViews FlightViews::fly(vexhost::Host& host, const std::string& keyFrameFile) {
    vexhost::Frame* frame = host.frames().active();
    if (frame == nullptr)
        throw std::logic_error("FlightViews::fly(): the host has no frame to animate in");
    if (host.trace().isOpen())
        throw std::logic_error("FlightViews::fly(): the host's frame trace is already in use");

    vexhost::MacroFileRunner runner(host);
    FlightViews flight = read(runner, keyFrameFile);
    flight.rotateOrigin_ = frame->view().rotateOrigin();
    uint64_t frameNumber = 0;
    for (const KeyFrame_s& keyFrame : flight.keyFrames_) {
        flight.keyFrameFrames_.push_back(frameNumber);
        frameNumber += keyFrame.frameCount;
    }

    TraceCapture capture(host, *frame);
    runner.runLine(addOnLine("Animate AnimationDestination=OnScreen"));
    capture.readDrawnFrames(flight.views_, flight.solutionTimes_);
    const uint64_t expected = vexutiltools::totalFrameCount(flight.keyFrames_);
    if (flight.views_.size() != expected)
        throw std::runtime_error("The add-on drew " + std::to_string(flight.views_.size()) +
                                 " frames of a flight of " + std::to_string(expected));
    return flight;
}

}  // namespace flight
}  // namespace vexplot
