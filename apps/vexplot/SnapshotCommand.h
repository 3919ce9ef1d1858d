// The macro command $!SNAPSHOT "<file.png>" [SUPERSAMPLE=<n>]: writes the picture of the active
// frame as it stands now (rendered from the current state at the frame's size in pixels) as an
// 8-bit RGB PNG file, replacing any file of that name. SUPERSAMPLE draws at n times the size
// (1 to 16) and filters down, for smooth edges in stills; the picture keeps the frame's size.
//
// The player records the line when it succeeds, so a recorded macro writes the same stills again.
// A line fails, naming what was wrong, without a frame, with a host that has no renderer, when the
// renderer cannot draw, or when the file cannot be written (nothing is left behind then).
#ifndef VEXPLOT_APP_SNAPSHOTCOMMAND_H
#define VEXPLOT_APP_SNAPSHOTCOMMAND_H

#include <string>

#include "vexhost/Host.h"
#include "vexhost/MacroFileRunner.h"

namespace vexplot {
namespace app {

class SnapshotCommand {
public:
    static constexpr int MaxSupersample = 16;

    // Adds $!SNAPSHOT to the runner; the host must outlive it.
    static void install(vexhost::MacroFileRunner& runner, vexhost::Host& host);

    // Runs the text after "$!SNAPSHOT" (blanks around it removed). Throws vexhost::MacroError (or
    // the renderer's or the PNG writer's std::exception) with the user's message.
    static void run(vexhost::Host& host, const std::string& arguments);
};

}  // namespace app
}  // namespace vexplot

#endif
