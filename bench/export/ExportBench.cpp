// Speed of movie exports: the example flight (examples/flight.keyframe: four key frames, 30 frames
// a segment, 91 frames) around the demo data set with 100,000 triangles at each time step, at
// 1280 x 720, to Motion JPEG in AVI and H.264 in MP4.
//
// - BM_FlightExport/format: in each iteration, the flight's 91 pictures drawn alone, the same
//   pictures encoded alone, and the whole export through the add-on (Animate ToFile), in which
//   the next picture is drawn while the last one is encoded. The time is the export's; counters
//   give frames per second of each part, of drawing and encoding one after the other, and the
//   export's speed-up over that.
// - BM_VexplotProcess/format: the same export as a user runs it, vexplot from start to exit (add-on
//   loaded, data set built, OpenGL started, views computed, movie written): wall-clock seconds and
//   the process's peak resident memory.
//
// Everything runs on threads of its own (the software rasteriser's, the encoder's), so every time
// is wall-clock time. The machine these figures are taken on is shared with other work, which only
// ever makes a part slower: each counter is taken from the fastest of the iterations of that part
// (the least disturbed), and the benchmark's own time is the mean, as usual.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "DemoScene.h"
#include "support/ProcessTiming.h"
#include "support/RenderingBenchMain.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/AddOnLibrary.h"
#include "vexhost/Drawing.h"
#include "vexhost/EglRenderer.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MovieWriterFactory.h"
#include "vexhost/ProgressStatus.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr int kTriangles = 100000;
constexpr int kFlightFrames = 91;

const std::string kFlight = std::string(VEX_SOURCE_DIR) + "/examples/flight.keyframe";

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The macro lines of one export of the flight.
std::vector<std::string> exportMacro(const char* formatKeyword, const std::string& movie) {
    return {std::string("$!EXPORTSETUP ExportFormat = ") + formatKeyword,
            "$!EXPORTSETUP ImageWidth = " + std::to_string(kWidth),
            "$!EXPORTSETUP AnimationSpeed = 30",
            "$!EXPORTSETUP ExportFName = \"" + movie + "\"",
            "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=" + kFlight,
            "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile"};
}

// Keeps the scenes it is asked to draw and draws nothing: the flight's scenes, as the export takes
// them, for drawing and encoding them apart.
class SceneRecorder final : public vexhost::Renderer {
public:
    explicit SceneRecorder(std::vector<vexhost::SceneState>& scenes) : scenes_(scenes) {}
    vexhost::Image render(const vexhost::SceneState& scene, int, int, int) override {
        scenes_.push_back(scene);
        return vexhost::Image();
    }

private:
    std::vector<vexhost::SceneState>& scenes_;
};

// Lends a renderer to the host for a scope: the host owns its renderer, the benchmark keeps one
// OpenGL context for all its work.
class BorrowedRenderer final : public vexhost::Renderer {
public:
    explicit BorrowedRenderer(vexhost::Renderer& renderer) : renderer_(renderer) {}
    vexhost::Image render(const vexhost::SceneState& scene, int width, int height,
                          int supersample) override {
        return renderer_.render(scene, width, height, supersample);
    }

private:
    vexhost::Renderer& renderer_;
};

// The host as vexplot sets it up: the add-on loaded, one 1280 x 720 frame showing the demo data
// set.
class FlightHost {
public:
    FlightHost() : host_(vexhost::Host::instance()) {
        host_.reset();
        addOn_ = vexhost::AddOnLibrary::load(VEX_ADDON_LIBRARY_PATH);
        vexhost::Frame& frame = host_.frames().create(VexPlotType_Cartesian3D);
        frame.setPosAndSize(vexhost::Frame::DefaultX, vexhost::Frame::DefaultY,
                            kWidth / vexhost::FrameStack::PixelsPerInch,
                            kHeight / vexhost::FrameStack::PixelsPerInch);
        vexplot::app::DemoScene::load(host_, kTriangles);
    }
    ~FlightHost() { host_.reset(); }
    FlightHost(const FlightHost&) = delete;
    FlightHost& operator=(const FlightHost&) = delete;

    void run(const std::vector<std::string>& lines) {
        vexhost::MacroFileRunner runner(host_);
        for (const std::string& line : lines)
            runner.runLine(line);
        host_.exporter().takeLog();
        // The views and progress of the run are not needed again.
        host_.progress().reset();
    }

    vexhost::Host& host() { return host_; }

private:
    vexhost::Host& host_;
    std::unique_ptr<vexhost::AddOnLibrary> addOn_;
};

const char* formatKeyword(int format) {
    return format == VexExportFormat_AVI ? "AVI" : "MPEG4";
}

void BM_FlightExport(benchmark::State& state) {
    const int format = static_cast<int>(state.range(0));
    const vextest::TemporaryDirectory scratch("vexplot-bench-export");
    const std::string movie = (scratch.path() / "flight").string();
    FlightHost flight;
    std::unique_ptr<vexhost::EglRenderer> renderer = vexhost::EglRenderer::create();
    state.SetLabel(renderer->description());

    // The flight's scenes, as its export draws them.
    std::vector<vexhost::SceneState> scenes;
    flight.host().drawing().setRenderer(std::make_unique<SceneRecorder>(scenes));
    flight.run(exportMacro(formatKeyword(format), movie));
    if (scenes.size() != kFlightFrames)
        throw std::logic_error("the flight has " + std::to_string(scenes.size()) + " frames");
    // Every surface drawn once beforehand, as it is in a long animation.
    for (const vexhost::SceneState& scene : scenes)
        renderer->render(scene, kWidth, kHeight, 1);

    vexhost::ExportSettings settings = flight.host().exporter().settings();
    flight.host().drawing().setRenderer(std::make_unique<BorrowedRenderer>(*renderer));
    flight.host().exporter().setMovieWriterFactory(&vexhost::createMovieWriter);

    // The fastest run of each part.
    double drawing = 1e9, encoding = 1e9, exporting = 1e9;
    std::vector<vexhost::Image> pictures(scenes.size());
    for (auto _ : state) {
        Clock::time_point start = Clock::now();
        for (std::size_t i = 0; i < scenes.size(); ++i)
            pictures[i] = renderer->render(scenes[i], kWidth, kHeight, 1);
        drawing = std::min(drawing, secondsSince(start));

        start = Clock::now();
        std::unique_ptr<vexhost::MovieWriter> writer = vexhost::createMovieWriter(settings);
        writer->open(settings, kWidth, kHeight);
        // Handed over as the export hands them; the next iteration draws them again.
        for (vexhost::Image& picture : pictures)
            writer->addFrame(std::move(picture));
        writer->finish();
        encoding = std::min(encoding, secondsSince(start));

        start = Clock::now();
        flight.run(exportMacro(formatKeyword(format), movie));
        const double seconds = secondsSince(start);
        exporting = std::min(exporting, seconds);
        state.SetIterationTime(seconds);
    }
    const double frames = kFlightFrames;
    state.counters["draw_fps"] = frames / drawing;
    state.counters["encode_fps"] = frames / encoding;
    state.counters["serial_fps"] = frames / (drawing + encoding);
    state.counters["export_fps"] = frames / exporting;
    state.counters["speedup"] = (drawing + encoding) / exporting;
}
BENCHMARK(BM_FlightExport)
    ->ArgName("format")
    ->Arg(VexExportFormat_AVI)
    ->Arg(VexExportFormat_MPEG4)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);

// vexplot as a user runs it, from start to exit.
void BM_VexplotProcess(benchmark::State& state) {
    const int format = static_cast<int>(state.range(0));
    const vextest::TemporaryDirectory scratch("vexplot-bench-export");
    const std::string movie = (scratch.path() / "flight").string();
    const std::string macro = (scratch.path() / "flight.mcr").string();
    {
        std::ofstream out(macro);
        for (const std::string& line : exportMacro(formatKeyword(format), movie))
            out << line << '\n';
    }
    const std::string size = std::to_string(kWidth) + "x" + std::to_string(kHeight);
    const std::string triangles = std::to_string(kTriangles);
    vexbench::timeProcess(state, VEXPLOT_PATH,
                          {"--size", size, "--demo-triangles", triangles, macro});
}
BENCHMARK(BM_VexplotProcess)
    ->ArgName("format")
    ->Arg(VexExportFormat_AVI)
    ->Arg(VexExportFormat_MPEG4)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
    return vexbench::renderingBenchmarkMain(argc, argv);
}
