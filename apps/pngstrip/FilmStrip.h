// A strip of pictures side by side, as in a strip of film: the pictures left to right in the order
// given, top-aligned, with a black gap between neighbours. Pictures of different heights are
// refused: a strip of frames of one movie has one height, and anything else is a mistake.
#ifndef PNGSTRIP_FILMSTRIP_H
#define PNGSTRIP_FILMSTRIP_H

#include <vector>

#include "vexhost/Image.h"

namespace pngstrip {

class FilmStrip {
public:
    static constexpr int DefaultGap = 4;

    // Throws std::invalid_argument naming the fault when there is no picture, a picture is empty
    // or of another height than the first, or the gap is negative.
    static vexhost::Image join(const std::vector<vexhost::Image>& pictures, int gap = DefaultGap);
};

}  // namespace pngstrip

#endif
