// Speed of the host's pictures and movies: drawing the demo surface, and encoding frames into
// movies. Everything runs on threads of its own (the software rasteriser's, the encoding worker),
// so the times are wall-clock times.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "support/RenderingBenchMain.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/DemoDataSet.h"
#include "vexhost/EglRenderer.h"
#include "vexhost/MovieWriterFactory.h"

namespace {

using namespace vexhost;

// The demo seen from above at an angle, filling most of a 16:9 picture.
SceneState demoScene(const DemoDataSet& demo, std::size_t zone, double timeAnchor) {
    SceneState scene;
    const double psi = 60 * M_PI / 180;
    const double theta = -30 * M_PI / 180;
    scene.camera.psi = 60;
    scene.camera.theta = -30;
    scene.camera.position[0] = 5 * std::sin(theta) * std::sin(psi);
    scene.camera.position[1] = -5 * std::cos(theta) * std::sin(psi);
    scene.camera.position[2] = 5 * std::cos(psi);
    scene.camera.viewWidth = 3.2;
    scene.zones = {demo.zones.at(zone).geometry};
    scene.streamtraces = demo.streamtraces;
    scene.showMarkers = true;
    scene.deltaTime = 0.1;
    scene.timeAnchor = timeAnchor;
    scene.scalarMin = demo.scalarMin;
    scene.scalarMax = demo.scalarMax;
    for (int k = 0; k < 3; ++k) {
        scene.boundsMin[k] = demo.boundsMin[k];
        scene.boundsMax[k] = demo.boundsMax[k];
    }
    return scene;
}

DemoDataSet demoWithTriangles(int triangles) {
    DemoDataSet::Options options;
    options.triangleCount = triangles;
    return DemoDataSet::build(options);
}

// Arguments: triangles per zone, width, height, supersample factor.
void BM_RenderDemoFrame(benchmark::State& state) {
    const DemoDataSet demo = demoWithTriangles(static_cast<int>(state.range(0)));
    std::unique_ptr<EglRenderer> renderer = EglRenderer::create();
    state.SetLabel(renderer->description());
    const int width = static_cast<int>(state.range(1));
    const int height = static_cast<int>(state.range(2));
    const int supersample = static_cast<int>(state.range(3));
    // Every zone once beforehand: the surfaces are uploaded and kept, as in an animation.
    for (std::size_t zone = 0; zone < demo.zones.size(); ++zone) {
        renderer->render(demoScene(demo, zone, 0), width, height, supersample);
    }
    std::size_t frame = 0;
    for (auto _ : state) {
        const SceneState scene = demoScene(demo, frame % demo.zones.size(), 0.02 * frame);
        benchmark::DoNotOptimize(renderer->render(scene, width, height, supersample));
        ++frame;
    }
}
BENCHMARK(BM_RenderDemoFrame)
    ->ArgNames({"triangles", "width", "height", "supersample"})
    ->Args({20000, 800, 600, 1})
    ->Args({20000, 1280, 720, 1})
    ->Args({100000, 1280, 720, 1})
    ->Args({100000, 640, 360, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// One movie of kFrames frames per iteration, from pictures drawn beforehand. Argument: the export
// format. Reports the wall-clock time per frame (the encoder's throughput).
constexpr int kFrames = 30;

void BM_EncodeMovie(benchmark::State& state) {
    const int format = static_cast<int>(state.range(0));
    const DemoDataSet demo = demoWithTriangles(100000);
    std::unique_ptr<EglRenderer> renderer = EglRenderer::create();
    std::vector<Image> pictures;
    for (int i = 0; i < 8; ++i) {
        pictures.push_back(
            renderer->render(demoScene(demo, i % demo.zones.size(), 0.02 * i), 1280, 720, 1));
    }
    const vextest::TemporaryDirectory directory("vexhost-bench");
    ExportSettings settings;
    settings.format = format;
    settings.animationSpeed = 30;
    settings.fileName = directory.file("movie");
    for (auto _ : state) {
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, 1280, 720);
        for (int i = 0; i < kFrames; ++i) {
            writer->addFrame(pictures[i % pictures.size()]);
        }
        writer->finish();
        state.SetLabel(writer->summary().substr(0, writer->summary().find(" to \"")));
    }
    state.counters["per_frame"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * kFrames,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_EncodeMovie)
    ->ArgName("format")
    ->Arg(14)  // Motion JPEG in AVI
    ->Arg(21)  // H.264 in MP4
    ->Arg(0)   // the raster metafile, an animated PNG
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Drawing and encoding together, as an export runs them: each frame is drawn while the worker
// encodes the ones before. Argument: the export format. Reports the wall-clock time per frame.
void BM_ExportAnimation(benchmark::State& state) {
    const int format = static_cast<int>(state.range(0));
    const DemoDataSet demo = demoWithTriangles(100000);
    std::unique_ptr<EglRenderer> renderer = EglRenderer::create();
    for (std::size_t zone = 0; zone < demo.zones.size(); ++zone) {
        renderer->render(demoScene(demo, zone, 0), 1280, 720, 1);
    }
    const vextest::TemporaryDirectory directory("vexhost-bench");
    ExportSettings settings;
    settings.format = format;
    settings.animationSpeed = 30;
    settings.fileName = directory.file("movie");
    for (auto _ : state) {
        std::unique_ptr<MovieWriter> writer = createMovieWriter(settings);
        writer->open(settings, 1280, 720);
        for (int i = 0; i < kFrames; ++i) {
            writer->addFrame(
                renderer->render(demoScene(demo, i % demo.zones.size(), 0.02 * i), 1280, 720, 1));
        }
        writer->finish();
    }
    state.counters["per_frame"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * kFrames,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_ExportAnimation)
    ->ArgName("format")
    ->Arg(14)
    ->Arg(21)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    return vexbench::renderingBenchmarkMain(argc, argv);
}
