// What to make of a data file besides its surfaces: the array that colours them and the
// streamtraces to compute. The defaults colour by the first scalar array and trace nothing.
#ifndef VEXHOST_DATAFILEOPTIONS_H
#define VEXHOST_DATAFILEOPTIONS_H

#include <array>
#include <string>
#include <vector>

#include "vexhost/ColourMap.h"

namespace vexhost {

struct DataFileOptions {
    // "NAME" (a scalar array, or the magnitude of a vector array), "NAME:magnitude", or
    // "NAME:X", "NAME:Y", "NAME:Z" or "NAME:<component number from 0>". Empty: the first scalar
    // point array, else the first scalar cell array, else no colouring (one lit colour).
    std::string colourBy;
    // The map the colours come from.
    ColourMap colourMap = ColourMap::Rainbow;

    // Blocks whose zones are loaded disabled and without a surface (their data still carries
    // streamtraces): a volume's outer surface would hide the streamtraces inside it. Names as
    // DataFileReader names blocks: the block's own name in a multiblock file, else the file's (or
    // series') base name.
    std::vector<std::string> hiddenBlocks;

    // Streamtraces along this vector array of the first time step; empty: none.
    std::string streamtraceArray;
    // Where the streamtraces start: `count` points on a line from `start` to `end`, or, for a
    // plane, a grid of `count` x `countAcross` points over the parallelogram at `start` spanned
    // by the edges to `end` and to `across`.
    struct Seed {
        enum class Kind { Line, Plane };
        Kind kind = Kind::Line;
        std::array<double, 3> start = {0, 0, 0};
        std::array<double, 3> end = {0, 0, 0};
        std::array<double, 3> across = {0, 0, 0};
        int count = 10;
        int countAcross = 1;
    };
    Seed seed;
};

}  // namespace vexhost

#endif
