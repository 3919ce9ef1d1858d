#include "render/ZoneMeshCache.h"

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "render/VertexLayout.h"

namespace vexhost {
namespace {

constexpr int kFloatsPerVertex = 7;

void check(bool ok, const std::string& what) {
    if (!ok) {
        throw std::invalid_argument("ZoneMeshCache::mesh(): zone geometry " + what);
    }
}

void validate(const ZoneGeometry& g) {
    const std::size_t n = g.vertexCount();
    check(g.positions.size() % 3 == 0,
          "has " + std::to_string(g.positions.size()) + " position values, not a multiple of 3");
    check(g.normals.empty() || g.normals.size() == g.positions.size(),
          "has " + std::to_string(g.normals.size()) + " normal values for " + std::to_string(n) +
              " vertices");
    check(g.scalars.empty() || g.scalars.size() == n, "has " + std::to_string(g.scalars.size()) +
                                                          " scalars for " + std::to_string(n) +
                                                          " vertices");
    check(g.triangles.size() % 3 == 0,
          "has " + std::to_string(g.triangles.size()) + " triangle indices, not a multiple of 3");
    for (uint32_t index : g.triangles) {
        check(index < n, "refers to vertex " + std::to_string(index) + " of " + std::to_string(n));
    }
}

// Area-weighted vertex normals for a geometry that brings none: smooth shading over shared
// vertices, with the triangle winding giving the side (lighting is two-sided anyway).
std::vector<float> computeNormals(const ZoneGeometry& g) {
    std::vector<double> sums(g.positions.size(), 0.0);
    const float* p = g.positions.data();
    for (std::size_t t = 0; t + 2 < g.triangles.size(); t += 3) {
        const uint32_t a = g.triangles[t], b = g.triangles[t + 1], c = g.triangles[t + 2];
        const double u[3] = {p[3 * b] - p[3 * a], p[3 * b + 1] - p[3 * a + 1],
                             p[3 * b + 2] - p[3 * a + 2]};
        const double v[3] = {p[3 * c] - p[3 * a], p[3 * c + 1] - p[3 * a + 1],
                             p[3 * c + 2] - p[3 * a + 2]};
        const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                             u[0] * v[1] - u[1] * v[0]};
        for (uint32_t vertex : {a, b, c}) {
            for (int k = 0; k < 3; ++k) {
                sums[3 * vertex + k] += n[k];
            }
        }
    }
    std::vector<float> normals(sums.size(), 0.0f);
    for (std::size_t v = 0; v + 2 < sums.size(); v += 3) {
        const double length =
            std::sqrt(sums[v] * sums[v] + sums[v + 1] * sums[v + 1] + sums[v + 2] * sums[v + 2]);
        if (length > 0) {
            for (int k = 0; k < 3; ++k) {
                normals[v + k] = static_cast<float>(sums[v + k] / length);
            }
        } else {
            normals[v + 2] = 1.0f;  // a vertex of no triangle, or of degenerate ones only
        }
    }
    return normals;
}

}  // namespace

void ZoneMeshCache::prune() {
    for (auto it = meshes_.begin(); it != meshes_.end();) {
        if (it->second.source.expired()) {
            it = meshes_.erase(it);
        } else {
            ++it;
        }
    }
}

const ZoneMeshCache::Mesh& ZoneMeshCache::mesh(
    const std::shared_ptr<const ZoneGeometry>& geometry) {
    auto found = meshes_.find(geometry.get());
    if (found != meshes_.end()) {
        if (!found->second.source.expired()) {
            return found->second;
        }
        meshes_.erase(found);  // an earlier geometry at the same address, now gone
    }

    const ZoneGeometry& g = *geometry;
    validate(g);
    const std::vector<float> computed =
        g.normals.empty() ? computeNormals(g) : std::vector<float>();
    const std::vector<float>& normals = g.normals.empty() ? computed : g.normals;

    Mesh mesh;
    mesh.source = geometry;
    mesh.hasScalars = !g.scalars.empty();
    const std::size_t n = g.vertexCount();
    std::vector<float> interleaved(n * kFloatsPerVertex);
    for (std::size_t v = 0; v < n; ++v) {
        float* out = &interleaved[v * kFloatsPerVertex];
        for (int k = 0; k < 3; ++k) {
            out[k] = g.positions[3 * v + k];
            out[3 + k] = normals[3 * v + k];
        }
        out[6] = mesh.hasScalars ? g.scalars[v] : 0.0f;
        mesh.box.include(out[0], out[1], out[2]);
    }

    mesh.vertexArray = GlObject(GlObject::Kind::VertexArray);
    mesh.vertices = GlObject(GlObject::Kind::Buffer);
    mesh.indices = GlObject(GlObject::Kind::Buffer);
    glBindVertexArray(mesh.vertexArray.name());
    glBindBuffer(GL_ARRAY_BUFFER, mesh.vertices.name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(interleaved.size() * sizeof(float)),
                 interleaved.data(), GL_STATIC_DRAW);
    setInterleavedFloatAttributes({3, 3, 1});  // position, normal, scalar: kFloatsPerVertex
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.indices.name());
    glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                 static_cast<GLsizeiptr>(g.triangles.size() * sizeof(uint32_t)), g.triangles.data(),
                 GL_STATIC_DRAW);
    glBindVertexArray(0);
    mesh.indexCount = static_cast<GLsizei>(g.triangles.size());
    mesh.lastVertex = n > 0 ? static_cast<GLuint>(n - 1) : 0;

    return meshes_.emplace(geometry.get(), std::move(mesh)).first->second;
}

}  // namespace vexhost
