// Writing and reading a key frame settings file of 100,000 key frames (about 16 MiB of text).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "file/KeyFrameFile.h"
#include "model/AnimationSettings_s.h"
#include "model/ListModelKeyFrame.h"
#include "support/TemporaryDirectory.h"

namespace {

using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::KeyFrame_s;
using vexplot::vexutiltools::KeyFrameFile;
using vexplot::vexutiltools::KeyFrameView_s;
using vexplot::vexutiltools::ListModelKeyFrame;

const std::size_t KeyFrameCount = 100000;

// Key frames whose numbers all need the six significant digits, as captured views do.
std::vector<KeyFrame_s> keyFrames() {
    std::vector<KeyFrame_s> result(KeyFrameCount);
    for (std::size_t i = 0; i < KeyFrameCount; ++i) {
        const double t = static_cast<double>(i) / 7.0;
        KeyFrame_s& keyFrame = result[i];
        keyFrame.view = KeyFrameView_s{t + 0.123456789, -t * 3.14159265, 1e-3 * t,      30.123456,
                                       -45.6543219,     0.000987654,     12.3456789 + t};
        keyFrame.name = "View " + std::to_string(i + 1);
        keyFrame.frameCount = 30 + i % 7;
        keyFrame.solutionTime = t * 0.001;
    }
    return result;
}

// A file of its own for this process, in a directory removed at the end.
class BenchFile {
public:
    std::string name() const { return path_.string(); }
    std::uintmax_t size() const { return std::filesystem::file_size(path_); }

private:
    vextest::TemporaryDirectory directory_{"keyframe-bench"};
    std::filesystem::path path_ = directory_.path() / "bench.keyframe";
};

void BM_WriteSettingsFile(benchmark::State& state) {
    ListModelKeyFrame model;
    model.setItems(keyFrames());
    const AnimationSettings_s settings;
    const BenchFile file;
    for (auto _ : state)
        KeyFrameFile().write(file.name(), settings, model);
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * KeyFrameCount));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.size()));
}

void BM_ReadSettingsFile(benchmark::State& state) {
    ListModelKeyFrame written;
    written.setItems(keyFrames());
    const BenchFile file;
    KeyFrameFile().write(file.name(), AnimationSettings_s(), written);
    ListModelKeyFrame model;
    AnimationSettings_s settings;
    for (auto _ : state) {
        KeyFrameFile().read(file.name(), settings, model);
        benchmark::DoNotOptimize(model.getItemCount());
    }
    if (model.getItemCount() != KeyFrameCount)
        state.SkipWithError("the file did not read back whole");
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * KeyFrameCount));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * file.size()));
}

BENCHMARK(BM_WriteSettingsFile)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadSettingsFile)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
