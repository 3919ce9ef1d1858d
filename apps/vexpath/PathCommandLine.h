// vexpath's command line: `vexpath COMMAND [ARGUMENT] [options]`, COMMAND one of check, retime,
// orbit (usage() has the synopsis of each).
//
// Options take their value as the next argument or after '=' (--frames=120), and come before or
// after the command's file in any order; "--" ends the options. An option given twice keeps the
// last value. The scene options (--data, --hide-block, --size, --addon) are vexplot's own and are
// read by vexplot's command line, so they mean and check exactly what they do there.
#ifndef VEXPLOT_PATH_PATHCOMMANDLINE_H
#define VEXPLOT_PATH_PATHCOMMANDLINE_H

#include <cstdint>
#include <string>
#include <vector>

#include "PathOptions.h"

namespace vexplot {
namespace path {

class PathCommandLine {
public:
    // The frames of an orbit when --frames is not given: one degree a frame for a full turn.
    static constexpr uint64_t DefaultOrbitFrames = 361;
    // The most frames a flight may be given: the add-on computes every view before it animates.
    static constexpr uint64_t MaxFrames = 1000000;
    // The largest turn an orbit makes, either way: a hundred turns.
    static constexpr double MaxOrbitDegrees = 36000;
    // A contact sheet's pictures a row.
    static constexpr int64_t MaxColumns = 64;

    // The arguments after the program name. app::UsageError naming the option or value otherwise.
    static PathOptions parse(const std::vector<std::string>& arguments);
    // The --help text of a command, or of the program for Command::None.
    static const char* usage(PathOptions::Command command);
};

}  // namespace path
}  // namespace vexplot

#endif
