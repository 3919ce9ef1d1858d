// vexplot: runs macro files against the stand-in host with the key frame add-on loaded.
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
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

// The program's own file, to find the add-on built with it whatever the working directory.
std::string programPath(const char* argv0) {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string(argv0) : self.string();
}

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
        vexplot::app::BatchRun run(options, programPath(argv[0]), std::cout, std::cerr, team);
        return run.run();
    } catch (const std::exception& error) {
        // Not a failure of the user's macro: a broken invariant. Say so loudly.
        std::cerr << "vexplot: internal error: " << error.what() << std::endl;
        return 1;
    }
}
