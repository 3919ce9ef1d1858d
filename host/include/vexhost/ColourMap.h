// The colour maps that zones are coloured through: Rainbow (blue, cyan, green, yellow, red), the
// perceptually uniform Viridis and the diverging CoolWarm (blue, grey, red). Rainbow is the
// default everywhere, so pictures made before the choice existed keep their colours.
#ifndef VEXHOST_COLOURMAP_H
#define VEXHOST_COLOURMAP_H

#include <array>
#include <string>
#include <vector>

namespace vexhost {

enum class ColourMap { Rainbow, Viridis, CoolWarm };

// "rainbow", "viridis", "coolwarm": the names the command line and docs use.
const char* colourMapName(ColourMap map);
// False for an unknown name (case-insensitive compare is fine: text::equalsIgnoringCase exists).
bool colourMapFromName(const std::string& name, ColourMap& map);
std::vector<std::string> colourMapNames();  // in enum order, for usage and error texts
// The colour at position t of the map, t clamped to [0, 1]; components 0..1. A t that is not a
// number gives the map's middle colour, as a scalar range of no width does.
std::array<float, 3> colourMapColour(ColourMap map, double t);

}  // namespace vexhost

#endif
