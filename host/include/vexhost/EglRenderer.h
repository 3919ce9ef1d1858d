// The host's picture maker: draws a SceneState with OpenGL 3.3 core through EGL, without a window
// or display server. Mesa's software rasteriser is used on machines without a GPU, a GPU's own EGL
// where one is present.
//
// What a picture shows:
// - every zone with scalars as a lit surface, coloured by its scalar through colourMap over
//   [scalarMin, scalarMax] (Rainbow: blue, cyan, green, yellow, red); every zone without scalars as
//   a lit surface in one light grey-blue;
// - one directional light from the viewer whose strength is lightIntensity / 100, plus an ambient
//   term of backgroundLight / 100. Unlit parts (background, axis box, ticks and labels, streamtrace
//   lines, the legend) are scaled by (lightIntensity + backgroundLight) / 100, capped at 1, so
//   lighting 0 and 0 is a black picture; the host's defaults (75 and 25) show everything at full
//   brightness;
// - the 3D frame axis when axisShow: the edges of the data bounds box, X, Y, Z axis lines in red,
//   green and blue, tick marks at round values along them, the values as text beside the ticks
//   and the axis names at the line ends;
// - a colour legend at the right edge when colourVariable is not empty and a drawn zone has
//   scalars: the map as a bar over [scalarMin, scalarMax], round values beside it, the variable's
//   name above it;
// - streamtraces as lines; with showMarkers, small cubes at timeAnchor + k * deltaTime along each
//   trace; with showDashes, only the dash intervals instead of the whole line;
// - a camera path when cameraPath is set: an amber line through the viewer's positions, an
//   arrowhead at the middle of each leg pointing the way of flight, an orange cube at each key
//   frame and its name in white above and to the right of it;
// - the caption's lines in white at the top left, on a dark band.
//
// Dense surfaces (from 50,000 triangles) are sifted before they are drawn: triangles that cover no
// pixel centre of the picture are left out, which changes no pixel (render/TriangleSieve.h) and
// spares the software rasteriser most of the work of a surface with more triangles than pixels.
//
// Deterministic: the same scene and size give the same pixels. Not thread-safe: use one renderer
// from one thread at a time. Surface buffers are kept per ZoneGeometry (by identity) while the
// geometry is alive, so drawing the same zones again uploads nothing.
//
// Pictures allocate and free megabytes each; how the C library serves that is the program's
// choice, not the renderer's (apps/support/RenderingMemory.h).
#ifndef VEXHOST_EGLRENDERER_H
#define VEXHOST_EGLRENDERER_H

#include <memory>
#include <string>

#include "vexhost/Renderer.h"

namespace vexhost {

class EglRenderer final : public Renderer {
public:
    // Starts an OpenGL context. Throws std::runtime_error naming the cause when no EGL display or
    // OpenGL 3.3 core context can be made, or naming the font file when the font for text in
    // pictures (DejaVu Sans, docs/rendering.md) cannot be opened.
    static std::unique_ptr<EglRenderer> create();

    ~EglRenderer() override;
    EglRenderer(const EglRenderer&) = delete;
    EglRenderer& operator=(const EglRenderer&) = delete;

    // width, height > 0 and supersample >= 1, or std::invalid_argument. A supersample factor that
    // would exceed the renderer's size limits is lowered to the largest that fits; a picture too
    // large even without supersampling throws std::runtime_error naming the limit.
    Image render(const SceneState& scene, int width, int height, int supersample) override;

    // On by default. Off draws every triangle, for comparing pictures and timing the sieve.
    void setTriangleSieve(bool on);
    // The zones' triangles the last picture gave the rasteriser: all of them without the sieve.
    std::size_t trianglesDrawn() const;

    // The OpenGL renderer and version, for logs ("llvmpipe (LLVM 15.0.6, 256 bits), 4.5 ...").
    std::string description() const;

private:
    struct Resources;
    explicit EglRenderer(std::unique_ptr<Resources> resources);

    std::unique_ptr<Resources> resources_;  // owns the context and every GL object
};

}  // namespace vexhost

#endif
