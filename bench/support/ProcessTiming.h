// Timing a program from start to exit as a user runs it (vexplot, or mpirun starting vexplot):
// wall-clock seconds, and the peak resident memory of the largest process the program was or
// waited for.
#ifndef VEXBENCH_PROCESSTIMING_H
#define VEXBENCH_PROCESSTIMING_H

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace vexbench {

struct ProcessRun {
    bool ok = false;  // exited with status 0
    double seconds = 0;
    double peakMegabytes = 0;
};

// Runs the program with the arguments and waits for it. Its error output goes nowhere: the progress
// lines of a run would only slow the terminal down.
inline ProcessRun runProcess(const std::string& program,
                             const std::vector<std::string>& arguments) {
    std::vector<const char*> argv = {program.c_str()};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    argv.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        const int devNull = ::open("/dev/null", O_WRONLY);
        dup2(devNull, STDERR_FILENO);
        execv(program.c_str(), const_cast<char* const*>(argv.data()));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    ProcessRun run;
    run.ok = child > 0 && wait4(child, &status, 0, &usage) == child && WIFEXITED(status) &&
             WEXITSTATUS(status) == 0;
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    run.peakMegabytes = usage.ru_maxrss / 1024.0;
    return run;
}

// Iterations of the program, each timed by hand (UseManualTime); the counters fastest_s (the least
// disturbed on a shared machine) and peak_MB. Answers the fastest time.
inline double timeProcess(benchmark::State& state, const std::string& program,
                          const std::vector<std::string>& arguments) {
    double fastest = 1e9, peak = 0;
    for (auto _ : state) {
        const ProcessRun run = runProcess(program, arguments);
        if (!run.ok) {
            state.SkipWithError((program + " failed").c_str());
            break;
        }
        fastest = std::min(fastest, run.seconds);
        peak = std::max(peak, run.peakMegabytes);
        state.SetIterationTime(run.seconds);
    }
    state.counters["fastest_s"] = fastest;
    state.counters["peak_MB"] = peak;
    return fastest;
}

}  // namespace vexbench

#endif
