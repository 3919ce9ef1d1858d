#ifndef VEXUTILTOOLS_SUSPENDGRAPHICS_H
#define VEXUTILTOOLS_SUSPENDGRAPHICS_H

namespace vexplot {
namespace vexutiltools {

// Suspends the host's drawing for the scope's lifetime, so that a batch of style changes reaches
// the screen as one picture. Construction takes the host lock and then turns drawing off;
// destruction turns drawing back on and then releases the lock. Host drawing suspensions nest,
// like the lock, so scopes may nest too.
class SuspendGraphics {
public:
    SuspendGraphics();
    virtual ~SuspendGraphics();

    SuspendGraphics(const SuspendGraphics&) = delete;
    SuspendGraphics& operator=(const SuspendGraphics&) = delete;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
