// FFmpeg's log, kept off the process's stderr (vexplot's error output is part of its interface)
// and turned into error text instead: the last error-level message of the calling thread is kept
// and can be added to the exception that reports a failed call.
#ifndef VEXHOST_MOVIE_FFMPEGLOG_H
#define VEXHOST_MOVIE_FFMPEGLOG_H

#include <string>

namespace vexhost {

class FfmpegLog {
public:
    // Installs the log callback once per process; later calls do nothing.
    static void install();
    // Forgets the calling thread's last message.
    static void clear();
    // The calling thread's last error message since clear(), without the line feed; empty if none.
    static std::string lastError();
    // The text of an FFmpeg error code, with the last logged error when it says more.
    static std::string describe(int errorCode);
};

}  // namespace vexhost

#endif
