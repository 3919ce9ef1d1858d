#include "CommandLine.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

#include "ArgumentScanner.h"
#include "UsageError.h"
#include "vexhost/ColourMap.h"

namespace vexplot {
namespace app {

namespace {

// The largest frame side: the host's export image width limit, so any frame can be exported.
constexpr int64_t MaxFrameSide = 32766;
// The demo surface's triangles per time step: enough for benchmarks of heavy scenes, few enough
// that the six time steps fit in memory comfortably (about 30 MB per million triangles).
constexpr int64_t MinDemoTriangles = 2;
constexpr int64_t MaxDemoTriangles = 1000000;

std::string lowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

void parseSize(const std::string& value, RunOptions& options) {
    const std::size_t x = value.find_first_of("xX");
    const std::optional<int64_t> width =
        x == std::string::npos ? std::nullopt
                               : ArgumentScanner::wholeNumber(value.substr(0, x), 1, MaxFrameSide);
    const std::optional<int64_t> height =
        x == std::string::npos ? std::nullopt
                               : ArgumentScanner::wholeNumber(value.substr(x + 1), 1, MaxFrameSide);
    if (!width || !height)
        throw UsageError("--size needs WIDTHxHEIGHT in pixels, each from 1 to " +
                         std::to_string(MaxFrameSide) + " (as in 800x600); found '" + value + "'");
    options.width = static_cast<int>(*width);
    options.height = static_cast<int>(*height);
}

// [HOST:]PORT, HOST an IPv4 address, an IPv6 address in brackets, or localhost.
void parseServe(const std::string& value, RunOptions& options) {
    const std::size_t colon = value.rfind(':');
    std::string host = colon == std::string::npos ? "127.0.0.1" : value.substr(0, colon);
    const std::string port = colon == std::string::npos ? value : value.substr(colon + 1);
    if (host.size() >= 2 && host.front() == '[' && host.back() == ']')
        host = host.substr(1, host.size() - 2);
    if (host == "localhost")
        host = "127.0.0.1";
    const std::optional<int64_t> number = ArgumentScanner::wholeNumber(port, 0, 65535);
    if (!number || host.empty())
        throw UsageError(
            "--serve needs [HOST:]PORT, PORT from 0 (any free port) to 65535 (as "
            "in 8080 or 127.0.0.1:8080); found '" +
            value + "'");
    options.serve = true;
    options.serveAddress = host;
    options.servePort = static_cast<uint16_t>(*number);
}

// Comma-separated numbers: `reals` finite ones, then `counts` whole numbers from 2 to MaxSeeds.
constexpr int64_t MaxSeeds = 10000;

bool parseNumbers(const std::string& text, std::size_t reals, std::size_t counts,
                  std::vector<double>& values, std::vector<int>& wholes) {
    std::vector<std::string> fields(1);
    for (char c : text) {
        if (c == ',')
            fields.emplace_back();
        else
            fields.back() += c;
    }
    if (fields.size() != reals + counts)
        return false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i < reals) {
            char* end = nullptr;
            const double value = std::strtod(fields[i].c_str(), &end);
            if (fields[i].empty() || *end != '\0' || !std::isfinite(value))
                return false;
            values.push_back(value);
        } else {
            const std::optional<int64_t> n = ArgumentScanner::wholeNumber(fields[i], 2, MaxSeeds);
            if (!n)
                return false;
            wholes.push_back(static_cast<int>(*n));
        }
    }
    return true;
}

void parseSeed(const std::string& option, const std::string& value, RunOptions& options) {
    using Seed = vexhost::DataFileOptions::Seed;
    Seed& seed = options.dataOptions.seed;
    const bool line = option == "--seed-line";
    std::vector<double> xyz;
    std::vector<int> counts;
    if (!parseNumbers(value, line ? 6 : 9, line ? 1 : 2, xyz, counts))
        throw UsageError(line ? "--seed-line needs X1,Y1,Z1,X2,Y2,Z2,COUNT: two points and the "
                                "number of seeds between them (2 to " +
                                    std::to_string(MaxSeeds) + "); found '" + value + "'"
                              : "--seed-plane needs OX,OY,OZ,AX,AY,AZ,BX,BY,BZ,NA,NB: a corner, "
                                "the corners at the ends of its two edges and the number of seeds "
                                "along each (2 to " +
                                    std::to_string(MaxSeeds) + "); found '" + value + "'");
    seed.kind = line ? Seed::Kind::Line : Seed::Kind::Plane;
    for (int k = 0; k < 3; ++k) {
        seed.start[k] = xyz[k];
        seed.end[k] = xyz[3 + k];
        seed.across[k] = line ? 0 : xyz[6 + k];
    }
    seed.count = counts[0];
    seed.countAcross = line ? 1 : counts[1];
    options.seedGiven = true;
}

// Applies an option that takes a value.
void applyValue(const std::string& option, const std::string& value, RunOptions& options) {
    if (option == "--addon") {
        if (value.empty())
            throw UsageError("--addon needs the path of an add-on library");
        options.addOnPath = value;
    } else if (option == "--data") {
        if (value == "demo")
            options.data = RunOptions::Data::Demo;
        else if (value == "none")
            options.data = RunOptions::Data::None;
        else if (!value.empty()) {
            options.data = RunOptions::Data::File;
            options.dataPath = value;
        } else
            throw UsageError("--data takes demo, none or a data file");
    } else if (option == "--color-by") {
        if (value.empty())
            throw UsageError("--color-by needs the name of an array");
        options.dataOptions.colourBy = value;
    } else if (option == "--colormap") {
        if (!vexhost::colourMapFromName(value, options.dataOptions.colourMap)) {
            std::string names;
            for (const std::string& name : vexhost::colourMapNames())
                names += (names.empty() ? "" : ", ") + name;
            throw UsageError("--colormap takes " + names + "; found '" + value + "'");
        }
    } else if (option == "--hide-block") {
        if (value.empty())
            throw UsageError("--hide-block needs the name of a block");
        options.dataOptions.hiddenBlocks.push_back(value);
    } else if (option == "--streamtraces") {
        if (value.empty())
            throw UsageError("--streamtraces needs the name of a vector array");
        options.dataOptions.streamtraceArray = value;
    } else if (option == "--seed-line" || option == "--seed-plane") {
        parseSeed(option, value, options);
    } else if (option == "--demo-triangles") {
        const std::optional<int64_t> n =
            ArgumentScanner::wholeNumber(value, MinDemoTriangles, MaxDemoTriangles);
        if (!n)
            throw UsageError("--demo-triangles needs a whole number from " +
                             std::to_string(MinDemoTriangles) + " to " +
                             std::to_string(MaxDemoTriangles) + "; found '" + value + "'");
        options.demoTriangles = static_cast<int>(*n);
    } else if (option == "--trace") {
        if (value.empty())
            throw UsageError("--trace needs a file name");
        options.tracePath = value;
    } else if (option == "--record") {
        if (value.empty())
            throw UsageError("--record needs a file name");
        options.recordPath = value;
    } else if (option == "--answer") {
        const std::string answer = lowerCase(value);
        if (answer != "yes" && answer != "no")
            throw UsageError("--answer takes yes or no; found '" + value + "'");
        options.answers.push_back(answer == "yes");
    } else if (option == "--file-name") {
        if (value.empty())
            throw UsageError("--file-name needs a file name");
        options.fileNames.push_back(value);
    } else if (option == "--stop-at") {
        const std::optional<int64_t> n =
            ArgumentScanner::wholeNumber(value, 1, std::numeric_limits<int64_t>::max());
        if (!n)
            throw UsageError("--stop-at needs a whole number from 1 up; found '" + value + "'");
        options.stopAt = static_cast<uint64_t>(*n);
    } else if (option == "--serve") {
        parseServe(value, options);
    } else if (option == "--root") {
        if (value.empty())
            throw UsageError("--root needs a folder");
        options.roots.push_back(value);
    } else if (option == "--web") {
        if (value.empty())
            throw UsageError("--web needs a folder");
        options.webDirectory = value;
    } else {
        parseSize(value, options);
    }
}

bool takesValue(const std::string& option) {
    static const char* const WithValue[] = {"--addon",        "--data",      "--demo-triangles",
                                            "--color-by",     "--colormap",  "--hide-block",
                                            "--streamtraces", "--seed-line", "--seed-plane",
                                            "--trace",        "--record",    "--answer",
                                            "--file-name",    "--stop-at",   "--size",
                                            "--serve",        "--root",      "--web"};
    for (const char* known : WithValue) {
        if (option == known)
            return true;
    }
    return false;
}

// The options about a data file need one, and streamtraces need both an array and a seed.
void checkDataOptions(const RunOptions& options) {
    const vexhost::DataFileOptions& data = options.dataOptions;
    const char* fileOption = !data.colourBy.empty()           ? "--color-by"
                             : !data.hiddenBlocks.empty()     ? "--hide-block"
                             : !data.streamtraceArray.empty() ? "--streamtraces"
                             : options.seedGiven              ? "--seed-line or --seed-plane"
                                                              : nullptr;
    if (fileOption != nullptr && options.data != RunOptions::Data::File)
        throw UsageError(std::string(fileOption) + " needs a data file (--data FILE)");
    if (!data.streamtraceArray.empty() && !options.seedGiven)
        throw UsageError("--streamtraces needs a seed: --seed-line or --seed-plane");
    if (options.seedGiven && data.streamtraceArray.empty())
        throw UsageError("a seed needs --streamtraces ARRAY");
}

}  // namespace

RunOptions CommandLine::parse(const std::vector<std::string>& arguments) {
    RunOptions options;
    const auto kind = [](const std::string& option) -> std::optional<bool> {
        if (option == "--help" || option == "-h" || option == "--keep-going" ||
            option == "--parallel-export")
            return false;
        if (takesValue(option))
            return true;
        return std::nullopt;
    };
    ArgumentScanner::scan(
        arguments, kind,
        [&options](const std::string& option, const std::string& value) {
            if (option == "--keep-going")
                options.keepGoing = true;
            else if (option == "--parallel-export")
                options.parallelExport = true;
            else if (option == "--help" || option == "-h")
                options.help = true;
            else
                applyValue(option, value, options);
        },
        [&options](const std::string& argument) { options.macroFiles.push_back(argument); });
    checkDataOptions(options);
    // The studio answers one person's browser: a job of many processes has nobody to serve.
    if (options.serve && options.parallelExport)
        throw UsageError("--parallel-export cannot be used with --serve");
    if (!options.serve && (!options.roots.empty() || !options.webDirectory.empty()))
        throw UsageError(std::string(options.roots.empty() ? "--web" : "--root") +
                         " needs --serve");
    return options;
}

const char* CommandLine::usage() {
    return "Usage: vexplot [options] [MACRO_FILE ...]\n"
           "\n"
           "Loads the Key Frame Animation add-on, sets up one 3D frame showing the data set, runs\n"
           "the macro files in order and exits. Messages, progress and errors go to stderr.\n"
           "\n"
           "Options:\n"
           "  --addon PATH       load this add-on library instead of the key frame add-on\n"
           "                     built with vexplot (../lib/libkeyframe.so next to the program)\n"
           "  --data demo|none|FILE\n"
           "                     the data set: the built-in transient demo (default), none, or a\n"
           "                     data file: VTK XML .vtu .vtp .vts .vtr .vti .vtm, a .pvd series,\n"
           "                     a numbered series as 'flow_*.vtu', legacy .vtk, .stl .ply .obj\n"
           "  --demo-triangles N the demo surface's triangles at each time step (default 20000)\n"
           "  --color-by NAME    colour the data file by this point or cell array; NAME:X, :Y, "
           ":Z,\n"
           "                     :N or :magnitude for a vector (default: the first scalar array)\n"
           "  --colormap NAME    the colour map: rainbow (default), viridis (perceptually "
           "uniform)\n"
           "                     or coolwarm (diverging)\n"
           "  --hide-block NAME  load the block of this name without drawing it (repeatable)\n"
           "  --streamtraces ARRAY\n"
           "                     trace streams along this vector array of the data file, from:\n"
           "  --seed-line X1,Y1,Z1,X2,Y2,Z2,COUNT\n"
           "                     COUNT seeds on the line between two points, or\n"
           "  --seed-plane OX,OY,OZ,AX,AY,AZ,BX,BY,BZ,NA,NB\n"
           "                     NA x NB seeds over the plane at O spanned by the edges to A and "
           "B\n"
           "  --trace FILE       write the frame trace, one JSON object per line, to FILE\n"
           "  --record FILE      record a macro from the start and write its lines to FILE\n"
           "  --answer yes|no    queue the answer to a Yes/No question (repeatable)\n"
           "  --file-name NAME   queue the answer to a file dialog (repeatable; when none is\n"
           "                     left, a file dialog is cancelled)\n"
           "  --stop-at N        press Stop at the N-th progress check\n"
           "  --keep-going       report a failing line and go on with the next one\n"
           "  --parallel-export  make movies with every process of the MPI job this vexplot is\n"
           "                     one of (mpirun -n P vexplot --parallel-export ...): each draws\n"
           "                     a share of the frames, the first joins them; only the first\n"
           "                     prints (docs/parallel-export.md)\n"
           "  --size WxH         the frame's size in pixels (default 800x600)\n"
           "  --serve [HOST:]PORT\n"
           "                     after the macro files, serve the studio, the host in a web\n"
           "                     browser, on PORT (0: any free one) of HOST (127.0.0.1) until\n"
           "                     interrupted; the address to open is printed (docs/studio.md)\n"
           "  --root DIR         a folder the studio's file chooser and downloads may reach\n"
           "                     (repeatable; default: the working directory)\n"
           "  --web DIR          the studio page's files (default: ../share/vexplot/web)\n"
           "  --help             show this text and exit\n"
           "\n"
           "Exit status: 0 when every line ran; 1 when a line failed, a macro file or the data "
           "file\n"
           "could not be read or the add-on could not be loaded; 2 for a command line that cannot\n"
           "be used. The macro language and the demo data set are described in docs/vexplot.md,\n"
           "data files in docs/data.md.\n";
}

}  // namespace app
}  // namespace vexplot
