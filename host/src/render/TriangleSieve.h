// Sifts out, before drawing, the triangles of a dense surface that cannot make a single fragment.
//
// A software rasteriser pays for every triangle it is given (vertex shading, clipping, set-up and
// binning on the calling thread), whether or not the triangle covers a pixel. A surface of a
// million triangles drawn at 1280 x 720 has more triangles than covered pixels, and most of them
// fall between pixel centres. A triangle makes a fragment only where it covers a pixel centre, so
// one whose bounding box in the picture holds no pixel centre (inside the picture) makes none:
// drawing only the others gives the same pixels, in the same order, for a fraction of the work.
//
// The test is conservative on purpose:
// - the box is widened by kMargin pixels, more than the rasteriser's snapping of vertices to its
//   sub-pixel grid and the rounding of the vertex shader and of this class together, so a
//   triangle that would make a fragment is never dropped; precise() says whether a surface's
//   coordinates and the camera keep that rounding within the margin (data far from the origin
//   seen close up may not: such a surface is drawn whole);
// - a triangle with a vertex outside the clip volume (behind the viewer, beyond the depth planes,
//   or not finite) is always kept, and left to OpenGL's clipping.
// Triangles kept may still make no fragment; that only costs time.
//
// Vertices are projected once each, then triangles are tested, both spread over the machine's
// cores; the result keeps the input order, so depth ties resolve as without the sieve.
#ifndef VEXHOST_RENDER_TRIANGLESIEVE_H
#define VEXHOST_RENDER_TRIANGLESIEVE_H

#include <array>
#include <cstdint>
#include <vector>

#include "render/BoundingBox.h"

namespace vexhost {

class TriangleSieve {
public:
    static constexpr float kMargin = 1.0f / 32.0f;

    // Sets the picture the next sifts are for: the column-major model-view and projection
    // matrices the vertex shader applies, and the size of the picture drawn in pixels (the
    // supersampled size).
    void aim(const std::array<float, 16>& modelView, const std::array<float, 16>& projection,
             int width, int height);

    // Whether the rounding of vertices within box stays well inside kMargin for this picture.
    bool precise(const BoundingBox& box) const;

    // The vertex indices (three per triangle, in input order) of the triangles that may cover a
    // pixel centre. positions: x, y, z per vertex; triangles: indices into it, all in range. The
    // result is written into kept (its capacity is reused).
    void sift(const std::vector<float>& positions, const std::vector<uint32_t>& triangles,
              std::vector<uint32_t>& kept);

private:
    void projectVertices(const float* positions, std::size_t first, std::size_t last);
    void siftTriangles(const uint32_t* triangles, std::size_t first, std::size_t last,
                       std::vector<uint32_t>& kept) const;

    std::array<float, 16> modelView_{};
    std::array<float, 16> projection_{};
    float width_ = 0;
    float height_ = 0;
    // Both kept from picture to picture, so a flight allocates them once:
    // per vertex, x and y in pixels of the picture, or NaN for a vertex outside the clip volume;
    std::vector<float> window_;
    // each worker's kept indices but the last's, joined in order.
    std::vector<std::vector<uint32_t>> parts_;
};

}  // namespace vexhost

#endif
