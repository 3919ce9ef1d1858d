// The GPU copies of zone surfaces, one per ZoneGeometry, kept while the geometry is alive.
//
// A geometry is immutable once shared, so its identity is its content: drawing the same zones
// again uploads nothing. Entries whose geometry has been released are dropped at the next
// prune(); until then a stale entry cannot be confused with a new geometry at the same address,
// because lookups check that the remembered geometry is still alive.
#ifndef VEXHOST_RENDER_ZONEMESHCACHE_H
#define VEXHOST_RENDER_ZONEMESHCACHE_H

#include <memory>
#include <unordered_map>

#include "render/BoundingBox.h"
#include "render/GlObject.h"
#include "vexhost/ZoneGeometry.h"

namespace vexhost {

class ZoneMeshCache {
public:
    struct Mesh {
        std::weak_ptr<const ZoneGeometry> source;
        GlObject vertexArray;
        GlObject vertices;  // interleaved position, normal, scalar (0 without scalars)
        GlObject indices;
        GLsizei indexCount = 0;
        GLuint lastVertex = 0;  // the highest vertex index, so drawing need not look for it
        BoundingBox box;
        bool hasScalars = false;  // false: drawn in one colour, not through the colour map
    };

    // Drops the meshes of geometries that no longer exist.
    void prune();
    // The mesh of a geometry, uploaded on first use. Throws std::invalid_argument naming the fault
    // for a geometry whose arrays do not fit together (sizes, indices out of range); no scalars at
    // all is a geometry of its own kind, not a fault.
    const Mesh& mesh(const std::shared_ptr<const ZoneGeometry>& geometry);
    std::size_t size() const { return meshes_.size(); }

private:
    std::unordered_map<const ZoneGeometry*, Mesh> meshes_;
};

}  // namespace vexhost

#endif
