#include "BatchRun.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "LazyRenderer.h"
#include "RunScene.h"
#include "SnapshotCommand.h"
#include "vexhost/DataFileError.h"
#include "vexhost/DataFileLoader.h"
#include "vexhost/Drawing.h"
#include "vexhost/EglRenderer.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/GuiScript.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/MoviePieces.h"
#include "vexhost/MovieWriterFactory.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/Studio.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace app {

BatchRun::BatchRun(const RunOptions& options, const std::string& programPath, std::ostream& out,
                   std::ostream& err, std::shared_ptr<vexhost::ExportTeam> team)
    : options_(options),
      programPath_(programPath),
      host_(vexhost::Host::instance()),
      team_(std::move(team)),
      out_(speaks() ? out : quiet_),
      reporter_(host_, speaks() ? err : quiet_) {}

std::string BatchRun::programPath(const char* argv0) {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string(argv0) : self.string();
}

std::string BatchRun::defaultAddOnPath(const std::string& programPath) {
    const std::filesystem::path directory = std::filesystem::path(programPath).parent_path();
    return (directory / ".." / "lib" / "libkeyframe.so").lexically_normal().string();
}

int BatchRun::run() {
    bool ok = teamAgrees(setUp()) && runMacroFiles();
    if (ok && options_.serve)
        ok = serve();
    // The end of a run happens also after a failure: the add-on hears the shutdown and the trace
    // gets its exit line.
    ok = finish() && ok;
    ok = writeRecordedMacro() && ok;
    if (team_ != nullptr) {
        // The add-on does not fail its line for a movie that could not be finished; a job of many
        // processes has only its exit status to say so.
        ok = ok && host_.exporter().counts().failedFinishes == 0;
        // The team goes with MPI, before the host does.
        host_.exporter().setTeam(nullptr);
    }
    return ok ? 0 : 1;
}

bool BatchRun::teamAgrees(bool ok) {
    if (team_ == nullptr)
        return ok;
    const vexhost::ExportTeam::Verdict verdict =
        team_->agree({false, ok ? std::string() : reporter_.lastProblem()});
    // The member that failed has told its own problem already.
    if (ok && !verdict.failure.empty())
        reporter_.showLine(verdict.failure);
    return verdict.ok();
}

bool BatchRun::setUp() {
    if (team_ != nullptr)
        host_.exporter().setTeam(team_);
    if (!options_.tracePath.empty() && speaks()) {
        try {
            host_.trace().open(options_.tracePath);
        } catch (const std::exception& error) {
            reporter_.showProblem(error.what());
            return false;
        }
    }
    // Pictures and movies for real. OpenGL starts with the first picture anybody asks for (an
    // export or a snapshot): a run that only animates on screen never starts it.
    host_.drawing().setRenderer(
        std::make_unique<LazyRenderer>([] { return vexhost::EglRenderer::create(); }));
    host_.exporter().setMovieWriterFactory(&vexhost::createMovieWriter);
    host_.exporter().setMovieJoiner(&vexhost::joinMoviePieces);
    host_.macro().setRecording(!options_.recordPath.empty());
    for (bool answer : options_.answers)
        host_.userDialogs().queueAnswer(answer);
    for (const std::string& name : options_.fileNames)
        host_.userDialogs().queueFileName(name);
    if (options_.stopAt > 0 && speaks())
        host_.progress().pressStopAt(options_.stopAt);

    const std::string addOnPath =
        options_.addOnPath.empty() ? defaultAddOnPath(programPath_) : options_.addOnPath;
    try {
        addOn_ = vexhost::AddOnLibrary::load(addOnPath);
    } catch (const std::exception& error) {
        reporter_.showProblem(error.what());
        return false;
    }
    if (!checkHostErrors("loading the add-on"))
        return false;

    try {
        RunScene::show(host_, options_);
    } catch (const vexhost::DataFileError& error) {
        reporter_.showProblem(error.what());
        return false;
    }
    host_.idleQueue().runUntilEmpty();
    return checkHostErrors("setting up the frame");
}

vexhost::MacroFileRunner& BatchRun::runner() {
    if (runner_ != nullptr)
        return *runner_;
    user_ = std::make_unique<vexhost::GuiUser>(host_);
    runner_ = std::make_unique<vexhost::MacroFileRunner>(host_);
    // $!UI DUMP is what a run prints on stdout.
    vexhost::GuiScript::install(*runner_, *user_, host_.guiModel(), out_);
    SnapshotCommand::install(*runner_, host_);
    runner_->setKeepGoing(options_.keepGoing);
    runner_->setFailureSink([this](const vexhost::MacroFileRunner::Failure& failure) {
        reporter_.showFailure(failure);
    });
    runner_->setLineObserver([this] { reporter_.showExportLog(); });
    return *runner_;
}

bool BatchRun::runMacroFiles() {
    vexhost::MacroFileRunner& player = runner();
    bool ok = true;
    for (const std::string& file : options_.macroFiles) {
        if (!player.runFile(file)) {
            ok = false;
            if (!options_.keepGoing)
                break;
        }
    }
    return ok;
}

bool BatchRun::serve() {
    vexhost::StudioOptions studioOptions;
    studioOptions.address = options_.serveAddress;
    studioOptions.port = options_.servePort;
    studioOptions.roots = options_.roots;
    studioOptions.webDirectory = options_.webDirectory.empty()
                                     ? shareDirectory(programPath_) + "/web"
                                     : options_.webDirectory;
    studioOptions.helpDirectory = shareDirectory(programPath_) + "/help";
    studioOptions.runMacroFile = [this](const std::string& path) {
        // The person reads the failure in the page, not on the console.
        std::string failures;
        runner().setFailureSink([&failures](const vexhost::MacroFileRunner::Failure& failure) {
            failures += (failures.empty() ? "" : "\n") + failure.text();
        });
        runner().runFile(path);
        runner().setFailureSink([this](const vexhost::MacroFileRunner::Failure& failure) {
            reporter_.showFailure(failure);
        });
        if (!failures.empty())
            throw std::runtime_error(failures);
    };
    // The scene shown, for the path check: the command line's, until a data file is opened.
    auto scene = std::make_shared<RunOptions>(options_);
    studioOptions.openDataFile = [this, scene](const std::string& path) {
        vexhost::DataFileOptions dataOptions;
        dataOptions.colourMap = options_.dataOptions.colourMap;
        try {
            vexhost::DataFileLoader::load(host_, path, dataOptions);
        } catch (const vexhost::DataFileError& error) {
            throw std::runtime_error(error.what());
        }
        scene->data = RunOptions::Data::File;
        scene->dataPath = path;
        scene->dataOptions = dataOptions;
    };
    studioOptions.sceneArguments = [scene] { return RunScene::arguments(*scene); };
    // vexpath is built beside vexplot; without it the studio has no path check.
    std::error_code missing;
    const std::filesystem::path vexpath =
        std::filesystem::path(programPath_).parent_path() / "vexpath";
    if (std::filesystem::is_regular_file(vexpath, missing))
        studioOptions.vexpathProgram = vexpath.string();
    std::unique_ptr<vexhost::Studio> studio;
    try {
        studio = vexhost::Studio::start(host_, studioOptions);
    } catch (const std::exception& error) {
        reporter_.showProblem(std::string("the studio cannot start: ") + error.what());
        return false;
    }
    out_ << "vexplot: the studio is at " << studio->url() << std::endl;
    studio->run();
    return checkHostErrors("in the studio");
}

std::string BatchRun::shareDirectory(const std::string& programPath) {
    const std::filesystem::path directory = std::filesystem::path(programPath).parent_path();
    return (directory / ".." / "share" / "vexplot").lexically_normal().string();
}

bool BatchRun::finish() {
    host_.idleQueue().runUntilEmpty();
    host_.shutDown();
    host_.idleQueue().runUntilEmpty();
    host_.trace().writeExit();
    host_.trace().close();
    reporter_.showExportLog();
    return checkHostErrors("at exit");
}

bool BatchRun::writeRecordedMacro() {
    if (options_.recordPath.empty() || !speaks())
        return true;
    std::ofstream out(options_.recordPath, std::ios::binary | std::ios::trunc);
    for (const std::string& line : host_.macro().lines())
        out << line << '\n';
    out.close();
    if (!out) {
        reporter_.showProblem("Cannot write the recorded macro to \"" + options_.recordPath +
                              "\".");
        return false;
    }
    return true;
}

bool BatchRun::checkHostErrors(const char* stage) {
    const std::vector<std::string> errors = host_.errors().take();
    for (const std::string& error : errors)
        reporter_.showProblem(std::string(stage) + ": Host error: " + error);
    return errors.empty();
}

}  // namespace app
}  // namespace vexplot
