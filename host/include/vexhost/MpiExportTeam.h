// The export team of an MPI job (vexplot --parallel-export): every process of the job, member m
// being rank m, on a communicator of its own. Part of libvexmpi, which only vexplot links; MPI's
// own types stay inside it.
//
// A failure reads "vexplot: rank 2 of 3 failed: <its message>". Every wait polls, at first at once
// and then at growing intervals of up to a millisecond, rather than spinning on a core as MPI's own
// waits do: a member that waits for a slower one leaves the machine to those still drawing.
#ifndef VEXHOST_MPIEXPORTTEAM_H
#define VEXHOST_MPIEXPORTTEAM_H

#include <memory>

#include "vexhost/ExportTeam.h"

namespace vexhost {

class MpiExportTeam final : public ExportTeam {
public:
    // MPI must be running (MpiSession) for the team's whole life.
    MpiExportTeam();
    ~MpiExportTeam() override;
    MpiExportTeam(const MpiExportTeam&) = delete;
    MpiExportTeam& operator=(const MpiExportTeam&) = delete;

    int member() const override;
    int size() const override;

    bool agreeOnStop(bool stopPressedHere) override;
    Verdict agree(const Outcome& mine) override;
    std::optional<Tally> offer(const Report& mine) override;
    Tally await(const Report& mine) override;

private:
    struct Mpi;
    std::unique_ptr<Mpi> mpi_;
};

}  // namespace vexhost

#endif
