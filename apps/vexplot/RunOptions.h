// What one vexplot run was asked to do, as read from its command line (CommandLine).
#ifndef VEXPLOT_APP_RUNOPTIONS_H
#define VEXPLOT_APP_RUNOPTIONS_H

#include <cstdint>
#include <string>
#include <vector>

#include "vexhost/DataFileOptions.h"

namespace vexplot {
namespace app {

struct RunOptions {
    enum class Data { Demo, None, File };

    bool help = false;
    std::string addOnPath;  // empty: the key frame add-on built with the program
    Data data = Data::Demo;
    std::string dataPath;  // Data::File: the file, .pvd or numbered series
    // Data::File: colouring and streamtraces; the colour map also for the demo.
    vexhost::DataFileOptions dataOptions;
    bool seedGiven = false;              // --seed-line or --seed-plane was given
    int demoTriangles = 20000;           // per time step of the demo surface
    std::string tracePath;               // empty: no frame trace
    std::string recordPath;              // empty: the macro recorder stays off
    std::vector<bool> answers;           // Yes/No answers, in the order given
    std::vector<std::string> fileNames;  // file dialog answers, in the order given
    uint64_t stopAt = 0;                 // press Stop at this progress check; 0: never
    bool keepGoing = false;
    // --parallel-export: movies made by every process of the MPI job (docs/parallel-export.md).
    bool parallelExport = false;
    int width = 800;  // the frame's size in pixels
    int height = 600;
    // --serve: after the macro files, serve the studio (docs/studio.md) until interrupted.
    bool serve = false;
    std::string serveAddress = "127.0.0.1";
    uint16_t servePort = 0;
    std::vector<std::string> roots;  // --root; empty: the working directory
    std::string webDirectory;        // --web; empty: share/vexplot/web beside the program
    std::vector<std::string> macroFiles;
};

}  // namespace app
}  // namespace vexplot

#endif
