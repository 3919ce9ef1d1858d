// The printable ASCII characters of one font at one pixel size, rendered once into a single-channel
// (R8) texture that text quads sample. Also holds a small block of full coverage, so flat
// rectangles are drawn by the same quads as text.
//
// Glyph bitmaps are copied texel for texel: drawn at whole-pixel positions with nearest filtering,
// text shows exactly the coverage FreeType rendered.
#ifndef VEXHOST_RENDER_GLYPHATLAS_H
#define VEXHOST_RENDER_GLYPHATLAS_H

#include <array>
#include <string_view>

#include "render/FontFace.h"
#include "render/GlObject.h"

namespace vexhost {

class GlyphAtlas {
public:
    // The characters drawn; anything else is drawn as '?'.
    static constexpr char kFirst = ' ';
    static constexpr char kLast = '~';

    struct Glyph {
        int x = 0, y = 0;  // the bitmap's top left texel in the atlas
        int width = 0, rows = 0;
        int left = 0, top = 0;  // from the pen on the baseline, y upwards
        int advance = 0;
    };

    // Needs a current OpenGL context; throws std::runtime_error when the font cannot render.
    GlyphAtlas(FontFace& font, int pixelSize);

    int pixelSize() const { return pixelSize_; }
    int ascender() const { return ascender_; }
    int descender() const { return descender_; }  // <= 0
    int capHeight() const { return capHeight_; }  // the height of 'H' above the baseline
    const Glyph& glyph(char character) const;
    int textWidth(std::string_view text) const;  // the sum of the advances

    int width() const { return width_; }
    int height() const { return height_; }
    // A texel in the middle of the full-coverage block.
    std::array<float, 2> solidTexel() const { return solid_; }
    GLuint texture() const { return texture_.name(); }

private:
    int pixelSize_;
    int ascender_ = 0, descender_ = 0, capHeight_ = 0;
    std::array<Glyph, kLast - kFirst + 1> glyphs_{};
    int width_ = 0, height_ = 0;
    std::array<float, 2> solid_{};
    GlObject texture_{GlObject::Kind::Texture};
};

}  // namespace vexhost

#endif
