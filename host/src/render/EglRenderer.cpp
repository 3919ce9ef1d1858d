#include "vexhost/EglRenderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "render/BoundingBox.h"
#include "render/CameraPathMarks.h"
#include "render/ColourLegend.h"
#include "render/EglContext.h"
#include "render/FrameAxis.h"
#include "render/GlFramebuffer.h"
#include "render/GlObject.h"
#include "render/GlProgram.h"
#include "render/SceneCamera.h"
#include "render/StreamtraceMarks.h"
#include "render/TextPainter.h"
#include "render/TriangleSieve.h"
#include "render/VertexLayout.h"
#include "render/ZoneMeshCache.h"
#include "vexhost/ColourMap.h"

namespace vexhost {
namespace {

// Lit surfaces: zones coloured by their scalar, zones without scalars and marker cubes in one
// colour (instanced: the cube is scaled by uScale and moved by the per-instance aOffset). The light
// is worked out per vertex and the colour map per fragment, so colour bands stay sharp on coarse
// surfaces while the rasteriser interpolates two values only: with dense surfaces of small
// triangles, interpolation and shading are much of the cost of a picture.
//
// Two-sided diffuse lighting from a light at the viewer (the +z direction in eye space) plus an
// ambient term. vPosition is the position in the scalar range (the middle for a range of no width);
// the fragment clamps it to the range and looks the colour up in the map's texture.
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
out float vPosition;
void main() {
    vec4 eye = uModelView * vec4(aPosition * uScale + aOffset, 1.0);
    vec3 normal = mat3(uModelView) * aNormal;
    float len = length(normal);
    vLight = uAmbient + uDiffuse * (len > 0.0 ? abs(normal.z) / len : 1.0);
    float range = uScalarMax - uScalarMin;
    vPosition = range > 0.0 ? (aScalar - uScalarMin) / range : 0.5;
    gl_Position = uProjection * eye;
}
)";

// The texture's texels are the map at 0, 1 / (n - 1), ..., 1: position t is at texel t * (n - 1),
// whose centre is (t * (n - 1) + 0.5) / n in texture coordinates.
const char* const kLitFragmentShader = R"(#version 330 core
in float vLight;
in float vPosition;
uniform bool uColourByScalar;
uniform vec3 uColour;
uniform sampler1D uColourMap;
uniform float uColourMapTexels;
out vec4 fragColour;
void main() {
    float t = clamp(vPosition, 0.0, 1.0);
    vec3 base = uColourByScalar
        ? texture(uColourMap, (t * (uColourMapTexels - 1.0) + 0.5) / uColourMapTexels).rgb
        : uColour;
    fragColour = vec4(base * vLight, 1.0);
}
)";

// Unlit lines (axis box, axis lines and ticks, streamtraces), dimmed with the scene's lighting.
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
constexpr float kStreamtraceColour[3] = {0.92f, 0.92f, 0.92f};
constexpr float kMarkerColour[3] = {1.0f, 0.35f, 0.85f};
// A camera path: an amber line, key frames as orange cubes, their names in white.
constexpr float kPathColour[3] = {1.0f, 0.78f, 0.2f};
constexpr float kKeyFrameColour[3] = {1.0f, 0.5f, 0.1f};
constexpr TextPainter::Colour kKeyFrameNameColour = {1.0f, 1.0f, 1.0f};
// A caption's band: darker than the background, so white text stands out over any surface.
constexpr TextPainter::Colour kCaptionBand = {0.02f, 0.02f, 0.03f};
// Arrowheads on a camera path, as a share of the diagonal of everything drawn.
constexpr double kPathArrowLength = 0.035;
// Key frame marks are larger than streamtrace markers, so they stand out on the path.
constexpr double kKeyFrameMarkSize = 0.025;
// Zones without scalars: a light grey-blue that reads as a surface under any lighting and stands
// apart from every colour map's ends.
constexpr float kPlainSurfaceColour[3] = {0.72f, 0.77f, 0.85f};
// Texels of the colour map texture: one more than a power of two, so every control point at a
// multiple of 1/1024 (all of Rainbow's and CoolWarm's) falls on a texel centre and is drawn
// exactly.
constexpr int kColourMapTexels = 1025;
// Text height in pixels as a share of the picture height, and the smallest that stays legible.
constexpr double kTextHeight = 0.025;
constexpr int kMinTextPixels = 11;
// Marker cube edge, as a share of the data bounds' diagonal: visible at every zoom that shows the
// whole data set, small enough not to hide the surface.
constexpr double kMarkerSize = 0.012;
// Supersampling is lowered until the drawn picture has at most this many pixels (256 MB of colour
// and 256 MB of depth): a larger factor would cost more memory than it adds.
constexpr double kMaxSupersampledPixels = 64.0 * 1024 * 1024;
// Surfaces of fewer triangles are drawn whole: the sieve could save little on them.
constexpr std::size_t kMinSiftedTriangles = 50000;

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
    GlObject colourMapTexture{GlObject::Kind::Texture};
    ColourMap mapInTexture = ColourMap::Rainbow;  // what colourMapTexture holds
    TextPainter text;
    TriangleSieve sieve;
    bool sieveOn = true;
    std::size_t trianglesDrawn = 0;  // in the last picture's surfaces
    std::vector<uint32_t> sifted;    // the triangles of one surface the sieve kept
    GlObject siftedIndices{GlObject::Kind::Buffer};
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
        setInterleavedFloatAttributes({3, 3});  // position, normal
        glBindBuffer(GL_ARRAY_BUFFER, markerOffsets.name());
        glEnableVertexAttribArray(3);
        glVertexAttribPointer(3, 3, GL_FLOAT, GL_FALSE, 3 * sizeof(float), nullptr);
        glVertexAttribDivisor(3, 1);

        glBindVertexArray(lineArray.name());
        glBindBuffer(GL_ARRAY_BUFFER, lineVertices.name());
        setInterleavedFloatAttributes({3, 3});  // position, colour
        glBindVertexArray(0);
        glBindBuffer(GL_ARRAY_BUFFER, 0);

        glBindTexture(GL_TEXTURE_1D, colourMapTexture.name());
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        loadColourMap(mapInTexture);

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

    // The map's colours, sampled at texel centres, in full float precision: the texture's linear
    // filtering then gives the map's own linear interpolation between control points on texels.
    void loadColourMap(ColourMap map) {
        std::vector<float> texels;
        texels.reserve(3 * kColourMapTexels);
        for (int i = 0; i < kColourMapTexels; ++i) {
            const std::array<float, 3> colour =
                colourMapColour(map, static_cast<double>(i) / (kColourMapTexels - 1));
            texels.insert(texels.end(), colour.begin(), colour.end());
        }
        glBindTexture(GL_TEXTURE_1D, colourMapTexture.name());
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB32F, kColourMapTexels, 0, GL_RGB, GL_FLOAT,
                     texels.data());
        mapInTexture = map;
    }

    // What one picture draws, gathered before any drawing.
    struct DrawList {
        BoundingBox dataBox;  // the scene's data bounds, for the axis box
        BoundingBox reach;    // everything that could be drawn, for the depth planes
        std::vector<const ZoneMeshCache::Mesh*> surfaces;
        std::vector<const ZoneGeometry*> geometries;  // of the surfaces, alive with the scene
        bool anyScalars = false;                      // a surface is coloured through the map
        std::vector<float> lines;  // x, y, z, r, g, b per vertex: streamtraces first, then the axis
        GLsizei thickVertices = 0;   // the first lines, drawn wider: streamtraces and a camera path
        std::vector<float> markers;  // x, y, z per marker
        std::vector<float> keyFrameMarks;  // x, y, z per key frame of a camera path
        const CameraPath* cameraPath = nullptr;
        std::optional<FrameAxis> axis;  // for its labels, when shown
    };

    DrawList gather(const SceneState& scene);
    void draw(const SceneState& scene, int width, int height, int factor);
    void drawSurfaces(const DrawList& list, const SceneCamera& camera, int width, int height);
    void addCameraPath(const SceneState& scene, DrawList& list);
    void drawMarkers(const std::vector<float>& markers, const float colour[3], double size,
                     const DrawList& list);
    void addKeyFrameNames(const DrawList& list, const SceneCamera& camera, int width, int height);
    void addCaption(const std::vector<std::string>& lines, int width);
    void drawLines(const DrawList& list, int factor);
    void addAxisLabels(const DrawList& list, const SceneCamera& camera, int width, int height);
    Image downsample(int width, int height, int factor) const;
};

std::unique_ptr<EglRenderer> EglRenderer::create() {
    return std::unique_ptr<EglRenderer>(new EglRenderer(std::make_unique<Resources>()));
}

EglRenderer::EglRenderer(std::unique_ptr<Resources> resources) : resources_(std::move(resources)) {}

EglRenderer::~EglRenderer() = default;

void EglRenderer::setTriangleSieve(bool on) {
    resources_->sieveOn = on;
}

std::size_t EglRenderer::trianglesDrawn() const {
    return resources_->trianglesDrawn;
}

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
    FrameAxis axis(list.dataBox);
    list.reach = axis.reach();

    meshes.prune();
    for (const auto& zone : scene.zones) {
        if (!zone) {
            throw std::invalid_argument("EglRenderer::render(): a zone without geometry");
        }
        list.surfaces.push_back(&meshes.mesh(zone));
        list.geometries.push_back(zone.get());
        list.reach.include(list.surfaces.back()->box);
        list.anyScalars = list.anyScalars || list.surfaces.back()->hasScalars;
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
    if (scene.cameraPath) {
        addCameraPath(scene, list);
    }
    list.thickVertices = static_cast<GLsizei>(list.lines.size() / 6);
    if (scene.axisShow) {
        list.lines.insert(list.lines.end(), axis.lines().begin(), axis.lines().end());
        list.axis = std::move(axis);
    }
    return list;
}

void EglRenderer::Resources::draw(const SceneState& scene, int width, int height, int factor) {
    trianglesDrawn = 0;
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
    if (scene.colourMap != mapInTexture) {
        loadColourMap(scene.colourMap);
    }
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_1D, colourMapTexture.name());
    glUniform1i(lit.uniform("uColourMap"), 0);
    glUniform1f(lit.uniform("uColourMapTexels"), static_cast<float>(kColourMapTexels));
    drawSurfaces(list, camera, width * factor, height * factor);
    drawMarkers(list.markers, kMarkerColour, kMarkerSize, list);
    drawMarkers(list.keyFrameMarks, kKeyFrameColour, kKeyFrameMarkSize, list);
    glBindTexture(GL_TEXTURE_1D, 0);

    lines.use();
    setMatrices(lines, camera);
    glUniform1f(lines.uniform("uBrightness"), brightness);
    drawLines(list, factor);

    // Text follows the picture's height, and the supersample factor like line widths do.
    const int drawnWidth = width * factor;
    const int drawnHeight = height * factor;
    const int textPixels =
        factor * std::max(kMinTextPixels, static_cast<int>(std::lround(kTextHeight * height)));
    text.begin(drawnWidth, drawnHeight, textPixels);
    addAxisLabels(list, camera, drawnWidth, drawnHeight);
    addKeyFrameNames(list, camera, drawnWidth, drawnHeight);
    if (!scene.colourVariable.empty() && list.anyScalars) {
        const ColourLegend legend{scene.colourVariable, scene.colourMap, scene.scalarMin,
                                  scene.scalarMax};
        legend.paint(text, drawnWidth, drawnHeight);
    }
    addCaption(scene.caption, drawnWidth);
    text.draw(brightness);
    glBindVertexArray(0);
}

void EglRenderer::Resources::drawSurfaces(const DrawList& list, const SceneCamera& camera,
                                          int width, int height) {
    // Surfaces are pushed back a little, so lines lying on them win the depth test.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 1.0f);
    glUniform3fv(lit.uniform("uColour"), 1, kPlainSurfaceColour);
    glUniform1f(lit.uniform("uScale"), 1.0f);
    glVertexAttrib3f(3, 0, 0, 0);  // zones have no per-instance offset
    sieve.aim(camera.modelView(), camera.projection(), width, height);
    for (std::size_t i = 0; i < list.surfaces.size(); ++i) {
        const ZoneMeshCache::Mesh* mesh = list.surfaces[i];
        const ZoneGeometry& geometry = *list.geometries[i];
        glUniform1i(lit.uniform("uColourByScalar"), mesh->hasScalars ? 1 : 0);
        glBindVertexArray(mesh->vertexArray.name());
        if (!sieveOn || geometry.triangleCount() < kMinSiftedTriangles ||
            !sieve.precise(mesh->box)) {
            glDrawRangeElements(GL_TRIANGLES, 0, mesh->lastVertex, mesh->indexCount,
                                GL_UNSIGNED_INT, nullptr);
            trianglesDrawn += geometry.triangleCount();
            continue;
        }
        sieve.sift(geometry.positions, geometry.triangles, sifted);
        // The vertex array keeps its own index buffer; the sifted one stands in for one draw.
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, siftedIndices.name());
        glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                     static_cast<GLsizeiptr>(sifted.size() * sizeof(uint32_t)), sifted.data(),
                     GL_STREAM_DRAW);
        glDrawRangeElements(GL_TRIANGLES, 0, mesh->lastVertex, static_cast<GLsizei>(sifted.size()),
                            GL_UNSIGNED_INT, nullptr);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh->indices.name());
        trianglesDrawn += sifted.size() / 3;
    }
    glDisable(GL_POLYGON_OFFSET_FILL);
}

void EglRenderer::Resources::addCameraPath(const SceneState& scene, DrawList& list) {
    const CameraPath& path = *scene.cameraPath;
    for (std::size_t i = 0; i + 2 < path.positions.size(); i += 3) {
        list.reach.include(path.positions[i], path.positions[i + 1], path.positions[i + 2]);
    }
    const std::array<double, 3> look = SceneCamera::lookDirection(scene.camera);
    const CameraPathMarks marks(path, look.data(), kPathArrowLength * list.reach.diagonal());
    for (std::size_t i = 0; i + 2 < marks.segments().size(); i += 3) {
        list.lines.insert(list.lines.end(), marks.segments().begin() + i,
                          marks.segments().begin() + i + 3);
        list.lines.insert(list.lines.end(), kPathColour, kPathColour + 3);
    }
    list.keyFrameMarks = marks.keyFrameMarks();
    list.cameraPath = &path;
}

void EglRenderer::Resources::drawMarkers(const std::vector<float>& markers, const float colour[3],
                                         double size, const DrawList& list) {
    if (markers.empty()) {
        return;
    }
    const double diagonal =
        list.dataBox.diagonal() > 0 ? list.dataBox.diagonal() : list.reach.diagonal();
    glUniform1i(lit.uniform("uColourByScalar"), 0);
    glUniform3fv(lit.uniform("uColour"), 1, colour);
    glUniform1f(lit.uniform("uScale"), static_cast<float>(size * diagonal));
    glBindVertexArray(cubeArray.name());
    glBindBuffer(GL_ARRAY_BUFFER, markerOffsets.name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(markers.size() * sizeof(float)),
                 markers.data(), GL_STREAM_DRAW);
    glDrawArraysInstanced(GL_TRIANGLES, 0, 36, static_cast<GLsizei>(markers.size() / 3));
}

void EglRenderer::Resources::addKeyFrameNames(const DrawList& list, const SceneCamera& camera,
                                              int width, int height) {
    if (!list.cameraPath) {
        return;
    }
    const CameraPath& path = *list.cameraPath;
    const double gap = 0.6 * text.atlas().pixelSize();
    // Key frames at one place (a pause) have their names one under the other.
    std::vector<std::array<double, 2>> named;
    for (const CameraPath::KeyFrame& key : path.keyFrames) {
        if (key.frame >= path.frameCount() || key.name.empty()) {
            continue;
        }
        double xy[2];
        if (!camera.project(&path.positions[3 * key.frame], xy[0], xy[1])) {
            continue;
        }
        std::array<double, 2> at = {(xy[0] + 1) / 2 * width + gap, (1 - xy[1]) / 2 * height - gap};
        for (const std::array<double, 2>& other : named) {
            if (std::fabs(other[0] - at[0]) < gap && std::fabs(other[1] - at[1]) < gap) {
                at[1] = other[1] + 1.4 * text.atlas().pixelSize();
            }
        }
        named.push_back(at);
        text.addText(key.name, at[0], at[1], TextPainter::Align::Start, TextPainter::Align::End,
                     kKeyFrameNameColour);
    }
}

void EglRenderer::Resources::addCaption(const std::vector<std::string>& lines, int width) {
    if (lines.empty()) {
        return;
    }
    const GlyphAtlas& atlas = text.atlas();
    const double pad = 0.5 * atlas.pixelSize();
    const double lineHeight = 1.4 * atlas.pixelSize();
    double widest = 0;
    for (const std::string& line : lines) {
        widest = std::max(widest, static_cast<double>(atlas.textWidth(line)));
    }
    const double right = std::min(static_cast<double>(width), widest + 2 * pad);
    text.addRectangle(0, 0, right, lineHeight * static_cast<double>(lines.size()) + pad,
                      kCaptionBand, kCaptionBand);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text.addText(lines[i], pad, pad + lineHeight * (static_cast<double>(i) + 0.5),
                     TextPainter::Align::Start, TextPainter::Align::Centre, kKeyFrameNameColour);
    }
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
    glDrawArrays(GL_LINES, 0, list.thickVertices);
    glLineWidth(std::min(maxLineWidth, 1.0f * factor));
    glDrawArrays(GL_LINES, list.thickVertices, total - list.thickVertices);
}

void EglRenderer::Resources::addAxisLabels(const DrawList& list, const SceneCamera& camera,
                                           int width, int height) {
    if (!list.axis) {
        return;
    }
    const FrameAxis& axis = *list.axis;
    const GlyphAtlas& atlas = text.atlas();
    const double gap = 0.4 * atlas.pixelSize();
    // Where a point lands, in pixels from the top left.
    const auto toPixels = [&](const FrameAxis::Point& p, double xy[2]) {
        if (!camera.project(p.data(), xy[0], xy[1])) {
            return false;
        }
        xy[0] = (xy[0] + 1) / 2 * width;
        xy[1] = (1 - xy[1]) / 2 * height;
        return true;
    };
    // A direction on screen, or the fallback for one seen end-on.
    const auto unit = [](const double from[2], const double to[2], double fallbackX,
                         double fallbackY, double u[2]) {
        const double length = std::hypot(to[0] - from[0], to[1] - from[1]);
        u[0] = length < 0.5 ? fallbackX : (to[0] - from[0]) / length;
        u[1] = length < 0.5 ? fallbackY : (to[1] - from[1]) / length;
        return length >= 0.5;
    };

    struct Box {
        const FrameAxis::Label* label;
        double x, y, halfWidth, halfHeight;  // middle and half sizes, in pixels
        bool overlaps(const Box& other, double margin) const {
            return std::fabs(x - other.x) < halfWidth + other.halfWidth + margin &&
                   std::fabs(y - other.y) < halfHeight + other.halfHeight + margin;
        }
    };
    // The text's box moved from `at` along u until it keeps `gap` clear of the point.
    const auto placeBeyond = [&](const FrameAxis::Label& label, const double at[2],
                                 const double u[2]) {
        Box box{&label, 0, 0, atlas.textWidth(label.text) / 2.0, atlas.capHeight() / 2.0};
        const double reach =
            gap + std::fabs(u[0]) * box.halfWidth + std::fabs(u[1]) * box.halfHeight;
        box.x = at[0] + u[0] * reach;
        box.y = at[1] + u[1] * reach;
        return box;
    };

    std::vector<Box> placed;
    double lineDirections[3][2];
    bool lineVisible[3];
    double corner[2];
    const bool cornerShown = toPixels(axis.corner(), corner);
    for (int a = 0; a < 3; ++a) {
        double end[2];
        lineVisible[a] = cornerShown && toPixels(axis.end(a), end) &&
                         unit(corner, end, -M_SQRT1_2, M_SQRT1_2, lineDirections[a]);
    }
    // Names first, beyond their lines' ends: they are never left out.
    for (const FrameAxis::Label& label : axis.labels()) {
        double end[2];
        if (label.name && cornerShown && toPixels(label.to, end)) {
            placed.push_back(placeBeyond(label, end, lineDirections[label.axis]));
        }
    }
    // Values beside their ticks, clear of the axis line: offset across the line on the tick's side.
    // An axis seen (nearly) end-on would pile its values up, and shows none; a value that would
    // cover the text of another axis (near the corner where the lines meet) is left out.
    for (int a = 0; a < 3; ++a) {
        if (!lineVisible[a]) {
            continue;
        }
        std::vector<Box> values;
        for (const FrameAxis::Label& label : axis.labels()) {
            double base[2], tip[2], tick[2];
            if (label.name || label.axis != a || !toPixels(label.from, base) ||
                !toPixels(label.to, tip)) {
                continue;
            }
            double across[2] = {-lineDirections[a][1], lineDirections[a][0]};
            unit(base, tip, -M_SQRT1_2, M_SQRT1_2, tick);
            if (across[0] * tick[0] + across[1] * tick[1] < 0) {
                across[0] = -across[0];
                across[1] = -across[1];
            }
            values.push_back(placeBeyond(label, tip, across));
        }
        bool crowded = false;
        for (std::size_t i = 1; i < values.size(); ++i) {
            crowded = crowded || values[i].overlaps(values[i - 1], gap / 2);
        }
        const std::size_t others = placed.size();
        for (const Box& value : crowded ? std::vector<Box>() : values) {
            if (std::none_of(placed.begin(), placed.begin() + static_cast<std::ptrdiff_t>(others),
                             [&](const Box& other) { return value.overlaps(other, gap / 2); })) {
                placed.push_back(value);
            }
        }
    }
    for (const Box& box : placed) {
        text.addText(box.label->text, box.x, box.y, TextPainter::Align::Centre,
                     TextPainter::Align::Centre, box.label->colour);
    }
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
