// A child process whose output is caught: a program, or a copy of this process that runs one
// function and ends. The studio runs its checks so, beside the user-interface thread, which they
// never hold up: wait() is for a worker thread, and ends the child at a deadline or on a cancel.
//
// The child starts with standard input from /dev/null, its standard output and error going to
// pipes that wait() reads, and (a program) no other descriptor of this process: the server's
// sockets stay the server's.
#ifndef VEXHOST_STUDIO_CHILDPROCESS_H
#define VEXHOST_STUDIO_CHILDPROCESS_H

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vexhost {
namespace studio {

class ChildProcess {
public:
    using Clock = std::chrono::steady_clock;
    // What wait() keeps of each stream; the rest is read and dropped, so the child never blocks.
    static constexpr std::size_t MaxOutput = 16 << 20;

    struct Outcome {
        enum class End { Exited, Signalled, TimedOut, Canceled };
        End end = End::Exited;
        int status = 0;  // Exited: the exit status; Signalled: the signal
        std::string out, err;
    };

    // Runs `program` (a path) with `arguments` after its name. std::runtime_error naming the
    // program when it cannot be started.
    static ChildProcess run(const std::string& program, const std::vector<std::string>& arguments);
    // Runs `work` in a copy of this process (fork), which then ends with the status `work`
    // returned (1 and the exception's text on standard error when it throws), without running
    // destructors or exit handlers: the copy changes nothing of this process and leaves nothing
    // behind. Only the calling thread goes on in the copy, so `work` must need nothing that
    // another thread of this process holds. std::runtime_error when there can be no copy.
    static ChildProcess fork(const std::function<int()>& work);

    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    // A child not waited for is killed and reaped.
    ~ChildProcess();

    // Reads the child's output until it ends, and reaps it. At the deadline, or once `cancel` is
    // true (looked at every PollInterval), the child is killed (SIGKILL).
    Outcome wait(Clock::time_point deadline, const std::atomic<bool>& cancel);

    static constexpr std::chrono::milliseconds PollInterval{50};

private:
    ChildProcess(pid_t pid, int out, int err) : pid_(pid), out_(out), err_(err) {}
    void closePipes();

    pid_t pid_ = -1;
    int out_ = -1, err_ = -1;
};

}  // namespace studio
}  // namespace vexhost

#endif
