// Puts a data file into the host: what vexplot's --data FILE and a File menu's Open do. The file
// is read completely first (DataFileReader); only then does the host's data set change: its zones
// and streamtraces are replaced, the streamtrace markers are spaced along the traces, the colouring
// (the legend's variable and the map) is set, the solution time is set to the first step's, and the
// active frame's view is fitted to the data. A file that cannot be read throws DataFileError and
// leaves the host as it was.
#ifndef VEXHOST_DATAFILELOADER_H
#define VEXHOST_DATAFILELOADER_H

#include <string>

#include "vexhost/DataFileOptions.h"
#include "vexhost/LoadedData.h"

namespace vexhost {

class Host;

class DataFileLoader {
public:
    // About this many streamtrace markers along the longest trace.
    static constexpr int MarkersAlongTrace = 10;

    // Needs an active frame (std::logic_error otherwise). Returns what was loaded.
    static LoadedData load(Host& host, const std::string& path,
                           const DataFileOptions& options = {});
};

}  // namespace vexhost

#endif
