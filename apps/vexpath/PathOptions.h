// What one vexpath run was asked to do, as read from its command line (PathCommandLine).
#ifndef VEXPLOT_PATH_PATHOPTIONS_H
#define VEXPLOT_PATH_PATHOPTIONS_H

#include <cstdint>
#include <string>

#include "RunOptions.h"

namespace vexplot {
namespace path {

struct PathOptions {
    enum class Command { None, Check, Retime, Orbit, Picture, Sheet };

    Command command = Command::None;
    bool help = false;  // --help: the command's help, or the program's without a command
    // The scene the flights are made in, read by vexplot's own command line: --data,
    // --hide-block, --size, --addon.
    app::RunOptions scene;
    std::string input;   // check, retime, picture, sheet: the key frame file
    std::string output;  // retime, orbit, picture, sheet: -o FILE
    bool inPlace = false;
    bool json = false;
    uint64_t frames = 0;  // retime: the total; orbit: the total, or its default when 0
    double duration = 0;  // retime: seconds, with fps; 0 when --frames is given
    double fps = 0;
    bool ease = false;
    double angle = 360;  // orbit: degrees, counter-clockwise seen from above
    std::string from;    // orbit: the key frame file whose first view it starts from
    int columns = 0;     // sheet: tiles a row; 0: the default
};

}  // namespace path
}  // namespace vexplot

#endif
