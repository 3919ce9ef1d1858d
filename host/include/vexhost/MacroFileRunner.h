// The host's macro player: runs macro files line by line against the host, as the application does
// when the user plays a macro.
//
// The language (docs/vexplot.md has it in full):
// - a line whose first non-blank character is '#' is a comment; blank lines are skipped; one
//   trailing carriage return is ignored, so files written on other systems play the same;
// - every other line is a command: "$!" and a command word (any case), then its arguments:
//     $!ADDON "<add-on name>" <command string>   the rest of the line, as it stands, goes to that
//                                                 add-on's macro command callback
//   and the words added with addCommand: the built-in commands ($!EXPORTSETUP, $!SET, $!VIEW, ...;
//   host/src/script/BuiltInCommands.h), which a player made from a Host installs itself, and
//   others such as dialog driving ($!UI) and snapshots ($!SNAPSHOT).
//
// A line fails when its command fails, when the add-on's callback answers false, or when the host
// recorded errors (for example a Yes/No question with no answer queued) or was left locked,
// suspended or with a progress status open while it ran. A lock held while a modal dialog is up
// is the dialog's: its OK or Cancel, pressed by a later line, releases it. After every command
// line, failed or not, the idle queue runs, as the application's main loop does when it goes idle.
//
// While the host's macro recorder is on, each command that succeeds is recorded as the line it was
// (without surrounding blanks) when its command says so. $!ADDON lines are not recorded by the
// player: the add-on records its own commands (only those that succeeded), and recording both
// would replay them twice.
//
// No line, however long or broken, crashes or hangs the player: every failure is a MacroError
// whose text names what was wrong.
#ifndef VEXHOST_MACROFILERUNNER_H
#define VEXHOST_MACROFILERUNNER_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace vexhost {

class AddOnRegistry;
class Drawing;
class GuiModel;
class Host;
class HostErrors;
class IdleQueue;
class LockState;
class MacroRecorder;
class ProgressStatus;

class MacroFileRunner {
public:
    // Runs an added command: gets the text after the command word with the blanks around it
    // removed, and throws MacroError (or another std::exception) with the user's message when
    // the command fails.
    using CommandHandler = std::function<void(const std::string& arguments)>;
    enum class Recording { RecordLine, NotRecorded };

    // One failed line: where and why. lineNumber 0 means the file itself (it cannot be read).
    struct Failure {
        std::string source;
        std::size_t lineNumber = 0;
        std::string message;
        // "source:12: message", or "source: message" for the file itself.
        std::string text() const;
    };
    using FailureSink = std::function<void(const Failure&)>;
    // Called after each command line has run (and the idle queue with it), before its failure, if
    // any, is reported: vexplot shows the export log there.
    using LineObserver = std::function<void()>;

    // The player of the host's macros: the built-in commands installed.
    explicit MacroFileRunner(Host& host);
    // A player that knows $!ADDON only, until commands are added. The parts are what it checks
    // after each line: it runs `idleQueue`, fails the line for what `errors`, `lock` (a lock held
    // outside a modal dialog of `gui`), `drawing` and `progress` were left with, and records to
    // `recorder`.
    MacroFileRunner(AddOnRegistry& addOns, IdleQueue& idleQueue, HostErrors& errors,
                    LockState& lock, GuiModel& gui, Drawing& drawing, ProgressStatus& progress,
                    MacroRecorder& recorder);
    MacroFileRunner(const MacroFileRunner&) = delete;
    MacroFileRunner& operator=(const MacroFileRunner&) = delete;

    // Adds a command word (without "$!", any case); its handler gets the arguments without the
    // blanks around them. std::logic_error naming the word when it is empty or already a command.
    void addCommand(const std::string& word, CommandHandler handler, Recording recording);

    // Whether a failing line ends the file (the default) or the player reports it and goes on.
    void setKeepGoing(bool keepGoing) { keepGoing_ = keepGoing; }
    void setFailureSink(FailureSink sink) { failureSink_ = std::move(sink); }
    void setLineObserver(LineObserver observer) { lineObserver_ = std::move(observer); }

    // Runs one line. Returns false for a comment or a blank line (nothing ran), true when a
    // command ran; throws MacroError naming what was wrong when it failed.
    bool runLine(const std::string& line);

    // Runs the lines of a stream; `source` names it in failures. Returns true when no line failed.
    // Stops at the first failing line unless keep going is on.
    bool runStream(std::istream& in, const std::string& source);
    // Runs a macro file; a file that cannot be opened is one failure at line 0.
    bool runFile(const std::string& path);

    // Every failure reported so far by runStream and runFile.
    std::size_t failureCount() const { return failures_; }
    // Command lines run so far (failed ones included).
    std::size_t commandCount() const { return commands_; }

private:
    struct AddedCommand {
        CommandHandler handler;
        Recording recording;
    };
    // Runs a command line (no comment, no blank); throws MacroError.
    void runCommand(const std::string& line);
    // Returns whether the player records the line when it succeeds.
    bool dispatch(const std::string& word, const std::string& arguments);
    void report(const std::string& source, std::size_t lineNumber, const std::string& message);

    void runAddOn(const std::string& arguments);

    AddOnRegistry& addOns_;
    IdleQueue& idleQueue_;
    HostErrors& errors_;
    LockState& lock_;
    GuiModel& gui_;
    Drawing& drawing_;
    ProgressStatus& progress_;
    MacroRecorder& recorder_;
    std::map<std::string, AddedCommand> added_;  // by upper-case word
    bool keepGoing_ = false;
    FailureSink failureSink_;
    LineObserver lineObserver_;
    std::size_t failures_ = 0;
    std::size_t commands_ = 0;
};

}  // namespace vexhost

#endif
