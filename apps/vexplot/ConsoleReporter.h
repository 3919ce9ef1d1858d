// What a vexplot run tells the user on a stream (stderr): the host's error dialogs and message
// boxes as they stand, each question with the answer it got, the progress status (a line when its
// text or percentage changes, so a long run does not flood the terminal), the export log, and the
// failures of macro lines ("flight.mcr:12: ...").
//
// Installs itself as the host's dialog and progress sink for its lifetime and removes itself when
// it goes.
#ifndef VEXPLOT_APP_CONSOLEREPORTER_H
#define VEXPLOT_APP_CONSOLEREPORTER_H

#include <cstdint>
#include <ostream>
#include <string>

#include "vexhost/Host.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace app {

class ConsoleReporter {
public:
    ConsoleReporter(vexhost::Host& host, std::ostream& out);
    ~ConsoleReporter();
    ConsoleReporter(const ConsoleReporter&) = delete;
    ConsoleReporter& operator=(const ConsoleReporter&) = delete;

    // Prints the export log lines written since the last call, and takes them from the host.
    void showExportLog();
    void showFailure(const vexhost::MacroFileRunner::Failure& failure);
    // A problem of the run itself, prefixed "vexplot: ".
    void showProblem(const std::string& text);
    // The text of the last problem shown; empty before the first.
    const std::string& lastProblem() const { return lastProblem_; }
    // A line as it stands (a team's verdict, which says whose it is).
    void showLine(const std::string& text);

private:
    void showDialog(vexhost::UserDialogs::Kind kind, const std::string& text);
    void showProgress(const vexhost::ProgressStatus::Event& event);

    vexhost::Host& host_;
    std::ostream& out_;
    std::string shownText_;  // the progress line shown last
    int32_t shownPercent_ = -1;
    std::string lastProblem_;
};

}  // namespace app
}  // namespace vexplot

#endif
