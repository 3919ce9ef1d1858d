// Text and flat rectangles over a finished picture, in screen space: positions in pixels of the
// drawn picture, x to the right and y downwards from its top left corner. Quads are collected with
// addText and addRectangle and drawn together by draw(), on top of everything, dimmed by the
// picture's brightness like every unlit part.
//
// Glyphs come from a GlyphAtlas per pixel size, made on first use and kept: an animation draws at
// one or two sizes. Must be made and dropped while the renderer's context is current.
#ifndef VEXHOST_RENDER_TEXTPAINTER_H
#define VEXHOST_RENDER_TEXTPAINTER_H

#include <array>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "render/FontFace.h"
#include "render/GlObject.h"
#include "render/GlProgram.h"
#include "render/GlyphAtlas.h"

namespace vexhost {

class TextPainter {
public:
    using Colour = std::array<float, 3>;
    // Where a text stands relative to its point. Horizontally: its start, middle or end at x.
    // Vertically: the top of its capitals, their middle or the baseline at y.
    enum class Align { Start, Centre, End };

    // Throws std::runtime_error naming the font when it cannot be opened.
    TextPainter();
    TextPainter(const TextPainter&) = delete;
    TextPainter& operator=(const TextPainter&) = delete;

    // Starts the overlay of a picture of width x height drawn pixels, with text of pixelSize;
    // forgets what was added and not drawn.
    void begin(int width, int height, int pixelSize);
    const GlyphAtlas& atlas() const { return *atlas_; }

    void addText(std::string_view text, double x, double y, Align horizontal, Align vertical,
                 const Colour& colour);
    // Colours run linearly from the top edge to the bottom edge.
    void addRectangle(double left, double top, double right, double bottom, const Colour& topColour,
                      const Colour& bottomColour);
    // Draws what was added, over the picture and without depth, and empties the list.
    void draw(float brightness);

private:
    void addQuad(const float corners[4][2], const float texels[4][2], const Colour colours[4]);

    FontFace font_;
    GlProgram program_;
    GlObject vertexArray_{GlObject::Kind::VertexArray};
    GlObject vertices_{GlObject::Kind::Buffer};
    std::map<int, std::unique_ptr<GlyphAtlas>> atlases_;  // by pixel size
    GlyphAtlas* atlas_ = nullptr;
    int width_ = 1, height_ = 1;
    std::vector<float> quads_;  // x, y, s, t, r, g, b per vertex, two triangles per quad
};

}  // namespace vexhost

#endif
