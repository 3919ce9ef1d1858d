#include "render/ColourLegend.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "render/TickScale.h"

namespace vexhost {
namespace {

const TextPainter::Colour kTextColour = {0.85f, 0.85f, 0.85f};
const TextPainter::Colour kFrameColour = {0.7f, 0.7f, 0.7f};
// The bar's share of the picture height, and its steps: each step is shaded linearly between its
// ends, so at this count the bar follows the map's own tables closely.
constexpr double kBarHeight = 0.45;
constexpr int kBarSteps = 128;
constexpr int kMaxValues = 5;

}  // namespace

void ColourLegend::paint(TextPainter& painter, int width, int height) const {
    const GlyphAtlas& atlas = painter.atlas();
    const double size = atlas.pixelSize();
    const double lineHeight = atlas.ascender() - atlas.descender();
    const double line = std::max(1.0, std::round(size / 12));
    const double gap = size / 2;
    const double barHeight = kBarHeight * height;
    const double barWidth = size;

    // No more values than fit beside the bar with a line between them, and at least two, so the
    // bar reads as a scale even in a thumbnail.
    const int target = std::clamp(static_cast<int>(barHeight / (2 * lineHeight)), 2, kMaxValues);
    const TickScale scale(scalarMin, scalarMax, target);
    std::vector<std::string> labels;
    int labelWidth = 0;
    for (double value : scale.values()) {
        labels.push_back(scale.label(value));
        labelWidth = std::max(labelWidth, atlas.textWidth(labels.back()));
    }

    const double right = width - size - labelWidth - gap;
    const double left = right - barWidth;
    const double top = (height - barHeight) / 2 + lineHeight / 2;
    const double bottom = top + barHeight;

    painter.addText(title, width - size, top - gap, TextPainter::Align::End,
                    TextPainter::Align::End, kTextColour);
    for (int step = 0; step < kBarSteps; ++step) {
        const double low = static_cast<double>(step) / kBarSteps;
        const double high = static_cast<double>(step + 1) / kBarSteps;
        painter.addRectangle(left, bottom - high * barHeight, right, bottom - low * barHeight,
                             colourMapColour(map, high), colourMapColour(map, low));
    }
    painter.addRectangle(left - line, top - line, right + line, top, kFrameColour, kFrameColour);
    painter.addRectangle(left - line, bottom, right + line, bottom + line, kFrameColour,
                         kFrameColour);
    painter.addRectangle(left - line, top, left, bottom, kFrameColour, kFrameColour);
    painter.addRectangle(right, top, right + line, bottom, kFrameColour, kFrameColour);

    const double range = scalarMax - scalarMin;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const double t = range > 0 ? (scale.values()[i] - scalarMin) / range : 0.5;
        const double y = bottom - t * barHeight;
        painter.addRectangle(right - barWidth / 3, y - line / 2, right + gap / 2, y + line / 2,
                             kFrameColour, kFrameColour);
        painter.addText(labels[i], right + gap, y, TextPainter::Align::Start,
                        TextPainter::Align::Centre, kTextColour);
    }
}

}  // namespace vexhost
