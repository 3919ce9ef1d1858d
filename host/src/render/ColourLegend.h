// The colour legend: a vertical bar of the colour map at the right edge of the picture, the
// variable's name above it and round values of the scalar range beside it, in screen space through
// a TextPainter whose begin() has set the picture up.
#ifndef VEXHOST_RENDER_COLOURLEGEND_H
#define VEXHOST_RENDER_COLOURLEGEND_H

#include <string>

#include "render/TextPainter.h"
#include "vexhost/ColourMap.h"

namespace vexhost {

struct ColourLegend {
    std::string title;
    ColourMap map = ColourMap::Rainbow;
    double scalarMin = 0, scalarMax = 1;

    // Adds the legend to a picture of width x height drawn pixels.
    void paint(TextPainter& painter, int width, int height) const;
};

}  // namespace vexhost

#endif
