#include "vexhost/MpiSession.h"

#include <mpi.h>

#include <stdexcept>

namespace vexhost {

MpiSession::MpiSession() {
    int provided = MPI_THREAD_SINGLE;
    if (MPI_Init_thread(nullptr, nullptr, MPI_THREAD_FUNNELED, &provided) != MPI_SUCCESS)
        throw std::runtime_error("MPI cannot start");
    if (provided < MPI_THREAD_FUNNELED) {
        MPI_Finalize();
        throw std::runtime_error("this MPI cannot serve a program with threads of its own");
    }
}

MpiSession::~MpiSession() {
    MPI_Finalize();
}

}  // namespace vexhost
