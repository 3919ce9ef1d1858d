#include "PathRun.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "ContactSheet.h"
#include "FlightCheck.h"
#include "OrbitPlanner.h"
#include "PathPicture.h"
#include "Retimer.h"
#include "addon/KeyFrameError.h"
#include "file/KeyFrameFile.h"
#include "model/ListModelKeyFrame.h"
#include "vexhost/DataFileError.h"
#include "vexhost/Drawing.h"
#include "vexhost/EglRenderer.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroError.h"
#include "vexhost/PngWriter.h"

namespace vexplot {
namespace path {

namespace {

using Command = PathOptions::Command;

bool sameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

}  // namespace

PathRun::PathRun(const PathOptions& options, const std::string& addOnPath, std::ostream& out,
                 std::ostream& err)
    : options_(options),
      addOnPath_(options.scene.addOnPath.empty() ? addOnPath : options.scene.addOnPath),
      out_(out),
      err_(err) {}

int PathRun::run() {
    using Step = int (PathRun::*)(const FlightHost&);
    const Step step = options_.command == Command::Check     ? &PathRun::check
                      : options_.command == Command::Retime  ? &PathRun::retime
                      : options_.command == Command::Picture ? &PathRun::picture
                      : options_.command == Command::Sheet   ? &PathRun::sheet
                                                             : &PathRun::orbit;
    if (options_.command == Command::Retime && !options_.inPlace &&
        sameFile(options_.input, options_.output))
        return problem("-o names the file to retime itself; --in-place replaces it", Unusable);
    try {
        const FlightHost host(options_.scene, addOnPath_);
        return (this->*step)(host);
    } catch (const vexhost::MacroError& error) {
        return problem(reading_ + ": " + error.what(), Unreadable);
    } catch (const vexhost::DataFileError& error) {
        return problem(error.what(), Unreadable);
    } catch (const std::invalid_argument& error) {
        return problem(error.what(), Unreadable);
    } catch (const std::exception& error) {
        return problem(error.what(), Failed);
    }
}

int PathRun::check(const FlightHost& host) {
    reading_ = options_.input;
    const FlightCheck report(host.fly(options_.input));
    if (options_.json)
        report.writeJson(out_, options_.input);
    else
        report.writeText(out_, options_.input);
    return report.warnings().empty() ? Done : Warned;
}

int PathRun::retime(const FlightHost& host) {
    reading_ = options_.input;
    const FlightViews flight = host.fly(options_.input);
    const std::vector<uint64_t> counts =
        Retimer::frameCounts(flight.keyFrames(), Retimer::sampledLegLengths(host, flight),
                             options_.frames, options_.ease);
    std::vector<KeyFrame_s> keyFrames = flight.keyFrames();
    for (std::size_t i = 0; i < keyFrames.size(); ++i)
        keyFrames[i].frameCount = counts[i];
    const std::string& output = options_.inPlace ? options_.input : options_.output;
    write(output, keyFrames, flight.settings());
    out_ << output << ": " << keyFrames.size() << " key frames, " << options_.frames << " frames\n";
    return Done;
}

int PathRun::orbit(const FlightHost& host) {
    KeyFrameView_s start;
    double solutionTime = host.solutionTime();
    AnimationSettings_s settings;
    if (!options_.from.empty()) {
        reading_ = options_.from;
        const FlightViews file = host.open(options_.from);
        if (file.keyFrames().empty())
            return problem(options_.from + ": the file holds no key frame to start from",
                           Unreadable);
        start = file.keyFrames().front().view;
        solutionTime = file.keyFrames().front().solutionTime;
        settings = file.settings();
    } else {
        const vexhost::View3D& view = host.view();
        start = {view.position()[0], view.position()[1], view.position()[2], view.psi(),
                 view.theta(),       view.alpha(),       view.width()};
    }
    const std::vector<KeyFrame_s> keyFrames = OrbitPlanner::plan(
        start, host.view().rotateOrigin(), options_.angle, options_.frames, solutionTime);
    write(options_.output, keyFrames, settings);
    out_ << options_.output << ": " << keyFrames.size() << " key frames, " << options_.frames
         << " frames\n";
    return Done;
}

int PathRun::picture(const FlightHost& host) {
    reading_ = options_.input;
    const FlightViews flight = host.fly(options_.input);
    const std::pair<int, int> size = vexhost::Drawing::pixelSize(*host.host().frames().active());
    const vexhost::SceneState scene = PathPicture::overview(host.host(), flight);
    vexhost::writePng(options_.output, vexhost::EglRenderer::create()->render(
                                           scene, size.first, size.second, PictureSupersample));
    out_ << options_.output << ": " << flight.keyFrames().size() << " key frames, "
         << flight.views().size() << " frames\n";
    return Done;
}

int PathRun::sheet(const FlightHost& host) {
    reading_ = options_.input;
    const FlightViews flight = host.fly(options_.input);
    const std::pair<int, int> size = vexhost::Drawing::pixelSize(*host.host().frames().active());
    const std::unique_ptr<vexhost::EglRenderer> renderer = vexhost::EglRenderer::create();
    std::vector<vexhost::Image> tiles;
    for (std::size_t k = 0; k < flight.keyFrames().size(); ++k) {
        tiles.push_back(renderer->render(PathPicture::keyFrameScene(host.host(), flight, k),
                                         std::max(1, size.first / 2), std::max(1, size.second / 2),
                                         PictureSupersample));
    }
    vexhost::writePng(
        options_.output,
        ContactSheet::compose(
            tiles, options_.columns > 0 ? options_.columns : ContactSheet::DefaultColumns));
    out_ << options_.output << ": " << tiles.size() << " key frames\n";
    return Done;
}

void PathRun::write(const std::string& fileName, const std::vector<KeyFrame_s>& keyFrames,
                    const AnimationSettings_s& settings) {
    vexutiltools::ListModelKeyFrame list;
    list.setItems(keyFrames);
    try {
        vexutiltools::KeyFrameFile().write(fileName, settings, list);
    } catch (const vexutiltools::KeyFrameError& error) {
        throw std::runtime_error(fileName + ": " + error.what());
    }
}

int PathRun::problem(const std::string& text, int status) {
    err_ << "vexpath: " << text << '\n';
    return status;
}

}  // namespace path
}  // namespace vexplot
