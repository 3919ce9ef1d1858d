// The memory settings of a process that renders pictures. They change how the C library serves
// the whole process, so the program's main makes them, before anything else allocates.
#ifndef VEXPLOT_APP_RENDERINGMEMORY_H
#define VEXPLOT_APP_RENDERINGMEMORY_H

namespace vexplot {
namespace app {

// Keeps freed memory in the process for reuse (up to 256 MB) instead of returning it at once.
void keepFreedMemoryForReuse();

}  // namespace app
}  // namespace vexplot

#endif
