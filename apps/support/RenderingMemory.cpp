#include "RenderingMemory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vexplot {
namespace app {

// Every picture allocates and frees buffers of megabytes (the software rasteriser's vertex and bin
// memory, the picture itself). With the C library's default, adaptive thresholds, freed memory at
// the top of the heap goes back to the system and comes back as fresh pages for the next picture:
// page faults that cost as much as the drawing when an animation alternates between surfaces. The
// process keeps such memory for reuse instead (up to 256 MB, beyond which it is returned).
void keepFreedMemoryForReuse() {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 256 * 1024 * 1024);
#endif
}

}  // namespace app
}  // namespace vexplot
