// Fixture of vexpath's tests: a clean host (vextest::HostFixture), a scratch directory for the key
// frame files each test makes, the scene the flights are made in, and vexpath's commands run in
// process as the program runs them.
#ifndef VEXTEST_PATHFIXTURE_H
#define VEXTEST_PATHFIXTURE_H

#include <string>
#include <vector>

#include "FlightHost.h"
#include "FlightViews.h"
#include "RunOptions.h"
#include "support/HostFixture.h"
#include "support/KeyFrameData.h"
#include "support/TemporaryDirectory.h"

namespace vextest {

class PathFixture : public HostFixture {
protected:
    struct Run {
        int exitStatus = -1;
        std::string out;
        std::string err;
    };

    // A view from `distance` units out, looking at `target` from the angles psi and theta.
    static KeyFrameView_s lookingAt(const std::array<double, 3>& target, double psi, double theta,
                                    double distance, double width);

    // Writes the key frames and settings as a key frame file of the scratch directory.
    std::string writeFlight(const std::string& name, const std::vector<KeyFrame_s>& keyFrames,
                            const AnimationSettings_s& settings = AnimationSettings_s()) const;
    // The key frames of a file, as the add-on's reader reads them (six significant digits).
    static std::vector<KeyFrame_s> readKeyFrames(const std::string& path,
                                                 AnimationSettings_s& settings);
    // Flies a file on a host set up with `scene`.
    vexplot::flight::FlightViews fly(const std::string& path) const;
    // Runs vexpath with these arguments (not the program name) in this process.
    Run runPath(const std::vector<std::string>& arguments) const;

    // Per leg, the mean SpeedMeasure step of its frames: its length over its frame count.
    static std::vector<double> perFrameMovement(const vexplot::flight::FlightViews& flight);

    TemporaryDirectory directory{"vexpath-test"};
    // No data by default: the rotation origin is the world's origin.
    vexplot::app::RunOptions scene = noData();

private:
    static vexplot::app::RunOptions noData();
};

}  // namespace vextest

#endif
