#include "vexhost/FrameTrace.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "core/Text.h"
#include "vexhost/SceneSource.h"

namespace vexhost {

void FrameTrace::open(const std::string& path) {
    close();
    file_ = std::fopen(path.c_str(), "wb");
    if (file_ == nullptr)
        throw std::runtime_error("Cannot write the frame trace file \"" + path +
                                 "\": " + std::strerror(errno));
    lines_ = 0;
}

void FrameTrace::close() {
    if (file_ != nullptr)
        std::fclose(file_);
    file_ = nullptr;
}

void FrameTrace::writeEvent(const char* event) {
    if (file_ == nullptr)
        return;
    std::string line = formatLine(event, sceneSource_.scene(false));
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), file_);
    // Flushed per line, so a run that crashes still leaves every frame it drew.
    std::fflush(file_);
    ++lines_;
}

std::string FrameTrace::formatLine(const char* event, const SceneState& scene) {
    const CameraState& c = scene.camera;
    std::string line = "{\"event\": ";
    text::appendQuoted(line, event);
    line += ", \"view\": [";
    const double view[7] = {c.position[0], c.position[1], c.position[2], c.psi,
                            c.theta,       c.alpha,       c.viewWidth};
    for (int i = 0; i < 7; ++i) {
        if (i > 0)
            line += ", ";
        text::appendNumber(line, view[i]);
    }
    line += "], \"perspective\": ";
    line += c.perspective ? "true" : "false";
    line += ", \"solutionTime\": ";
    text::appendNumber(line, scene.solutionTime);
    line += ", \"intensity\": ";
    text::appendNumber(line, scene.lightIntensity);
    line += ", \"backgroundLight\": ";
    text::appendNumber(line, scene.backgroundLight);
    line += ", \"axisShow\": ";
    line += scene.axisShow ? "true" : "false";
    line += ", \"timeAnchor\": ";
    text::appendNumber(line, scene.timeAnchor);
    line += "}";
    return line;
}

}  // namespace vexhost
