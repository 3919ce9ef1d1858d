// MPI in this process, from construction to destruction (vexplot --parallel-export): initialised
// for a main thread that alone calls MPI (MPI_THREAD_FUNNELED: the renderer's and the encoder's
// threads never do), finalised at the end. One per process. Part of libvexmpi, which only vexplot
// links.
#ifndef VEXHOST_MPISESSION_H
#define VEXHOST_MPISESSION_H

namespace vexhost {

class MpiSession {
public:
    // Throws std::runtime_error when MPI cannot start or cannot serve a threaded program.
    MpiSession();
    ~MpiSession();
    MpiSession(const MpiSession&) = delete;
    MpiSession& operator=(const MpiSession&) = delete;
};

}  // namespace vexhost

#endif
