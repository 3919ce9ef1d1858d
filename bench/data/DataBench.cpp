// Data files of the field's sizes, written by the benchmark with VTK (a triangulated terrain with a
// scalar, VTK XML polygonal data in appended raw binary, as a solver or mesher writes big
// surfaces), read and drawn as vexplot does it, at 1280 x 720:
//
// - BM_Load/Mtri: reading the file into the host's zones (DataFileReader::read), seconds.
// - BM_Draw/Mtri/sieve: one picture of the loaded surface: the first (which uploads the surface)
//   and then every further one, as in an animation; with the renderer's triangle sieve (1, as
//   vexplot draws) and without it (0), and how many triangles went to the rasteriser.
// - BM_SnapshotProcess/Mtri: vexplot from start to exit with --data FILE and one $!SNAPSHOT:
//   wall-clock seconds and the process's peak resident memory.
// - BM_FlightProcess: the 91-frame flight (four key frames round the data, 30 frames a segment)
//   over the file of about 1 million triangles exported as H.264 MP4 at 1280 x 720, vexplot from
//   start to exit: loading, computing the views, drawing and encoding every frame.
//
// Everything but BM_Load runs on threads of its own (the software rasteriser's, the encoder's):
// times are wall-clock, and each counter is the fastest iteration's (the least disturbed on a
// shared machine).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <vtkPolyData.h>

#include "data/SampleData.h"
#include "support/KeyFrameData.h"
#include "support/ProcessTiming.h"
#include "support/RenderingBenchMain.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/DataFileLoader.h"
#include "vexhost/DataFileReader.h"
#include "vexhost/EglRenderer.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/SceneState.h"
#include "vexhost/View3D.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The terrain file of about `millions` million triangles, written once per process.
const std::string& terrainFile(int millions) {
    static const vextest::TemporaryDirectory scratch("vexplot-bench-data");
    static std::map<int, std::string> written;
    auto found = written.find(millions);
    if (found != written.end())
        return found->second;
    const int n = static_cast<int>(std::lround(std::sqrt(millions * 1e6 / 2)));
    const std::string path = scratch.file("terrain_" + std::to_string(millions) + "M.vtp");
    vextest::SampleData::writeXml(*vextest::SampleData::terrain(n), path,
                                  vextest::SampleData::Encoding::AppendedRaw);
    return written.emplace(millions, path).first->second;
}

// vexplot with these arguments, timed from start to exit.
void timeVexplot(benchmark::State& state, const std::vector<std::string>& arguments) {
    vexbench::timeProcess(state, VEXPLOT_PATH, arguments);
}

// The host as vexplot sets it up over the file: one frame of kWidth x kHeight, the file loaded and
// the view fitted to it. The host outlives the caller's use of its scene and view.
vexhost::Host& hostShowing(const std::string& file) {
    vexhost::Host& host = vexhost::Host::instance();
    host.reset();
    vexhost::Frame& frame = host.frames().create(VexPlotType_Cartesian3D);
    frame.setPosAndSize(vexhost::Frame::DefaultX, vexhost::Frame::DefaultY,
                        kWidth / vexhost::FrameStack::PixelsPerInch,
                        kHeight / vexhost::FrameStack::PixelsPerInch);
    vexhost::DataFileLoader::load(host, file);
    return host;
}

void BM_Load(benchmark::State& state) {
    const std::string& file = terrainFile(static_cast<int>(state.range(0)));
    double fastest = 1e9;
    std::size_t triangles = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        const vexhost::LoadedData data = vexhost::DataFileReader::read(file);
        const double seconds = secondsSince(start);
        fastest = std::min(fastest, seconds);
        state.SetIterationTime(seconds);
        triangles = data.triangleCount();
    }
    state.counters["triangles"] = static_cast<double>(triangles);
    state.counters["fastest_s"] = fastest;
}

void BM_Draw(benchmark::State& state) {
    const vexhost::SceneState scene =
        hostShowing(terrainFile(static_cast<int>(state.range(0)))).scene();
    std::unique_ptr<vexhost::EglRenderer> renderer = vexhost::EglRenderer::create();
    renderer->setTriangleSieve(state.range(1) != 0);
    state.SetLabel(renderer->description());
    Clock::time_point start = Clock::now();
    renderer->render(scene, kWidth, kHeight, 1);
    state.counters["first_s"] = secondsSince(start);
    double fastest = 1e9;
    for (auto _ : state) {
        start = Clock::now();
        renderer->render(scene, kWidth, kHeight, 1);
        const double seconds = secondsSince(start);
        fastest = std::min(fastest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["fastest_ms"] = 1000 * fastest;
    state.counters["drawn_Mtri"] = static_cast<double>(renderer->trianglesDrawn()) / 1e6;
}

void BM_SnapshotProcess(benchmark::State& state) {
    const std::string& file = terrainFile(static_cast<int>(state.range(0)));
    const vextest::TemporaryDirectory scratch("vexplot-bench-data-run");
    const std::string macro = scratch.file("snap.mcr");
    std::ofstream(macro) << "$!SNAPSHOT \"" << scratch.file("snap.png") << "\"\n";
    timeVexplot(state, {"--data", file, "--size", "1280x720", macro});
}

// Four views round the terrain from its fitted view, each a quarter turn on from the last and
// tilted a little differently: 30 frames a segment, 91 frames.
void writeFlight(const std::string& path, const std::string& dataFile) {
    const vexhost::View3D fitted = hostShowing(dataFile).frames().active()->view();
    const vexhost::View3D::Vector centre = fitted.rotateOrigin();
    double distance = 0;
    for (int a = 0; a < 3; ++a)
        distance += std::pow(fitted.position()[a] - centre[a], 2);
    distance = std::sqrt(distance);
    std::vector<vextest::KeyFrame_s> keyFrames;
    const double tilts[] = {60, 50, 65, 55};
    for (int k = 0; k < 4; ++k) {
        const double psi = tilts[k], theta = fitted.theta() + 90.0 * k;
        const vexhost::View3D::Matrix r = vexhost::View3D::orientation(psi, theta, 0);
        const vextest::KeyFrameView_s view{centre[0] + distance * r[2],
                                           centre[1] + distance * r[5],
                                           centre[2] + distance * r[8],
                                           psi,
                                           theta,
                                           0,
                                           fitted.width() * (k % 2 == 0 ? 1.0 : 0.8)};
        keyFrames.push_back(
            vextest::keyFrame("View " + std::to_string(k + 1), view, k == 3 ? 1 : 30));
    }
    vextest::writeSettingsFile(path, keyFrames, vextest::animationSettings(vextest::option::None));
}

void BM_FlightProcess(benchmark::State& state) {
    const std::string& file = terrainFile(1);
    const vextest::TemporaryDirectory scratch("vexplot-bench-data-flight");
    const std::string flight = scratch.file("flight.keyframe");
    writeFlight(flight, file);
    const std::string macro = scratch.file("flight.mcr");
    std::ofstream(macro) << "$!EXPORTSETUP ExportFormat = MPEG4\n"
                            "$!EXPORTSETUP ImageWidth = 1280\n"
                            "$!EXPORTSETUP AnimationSpeed = 30\n"
                            "$!EXPORTSETUP ExportFName = \""
                         << scratch.file("flight.mp4")
                         << "\"\n"
                            "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName="
                         << flight
                         << "\n"
                            "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile\n";
    timeVexplot(state, {"--data", file, "--size", "1280x720", macro});
}

// 1, 5 and 10 million triangles, timed by hand (wall-clock: the rasteriser has threads of its
// own).
void triangleCounts(benchmark::internal::Benchmark* run) {
    run->ArgName("Mtri")->Arg(1)->Arg(5)->Arg(10)->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK(BM_Load)->Apply(triangleCounts)->Iterations(3);
BENCHMARK(BM_Draw)
    ->ArgNames({"Mtri", "sieve"})
    ->ArgsProduct({{1, 5, 10}, {1, 0}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);
BENCHMARK(BM_SnapshotProcess)->Apply(triangleCounts)->Iterations(3);
BENCHMARK(BM_FlightProcess)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
    return vexbench::renderingBenchmarkMain(argc, argv);
}
