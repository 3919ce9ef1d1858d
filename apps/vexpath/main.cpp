// vexpath: the camera path tools (check, retime, orbit, picture, sheet) for key frame files, run
// around the key frame add-on loaded into the stand-in host.
#include <iostream>
#include <string>
#include <vector>

#include "BatchRun.h"
#include "PathCommandLine.h"
#include "PathRun.h"
#include "UsageError.h"

int main(int argc, char** argv) {
    using vexplot::path::PathCommandLine;
    using vexplot::path::PathRun;
    vexplot::path::PathOptions options;
    try {
        options = PathCommandLine::parse(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const vexplot::app::UsageError& error) {
        std::cerr << "vexpath: " << error.what() << "\nTry 'vexpath --help' for the commands."
                  << std::endl;
        return PathRun::Unusable;
    }
    if (options.help) {
        std::cout << PathCommandLine::usage(options.command);
        return PathRun::Done;
    }
    const std::string programPath = vexplot::app::BatchRun::programPath(argv[0]);
    PathRun run(options, vexplot::app::BatchRun::defaultAddOnPath(programPath), std::cout,
                std::cerr);
    return run.run();
}
