// vexplot: runs macro files against the stand-in host with the key frame add-on loaded.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "BatchRun.h"
#include "CommandLine.h"
#include "RenderingMemory.h"
#include "UsageError.h"
#include "vexhost/ExportTeam.h"
#ifdef VEXPLOT_WITH_MPI
#include <optional>

#include "vexhost/MpiExportTeam.h"
#include "vexhost/MpiSession.h"
#endif

namespace {

#ifdef VEXPLOT_WITH_MPI
// The MPI job this process is one of (--parallel-export): MPI running, and the job's processes as
// the export team, which goes before MPI does.
struct Job {
    vexhost::MpiSession mpi;
    std::shared_ptr<vexhost::ExportTeam> team = std::make_shared<vexhost::MpiExportTeam>();
};
#endif

}  // namespace

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
#ifdef VEXPLOT_WITH_MPI
        // Declared first, so that the run and its hold on the team go before MPI does.
        std::optional<Job> job;
        if (options.parallelExport)
            job.emplace();
        const std::shared_ptr<vexhost::ExportTeam> team = job ? job->team : nullptr;
#else
        if (options.parallelExport) {
            std::cerr << "vexplot: --parallel-export needs MPI, and this vexplot was built without "
                         "it (libopenmpi-dev)"
                      << std::endl;
            return 2;
        }
        const std::shared_ptr<vexhost::ExportTeam> team;
#endif
        vexplot::app::BatchRun run(options, vexplot::app::BatchRun::programPath(argv[0]), std::cout,
                                   std::cerr, team);
        return run.run();
    } catch (const std::exception& error) {
        // Not a failure of the user's macro: a broken invariant. Say so loudly.
        std::cerr << "vexplot: internal error: " << error.what() << std::endl;
        return 1;
    }
}
