// Speed and memory of the add-on's animation engine against the stand-in host, with the call log
// off, no frame trace and the null renderer (drawing a frame makes no picture):
// - BM_InterpolatedViews: computing the views between two key frames through the host's rotations
//   (views per second);
// - BM_RunLoopOnScreen: an on-screen run whose key frames are one frame apart, so that nothing is
//   interpolated and the time is the run itself: per frame the view applied, the redraw, the
//   progress check (frames per second);
// - BM_ViewMemory: the heap taken while the views of a run are computed, per frame.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

#include "addon/InitVexAddOn113.h"
#include "addon/LockScope.h"
#include "animation/AnimationManager.h"
#include "animation/AnimatorKeyFrame.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"
#include "support/BenchKeyFrames.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"

// ---- Heap accounting: every allocation of the program passes through here ----

namespace {
std::size_t heapInUse = 0;
std::size_t heapPeak = 0;

void* allocate(std::size_t size) {
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr)
        throw std::bad_alloc();
    heapInUse += malloc_usable_size(p);
    if (heapInUse > heapPeak)
        heapPeak = heapInUse;
    return p;
}

void release(void* p) noexcept {
    if (p == nullptr)
        return;
    heapInUse -= malloc_usable_size(p);
    std::free(p);
}
}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* p) noexcept {
    release(p);
}
void operator delete[](void* p) noexcept {
    release(p);
}
void operator delete(void* p, std::size_t) noexcept {
    release(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    release(p);
}

namespace {

using vexbench::keyFrame;
using vexbench::twoKeyFrames;
using vexplot::vexutiltools::AnimationManager;
using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::AnimatorKeyFrame;
using vexplot::vexutiltools::KeyFrame_s;
using vexplot::vexutiltools::KeyFrameView_s;
using vexplot::vexutiltools::LockScope;

// A clean host with the add-on loaded and one 3D frame; the call log is off after a reset.
void setUpHost() {
    vexhost::Host::instance().reset();
    InitVexAddOn113();
    vexhost::Host::instance().frames().create(VexPlotType_Cartesian3D);
}

// The host keeps every percentage checked; the benchmarks drop what earlier iterations left, so
// each one starts from the same host.
void forgetProgress() {
    vexhost::Host::instance().progress().reset();
}

void BM_InterpolatedViews(benchmark::State& state) {
    setUpHost();
    const uint64_t frames = static_cast<uint64_t>(state.range(0));
    const std::vector<KeyFrame_s> keyFrames = twoKeyFrames(frames);
    for (auto _ : state) {
        LockScope lock;
        AnimatorKeyFrame stage(keyFrames, nullptr);
        benchmark::DoNotOptimize(stage.getViews().data());
        state.PauseTiming();
        forgetProgress();
        state.ResumeTiming();
    }
    // The views between the two key frames, each one a pass through the host.
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(frames - 1));
    state.counters["views_per_second"] = benchmark::Counter(
        static_cast<double>(frames - 1), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_InterpolatedViews)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_RunLoopOnScreen(benchmark::State& state) {
    setUpHost();
    const int64_t frames = state.range(0);
    std::vector<KeyFrame_s> keyFrames;
    for (int64_t i = 0; i < frames; ++i)
        keyFrames.push_back(keyFrame(60 + 0.001 * i, 30, 0, 8.66, 1));
    const AnimationSettings_s onScreen;
    for (auto _ : state) {
        AnimationManager::animate(keyFrames, 0, keyFrames.size(), onScreen,
                                  AnimationManager::SuppressMacroRecording);
        state.PauseTiming();
        forgetProgress();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * frames);
    state.counters["frames_per_second"] = benchmark::Counter(
        static_cast<double>(frames), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_RunLoopOnScreen)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ViewMemory(benchmark::State& state) {
    setUpHost();
    const uint64_t frames = static_cast<uint64_t>(state.range(0));
    const std::vector<KeyFrame_s> keyFrames = twoKeyFrames(frames);
    double peakPerFrame = 0;
    double heldPerFrame = 0;
    for (auto _ : state) {
        forgetProgress();
        LockScope lock;
        const std::size_t before = heapInUse;
        heapPeak = before;
        {
            AnimatorKeyFrame stage(keyFrames, nullptr);
            heldPerFrame =
                static_cast<double>(stage.getViews().capacity() * sizeof(KeyFrameView_s)) /
                static_cast<double>(frames);
        }
        peakPerFrame = static_cast<double>(heapPeak - before) / static_cast<double>(frames);
    }
    state.counters["view_bytes"] = static_cast<double>(sizeof(KeyFrameView_s));
    state.counters["held_bytes_per_frame"] = heldPerFrame;
    state.counters["peak_bytes_per_frame"] = peakPerFrame;
}
BENCHMARK(BM_ViewMemory)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
