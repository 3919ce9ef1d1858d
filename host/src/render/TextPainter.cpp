#include "render/TextPainter.h"

#include <cmath>

#include "render/VertexLayout.h"

namespace vexhost {
namespace {

// Pixel positions to clip space (y down to y up); texels to texture coordinates. The atlas holds
// coverage, which becomes the alpha of the vertex colour.
const char* const kVertexShader = R"(#version 330 core
layout(location = 0) in vec2 aPosition;
layout(location = 1) in vec2 aTexel;
layout(location = 2) in vec3 aColour;
uniform vec2 uPictureSize;
uniform vec2 uAtlasSize;
out vec2 vTexCoord;
out vec3 vColour;
void main() {
    vTexCoord = aTexel / uAtlasSize;
    vColour = aColour;
    gl_Position = vec4(2.0 * aPosition.x / uPictureSize.x - 1.0,
                       1.0 - 2.0 * aPosition.y / uPictureSize.y, 0.0, 1.0);
}
)";

const char* const kFragmentShader = R"(#version 330 core
in vec2 vTexCoord;
in vec3 vColour;
uniform sampler2D uAtlas;
uniform float uBrightness;
out vec4 fragColour;
void main() {
    fragColour = vec4(vColour * uBrightness, texture(uAtlas, vTexCoord).r);
}
)";

constexpr int kFloatsPerVertex = 7;
// Atlases kept at once; more sizes than this in one renderer's life start the collection afresh.
constexpr std::size_t kMaxAtlases = 4;

}  // namespace

TextPainter::TextPainter() : program_(kVertexShader, kFragmentShader) {
    glBindVertexArray(vertexArray_.name());
    glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
    setInterleavedFloatAttributes({2, 2, 3});  // position, texel, colour: kFloatsPerVertex
    glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void TextPainter::begin(int width, int height, int pixelSize) {
    width_ = width;
    height_ = height;
    quads_.clear();
    auto found = atlases_.find(pixelSize);
    if (found == atlases_.end()) {
        if (atlases_.size() >= kMaxAtlases) {
            atlases_.clear();
        }
        found = atlases_.emplace(pixelSize, std::make_unique<GlyphAtlas>(font_, pixelSize)).first;
    }
    atlas_ = found->second.get();
}

void TextPainter::addText(std::string_view text, double x, double y, Align horizontal,
                          Align vertical, const Colour& colour) {
    const GlyphAtlas& a = *atlas_;
    const double width = a.textWidth(text);
    const double shift[] = {0, 0.5, 1};
    // Whole pixels for the pen, so glyph texels land on pixels one to one.
    int penX = static_cast<int>(std::lround(x - shift[static_cast<int>(horizontal)] * width));
    const double baseline = y + (1 - shift[static_cast<int>(vertical)]) * a.capHeight();
    const int penY = static_cast<int>(std::lround(baseline));
    const Colour colours[4] = {colour, colour, colour, colour};
    for (char c : text) {
        const GlyphAtlas::Glyph& g = a.glyph(c);
        if (g.width > 0 && g.rows > 0) {
            const float left = static_cast<float>(penX + g.left);
            const float top = static_cast<float>(penY - g.top);
            const float corners[4][2] = {{left, top},
                                         {left + g.width, top},
                                         {left + g.width, top + g.rows},
                                         {left, top + g.rows}};
            const auto tx = static_cast<float>(g.x);
            const auto ty = static_cast<float>(g.y);
            const float texels[4][2] = {
                {tx, ty}, {tx + g.width, ty}, {tx + g.width, ty + g.rows}, {tx, ty + g.rows}};
            addQuad(corners, texels, colours);
        }
        penX += g.advance;
    }
}

void TextPainter::addRectangle(double left, double top, double right, double bottom,
                               const Colour& topColour, const Colour& bottomColour) {
    const auto l = static_cast<float>(left), t = static_cast<float>(top);
    const auto r = static_cast<float>(right), b = static_cast<float>(bottom);
    const float corners[4][2] = {{l, t}, {r, t}, {r, b}, {l, b}};
    const std::array<float, 2> solid = atlas_->solidTexel();
    const float texels[4][2] = {
        {solid[0], solid[1]}, {solid[0], solid[1]}, {solid[0], solid[1]}, {solid[0], solid[1]}};
    const Colour colours[4] = {topColour, topColour, bottomColour, bottomColour};
    addQuad(corners, texels, colours);
}

void TextPainter::addQuad(const float corners[4][2], const float texels[4][2],
                          const Colour colours[4]) {
    for (int corner : {0, 1, 2, 0, 2, 3}) {
        quads_.insert(quads_.end(),
                      {corners[corner][0], corners[corner][1], texels[corner][0], texels[corner][1],
                       colours[corner][0], colours[corner][1], colours[corner][2]});
    }
}

void TextPainter::draw(float brightness) {
    if (quads_.empty()) {
        return;
    }
    program_.use();
    glUniform2f(program_.uniform("uPictureSize"), static_cast<float>(width_),
                static_cast<float>(height_));
    glUniform2f(program_.uniform("uAtlasSize"), static_cast<float>(atlas_->width()),
                static_cast<float>(atlas_->height()));
    glUniform1f(program_.uniform("uBrightness"), brightness);
    glUniform1i(program_.uniform("uAtlas"), 0);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, atlas_->texture());

    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glBindVertexArray(vertexArray_.name());
    glBindBuffer(GL_ARRAY_BUFFER, vertices_.name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(quads_.size() * sizeof(float)),
                 quads_.data(), GL_STREAM_DRAW);
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(quads_.size() / kFloatsPerVertex));
    glDisable(GL_BLEND);
    glBindTexture(GL_TEXTURE_2D, 0);
    quads_.clear();
}

}  // namespace vexhost
