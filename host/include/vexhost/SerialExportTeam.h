// The team of one process: every agreement and tally is this member's own, and a failure reads as
// its message alone. An export with this team records its frames' scenes and draws them at the
// finish, into the movie itself (no pieces, nothing to join): the parallel export's path without
// MPI, for tests, and what a team of one amounts to.
#ifndef VEXHOST_SERIALEXPORTTEAM_H
#define VEXHOST_SERIALEXPORTTEAM_H

#include "vexhost/ExportTeam.h"

namespace vexhost {

class SerialExportTeam final : public ExportTeam {
public:
    int member() const override { return 0; }
    int size() const override { return 1; }

    bool agreeOnStop(bool stopPressedHere) override { return stopPressedHere; }
    Verdict agree(const Outcome& mine) override { return {mine.stopped, mine.failure}; }
    std::optional<Tally> offer(const Report& mine) override { return await(mine); }
    Tally await(const Report& mine) override {
        return {mine.framesDone, mine.stopped, mine.failed, mine.done};
    }
};

}  // namespace vexhost

#endif
