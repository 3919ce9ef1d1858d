// The host's macro player: runs macro files line by line against the host, as the application does
// when the user plays a macro.
//
// The language (docs/vexplot.md has it in full):
// - a line whose first non-blank character is '#' is a comment; blank lines are skipped; one
//   trailing carriage return is ignored, so files written on other systems play the same;
// - every other line is a command: "$!" and a command word (any case), then its arguments:
//     $!ADDON "<add-on name>" <command string>   the rest of the line, as it stands, goes to that
//                                                 add-on's macro command callback
//     $!EXPORTSETUP <Attribute> = <value>         the export options, as VexUtilExportSetup takes
//     them
//     $!SET <path word> ... = <value>             a style value; the value is read by the path's
//     type
//     $!VIEW <x> <y> <z> <psi> <theta> <alpha> <width>
//     $!SOLUTIONTIME <t>   $!PLOTTYPE <n>   $!NEWFRAME <plot type>   $!DELETEFRAMES
//     $!ZONE <solution time> <strand id>   $!REDRAW
//   and the words added with addCommand (dialog driving, snapshots).
//
// A line fails when its command fails, when the add-on's callback answers false, or when the host
// recorded errors (for example a Yes/No question with no answer queued) or was left locked,
// suspended or with a progress status open while it ran. A lock held while a modal dialog is up
// is the dialog's: its OK or Cancel, pressed by a later line, releases it. After every command
// line, failed or not, the idle queue runs, as the application's main loop does when it goes idle.
//
// While the host's macro recorder is on, each host command that succeeds is recorded as the line
// it was (without surrounding blanks). $!ADDON lines are not recorded by the player: the add-on
// records its own commands (only those that succeeded), and recording both would replay them
// twice. Commands added with addCommand say whether the player records them.
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

class Host;

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

    explicit MacroFileRunner(Host& host);
    MacroFileRunner(const MacroFileRunner&) = delete;
    MacroFileRunner& operator=(const MacroFileRunner&) = delete;

    // Adds a command word (without "$!", any case). std::logic_error naming the word when it is
    // empty or already a command.
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
    struct BuiltInCommand {
        const char* word;  // upper case, without "$!"
        void (MacroFileRunner::*run)(const std::string& arguments);
        Recording recording;
    };
    static const std::vector<BuiltInCommand>& builtInCommands();

    // Runs a command line (no comment, no blank); throws MacroError.
    void runCommand(const std::string& line);
    // Returns whether the player records the line when it succeeds.
    bool dispatch(const std::string& word, const std::string& arguments);
    void report(const std::string& source, std::size_t lineNumber, const std::string& message);

    void runAddOn(const std::string& arguments);
    void runExportSetup(const std::string& arguments);
    void runSet(const std::string& arguments);
    void runView(const std::string& arguments);
    void runSolutionTime(const std::string& arguments);
    void runPlotType(const std::string& arguments);
    void runNewFrame(const std::string& arguments);
    void runDeleteFrames(const std::string& arguments);
    void runZone(const std::string& arguments);
    void runRedraw(const std::string& arguments);

    Host& host_;
    std::map<std::string, AddedCommand> added_;  // by upper-case word
    bool keepGoing_ = false;
    FailureSink failureSink_;
    LineObserver lineObserver_;
    std::size_t failures_ = 0;
    std::size_t commands_ = 0;
};

}  // namespace vexhost

#endif
