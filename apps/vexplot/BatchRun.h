// One vexplot run, from the parsed command line to the exit status:
//  1. the frame trace opened (--trace), the host's pictures and movies made real (the EGL renderer,
//     started with the first picture asked for, and the FFmpeg movie writers), the macro recorder
//     on (--record), the answers, file names and Stop press queued;
//  2. the add-on library loaded through its entry point;
//  3. one 3D Cartesian frame of the asked size, showing the data set (--data);
//  4. the macro files run in order ($!UI and $!SNAPSHOT added to the host's commands), the idle
//     queue after each line; the first failing line ends the run unless --keep-going;
//  4b. with --serve, the studio served until interrupted (docs/studio.md): its File menu runs
//     macro files with the same player;
//  5. the idle queue run, the shutting-down state change sent (15), the trace's exit line written;
//  6. the recorded macro lines written (--record), also when the run failed.
// Exit status: 0 when every step worked, 1 otherwise. Everything the user should read goes to the
// error stream given, and $!UI DUMP to the output stream given.
//
// With an export team (--parallel-export, docs/parallel-export.md) every process of the team runs
// the same steps and exports together (Exporter::setTeam); member 0 alone prints, writes the trace
// and the recorded macro, and has the Stop press of --stop-at, as it stands for the whole job. The
// members agree after setting up, so that one that could not set up ends the run on all (the one
// with the message of the first that failed), and an export that wrote no movie fails the run.
#ifndef VEXPLOT_APP_BATCHRUN_H
#define VEXPLOT_APP_BATCHRUN_H

#include <memory>
#include <ostream>
#include <string>

#include "ConsoleReporter.h"
#include "RunOptions.h"
#include "vexhost/AddOnLibrary.h"
#include "vexhost/ExportTeam.h"
#include "vexhost/GuiUser.h"
#include "vexhost/Host.h"
#include "vexhost/MacroFileRunner.h"

namespace vexplot {
namespace app {

class BatchRun {
public:
    // programPath: where the vexplot program is, to find the add-on built with it. team: null
    // for a run of its own.
    BatchRun(const RunOptions& options, const std::string& programPath, std::ostream& out,
             std::ostream& err, std::shared_ptr<vexhost::ExportTeam> team = nullptr);
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    int run();

    // The running program's own file (argv0 when the system does not say), to find what was built
    // with it whatever the working directory.
    static std::string programPath(const char* argv0);
    // <directory of the program>/../lib/libkeyframe.so
    static std::string defaultAddOnPath(const std::string& programPath);
    // <directory of the program>/../share/vexplot: the studio's page (web/) and help pages (help/).
    static std::string shareDirectory(const std::string& programPath);

private:
    bool setUp();
    // Whether every member of the team (if any) is well; a member that is not brings its last
    // problem, which the others show.
    bool teamAgrees(bool ok);
    bool speaks() const { return team_ == nullptr || team_->member() == 0; }
    bool runMacroFiles();
    bool serve();
    // The macro player of this run, made on first use.
    vexhost::MacroFileRunner& runner();
    bool finish();
    bool writeRecordedMacro();
    // Reports the host errors recorded so far (taking them) as problems of `stage`; true if none.
    bool checkHostErrors(const char* stage);

    const RunOptions& options_;
    std::string programPath_;
    vexhost::Host& host_;
    std::shared_ptr<vexhost::ExportTeam> team_;
    std::ostream quiet_{nullptr};  // where a member that does not speak writes: nowhere
    std::ostream& out_;
    ConsoleReporter reporter_;
    std::unique_ptr<vexhost::GuiUser> user_;
    std::unique_ptr<vexhost::MacroFileRunner> runner_;
    // Declared last: the library closes first, while the host and the reporter still stand.
    std::unique_ptr<vexhost::AddOnLibrary> addOn_;
};

}  // namespace app
}  // namespace vexplot

#endif
