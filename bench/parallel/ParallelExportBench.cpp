// The frame-parallel export (vexplot --parallel-export, docs/parallel-export.md) against vexplot
// alone: the example flight (examples/flight.keyframe, 91 frames) around the demo data set with
// 100,000 triangles at each time step, at 1280 x 720, to H.264 in MP4, every process drawing with
// one rasteriser thread (LP_NUM_THREADS=1, set for the whole program), as a job with a core per
// process has it. The parts of the cost model of docs/performance.md:
//
// - BM_Export/processes:P: the export from start to exit, by vexplot alone (P = 0) or by mpirun
//   with P processes; fastest_s, frames per second and the speed-up over vexplot alone.
// - BM_StartUp/processes:P: the same runs with a macro that opens the key frame file and exports
//   nothing: starting and ending the job (MPI, the add-on, the data set), which every export pays
//   once.
// - BM_Join/pieces:P: member 0's join of 91 frames written as P pieces, in this process (FFmpeg's
//   demuxer and muxer). The pictures are the movie tests' gradients with a moving bar, which encode
//   smaller than the flight's; the counter MB gives the movie's size, since copying packets costs
//   by the byte as well as by the packet and the piece.
//
// Drawing and encoding one frame with one rasteriser thread, apart, are bench_export's
// BM_FlightExport/format:21 run with LP_NUM_THREADS=1. Times are wall-clock (the rasteriser and the
// encoder have threads of their own), each counter from the fastest iteration.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/movie/MovieCases.h"
#include "support/ProcessTiming.h"
#include "support/RenderingBenchMain.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/FrameRange.h"
#include "vexhost/MoviePieces.h"
#include "vexhost/MovieWriterFactory.h"

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr int kFlightFrames = 91;
const std::string kFlight = std::string(VEX_SOURCE_DIR) + "/examples/flight.keyframe";

// The export of the flight, or (without a movie) only the opening of its key frame file.
std::string writeMacro(const vextest::TemporaryDirectory& scratch, bool exports) {
    const std::string macro = scratch.file("flight.mcr");
    std::ofstream out(macro);
    out << "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=" << kFlight << "\n";
    if (exports)
        out << "$!EXPORTSETUP ExportFormat = MPEG4\n"
               "$!EXPORTSETUP ImageWidth = "
            << kWidth
            << "\n"
               "$!EXPORTSETUP AnimationSpeed = 30\n"
               "$!EXPORTSETUP ExportFName = \""
            << scratch.file("flight.mp4")
            << "\"\n"
               "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile\n";
    return macro;
}

// vexplot alone (0 processes), or mpirun with that many processes of vexplot --parallel-export,
// timed from start to exit; answers the fastest time.
double timeJob(benchmark::State& state, int processes, bool exports) {
    const vextest::TemporaryDirectory scratch("vexplot-bench-parallel");
    const std::vector<std::string> vexplot = {
        "--size", std::to_string(kWidth) + "x" + std::to_string(kHeight), "--demo-triangles",
        "100000", writeMacro(scratch, exports)};
    if (processes == 0)
        return vexbench::timeProcess(state, VEXPLOT_PATH, vexplot);
    // Not bound to a core each, as Open MPI binds a job of one or two processes: a process's
    // drawing, rasterising and encoding threads would then share one core.
    std::vector<std::string> mpirun = {"--oversubscribe",
                                       "--bind-to",
                                       "none",
                                       "-x",
                                       "LP_NUM_THREADS",
                                       "-n",
                                       std::to_string(processes),
                                       VEXPLOT_PATH,
                                       "--parallel-export"};
    if (geteuid() == 0)
        mpirun.insert(mpirun.begin(), "--allow-run-as-root");
    mpirun.insert(mpirun.end(), vexplot.begin(), vexplot.end());
    return vexbench::timeProcess(state, MPIRUN_PATH, mpirun);
}

void BM_Export(benchmark::State& state) {
    // vexplot alone's time, for the speed-ups of the runs after it.
    static double alone = 0;
    const int processes = static_cast<int>(state.range(0));
    const double fastest = timeJob(state, processes, true);
    if (processes == 0)
        alone = fastest;
    state.counters["fps"] = kFlightFrames / fastest;
    if (alone > 0)
        state.counters["speedup"] = alone / fastest;
}

void BM_StartUp(benchmark::State& state) {
    timeJob(state, static_cast<int>(state.range(0)), false);
}

void BM_Join(benchmark::State& state) {
    const int members = static_cast<int>(state.range(0));
    const vextest::TemporaryDirectory scratch("vexplot-bench-join");
    vexhost::ExportSettings settings =
        vextest::movieSettings(vextest::kMovieCases[0], scratch.file("joined.mp4"));
    settings.animationSpeed = 30;
    std::vector<std::string> pieces;
    for (int m = 0; m < members; ++m) {
        const vexhost::FrameRange range = vexhost::FrameRange::of(kFlightFrames, members, m);
        if (range.empty())
            continue;
        vexhost::ExportSettings piece = settings;
        piece.fileName = vexhost::moviePieceName(settings.fileName, m);
        const std::unique_ptr<vexhost::MovieWriter> writer = vexhost::createMovieWriter(piece);
        writer->open(piece, kWidth, kHeight);
        for (uint64_t i = range.first; i < range.end; ++i)
            writer->addFrame(vextest::testFrame(kWidth, kHeight, static_cast<int>(i)));
        writer->finish();
        pieces.push_back(piece.fileName);
    }
    double fastest = 1e9;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        vexhost::joinMoviePieces(settings, pieces, kWidth, kHeight);
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        fastest = std::min(fastest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["fastest_ms"] = 1000 * fastest;
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(settings.fileName)) / 1e6;
}

// vexplot alone, and jobs of 1 and 2 processes, timed by hand (wall-clock: the rasteriser and the
// encoder have threads of their own).
void processCounts(benchmark::internal::Benchmark* run) {
    run->ArgName("processes")
        ->Arg(0)
        ->Arg(1)
        ->Arg(2)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(3);
}

BENCHMARK(BM_Export)->Apply(processCounts);
BENCHMARK(BM_StartUp)->Apply(processCounts);
BENCHMARK(BM_Join)
    ->ArgName("pieces")
    ->Arg(2)
    ->Arg(8)
    ->Arg(64)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
    // Before anything starts OpenGL, here or in the processes started.
    setenv("LP_NUM_THREADS", "1", 1);
    return vexbench::renderingBenchmarkMain(argc, argv);
}
