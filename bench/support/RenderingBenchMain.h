// The main of a benchmark program that renders pictures: the program's memory settings for
// rendering (as vexplot has them, so the figures are vexplot's), then Google Benchmark as
// BENCHMARK_MAIN runs it.
#ifndef VEXBENCH_RENDERINGBENCHMAIN_H
#define VEXBENCH_RENDERINGBENCHMAIN_H

#include <benchmark/benchmark.h>

#include "RenderingMemory.h"

namespace vexbench {

inline int renderingBenchmarkMain(int argc, char** argv) {
    vexplot::app::keepFreedMemoryForReuse();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace vexbench

#endif
