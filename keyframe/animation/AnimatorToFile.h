#ifndef VEXUTILTOOLS_ANIMATORTOFILE_H
#define VEXUTILTOOLS_ANIMATORTOFILE_H

#include <cstdint>
#include <vector>

#include "animation/AnimatorAbstract.h"

namespace vexplot {
namespace vexutiltools {

// The terminal stage of a run written to a movie file: hands every frame to the host's export,
// which encodes it as the export setup says. The first frame checks the preconditions and starts
// the export (the host takes the current picture as the movie's first frame); every later frame
// adds one picture. Destruction finishes the movie; cancel abandons it instead, so the destructor
// then finds nothing recording.
//
// The first frame fails with KeyFrameError, in this order of checks:
//   "Unable to start animation export. Another export is already in progress."
//   "The export file format must be set to an animation format \nbefore animating to file."
//       (the export format is not 0, 14, 17, 20, 21 or 22; an unreadable format counts as 255)
//   "Unable to start animation export."  (the host refused the start)
// Because the checks wait for the first frame, the stages before this one have already set up the
// first view, lighting and time when such a failure ends the run.
class AnimatorToFile : public AnimatorAbstract {
public:
    explicit AnimatorToFile(const std::vector<KeyFrame_s>& keyFrames);
    ~AnimatorToFile() override;

    void cancel() override;

protected:
    void doAnimateFrame(uint64_t frame) override;

private:
    // True until the host has accepted the start of the export.
    bool exportNotStarted_ = true;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
