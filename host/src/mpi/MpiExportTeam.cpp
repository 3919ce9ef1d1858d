#include "vexhost/MpiExportTeam.h"

#include <mpi.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace vexhost {

struct MpiExportTeam::Mpi {
    MPI_Comm comm = MPI_COMM_NULL;
    int rank = 0;
    int size = 1;
    // The round of tallies in flight, and its buffers, which MPI holds until it is complete.
    MPI_Request round = MPI_REQUEST_NULL;
    uint64_t report[4] = {};
    uint64_t sum[4] = {};

    // Waits for a request by polling (see the header for why).
    static void wait(MPI_Request& request) {
        using namespace std::chrono;
        constexpr int kEagerPolls = 100;  // about the time members arriving together take
        microseconds pause(1);
        for (int polls = 0;; ++polls) {
            int done = 0;
            MPI_Test(&request, &done, MPI_STATUS_IGNORE);
            if (done)
                return;
            if (polls >= kEagerPolls) {
                std::this_thread::sleep_for(pause);
                pause = std::min<microseconds>(pause * 2, milliseconds(1));
            }
        }
    }

    void startRound(const Report& mine) {
        report[0] = mine.framesDone;
        report[1] = mine.stopped ? 1 : 0;
        report[2] = mine.failed ? 1 : 0;
        report[3] = mine.done ? 1 : 0;
        MPI_Iallreduce(report, sum, 4, MPI_UINT64_T, MPI_SUM, comm, &round);
    }

    Tally tally() const {
        return {sum[0], sum[1] > 0, sum[2] > 0, sum[3] == static_cast<uint64_t>(size)};
    }
};

MpiExportTeam::MpiExportTeam() : mpi_(std::make_unique<Mpi>()) {
    // A communicator of its own: the team's collectives never meet anybody else's.
    MPI_Comm_dup(MPI_COMM_WORLD, &mpi_->comm);
    MPI_Comm_rank(mpi_->comm, &mpi_->rank);
    MPI_Comm_size(mpi_->comm, &mpi_->size);
}

MpiExportTeam::~MpiExportTeam() {
    // A team left over when a program ends by an exception may outlive MPI; then there is nothing
    // to free.
    int finalized = 0;
    MPI_Finalized(&finalized);
    if (finalized)
        return;
    if (mpi_->round != MPI_REQUEST_NULL)
        Mpi::wait(mpi_->round);
    MPI_Comm_free(&mpi_->comm);
}

int MpiExportTeam::member() const {
    return mpi_->rank;
}

int MpiExportTeam::size() const {
    return mpi_->size;
}

bool MpiExportTeam::agreeOnStop(bool stopPressedHere) {
    int here = stopPressedHere ? 1 : 0;
    int anywhere = 0;
    MPI_Request request;
    MPI_Iallreduce(&here, &anywhere, 1, MPI_INT, MPI_LOR, mpi_->comm, &request);
    Mpi::wait(request);
    return anywhere != 0;
}

ExportTeam::Verdict MpiExportTeam::agree(const Outcome& mine) {
    // The lowest failing rank (size when none fails), and 0 when any member stopped.
    int here[2] = {mine.failure.empty() ? mpi_->size : mpi_->rank, mine.stopped ? 0 : 1};
    int least[2] = {0, 0};
    MPI_Request request;
    MPI_Iallreduce(here, least, 2, MPI_INT, MPI_MIN, mpi_->comm, &request);
    Mpi::wait(request);
    Verdict verdict;
    verdict.stopped = least[1] == 0;
    const int failed = least[0];
    if (failed == mpi_->size)
        return verdict;
    // The failing member tells the others its message.
    std::string message = mpi_->rank == failed ? mine.failure : std::string();
    int length = static_cast<int>(message.size());
    MPI_Ibcast(&length, 1, MPI_INT, failed, mpi_->comm, &request);
    Mpi::wait(request);
    message.resize(static_cast<std::size_t>(length));
    MPI_Ibcast(message.data(), length, MPI_CHAR, failed, mpi_->comm, &request);
    Mpi::wait(request);
    verdict.failure = "vexplot: rank " + std::to_string(failed) + " of " +
                      std::to_string(mpi_->size) + " failed: " + message;
    return verdict;
}

std::optional<ExportTeam::Tally> MpiExportTeam::offer(const Report& mine) {
    if (mpi_->round == MPI_REQUEST_NULL)
        mpi_->startRound(mine);
    int done = 0;
    MPI_Test(&mpi_->round, &done, MPI_STATUS_IGNORE);
    if (!done)
        return std::nullopt;
    return mpi_->tally();
}

ExportTeam::Tally MpiExportTeam::await(const Report& mine) {
    if (mpi_->round == MPI_REQUEST_NULL)
        mpi_->startRound(mine);
    Mpi::wait(mpi_->round);
    return mpi_->tally();
}

}  // namespace vexhost
