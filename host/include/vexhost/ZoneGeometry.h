// The geometry of one zone of the host's data set: a triangulated surface with one scalar value per
// vertex, which the renderer colours through the scene's colour map, or with no scalars at all,
// which the renderer draws in one lit colour. Shared, immutable once built, so that zones of many
// time steps can share one surface and the renderer can hold it across frames.
#ifndef VEXHOST_ZONEGEOMETRY_H
#define VEXHOST_ZONEGEOMETRY_H

#include <cstdint>
#include <vector>

namespace vexhost {

struct ZoneGeometry {
    std::vector<float> positions;     // x, y, z per vertex
    std::vector<float> normals;       // x, y, z per vertex (unit length), or empty: computed
    std::vector<uint32_t> triangles;  // three vertex indices per triangle
    std::vector<float> scalars;       // one per vertex, or empty: not coloured by a variable

    std::size_t vertexCount() const { return positions.size() / 3; }
    std::size_t triangleCount() const { return triangles.size() / 3; }
};

}  // namespace vexhost

#endif
