#include "vexhost/EglRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "render/BoundingBox.h"
#include "render/EglContext.h"
#include "render/GlFramebuffer.h"
#include "render/GlObject.h"
#include "render/GlProgram.h"
#include "render/SceneCamera.h"
#include "render/StreamtraceMarks.h"
#include "render/ZoneMeshCache.h"

namespace vexhost {
namespace {

// Lit surfaces: zones coloured by their scalar, and marker cubes in one colour (instanced: the cube
// is scaled by uScale and moved by the per-instance aOffset). The light is worked out per vertex
// and the colour map per fragment, so colour bands stay sharp on coarse surfaces while the
// rasteriser interpolates two values only: with dense surfaces of small triangles, interpolation
// and shading are much of the cost of a picture.
//
// Two-sided diffuse lighting from a light at the viewer (the +z direction in eye space) plus an
// ambient term. The colour map runs blue, cyan, green, yellow, red over the scalar range; vLevel is
// 4 * the position in the range, and the colour write clamps what lies outside it.
const char* const kLitVertexShader = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec3 aNormal;
layout(location = 2) in float aScalar;
layout(location = 3) in vec3 aOffset;
uniform mat4 uModelView;
uniform mat4 uProjection;
uniform float uScale;
uniform float uAmbient;
uniform float uDiffuse;
uniform float uScalarMin;
uniform float uScalarMax;
out float vLight;
out float vLevel;
void main() {
    vec4 eye = uModelView * vec4(aPosition * uScale + aOffset, 1.0);
    vec3 normal = mat3(uModelView) * aNormal;
    float len = length(normal);
    vLight = uAmbient + uDiffuse * (len > 0.0 ? abs(normal.z) / len : 1.0);
    float range = uScalarMax - uScalarMin;
    vLevel = range > 0.0 ? 4.0 * (aScalar - uScalarMin) / range : 2.0;
    gl_Position = uProjection * eye;
}
)";

const char* const kLitFragmentShader = R"(#version 330 core
in float vLight;
in float vLevel;
uniform bool uColourByScalar;
uniform vec3 uColour;
out vec4 fragColour;
void main() {
    // Piecewise linear through blue, cyan, green, yellow and red at levels 0 to 4. Negative
    // components (levels outside 0..4) are written as 0; the cap at 1 keeps the end colours.
    float x = vLevel;
    vec3 base = uColourByScalar ? min(vec3(x - 2.0, min(x, 4.0 - x), 2.0 - x), 1.0) : uColour;
    fragColour = vec4(base * vLight, 1.0);
}
)";

// Unlit lines (axis box, axis lines, streamtraces), dimmed with the scene's lighting.
const char* const kLineVertexShader = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
layout(location = 1) in vec3 aColour;
uniform mat4 uModelView;
uniform mat4 uProjection;
out vec3 vColour;
void main() {
    vColour = aColour;
    gl_Position = uProjection * (uModelView * vec4(aPosition, 1.0));
}
)";

const char* const kLineFragmentShader = R"(#version 330 core
in vec3 vColour;
uniform float uBrightness;
out vec4 fragColour;
void main() {
    fragColour = vec4(vColour * uBrightness, 1.0);
}
)";

constexpr float kBackground[3] = {0.08f, 0.09f, 0.12f};
constexpr float kBoxColour[3] = {0.7f, 0.7f, 0.7f};
constexpr float kAxisColours[3][3] = {{0.9f, 0.2f, 0.2f}, {0.2f, 0.85f, 0.2f}, {0.3f, 0.45f, 1.0f}};
constexpr float kStreamtraceColour[3] = {0.92f, 0.92f, 0.92f};
constexpr float kMarkerColour[3] = {1.0f, 0.35f, 0.85f};
// Marker cube edge, as a share of the data bounds' diagonal: visible at every zoom that shows the
// whole data set, small enough not to hide the surface.
constexpr double kMarkerSize = 0.012;
// Axis lines run this far past the data box, so they stand out from the box edges.
constexpr double kAxisOvershoot = 0.15;
// Supersampling is lowered until the drawn picture has at most this many pixels (256 MB of colour
// and 256 MB of depth): a larger factor would cost more memory than it adds.
constexpr double kMaxSupersampledPixels = 64.0 * 1024 * 1024;

double lightingValue(double value) {
    return std::isfinite(value) ? std::clamp(value, 0.0, 100.0) / 100.0 : 0.0;
}

// A unit cube around the origin: 36 vertices of position and normal.
std::vector<float> unitCube() {
    std::vector<float> out;
    for (int axis = 0; axis < 3; ++axis) {
        for (int side = -1; side <= 1; side += 2) {
            const int u = (axis + 1) % 3;
            const int v = (axis + 2) % 3;
            const float corners[6][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, -1}, {1, 1}, {-1, 1}};
            for (const auto& c : corners) {
                float p[3] = {0, 0, 0};
                p[axis] = 0.5f * side;
                p[u] = 0.5f * c[0];
                p[v] = 0.5f * c[1];
                float n[3] = {0, 0, 0};
                n[axis] = static_cast<float>(side);
                out.insert(out.end(), {p[0], p[1], p[2], n[0], n[1], n[2]});
            }
        }
    }
    return out;
}

void addLine(std::vector<float>& lines, const double a[3], const double b[3],
             const float colour[3]) {
    lines.insert(lines.end(), {static_cast<float>(a[0]), static_cast<float>(a[1]),
                               static_cast<float>(a[2]), colour[0], colour[1], colour[2],
                               static_cast<float>(b[0]), static_cast<float>(b[1]),
                               static_cast<float>(b[2]), colour[0], colour[1], colour[2]});
}

// The end of the axis line along the given axis: past the data box, so it stands out from the
// box edges.
void axisEnd(const BoundingBox& box, int axis, double end[3]) {
    const double extent = box.max[axis] - box.min[axis];
    end[0] = box.min[0];
    end[1] = box.min[1];
    end[2] = box.min[2];
    end[axis] += extent > 0 ? extent * (1 + kAxisOvershoot) : 0.1 * box.diagonal();
}

// The edges of the data box, except the three at the minimum corner, where the axis lines run.
void addAxis(std::vector<float>& lines, const BoundingBox& box) {
    for (int axis = 0; axis < 3; ++axis) {
        const int u = (axis + 1) % 3;
        const int v = (axis + 2) % 3;
        for (int corner = 1; corner < 4; ++corner) {
            double a[3];
            a[axis] = box.min[axis];
            a[u] = (corner & 1) ? box.max[u] : box.min[u];
            a[v] = (corner & 2) ? box.max[v] : box.min[v];
            double b[3] = {a[0], a[1], a[2]};
            b[axis] = box.max[axis];
            addLine(lines, a, b, kBoxColour);
        }
        double end[3];
        axisEnd(box, axis, end);
        addLine(lines, box.min, end, kAxisColours[axis]);
    }
}

void setMatrices(const GlProgram& program, const SceneCamera& camera) {
    glUniformMatrix4fv(program.uniform("uModelView"), 1, GL_FALSE, camera.modelView().data());
    glUniformMatrix4fv(program.uniform("uProjection"), 1, GL_FALSE, camera.projection().data());
}

}  // namespace

struct EglRenderer::Resources {
    EglContext context;  // first: made before and dropped after every GL object below
    GlProgram lit{kLitVertexShader, kLitFragmentShader};
    GlProgram lines{kLineVertexShader, kLineFragmentShader};
    GlFramebuffer framebuffer;
    ZoneMeshCache meshes;
    GlObject cubeArray{GlObject::Kind::VertexArray};
    GlObject cubeVertices{GlObject::Kind::Buffer};
    GlObject markerOffsets{GlObject::Kind::Buffer};
    GlObject lineArray{GlObject::Kind::VertexArray};
    GlObject lineVertices{GlObject::Kind::Buffer};
    GLint maxSize = 0;
    float maxLineWidth = 1;
    std::vector<uint8_t> readback;

    Resources() {
        GLint renderbuffer = 0;
        GLint viewport[2] = {0, 0};
        glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
        glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
        maxSize = std::min({renderbuffer, viewport[0], viewport[1]});
        GLfloat widths[2] = {1, 1};
        glGetFloatv(GL_ALIASED_LINE_WIDTH_RANGE, widths);
        maxLineWidth = std::max(1.0f, widths[1]);

        const std::vector<float> cube = unitCube();
        glBindVertexArray(cubeArray.name());
        glBindBuffer(GL_ARRAY_BUFFER, cubeVertices.name());
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(cube.size() * sizeof(float)),
                     cube.data(), GL_STATIC_DRAW);
        glEnableVertexAttribArray(0);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 6 * sizeof(float), nullptr);
        glEnableVertexAttribArray(1);
        glVertexAttribPointer(1, 3, GL_FLOAT, GL_FALSE, 6 * sizeof(float),
                              reinterpret_cast<const void*>(3 * sizeof(float)));
        glBindBuffer(GL_ARRAY_BUFFER, markerOffsets.name());
        glEnableVertexAttribArray(3);
        glVertexAttribPointer(3, 3, GL_FLOAT, GL_FALSE, 3 * sizeof(float), nullptr);
        glVertexAttribDivisor(3, 1);

        glBindVertexArray(lineArray.name());
        glBindBuffer(GL_ARRAY_BUFFER, lineVertices.name());
        glEnableVertexAttribArray(0);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 6 * sizeof(float), nullptr);
        glEnableVertexAttribArray(1);
        glVertexAttribPointer(1, 3, GL_FLOAT, GL_FALSE, 6 * sizeof(float),
                              reinterpret_cast<const void*>(3 * sizeof(float)));
        glBindVertexArray(0);
        glBindBuffer(GL_ARRAY_BUFFER, 0);

        const GLenum error = glGetError();
        if (error != GL_NO_ERROR) {
            throw std::runtime_error("Cannot set up OpenGL drawing (OpenGL error " +
                                     std::to_string(error) + ")");
        }
    }

    ~Resources() {
        try {
            context.makeCurrent();  // the GL objects below must go while their context is current
        } catch (const std::exception&) {
            // Nothing better to do: the context goes with everything in it.
        }
    }

    int supersampleThatFits(int width, int height, int requested) const {
        int factor = requested;
        while (factor > 1 &&
               (static_cast<long long>(width) * factor > maxSize ||
                static_cast<long long>(height) * factor > maxSize ||
                static_cast<double>(width) * factor * height * factor > kMaxSupersampledPixels)) {
            --factor;
        }
        return factor;
    }

    // What one picture draws, gathered before any drawing.
    struct DrawList {
        BoundingBox dataBox;  // the scene's data bounds, for the axis box
        BoundingBox reach;    // everything that could be drawn, for the depth planes
        std::vector<const ZoneMeshCache::Mesh*> surfaces;
        std::vector<float> lines;  // x, y, z, r, g, b per vertex: streamtraces first, then the axis
        GLsizei streamtraceVertices = 0;
        std::vector<float> markers;  // x, y, z per marker
    };

    DrawList gather(const SceneState& scene);
    void draw(const SceneState& scene, int width, int height, int factor);
    void drawSurfaces(const DrawList& list);
    void drawMarkers(const DrawList& list);
    void drawLines(const DrawList& list, int factor);
    Image downsample(int width, int height, int factor) const;
};

std::unique_ptr<EglRenderer> EglRenderer::create() {
    return std::unique_ptr<EglRenderer>(new EglRenderer(std::make_unique<Resources>()));
}

EglRenderer::EglRenderer(std::unique_ptr<Resources> resources) : resources_(std::move(resources)) {}

EglRenderer::~EglRenderer() = default;

std::string EglRenderer::description() const {
    return resources_->context.description();
}

Image EglRenderer::render(const SceneState& scene, int width, int height, int supersample) {
    if (width <= 0 || height <= 0 || supersample < 1) {
        throw std::invalid_argument("EglRenderer::render(): size " + std::to_string(width) + " x " +
                                    std::to_string(height) + " with supersample factor " +
                                    std::to_string(supersample));
    }
    Resources& r = *resources_;
    r.context.makeCurrent();
    if (width > r.maxSize || height > r.maxSize) {
        throw std::runtime_error("A picture of " + std::to_string(width) + " x " +
                                 std::to_string(height) +
                                 " pixels is larger than the renderer's "
                                 "limit of " +
                                 std::to_string(r.maxSize) + " pixels per side");
    }
    const int factor = r.supersampleThatFits(width, height, supersample);
    r.framebuffer.bind(width * factor, height * factor);
    r.draw(scene, width, height, factor);
    r.framebuffer.read(r.readback);
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        throw std::runtime_error("Drawing the picture failed (OpenGL error " +
                                 std::to_string(error) + ")");
    }
    return r.downsample(width, height, factor);
}

EglRenderer::Resources::DrawList EglRenderer::Resources::gather(const SceneState& scene) {
    DrawList list;
    list.dataBox.include(scene.boundsMin[0], scene.boundsMin[1], scene.boundsMin[2]);
    list.dataBox.include(scene.boundsMax[0], scene.boundsMax[1], scene.boundsMax[2]);
    // Depth planes come from everything that could be drawn, the axis included whether shown or
    // not: hiding the axis or the markers then changes no other pixel.
    list.reach = list.dataBox;
    for (int axis = 0; axis < 3 && !list.dataBox.empty; ++axis) {
        double end[3];
        axisEnd(list.dataBox, axis, end);
        list.reach.include(end[0], end[1], end[2]);
    }

    meshes.prune();
    for (const auto& zone : scene.zones) {
        if (!zone) {
            throw std::invalid_argument("EglRenderer::render(): a zone without geometry");
        }
        list.surfaces.push_back(&meshes.mesh(zone));
        list.reach.include(list.surfaces.back()->box);
    }

    const StreamtraceTiming timing{scene.timeAnchor, scene.deltaTime, scene.showMarkers,
                                   scene.showDashes};
    for (const auto& trace : scene.streamtraces) {
        if (!trace) {
            throw std::invalid_argument("EglRenderer::render(): a streamtrace without points");
        }
        const StreamtraceMarks marks(*trace, timing);
        for (std::size_t i = 0; i + 2 < trace->points.size(); i += 3) {
            list.reach.include(trace->points[i], trace->points[i + 1], trace->points[i + 2]);
        }
        for (std::size_t i = 0; i + 2 < marks.segments().size(); i += 3) {
            list.lines.insert(list.lines.end(), marks.segments().begin() + i,
                              marks.segments().begin() + i + 3);
            list.lines.insert(list.lines.end(), kStreamtraceColour, kStreamtraceColour + 3);
        }
        const std::size_t room = 3 * StreamtraceMarks::kMaxMarks - list.markers.size();
        list.markers.insert(list.markers.end(), marks.markers().begin(),
                            marks.markers().begin() + static_cast<std::ptrdiff_t>(
                                                          std::min(room, marks.markers().size())));
    }
    list.streamtraceVertices = static_cast<GLsizei>(list.lines.size() / 6);
    if (scene.axisShow && !list.dataBox.empty) {
        addAxis(list.lines, list.dataBox);
    }
    return list;
}

void EglRenderer::Resources::draw(const SceneState& scene, int width, int height, int factor) {
    const double ambient = lightingValue(scene.backgroundLight);
    const double diffuse = lightingValue(scene.lightIntensity);
    // Unlit parts follow the overall light, so a fade to no light ends in a black picture.
    const float brightness = static_cast<float>(std::min(1.0, ambient + diffuse));

    glClearColor(kBackground[0] * brightness, kBackground[1] * brightness,
                 kBackground[2] * brightness, 1.0f);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

    const DrawList list = gather(scene);
    const SceneCamera camera(scene.camera, list.reach, width, height);
    if (!camera.usable()) {
        return;
    }
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDisable(GL_CULL_FACE);

    lit.use();
    setMatrices(lit, camera);
    glUniform1f(lit.uniform("uAmbient"), static_cast<float>(ambient));
    glUniform1f(lit.uniform("uDiffuse"), static_cast<float>(diffuse));
    glUniform1f(lit.uniform("uScalarMin"), scene.scalarMin);
    glUniform1f(lit.uniform("uScalarMax"), scene.scalarMax);
    drawSurfaces(list);
    drawMarkers(list);

    lines.use();
    setMatrices(lines, camera);
    glUniform1f(lines.uniform("uBrightness"), brightness);
    drawLines(list, factor);
    glBindVertexArray(0);
}

void EglRenderer::Resources::drawSurfaces(const DrawList& list) {
    // Surfaces are pushed back a little, so lines lying on them win the depth test.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    glUniform1i(lit.uniform("uColourByScalar"), 1);
    glUniform1f(lit.uniform("uScale"), 1.0f);
    glVertexAttrib3f(3, 0, 0, 0);  // zones have no per-instance offset
    for (const ZoneMeshCache::Mesh* mesh : list.surfaces) {
        glBindVertexArray(mesh->vertexArray.name());
        glDrawRangeElements(GL_TRIANGLES, 0, mesh->lastVertex, mesh->indexCount, GL_UNSIGNED_INT,
                            nullptr);
    }
    glDisable(GL_POLYGON_OFFSET_FILL);
}

void EglRenderer::Resources::drawMarkers(const DrawList& list) {
    if (list.markers.empty()) {
        return;
    }
    const double diagonal =
        list.dataBox.diagonal() > 0 ? list.dataBox.diagonal() : list.reach.diagonal();
    glUniform1i(lit.uniform("uColourByScalar"), 0);
    glUniform3fv(lit.uniform("uColour"), 1, kMarkerColour);
    glUniform1f(lit.uniform("uScale"), static_cast<float>(kMarkerSize * diagonal));
    glBindVertexArray(cubeArray.name());
    glBindBuffer(GL_ARRAY_BUFFER, markerOffsets.name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(list.markers.size() * sizeof(float)),
                 list.markers.data(), GL_STREAM_DRAW);
    glDrawArraysInstanced(GL_TRIANGLES, 0, 36, static_cast<GLsizei>(list.markers.size() / 3));
}

void EglRenderer::Resources::drawLines(const DrawList& list, int factor) {
    if (list.lines.empty()) {
        return;
    }
    glBindVertexArray(lineArray.name());
    glBindBuffer(GL_ARRAY_BUFFER, lineVertices.name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(list.lines.size() * sizeof(float)),
                 list.lines.data(), GL_STREAM_DRAW);
    // Widths grow with the supersample factor, so lines keep their weight once filtered down.
    const auto total = static_cast<GLsizei>(list.lines.size() / 6);
    glLineWidth(std::min(maxLineWidth, 2.0f * factor));
    glDrawArrays(GL_LINES, 0, list.streamtraceVertices);
    glLineWidth(std::min(maxLineWidth, 1.0f * factor));
    glDrawArrays(GL_LINES, list.streamtraceVertices, total - list.streamtraceVertices);
}

Image EglRenderer::Resources::downsample(int width, int height, int factor) const {
    Image image;
    image.width = width;
    image.height = height;
    image.rgb.resize(static_cast<std::size_t>(width) * height * 3);
    const std::size_t sourceRow = static_cast<std::size_t>(width) * factor * 4;
    const int rows = height * factor;
    if (factor == 1) {
        // The common case, once per exported frame, on the drawing thread that the export waits
        // for: each pixel is moved as one 4-byte word whose fourth byte the next pixel overwrites,
        // a third of the stores of copying byte by byte. The row's last pixel is copied exactly.
        for (int y = 0; y < height; ++y) {
            const uint8_t* in = &readback[static_cast<std::size_t>(rows - 1 - y) * sourceRow];
            uint8_t* out = &image.rgb[static_cast<std::size_t>(y) * width * 3];
            for (int x = 0; x + 1 < width; ++x) {
                std::memcpy(out + 3 * x, in + 4 * x, 4);
            }
            std::memcpy(out + 3 * (width - 1), in + 4 * (width - 1), 3);
        }
        return image;
    }
    const unsigned samples = static_cast<unsigned>(factor * factor);
    for (int y = 0; y < height; ++y) {
        uint8_t* out = &image.rgb[static_cast<std::size_t>(y) * width * 3];
        // OpenGL keeps rows bottom-up; pictures are top-down.
        const int firstRow = rows - 1 - y * factor;
        for (int x = 0; x < width; ++x) {
            unsigned sum[3] = {0, 0, 0};
            for (int j = 0; j < factor; ++j) {
                const uint8_t* in = &readback[static_cast<std::size_t>(firstRow - j) * sourceRow +
                                              static_cast<std::size_t>(x) * factor * 4];
                for (int i = 0; i < factor; ++i) {
                    sum[0] += in[4 * i];
                    sum[1] += in[4 * i + 1];
                    sum[2] += in[4 * i + 2];
                }
            }
            for (int c = 0; c < 3; ++c) {
                out[3 * x + c] = static_cast<uint8_t>((sum[c] + samples / 2) / samples);
            }
        }
    }
    return image;
}

}  // namespace vexhost
