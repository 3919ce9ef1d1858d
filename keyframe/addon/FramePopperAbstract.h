#ifndef VEXUTILTOOLS_FRAMEPOPPERABSTRACT_H
#define VEXUTILTOOLS_FRAMEPOPPERABSTRACT_H

#include <cstdint>

namespace vexplot {
namespace vexutiltools {

// Base of the scopes that visit the host's frames one after the other. Holds the host lock for
// its lifetime and counts the poppers open in the process (the count changes only under the
// lock). Subclasses make the next frame current in popNext and, in their destructors, put the
// host's frames back as they found them before this base releases the lock.
class FramePopperAbstract {
public:
    FramePopperAbstract();
    virtual ~FramePopperAbstract();

    FramePopperAbstract(const FramePopperAbstract&) = delete;
    FramePopperAbstract& operator=(const FramePopperAbstract&) = delete;

    // Makes the next frame current; false when every frame has been visited.
    virtual bool popNext() = 0;

    // The number of frame poppers alive in the process.
    static int32_t getOpenCount();

private:
    static int32_t openCount_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
