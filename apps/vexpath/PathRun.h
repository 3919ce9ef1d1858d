// One vexpath run, from the parsed command line to the exit status: the host set up as vexplot
// sets it up (FlightHost), the command run on it, its report on the output stream, and every
// problem on the error stream as "vexpath: <what>".
//
// Exit statuses (ExitStatus): 0 the command did its work (check: found nothing to warn of); 1 check
// warned, or a command failed (too few frames, nothing to retime, a file that cannot be written,
// the add-on library that cannot be loaded); 2 an input that cannot be read: a key frame file the
// add-on cannot read or animate ("vexpath: FILE: " and the add-on's own message) or a data file
// (main() gives 2 for a command line that cannot be used, too).
#ifndef VEXPLOT_PATH_PATHRUN_H
#define VEXPLOT_PATH_PATHRUN_H

#include <ostream>
#include <string>

#include "FlightHost.h"
#include "PathOptions.h"

namespace vexplot {
namespace path {

using flight::AnimationSettings_s;
using flight::KeyFrame_s;

class PathRun {
public:
    enum ExitStatus { Done = 0, Warned = 1, Failed = 1, Unreadable = 2, Unusable = 2 };
    // Pictures are drawn at twice their size and filtered down, for smooth lines and text.
    static constexpr int PictureSupersample = 2;

    // addOnPath: the add-on library to load when the options name none.
    PathRun(const PathOptions& options, const std::string& addOnPath, std::ostream& out,
            std::ostream& err);
    PathRun(const PathRun&) = delete;
    PathRun& operator=(const PathRun&) = delete;

    int run();

private:
    int check(const FlightHost& host);
    int retime(const FlightHost& host);
    int orbit(const FlightHost& host);
    int picture(const FlightHost& host);
    int sheet(const FlightHost& host);
    // Writes the key frames with the settings through the add-on's own writer.
    void write(const std::string& fileName, const std::vector<KeyFrame_s>& keyFrames,
               const AnimationSettings_s& settings);
    int problem(const std::string& text, int status);

    const PathOptions& options_;
    std::string addOnPath_;
    std::ostream& out_;
    std::ostream& err_;
    // The key frame file being read, which a failure of the add-on's is about.
    std::string reading_;
};

}  // namespace path
}  // namespace vexplot

#endif
