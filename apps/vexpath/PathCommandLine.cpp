#include "PathCommandLine.h"

#include <cmath>
#include <cstdlib>
#include <optional>

#include "ArgumentScanner.h"
#include "CommandLine.h"
#include "UsageError.h"

namespace vexplot {
namespace path {

namespace {

using app::UsageError;
using Command = PathOptions::Command;

const char* const ProgramUsage =
    "Usage: vexpath check FILE [--json] [scene options]\n"
    "       vexpath retime IN (-o OUT | --in-place) (--frames N | --duration S --fps F) [--ease]\n"
    "              [scene options]\n"
    "       vexpath orbit -o OUT [--from FILE] [--angle DEG] [--frames N] [scene options]\n"
    "       vexpath picture FILE -o OUT.png [scene options]\n"
    "       vexpath sheet FILE -o OUT.png [--columns N] [scene options]\n"
    "       vexpath COMMAND --help\n"
    "\n"
    "Camera path tools for key frame files, the \"#!KeyFrame\" files of the Key Frame Animation\n"
    "add-on. Every flight is flown by the add-on itself, loaded into the host in the scene that\n"
    "vexplot sets up, so what the tools measure is what vexplot animates.\n"
    "\n"
    "Commands:\n"
    "  check    report each leg's turns, movement, zoom and speed, and warn of surprises\n"
    "  retime   rewrite the frame counts so the camera moves at a constant speed\n"
    "  orbit    write a key frame file of an even turn about the vertical axis\n"
    "  picture  draw the data with the camera path over it (PNG)\n"
    "  sheet    draw each key frame's view with its name and frames, in a grid (PNG)\n"
    "\n"
    "Scene options (as in vexplot; the flights turn about the scene's rotation origin):\n"
    "  --data demo|none|FILE  the data set: the built-in demo (default), none, or a data file\n"
    "  --hide-block NAME      load the block of this name without drawing it (repeatable)\n"
    "  --size WxH             the frame's size in pixels (default 800x600); a path picture's\n"
    "                         size, a contact sheet's tiles are half of it\n"
    "  --addon PATH           the key frame add-on library (default: ../lib/libkeyframe.so\n"
    "                         next to the program)\n"
    "  --color-by, --colormap, --streamtraces, --seed-line, --seed-plane\n"
    "                         the data file's colours and streamtraces, as in vexplot (they\n"
    "                         show in pictures and sheets)\n"
    "  --help                 show this text, or a command's, and exit\n"
    "\n"
    "Exit status: 0 done (check: no warnings); 1 check warned, or a command failed; 2 a command\n"
    "line that cannot be used, or an input file that cannot be read. docs/camera-paths.md\n"
    "describes the commands.\n";

const char* const CheckUsage =
    "Usage: vexpath check FILE [--json] [scene options]\n"
    "\n"
    "Flies FILE with the add-on and reports each leg: how each view angle turns (psi, theta,\n"
    "alpha, each the short way, as the add-on turns it), how far the viewer moves, how the width\n"
    "changes, and the leg's speed (docs/camera-paths.md has the measure). Then it warns of:\n"
    "  a turn within 1 degree of 180 (which way it goes depends on rounding),\n"
    "  two key frames in a row with the same view (a pause, or a mistake),\n"
    "  a frame count of 1 (a cut),\n"
    "  a speed that changes more than 3 times over from one leg to the next,\n"
    "  a solution time that goes back under AsCaptured time animation,\n"
    "  a width of 0 or less (the host keeps the width it had).\n"
    "\n"
    "  --json   write the report as one JSON object on stdout\n"
    "\n"
    "Exit status: 0 no warnings; 1 warnings; 2 a command line that cannot be used, or a file the\n"
    "add-on cannot read or animate (the add-on's message is printed).\n";

const char* const RetimeUsage =
    "Usage: vexpath retime IN (-o OUT | --in-place) (--frames N | --duration S --fps F) [--ease]\n"
    "              [scene options]\n"
    "\n"
    "Rewrites the frame counts of IN so that the camera moves at a constant speed over the whole\n"
    "flight, in N frames in all (or S seconds at F frames a second), and writes the key frames\n"
    "with their new counts, views, names, times and settings unchanged. Legs that do not move and\n"
    "cuts (a frame count of 1) keep their counts; the other legs share the rest of the frames in\n"
    "proportion to their lengths (docs/camera-paths.md has the measure).\n"
    "\n"
    "  -o OUT         write the new file to OUT (never IN itself)\n"
    "  --in-place     replace IN by the new file\n"
    "  --frames N     the animation's frames in all (2 to 1000000)\n"
    "  --duration S   the animation's length in seconds, with\n"
    "  --fps F        its frames a second: N = S * F, rounded\n"
    "  --ease         the first and last legs at half the speed of the others\n"
    "\n"
    "Exit status: 0 written; 1 the flight cannot be retimed so (too few frames, nothing that\n"
    "moves) or OUT cannot be written; 2 a command line that cannot be used, or a file the add-on\n"
    "cannot read or animate (the add-on's message is printed).\n";

const char* const OrbitUsage =
    "Usage: vexpath orbit -o OUT [--from FILE] [--angle DEG] [--frames N] [scene options]\n"
    "\n"
    "Writes a key frame file of one even turn of the camera about the vertical (z) axis through\n"
    "the scene's rotation origin, starting from the scene's fitted view or from the first key\n"
    "frame of FILE: key frames that differ only in theta, in legs of at most 90 degrees, their\n"
    "frame counts in proportion to their angles, so every frame turns by the same angle.\n"
    "\n"
    "  -o OUT         the key frame file to write\n"
    "  --from FILE    start from the first key frame of FILE (its view, solution time and\n"
    "                 settings) instead of the scene's fitted view\n"
    "  --angle DEG    the turn, counter-clockwise seen from above; negative turns the other way\n"
    "                 (default 360, at most 36000 either way)\n"
    "  --frames N     the animation's frames in all, the first and last included (default 361,\n"
    "                 2 to 1000000); each frame turns by DEG / (N - 1)\n"
    "\n"
    "Exit status: 0 written; 1 too few frames for the turn, or OUT cannot be written; 2 a command\n"
    "line that cannot be used, or a FILE the add-on cannot read (its message is printed).\n";

const char* const PictureUsage =
    "Usage: vexpath picture FILE -o OUT.png [scene options]\n"
    "\n"
    "Flies FILE with the add-on and draws the scene from the frame's view direction, far enough\n"
    "out to show the data and the whole flight, with the camera path over it: the viewer's\n"
    "position at every frame as a line, an arrow on each leg the way the camera flies, each key\n"
    "frame marked and named. The picture has the frame's size (--size, default 800x600).\n"
    "\n"
    "  -o OUT.png     the PNG file to write\n"
    "\n"
    "Exit status: 0 written; 1 OUT cannot be written or the picture cannot be drawn; 2 a command\n"
    "line that cannot be used, or a file the add-on cannot read or animate (the add-on's message\n"
    "is printed).\n";

const char* const SheetUsage =
    "Usage: vexpath sheet FILE -o OUT.png [--columns N] [scene options]\n"
    "\n"
    "Flies FILE with the add-on and draws what the animation shows at each key frame: its view,\n"
    "at the solution time of its frame, captioned with its name and the frames of its leg; the\n"
    "pictures in a grid, in the key frames' order. Each picture is half the frame's size (--size,\n"
    "default 800x600, gives 400x300).\n"
    "\n"
    "  -o OUT.png     the PNG file to write\n"
    "  --columns N    pictures a row (default 4, 1 to 64)\n"
    "\n"
    "Exit status: 0 written; 1 OUT cannot be written or a picture cannot be drawn; 2 a command\n"
    "line that cannot be used, or a file the add-on cannot read or animate (the add-on's message\n"
    "is printed).\n";

struct CommandEntry {
    const char* name;
    Command command;
    const char* usage;
};

const CommandEntry Commands[] = {{"check", Command::Check, CheckUsage},
                                 {"retime", Command::Retime, RetimeUsage},
                                 {"orbit", Command::Orbit, OrbitUsage},
                                 {"picture", Command::Picture, PictureUsage},
                                 {"sheet", Command::Sheet, SheetUsage}};

// What a parse collects besides the options themselves.
struct Parse {
    PathOptions options;
    std::vector<std::string> sceneArguments;  // for vexplot's command line
    std::vector<std::string> files;
    bool framesGiven = false;
};

// Which commands take an option.
constexpr unsigned CheckOnly = 1u << 0;
constexpr unsigned RetimeOnly = 1u << 1;
constexpr unsigned OrbitOnly = 1u << 2;
constexpr unsigned PictureOnly = 1u << 3;
constexpr unsigned SheetOnly = 1u << 4;
constexpr unsigned Every = CheckOnly | RetimeOnly | OrbitOnly | PictureOnly | SheetOnly;

unsigned bitOf(Command command) {
    return command == Command::Check     ? CheckOnly
           : command == Command::Retime  ? RetimeOnly
           : command == Command::Orbit   ? OrbitOnly
           : command == Command::Picture ? PictureOnly
           : command == Command::Sheet   ? SheetOnly
                                         : Every;
}

std::optional<double> realNumber(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(value))
        return std::nullopt;
    return value;
}

const std::string FramesRange = "from 2 to " + std::to_string(PathCommandLine::MaxFrames);

uint64_t frameTotal(const std::string& option, const std::string& value) {
    const std::optional<int64_t> n = app::ArgumentScanner::wholeNumber(
        value, 2, static_cast<int64_t>(PathCommandLine::MaxFrames));
    if (!n)
        throw UsageError(option + " needs a whole number " + FramesRange + "; found '" + value +
                         "'");
    return static_cast<uint64_t>(*n);
}

double positive(const std::string& option, const std::string& value) {
    const std::optional<double> x = realNumber(value);
    if (!x || !(*x > 0))
        throw UsageError(option + " needs a number above 0; found '" + value + "'");
    return *x;
}

struct OptionRule {
    const char* name;
    bool takesValue;
    unsigned commands;
    void (*apply)(const std::string& option, const std::string& value, Parse& parse);
};

void passToScene(const std::string& option, const std::string& value, Parse& parse) {
    parse.sceneArguments.push_back(option);
    parse.sceneArguments.push_back(value);
}

const OptionRule Options[] = {
    {"--help", false, Every,
     [](const std::string&, const std::string&, Parse& p) { p.options.help = true; }},
    {"-h", false, Every,
     [](const std::string&, const std::string&, Parse& p) { p.options.help = true; }},
    {"--data", true, Every, passToScene},
    {"--hide-block", true, Every, passToScene},
    {"--size", true, Every, passToScene},
    {"--addon", true, Every, passToScene},
    {"--color-by", true, Every, passToScene},
    {"--colormap", true, Every, passToScene},
    {"--streamtraces", true, Every, passToScene},
    {"--seed-line", true, Every, passToScene},
    {"--seed-plane", true, Every, passToScene},
    {"--json", false, CheckOnly,
     [](const std::string&, const std::string&, Parse& p) { p.options.json = true; }},
    {"-o", true, RetimeOnly | OrbitOnly | PictureOnly | SheetOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         if (value.empty())
             throw UsageError(option + " needs a file name");
         p.options.output = value;
     }},
    {"--in-place", false, RetimeOnly,
     [](const std::string&, const std::string&, Parse& p) { p.options.inPlace = true; }},
    {"--frames", true, RetimeOnly | OrbitOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         p.options.frames = frameTotal(option, value);
         p.framesGiven = true;
     }},
    {"--duration", true, RetimeOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         p.options.duration = positive(option, value);
     }},
    {"--fps", true, RetimeOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         p.options.fps = positive(option, value);
     }},
    {"--ease", false, RetimeOnly,
     [](const std::string&, const std::string&, Parse& p) { p.options.ease = true; }},
    {"--angle", true, OrbitOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         const std::optional<double> angle = realNumber(value);
         if (!angle || *angle == 0 || std::abs(*angle) > PathCommandLine::MaxOrbitDegrees)
             throw UsageError(option + " needs a number of degrees other than 0, at most 36000 " +
                              "either way; found '" + value + "'");
         p.options.angle = *angle;
     }},
    {"--columns", true, SheetOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         const std::optional<int64_t> n =
             app::ArgumentScanner::wholeNumber(value, 1, PathCommandLine::MaxColumns);
         if (!n)
             throw UsageError(option + " needs a whole number from 1 to " +
                              std::to_string(PathCommandLine::MaxColumns) + "; found '" + value +
                              "'");
         p.options.columns = static_cast<int>(*n);
     }},
    {"--from", true, OrbitOnly,
     [](const std::string& option, const std::string& value, Parse& p) {
         if (value.empty())
             throw UsageError(option + " needs a key frame file");
         p.options.from = value;
     }},
};

const OptionRule* findOption(const std::string& name) {
    for (const OptionRule& rule : Options) {
        if (name == rule.name)
            return &rule;
    }
    return nullptr;
}

const CommandEntry* findCommand(const std::string& name) {
    for (const CommandEntry& entry : Commands) {
        if (name == entry.name)
            return &entry;
    }
    return nullptr;
}

// What each command needs besides its options, once all are read.
void checkCommand(Parse& parse) {
    PathOptions& options = parse.options;
    const std::size_t wanted = options.command == Command::Orbit ? 0 : 1;
    if (parse.files.size() > wanted)
        throw UsageError("unexpected argument '" + parse.files[wanted] + "'");
    if (parse.files.size() < wanted)
        throw UsageError("the key frame file to read is missing");
    if (wanted == 1)
        options.input = parse.files.front();

    if (options.command == Command::Retime) {
        if (options.inPlace == !options.output.empty())
            throw UsageError("retime needs one of -o OUT and --in-place");
        const bool timed = options.duration > 0 || options.fps > 0;
        if (parse.framesGiven == timed)
            throw UsageError("retime needs either --frames N or --duration S with --fps F");
        if (timed) {
            if (!(options.duration > 0) || !(options.fps > 0))
                throw UsageError("--duration and --fps go together");
            const double frames = std::round(options.duration * options.fps);
            if (!(frames >= 2) || frames > static_cast<double>(PathCommandLine::MaxFrames))
                throw UsageError("--duration times --fps must make " + FramesRange +
                                 " frames; found " + std::to_string(frames));
            options.frames = static_cast<uint64_t>(frames);
        }
    }
    if (options.command == Command::Picture || options.command == Command::Sheet) {
        if (options.output.empty())
            throw UsageError(
                std::string(options.command == Command::Picture ? "picture" : "sheet") +
                " needs -o OUT.png");
    }
    if (options.command == Command::Orbit) {
        if (options.output.empty())
            throw UsageError("orbit needs -o OUT");
        if (!parse.framesGiven)
            options.frames = PathCommandLine::DefaultOrbitFrames;
    }
}

}  // namespace

PathOptions PathCommandLine::parse(const std::vector<std::string>& arguments) {
    Parse parse;
    PathOptions& options = parse.options;
    std::size_t start = 0;
    if (!arguments.empty()) {
        if (const CommandEntry* entry = findCommand(arguments.front())) {
            options.command = entry->command;
            start = 1;
        }
    }
    const std::vector<std::string> rest(arguments.begin() + static_cast<std::ptrdiff_t>(start),
                                        arguments.end());
    const auto kind = [&options](const std::string& name) -> std::optional<bool> {
        const OptionRule* rule = findOption(name);
        if (rule == nullptr)
            return std::nullopt;
        if ((rule->commands & bitOf(options.command)) == 0)
            throw UsageError(name + " is not an option of this command");
        return rule->takesValue;
    };
    app::ArgumentScanner::scan(
        rest, kind,
        [&parse](const std::string& name, const std::string& value) {
            findOption(name)->apply(name, value, parse);
        },
        [&parse](const std::string& argument) {
            if (parse.options.command == Command::None)
                throw UsageError("unknown command '" + argument + "'");
            parse.files.push_back(argument);
        });
    if (options.help)
        return options;
    if (options.command == Command::None)
        throw UsageError("a command is missing: check, retime, orbit, picture or sheet");
    checkCommand(parse);
    options.scene = app::CommandLine::parse(parse.sceneArguments);
    return options;
}

const char* PathCommandLine::usage(Command command) {
    for (const CommandEntry& entry : Commands) {
        if (entry.command == command)
            return entry.usage;
    }
    return ProgramUsage;
}

}  // namespace path
}  // namespace vexplot
