// vexplot: runs macro files against the stand-in host with the key frame add-on loaded.
#include <iostream>
#include <string>
#include <vector>

#include "BatchRun.h"
#include "CommandLine.h"
#include "RenderingMemory.h"
#include "UsageError.h"

int main(int argc, char** argv) {
    vexplot::app::keepFreedMemoryForReuse();
    using vexplot::app::CommandLine;
    vexplot::app::RunOptions options;
    try {
        options = CommandLine::parse(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const vexplot::app::UsageError& error) {
        std::cerr << "vexplot: " << error.what() << "\nTry 'vexplot --help' for the options."
                  << std::endl;
        return 2;
    }
    if (options.help) {
        std::cout << CommandLine::usage();
        return 0;
    }
    try {
        vexplot::app::BatchRun run(options, vexplot::app::BatchRun::programPath(argv[0]),
                                   std::cerr);
        return run.run();
    } catch (const std::exception& error) {
        // Not a failure of the user's macro: a broken invariant. Say so loudly.
        std::cerr << "vexplot: internal error: " << error.what() << std::endl;
        return 1;
    }
}
