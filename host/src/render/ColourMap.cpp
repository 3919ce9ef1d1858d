#include "vexhost/ColourMap.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/Text.h"

namespace vexhost {
namespace {

struct ControlPoint {
    double t;
    float rgb[3];
};

// Blue, cyan, green, yellow and red at equal steps: the host's colours from before the maps could
// be chosen, kept exactly.
const ControlPoint kRainbow[] = {
    {0.00, {0, 0, 1}}, {0.25, {0, 1, 1}}, {0.50, {0, 1, 0}}, {0.75, {1, 1, 0}}, {1.00, {1, 0, 0}},
};

// Every eighth entry (and the last) of the published 256-entry viridis table (CC0, by Nathaniel J.
// Smith, Stefan van der Walt and Eric Firing): linear interpolation between them stays within about
// one level per channel of the full table.
const ControlPoint kViridis[] = {
    {0 / 255.0, {0.267004f, 0.004874f, 0.329415f}},
    {8 / 255.0, {0.277018f, 0.050344f, 0.375715f}},
    {16 / 255.0, {0.282327f, 0.094955f, 0.417331f}},
    {24 / 255.0, {0.282884f, 0.135920f, 0.453427f}},
    {32 / 255.0, {0.278826f, 0.175490f, 0.483397f}},
    {40 / 255.0, {0.270595f, 0.214069f, 0.507052f}},
    {48 / 255.0, {0.258965f, 0.251537f, 0.524736f}},
    {56 / 255.0, {0.244972f, 0.287675f, 0.537260f}},
    {64 / 255.0, {0.229739f, 0.322361f, 0.545706f}},
    {72 / 255.0, {0.214298f, 0.355619f, 0.551184f}},
    {80 / 255.0, {0.199430f, 0.387607f, 0.554642f}},
    {88 / 255.0, {0.185556f, 0.418570f, 0.556753f}},
    {96 / 255.0, {0.172719f, 0.448791f, 0.557885f}},
    {104 / 255.0, {0.160665f, 0.478540f, 0.558115f}},
    {112 / 255.0, {0.149039f, 0.508051f, 0.557250f}},
    {120 / 255.0, {0.137770f, 0.537492f, 0.554906f}},
    {128 / 255.0, {0.127568f, 0.566949f, 0.550556f}},
    {136 / 255.0, {0.120565f, 0.596422f, 0.543611f}},
    {144 / 255.0, {0.120638f, 0.625828f, 0.533488f}},
    {152 / 255.0, {0.132268f, 0.655014f, 0.519661f}},
    {160 / 255.0, {0.157851f, 0.683765f, 0.501686f}},
    {168 / 255.0, {0.196571f, 0.711827f, 0.479221f}},
    {176 / 255.0, {0.246070f, 0.738910f, 0.452024f}},
    {184 / 255.0, {0.304148f, 0.764704f, 0.419943f}},
    {192 / 255.0, {0.369214f, 0.788888f, 0.382914f}},
    {200 / 255.0, {0.440137f, 0.811138f, 0.340967f}},
    {208 / 255.0, {0.515992f, 0.831158f, 0.294279f}},
    {216 / 255.0, {0.595839f, 0.848717f, 0.243329f}},
    {224 / 255.0, {0.678489f, 0.863742f, 0.189503f}},
    {232 / 255.0, {0.762373f, 0.876424f, 0.137064f}},
    {240 / 255.0, {0.845561f, 0.887322f, 0.099702f}},
    {248 / 255.0, {0.926106f, 0.897330f, 0.104071f}},
    {255 / 255.0, {0.993248f, 0.906157f, 0.143936f}},
};

// Moreland's cool to warm diverging map as he published it, 33 points from blue through a neutral
// grey to red.
const ControlPoint kCoolWarm[] = {
    {0.00000, {0.2298057f, 0.298717966f, 0.753683153f}},
    {0.03125, {0.26623388f, 0.353094838f, 0.801466763f}},
    {0.06250, {0.30386891f, 0.406535296f, 0.84495867f}},
    {0.09375, {0.342804478f, 0.458757618f, 0.883725899f}},
    {0.12500, {0.38301334f, 0.50941904f, 0.917387822f}},
    {0.15625, {0.424369608f, 0.558148092f, 0.945619588f}},
    {0.18750, {0.46666708f, 0.604562568f, 0.968154911f}},
    {0.21875, {0.509635204f, 0.648280772f, 0.98478814f}},
    {0.25000, {0.552953156f, 0.688929332f, 0.995375608f}},
    {0.28125, {0.596262162f, 0.726149107f, 0.999836203f}},
    {0.31250, {0.639176211f, 0.759599947f, 0.998151185f}},
    {0.34375, {0.681291281f, 0.788964712f, 0.990363227f}},
    {0.37500, {0.722193294f, 0.813952739f, 0.976574709f}},
    {0.40625, {0.761464949f, 0.834302879f, 0.956945269f}},
    {0.43750, {0.798691636f, 0.849786142f, 0.931688648f}},
    {0.46875, {0.833466556f, 0.860207984f, 0.901068838f}},
    {0.50000, {0.865395197f, 0.86541021f, 0.865395561f}},
    {0.53125, {0.897787179f, 0.848937047f, 0.820880546f}},
    {0.56250, {0.924127593f, 0.827384882f, 0.774508472f}},
    {0.59375, {0.944468518f, 0.800927443f, 0.726736146f}},
    {0.62500, {0.958852946f, 0.769767752f, 0.678007945f}},
    {0.65625, {0.96732803f, 0.734132809f, 0.628751763f}},
    {0.68750, {0.969954137f, 0.694266682f, 0.579375448f}},
    {0.71875, {0.966811177f, 0.650421156f, 0.530263762f}},
    {0.75000, {0.958003065f, 0.602842431f, 0.481775914f}},
    {0.78125, {0.943660866f, 0.551750968f, 0.434243684f}},
    {0.81250, {0.923944917f, 0.49730856f, 0.387970225f}},
    {0.84375, {0.89904617f, 0.439559467f, 0.343229596f}},
    {0.87500, {0.869186849f, 0.378313092f, 0.300267182f}},
    {0.90625, {0.834620542f, 0.312874446f, 0.259301199f}},
    {0.93750, {0.795631745f, 0.24128379f, 0.220525627f}},
    {0.96875, {0.752534934f, 0.157246067f, 0.184115123f}},
    {1.00000, {0.705673158f, 0.01555616f, 0.150232812f}},
};

struct MapEntry {
    const char* name;
    const ControlPoint* begin;
    const ControlPoint* end;
};

// In enum order: the enum's value is the index.
const MapEntry kMaps[] = {
    {"rainbow", std::begin(kRainbow), std::end(kRainbow)},
    {"viridis", std::begin(kViridis), std::end(kViridis)},
    {"coolwarm", std::begin(kCoolWarm), std::end(kCoolWarm)},
};

const MapEntry& entry(ColourMap map) {
    return kMaps[static_cast<std::size_t>(map)];
}

}  // namespace

const char* colourMapName(ColourMap map) {
    return entry(map).name;
}

bool colourMapFromName(const std::string& name, ColourMap& map) {
    for (std::size_t i = 0; i < std::size(kMaps); ++i) {
        if (text::equalsIgnoringCase(name, kMaps[i].name)) {
            map = static_cast<ColourMap>(i);
            return true;
        }
    }
    return false;
}

std::vector<std::string> colourMapNames() {
    std::vector<std::string> names;
    for (const MapEntry& map : kMaps) {
        names.emplace_back(map.name);
    }
    return names;
}

std::array<float, 3> colourMapColour(ColourMap map, double t) {
    const MapEntry& points = entry(map);
    t = std::isnan(t) ? 0.5 : std::clamp(t, 0.0, 1.0);
    // The first point at or after t; the tables start at 0 and end at 1.
    const ControlPoint* upper =
        std::lower_bound(points.begin, points.end, t,
                         [](const ControlPoint& p, double value) { return p.t < value; });
    if (upper == points.begin) {
        return {upper->rgb[0], upper->rgb[1], upper->rgb[2]};
    }
    const ControlPoint* lower = upper - 1;
    const double f = (t - lower->t) / (upper->t - lower->t);
    std::array<float, 3> colour{};
    for (int c = 0; c < 3; ++c) {
        colour[c] = static_cast<float>(lower->rgb[c] + f * (upper->rgb[c] - lower->rgb[c]));
    }
    return colour;
}

}  // namespace vexhost
