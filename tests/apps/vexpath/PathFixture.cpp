#include "PathFixture.h"

#include <cmath>
#include <sstream>

#include "PathCommandLine.h"
#include "PathRun.h"
#include "SpeedMeasure.h"
#include "UsageError.h"

namespace vextest {

KeyFrameView_s PathFixture::lookingAt(const std::array<double, 3>& target, double psi, double theta,
                                      double distance, double width) {
    const double radians = std::acos(-1.0) / 180;
    const double s = std::sin(psi * radians);
    // The viewer looks along -R z, R z = (sin psi sin theta, -sin psi cos theta, cos psi).
    return {target[0] + distance * s * std::sin(theta * radians),
            target[1] - distance * s * std::cos(theta * radians),
            target[2] + distance * std::cos(psi * radians),
            psi,
            theta,
            0,
            width};
}

std::string PathFixture::writeFlight(const std::string& name,
                                     const std::vector<KeyFrame_s>& keyFrames,
                                     const AnimationSettings_s& settings) const {
    const std::string path = directory.file(name);
    writeSettingsFile(path, keyFrames, settings);
    return path;
}

std::vector<KeyFrame_s> PathFixture::readKeyFrames(const std::string& path,
                                                   AnimationSettings_s& settings) {
    vexplot::vexutiltools::ListModelKeyFrame list;
    vexplot::vexutiltools::KeyFrameFile().read(path, settings, list);
    return list.getItems();
}

vexplot::flight::FlightViews PathFixture::fly(const std::string& path) const {
    const vexplot::path::FlightHost host(scene, VEX_ADDON_LIBRARY_PATH);
    return host.fly(path);
}

PathFixture::Run PathFixture::runPath(const std::vector<std::string>& arguments) const {
    Run run;
    std::ostringstream out, err;
    try {
        const vexplot::path::PathOptions options = vexplot::path::PathCommandLine::parse(arguments);
        run.exitStatus = vexplot::path::PathRun(options, VEX_ADDON_LIBRARY_PATH, out, err).run();
    } catch (const vexplot::app::UsageError& error) {
        err << error.what();
        run.exitStatus = vexplot::path::PathRun::Unusable;
    }
    run.out = out.str();
    run.err = err.str();
    return run;
}

std::vector<double> PathFixture::perFrameMovement(const vexplot::flight::FlightViews& flight) {
    std::vector<double> movement = vexplot::path::SpeedMeasure::legLengths(flight);
    for (std::size_t i = 0; i < movement.size(); ++i)
        movement[i] /= static_cast<double>(flight.keyFrames()[i].frameCount);
    return movement;
}

vexplot::app::RunOptions PathFixture::noData() {
    vexplot::app::RunOptions options;
    options.data = vexplot::app::RunOptions::Data::None;
    return options;
}

}  // namespace vextest
