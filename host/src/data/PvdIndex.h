// The index of a .pvd file: a VTKFile of type "Collection" whose DataSet elements name one file
// each, with its timestep and part. Parsed with VTK's own XML parser.
#ifndef VEXHOST_DATA_PVDINDEX_H
#define VEXHOST_DATA_PVDINDEX_H

#include <string>
#include <vector>

namespace vexhost {

struct PvdIndex {
    struct Entry {
        double time = 0;   // the timestep attribute; 0 when missing
        int part = 0;      // the part attribute; 0 when missing
        std::string file;  // as written, relative to the .pvd's folder unless absolute
    };
    std::vector<Entry> entries;  // in the file's order

    // Throws DataFileError naming `shownName` for a file that is not a collection: XML that does
    // not parse, another root element or type, a DataSet without a file, a timestep or part that
    // is not a number, or no DataSet at all.
    static PvdIndex read(const std::string& path, const std::string& shownName);
};

}  // namespace vexhost

#endif
