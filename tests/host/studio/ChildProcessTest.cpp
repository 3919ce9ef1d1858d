// The studio's child processes: a program or a copy of the test's own process, their output and
// status caught, and ended at a deadline or on a cancel without holding the caller up.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

#include "studio/ChildProcess.h"

namespace {

using vexhost::studio::ChildProcess;
using End = ChildProcess::Outcome::End;
using namespace std::chrono_literals;

ChildProcess::Outcome runShell(const std::string& script,
                               ChildProcess::Clock::duration allowed = 20s) {
    const std::atomic<bool> never(false);
    return ChildProcess::run("/bin/sh", {"-c", script})
        .wait(ChildProcess::Clock::now() + allowed, never);
}

TEST(ChildProcessTest, AProgramsOutputAndExitStatusAreCaught) {
    const ChildProcess::Outcome outcome = runShell("printf 'to out'; printf 'to err' >&2; exit 3");
    EXPECT_EQ(End::Exited, outcome.end);
    EXPECT_EQ(3, outcome.status);
    EXPECT_EQ("to out", outcome.out);
    EXPECT_EQ("to err", outcome.err);
}

TEST(ChildProcessTest, AProgramReadsNothingAndGetsNoneOfTheCallersDescriptors) {
    const int kept = ::open("/dev/null", O_RDONLY);
    ASSERT_GE(kept, 0);
    ASSERT_EQ(100, ::dup2(kept, 100));
    const ChildProcess::Outcome outcome =
        runShell("cat; if [ -e /proc/$$/fd/100 ]; then echo inherited; else echo clean; fi");
    ::close(100);
    ::close(kept);
    EXPECT_EQ("clean\n", outcome.out);
}

TEST(ChildProcessTest, AProgramThatCannotStartIsAnError) {
    EXPECT_THROW(ChildProcess::run("/nonexistent/vexpath", {}), std::runtime_error);
}

TEST(ChildProcessTest, AProgramPastItsDeadlineIsKilled) {
    const auto start = ChildProcess::Clock::now();
    const ChildProcess::Outcome outcome = runShell("echo started; exec sleep 30", 200ms);
    EXPECT_EQ(End::TimedOut, outcome.end);
    EXPECT_EQ("started\n", outcome.out);
    EXPECT_LT(ChildProcess::Clock::now() - start, 5s);
}

TEST(ChildProcessTest, ACanceledProgramIsKilledSoon) {
    std::atomic<bool> cancel(false);
    ChildProcess child = ChildProcess::run("/bin/sleep", {"30"});
    std::thread canceler([&cancel] {
        std::this_thread::sleep_for(100ms);
        cancel = true;
    });
    const auto start = ChildProcess::Clock::now();
    const ChildProcess::Outcome outcome = child.wait(start + 20s, cancel);
    canceler.join();
    EXPECT_EQ(End::Canceled, outcome.end);
    EXPECT_LT(ChildProcess::Clock::now() - start, 5s);
}

TEST(ChildProcessTest, ACopyOfTheProcessDoesItsWorkAndChangesNothingHere) {
    int here = 1;
    const std::atomic<bool> never(false);
    const ChildProcess::Outcome outcome = ChildProcess::fork([&here] {
                                              here = 2;
                                              std::printf("the copy's %d\n", here);
                                              std::fflush(stdout);
                                              return 5;
                                          }).wait(ChildProcess::Clock::now() + 20s, never);
    EXPECT_EQ(End::Exited, outcome.end);
    EXPECT_EQ(5, outcome.status);
    EXPECT_EQ("the copy's 2\n", outcome.out);
    EXPECT_EQ(1, here);
}

TEST(ChildProcessTest, ACopyWhoseWorkThrowsEndsWithItsMessage) {
    const std::atomic<bool> never(false);
    const ChildProcess::Outcome outcome = ChildProcess::fork([]() -> int {
                                              throw std::runtime_error("cannot save");
                                          }).wait(ChildProcess::Clock::now() + 20s, never);
    EXPECT_EQ(End::Exited, outcome.end);
    EXPECT_EQ(1, outcome.status);
    EXPECT_EQ("cannot save", outcome.err);
}

TEST(ChildProcessTest, AChildNotWaitedForIsEnded) {
    const auto start = ChildProcess::Clock::now();
    { ChildProcess child = ChildProcess::run("/bin/sleep", {"30"}); }
    EXPECT_LT(ChildProcess::Clock::now() - start, 5s);
}

}  // namespace
