// Reads the field's 3D data files through VTK into LoadedData.
//
// What it opens, by extension (case-insensitive): VTK XML data sets .vtu .vtp .vts .vtr .vti, their
// multiblock .vtm, and the parallel .pvtu .pvtp .pvts .pvtr .pvti; legacy .vtk; surfaces .stl
// .ply .obj; and time series: a .pvd collection, or a numbered series named with one '*' where
// the number stands ("flow_*.vtu" for flow_0000.vtu, flow_0001.vtu, ...).
//
// Zones: every block of a file is one zone, named after the block ("<file> <block>" in a
// multiblock file, else the file's name without folder and extension). A single file's zones
// belong to no strand and carry the file's TimeValue (0 without one). In a time series, block b
// of every step is a zone of strand b + 1 with the step's time: the .pvd's timestep, else the
// file's TimeValue, else the series number. Zones of the blocks DataFileOptions::hiddenBlocks
// names are disabled and have no geometry (the box, colour range and view leave them out). Volumes
// become their outer surface; everything is triangulated; vertices, lines and empty blocks are left
// out.
//
// Colour: the array DataFileOptions::colourBy names, per point, or per cell (each triangle then
// has its own three vertices and is one colour). A block without the array has no scalars.
//
// Streamtraces: traced forward through the first step's data with VTK's stream tracer, from the
// seed, each a polyline with the travel time ("IntegrationTime") at each point.
//
// Errors are DataFileError with one line naming the file; VTK's own error output during reading
// is caught and worded into it, never printed. Not thread-safe (VTK's error output is
// process-wide while a file is read).
#ifndef VEXHOST_DATAFILEREADER_H
#define VEXHOST_DATAFILEREADER_H

#include <string>
#include <vector>

#include "vexhost/DataFileOptions.h"
#include "vexhost/LoadedData.h"

namespace vexhost {

class DataFileReader {
public:
    static LoadedData read(const std::string& path, const DataFileOptions& options = {});

    // The extensions read, with their dot, in the order messages list them.
    static std::vector<std::string> extensions();
};

}  // namespace vexhost

#endif
