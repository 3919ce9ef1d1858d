// vextest::RecordingRenderer: a renderer for the host's picture seam that notes every picture it
// is asked for (scene, size, supersample factor) in a list the test keeps, and draws each filled
// with one grey level, so a test sees what was asked and which renderer drew.
#ifndef VEXTEST_RECORDINGRENDERER_H
#define VEXTEST_RECORDINGRENDERER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vexhost/Renderer.h"

namespace vextest {

class RecordingRenderer : public vexhost::Renderer {
public:
    struct Call {
        vexhost::SceneState scene;
        int width, height, supersample;
    };

    // Notes nothing without a list.
    explicit RecordingRenderer(std::vector<Call>* calls = nullptr, uint8_t grey = 128)
        : calls_(calls), grey_(grey) {}

    vexhost::Image render(const vexhost::SceneState& scene, int width, int height,
                          int supersample) override {
        if (calls_ != nullptr)
            calls_->push_back({scene, width, height, supersample});
        vexhost::Image image;
        image.width = width;
        image.height = height;
        image.rgb.assign(static_cast<std::size_t>(width) * height * 3, grey_);
        return image;
    }

    // The supersample factors asked for, in order.
    static std::vector<int> supersamples(const std::vector<Call>& calls) {
        std::vector<int> factors;
        for (const Call& call : calls)
            factors.push_back(call.supersample);
        return factors;
    }

private:
    std::vector<Call>* calls_;
    uint8_t grey_;
};

}  // namespace vextest

#endif
