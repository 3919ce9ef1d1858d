// Long animations against the stand-in host (call log off, null renderer): how long the views of a
// 1,000,000-frame run take to compute, how long the whole run takes on screen with every stage,
// and the memory each needs at its peak.
//
// Memory is the process's peak resident set (VmHWM), reset before each measurement by writing 5 to
// /proc/self/clear_refs, less the resident set just before: what the run added at its worst. The
// views are held once, 56 bytes each (KeyFrameView_s), reserved for the whole run up front.
//   bench_large_animation --benchmark_counters_tabular=true
#include <benchmark/benchmark.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "addon/InitVexAddOn113.h"
#include "addon/LockScope.h"
#include "animation/AnimationManager.h"
#include "animation/AnimatorKeyFrame.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "support/BenchKeyFrames.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

namespace {

using vexbench::keyFrame;
using vexbench::twoKeyFrames;
using vexplot::vexutiltools::AnimationManager;
using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::AnimatorKeyFrame;
using vexplot::vexutiltools::KeyFrame_s;
using vexplot::vexutiltools::LockScope;

constexpr double MiB = 1024.0 * 1024.0;

// A field of /proc/self/status in bytes ("VmRSS", "VmHWM").
double statusBytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, field.size() + 1, field + ":") == 0)
            return std::stod(line.substr(field.size() + 1)) * 1024.0;  // given in kB
    }
    return 0;
}

// Starts a peak measurement: the high-water mark back to the resident set of now.
double startPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
    return statusBytes("VmRSS");
}

void setUpHost() {
    vexhost::Host& host = vexhost::Host::instance();
    host.reset();
    InitVexAddOn113();
    host.frames().create(VexPlotType_Cartesian3D);
    for (double time : {0.0, 0.5, 1.0}) {
        vexhost::Zone zone;
        zone.solutionTime = time;
        zone.strandId = 1;
        host.dataSet().addZone(zone);
    }
    host.style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
}

void BM_PrecomputeViews(benchmark::State& state) {
    setUpHost();
    const uint64_t frames = static_cast<uint64_t>(state.range(0));
    const std::vector<KeyFrame_s> keyFrames = twoKeyFrames(frames);
    double added = 0;
    for (auto _ : state) {
        vexhost::Host::instance().progress().reset();
        const double before = startPeak();
        {
            LockScope lock;
            AnimatorKeyFrame stage(keyFrames, nullptr);
            benchmark::DoNotOptimize(stage.getViews().data());
        }
        added = statusBytes("VmHWM") - before;
    }
    state.counters["frames"] = static_cast<double>(frames + 1);
    state.counters["peak_MiB"] = added / MiB;
    state.counters["peak_bytes_per_frame"] = added / static_cast<double>(frames + 1);
    state.counters["views_per_second"] = benchmark::Counter(
        static_cast<double>(frames + 1), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_PrecomputeViews)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void BM_WholeRunOnScreen(benchmark::State& state) {
    setUpHost();
    const uint64_t frames = static_cast<uint64_t>(state.range(0));
    const std::vector<KeyFrame_s> keyFrames = twoKeyFrames(frames);
    AnimationSettings_s everyStage;
    everyStage.AnimateTime = true;
    everyStage.AnimateStreamtraces = true;
    everyStage.FadeIn = true;
    everyStage.FadeOut = true;
    double added = 0;
    for (auto _ : state) {
        vexhost::Host::instance().progress().reset();
        const double before = startPeak();
        AnimationManager::animate(keyFrames, 0, keyFrames.size(), everyStage,
                                  AnimationManager::SuppressMacroRecording);
        added = statusBytes("VmHWM") - before;
    }
    state.counters["frames"] = static_cast<double>(frames + 1);
    state.counters["peak_MiB"] = added / MiB;
    state.counters["peak_bytes_per_frame"] = added / static_cast<double>(frames + 1);
    state.counters["frames_per_second"] = benchmark::Counter(
        static_cast<double>(frames + 1), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_WholeRunOnScreen)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
