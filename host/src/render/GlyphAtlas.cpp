#include "render/GlyphAtlas.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vexhost {
namespace {

// Cells per atlas row: the 95 characters and the solid block make six rows of sixteen.
constexpr int kColumns = 16;
// Empty texels between cells, so nearest sampling at a glyph's edge never reaches its neighbour.
constexpr int kPadding = 1;
constexpr int kSolidSize = 2;

}  // namespace

GlyphAtlas::GlyphAtlas(FontFace& font, int pixelSize) : pixelSize_(pixelSize) {
    constexpr int count = kLast - kFirst + 1;
    std::vector<FontFace::Glyph> bitmaps;
    bitmaps.reserve(count);
    int cellWidth = kSolidSize;
    int cellHeight = kSolidSize;
    for (int c = kFirst; c <= kLast; ++c) {
        bitmaps.push_back(font.render(static_cast<char>(c), pixelSize));
        cellWidth = std::max(cellWidth, bitmaps.back().width);
        cellHeight = std::max(cellHeight, bitmaps.back().rows);
    }
    cellWidth += kPadding;
    cellHeight += kPadding;
    const int cells = count + 1;  // the last cell holds the solid block
    width_ = kColumns * cellWidth + kPadding;
    height_ = (cells + kColumns - 1) / kColumns * cellHeight + kPadding;

    std::vector<uint8_t> texels(static_cast<std::size_t>(width_) * height_, 0);
    const auto cellOrigin = [&](int cell, int& x, int& y) {
        x = kPadding + cell % kColumns * cellWidth;
        y = kPadding + cell / kColumns * cellHeight;
    };
    for (int i = 0; i < count; ++i) {
        const FontFace::Glyph& bitmap = bitmaps[static_cast<std::size_t>(i)];
        Glyph& glyph = glyphs_[static_cast<std::size_t>(i)];
        cellOrigin(i, glyph.x, glyph.y);
        glyph.width = bitmap.width;
        glyph.rows = bitmap.rows;
        glyph.left = bitmap.left;
        glyph.top = bitmap.top;
        glyph.advance = bitmap.advance;
        for (int y = 0; y < bitmap.rows; ++y) {
            std::copy_n(&bitmap.coverage[static_cast<std::size_t>(y) * bitmap.width], bitmap.width,
                        &texels[static_cast<std::size_t>(glyph.y + y) * width_ + glyph.x]);
        }
    }
    int solidX = 0;
    int solidY = 0;
    cellOrigin(count, solidX, solidY);
    for (int y = 0; y < kSolidSize; ++y) {
        std::fill_n(&texels[static_cast<std::size_t>(solidY + y) * width_ + solidX], kSolidSize,
                    uint8_t{255});
    }
    solid_ = {solidX + kSolidSize / 2.0f, solidY + kSolidSize / 2.0f};

    ascender_ = font.ascender(pixelSize);
    descender_ = font.descender(pixelSize);
    capHeight_ = glyph('H').top;

    glBindTexture(GL_TEXTURE_2D, texture_.name());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_R8, width_, height_, 0, GL_RED, GL_UNSIGNED_BYTE,
                 texels.data());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
}

const GlyphAtlas::Glyph& GlyphAtlas::glyph(char character) const {
    const char c = character >= kFirst && character <= kLast ? character : '?';
    return glyphs_[static_cast<std::size_t>(c - kFirst)];
}

int GlyphAtlas::textWidth(std::string_view text) const {
    int width = 0;
    for (char c : text) {
        width += glyph(c).advance;
    }
    return width;
}

}  // namespace vexhost
