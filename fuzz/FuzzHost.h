// The host the macro fuzz targets run their inputs against: reset before each input, with the
// key frame add-on loaded as a host loads it, one 3D Cartesian frame over a small transient data
// set with streamtrace markers shown, the macro recorder on, and the main dialog's state holding
// a short flight (three key frames, 12 frames with every concurrent option) that animations run.
// Two settings files of the same flight lie in the scratch directory ("small.keyframe",
// "other.keyframe", written afresh for each input), so opening files works as well as failing.
//
// After each input, checkHost() ends the run if the host is left in a state no input may leave it
// in: a lock held (without a modal dialog up, which holds its add-on's lock until OK or Cancel),
// drawing suspended, a percent-done status open, an export recording or host memory outstanding.
#ifndef VEXFUZZ_FUZZHOST_H
#define VEXFUZZ_FUZZHOST_H

#include <string>

namespace vexfuzz {

class FuzzHost {
public:
    // The scratch directory must be the working directory (enterScratchDirectory).
    FuzzHost();

    // The clean host and add-on state described above.
    void reset();
    void checkHost() const;

    // Whether an input may run: it names no file outside the scratch directory (no '/'), and
    // holds no NUL (a C string would cut it short, which the host's player refuses anyway).
    static bool staysInScratch(const std::string& input);
};

}  // namespace vexfuzz

#endif
