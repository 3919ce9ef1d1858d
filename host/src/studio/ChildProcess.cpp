#include "studio/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdio_ext.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace vexhost {
namespace studio {

namespace {

struct Pipe {
    int read = -1, write = -1;
};

// Close-on-exec, so a program started meanwhile from another thread does not keep it open.
Pipe makePipe() {
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("Cannot make a pipe: ") + std::strerror(errno));
    return {fds[0], fds[1]};
}

void closeDescriptor(int& fd) {
    if (fd >= 0)
        ::close(fd);
    fd = -1;
}

void writeAll(int fd, const char* text) {
    std::size_t left = std::strlen(text);
    while (left > 0) {
        const ssize_t written = ::write(fd, text, left);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        text += written;
        left -= static_cast<std::size_t>(written);
    }
}

}  // namespace

ChildProcess ChildProcess::run(const std::string& program,
                               const std::vector<std::string>& arguments) {
    Pipe out = makePipe();
    Pipe err;
    try {
        err = makePipe();
    } catch (...) {
        closeDescriptor(out.read);
        closeDescriptor(out.write);
        throw;
    }
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out.write, 1);
    posix_spawn_file_actions_adddup2(&actions, err.write, 2);
    // The server's sockets are not all close-on-exec: a program that outlived the studio would
    // otherwise hold its port.
    posix_spawn_file_actions_addclosefrom_np(&actions, 3);
    pid_t pid = -1;
    const int failed =
        ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    closeDescriptor(out.write);
    closeDescriptor(err.write);
    if (failed != 0) {
        closeDescriptor(out.read);
        closeDescriptor(err.read);
        throw std::runtime_error("Cannot start " + program + ": " + std::strerror(failed));
    }
    return ChildProcess(pid, out.read, err.read);
}

ChildProcess ChildProcess::fork(const std::function<int()>& work) {
    Pipe out = makePipe();
    Pipe err = makePipe();
    const pid_t pid = ::fork();
    if (pid < 0) {
        const int error = errno;
        for (int* fd : {&out.read, &out.write, &err.read, &err.write})
            closeDescriptor(*fd);
        throw std::runtime_error(std::string("Cannot copy the process: ") + std::strerror(error));
    }
    if (pid == 0) {
        // What this process has not written yet is its own to write, not the copy's.
        ::__fpurge(stdout);
        ::__fpurge(stderr);
        const int in = ::open("/dev/null", O_RDONLY);
        if (in >= 0)
            ::dup2(in, 0);
        ::dup2(out.write, 1);
        ::dup2(err.write, 2);
        int status = 1;
        try {
            status = work();
        } catch (const std::exception& error) {
            writeAll(2, error.what());
        } catch (...) {
            writeAll(2, "an unknown exception");
        }
        // No destructor or exit handler of the copy may run: they are this process's, and would
        // do its work twice (flush its files, end its threads' objects).
        ::_exit(status);
    }
    closeDescriptor(out.write);
    closeDescriptor(err.write);
    return ChildProcess(pid, out.read, err.read);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(other.pid_), out_(other.out_), err_(other.err_) {
    other.pid_ = -1;
    other.out_ = other.err_ = -1;
}

ChildProcess::~ChildProcess() {
    closePipes();
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

void ChildProcess::closePipes() {
    closeDescriptor(out_);
    closeDescriptor(err_);
}

ChildProcess::Outcome ChildProcess::wait(Clock::time_point deadline,
                                         const std::atomic<bool>& cancel) {
    Outcome outcome;
    // Why the child must be stopped now, if it must.
    const auto stopReason = [&]() -> std::optional<Outcome::End> {
        if (cancel.load())
            return Outcome::End::Canceled;
        if (Clock::now() >= deadline)
            return Outcome::End::TimedOut;
        return std::nullopt;
    };
    std::optional<Outcome::End> stopped;
    char buffer[65536];
    while ((out_ >= 0 || err_ >= 0) && !(stopped = stopReason())) {
        pollfd fds[2];
        std::string* texts[2];
        int* owners[2];
        nfds_t count = 0;
        for (auto [fd, text] : {std::pair<int*, std::string*>{&out_, &outcome.out},
                                std::pair<int*, std::string*>{&err_, &outcome.err}}) {
            if (*fd < 0)
                continue;
            fds[count] = {*fd, POLLIN, 0};
            texts[count] = text;
            owners[count++] = fd;
        }
        if (::poll(fds, count, static_cast<int>(PollInterval.count())) < 0 && errno != EINTR)
            break;
        for (nfds_t i = 0; i < count; ++i) {
            if (fds[i].revents == 0)
                continue;
            const ssize_t got = ::read(fds[i].fd, buffer, sizeof buffer);
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0) {
                closeDescriptor(*owners[i]);
                continue;
            }
            std::string& text = *texts[i];
            text.append(buffer, std::min(static_cast<std::size_t>(got),
                                         MaxOutput - std::min(MaxOutput, text.size())));
        }
    }
    closePipes();
    // A child that closed its outputs is ending; one that goes on without them is still held to
    // the deadline and the cancel.
    for (;;) {
        if (stopped)
            ::kill(pid_, SIGKILL);
        int status = 0;
        const pid_t reaped = ::waitpid(pid_, &status, stopped ? 0 : WNOHANG);
        if (reaped < 0 && errno == EINTR)
            continue;
        if (reaped == pid_ && !stopped) {
            outcome.end = WIFEXITED(status) ? Outcome::End::Exited : Outcome::End::Signalled;
            outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
        }
        if (reaped != 0)
            break;
        stopped = stopReason();
        if (!stopped)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    if (stopped)
        outcome.end = *stopped;
    pid_ = -1;
    return outcome;
}

}  // namespace studio
}  // namespace vexhost
