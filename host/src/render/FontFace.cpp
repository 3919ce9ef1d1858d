#include "render/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vexhost {
namespace {

void check(FT_Error error, const std::string& what) {
    if (error != 0) {
        throw std::runtime_error(what + " (FreeType error " + std::to_string(error) + ")");
    }
}

// FreeType's 26.6 fixed point to whole pixels, rounded.
int pixels(FT_Pos value) {
    return static_cast<int>((value + 32) >> 6);
}

}  // namespace

FontFace::FontFace(const std::string& path) {
    check(FT_Init_FreeType(&library_), "Cannot start FreeType to draw text");
    const FT_Error error = FT_New_Face(library_, path.c_str(), 0, &face_);
    if (error != 0) {
        FT_Done_FreeType(library_);
        throw std::runtime_error("Cannot open the font " + path +
                                 " for the text in pictures (FreeType error " +
                                 std::to_string(error) + "; Debian package fonts-dejavu-core)");
    }
}

FontFace::~FontFace() {
    FT_Done_Face(face_);
    FT_Done_FreeType(library_);
}

void FontFace::setSize(int pixelSize) {
    if (pixelSize != size_) {
        check(FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(pixelSize)),
              "Cannot set the font size to " + std::to_string(pixelSize) + " pixels");
        size_ = pixelSize;
    }
}

FontFace::Glyph FontFace::render(char character, int pixelSize) {
    setSize(pixelSize);
    check(FT_Load_Char(face_, static_cast<unsigned char>(character), FT_LOAD_RENDER),
          "Cannot draw the character " + std::to_string(static_cast<unsigned char>(character)));
    const FT_GlyphSlot slot = face_->glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    Glyph glyph;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.rows = static_cast<int>(bitmap.rows);
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.advance = pixels(slot->advance.x);
    glyph.coverage.resize(static_cast<std::size_t>(glyph.width) * glyph.rows);
    for (int y = 0; y < glyph.rows; ++y) {
        const unsigned char* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        std::copy(row, row + glyph.width,
                  glyph.coverage.begin() + static_cast<std::ptrdiff_t>(y) * glyph.width);
    }
    return glyph;
}

int FontFace::ascender(int pixelSize) {
    setSize(pixelSize);
    return pixels(face_->size->metrics.ascender);
}

int FontFace::descender(int pixelSize) {
    setSize(pixelSize);
    return pixels(face_->size->metrics.descender);
}

}  // namespace vexhost
