// Which files a data path stands for, step by step: one file (one step), the files a .pvd names
// (one step per timestep, one file per part), or a numbered series given with one '*' where the
// number stands ("out/flow_*.vtu": every flow_<digits>.vtu in out/, by number). Checks only what
// can be checked without reading the data: that the files exist and have a known extension.
#ifndef VEXHOST_DATA_FILESERIES_H
#define VEXHOST_DATA_FILESERIES_H

#include <string>
#include <vector>

namespace vexhost {

struct FileSeries {
    struct Step {
        // The .pvd's timestep, or the number of a numbered series; a single file has none, and
        // a file's own TimeValue, where it has one, wins over the number.
        double time = 0;
        bool timeFromIndex = false;      // true for a .pvd's timestep
        std::vector<std::string> files;  // by part; paths to open
    };
    std::string baseName;  // what the zones are named after: the file or series name
    bool isSeries = false;
    std::vector<Step> steps;  // by time (a .pvd) or number (a numbered series)

    // Throws DataFileError naming `path`: a missing file or folder, a folder given as the file,
    // an unknown extension, a pattern that matches nothing or has more than one '*', a .pvd that
    // cannot be read or names a file that does not exist.
    static FileSeries resolve(const std::string& path);

    // The whole message for a name whose extension is none of the formats read (or missing).
    static std::string unknownExtension(const std::string& name);
};

}  // namespace vexhost

#endif
