#include "data/SurfaceBuilder.h"

#include <cstdint>
#include <limits>
#include <string>

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkDataSetSurfaceFilter.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkTriangleFilter.h>

#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

bool onlyTriangles(vtkPolyData& data) {
    return data.GetNumberOfVerts() == 0 && data.GetNumberOfLines() == 0 &&
           data.GetNumberOfStrips() == 0 && data.GetPolys()->IsHomogeneous() == 3;
}

vtkSmartPointer<vtkPolyData> triangulatedSurface(vtkDataSet& block) {
    vtkSmartPointer<vtkPolyData> surface = vtkPolyData::SafeDownCast(&block);
    if (surface == nullptr) {
        vtkNew<vtkDataSetSurfaceFilter> outer;
        outer->SetInputData(&block);
        outer->Update();
        surface = outer->GetOutput();
    }
    if (onlyTriangles(*surface))
        return surface;
    vtkNew<vtkTriangleFilter> triangles;
    triangles->SetInputData(surface);
    triangles->PassVertsOff();
    triangles->PassLinesOff();
    triangles->Update();
    return triangles->GetOutput();
}

void copyPoints(vtkPoints& points, std::vector<float>& out) {
    const vtkIdType count = points.GetNumberOfPoints();
    out.resize(static_cast<std::size_t>(count) * 3);
    if (auto* floats = vtkFloatArray::SafeDownCast(points.GetData())) {
        const float* in = floats->GetPointer(0);
        std::copy(in, in + out.size(), out.begin());
        return;
    }
    double p[3];
    for (vtkIdType i = 0; i < count; ++i) {
        points.GetPoint(i, p);
        for (int k = 0; k < 3; ++k)
            out[3 * i + k] = static_cast<float>(p[k]);
    }
}

void copyNormals(vtkDataArray* normals, vtkIdType count, std::vector<float>& out) {
    if (normals == nullptr || normals->GetNumberOfComponents() != 3 ||
        normals->GetNumberOfTuples() != count)
        return;
    out.resize(static_cast<std::size_t>(count) * 3);
    double n[3];
    for (vtkIdType i = 0; i < count; ++i) {
        normals->GetTuple(i, n);
        for (int k = 0; k < 3; ++k)
            out[3 * i + k] = static_cast<float>(n[k]);
    }
}

// Gives every triangle three vertices of its own, carrying its cell's value.
void explode(ZoneGeometry& g, const ArrayChoice& colour, vtkDataArray& values) {
    ZoneGeometry out;
    const std::size_t triangles = g.triangleCount();
    out.positions.reserve(triangles * 9);
    if (!g.normals.empty())
        out.normals.reserve(triangles * 9);
    out.triangles.resize(triangles * 3);
    out.scalars.resize(triangles * 3);
    for (std::size_t t = 0; t < triangles; ++t) {
        const float value = static_cast<float>(colour.value(values, static_cast<long long>(t)));
        for (int corner = 0; corner < 3; ++corner) {
            const uint32_t vertex = g.triangles[3 * t + corner];
            out.positions.insert(out.positions.end(), &g.positions[3 * vertex],
                                 &g.positions[3 * vertex] + 3);
            if (!g.normals.empty())
                out.normals.insert(out.normals.end(), &g.normals[3 * vertex],
                                   &g.normals[3 * vertex] + 3);
            out.triangles[3 * t + corner] = static_cast<uint32_t>(3 * t + corner);
            out.scalars[3 * t + corner] = value;
        }
    }
    g = std::move(out);
}

}  // namespace

std::shared_ptr<const ZoneGeometry> SurfaceBuilder::build(vtkDataSet& block,
                                                          const ArrayChoice& colour,
                                                          const std::string& shownName) {
    auto geometry = std::make_shared<ZoneGeometry>();
    if (block.GetNumberOfCells() == 0)
        return geometry;
    const vtkSmartPointer<vtkPolyData> surface = triangulatedSurface(block);
    const vtkIdType points = surface->GetNumberOfPoints();
    vtkCellArray* polys = surface->GetPolys();
    if (points == 0 || polys->GetNumberOfCells() == 0)
        return geometry;
    // Cell values: three vertices per triangle.
    const vtkIdType vertexLimit = static_cast<vtkIdType>(std::numeric_limits<uint32_t>::max());
    if (points > vertexLimit || 3 * polys->GetNumberOfCells() > vertexLimit)
        throw DataFileError("Cannot show \"" + shownName + "\": a surface of " +
                            std::to_string(polys->GetNumberOfCells()) +
                            " triangles is more than the renderer draws in one zone.");

    copyPoints(*surface->GetPoints(), geometry->positions);
    copyNormals(surface->GetPointData()->GetNormals(), points, geometry->normals);
    geometry->triangles.reserve(static_cast<std::size_t>(polys->GetNumberOfCells()) * 3);
    vtkSmartPointer<vtkCellArrayIterator> cells = vtk::TakeSmartPointer(polys->NewIterator());
    for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell()) {
        vtkIdType count = 0;
        const vtkIdType* ids = nullptr;
        cells->GetCurrentCell(count, ids);
        if (count != 3)
            continue;  // a degenerate polygon the triangle filter let through
        for (int k = 0; k < 3; ++k)
            geometry->triangles.push_back(static_cast<uint32_t>(ids[k]));
    }

    if (colour.association == ArrayChoice::Association::Point) {
        if (vtkDataArray* values = colour.find(*surface)) {
            geometry->scalars.resize(static_cast<std::size_t>(points));
            for (vtkIdType i = 0; i < points; ++i)
                geometry->scalars[i] = static_cast<float>(colour.value(*values, i));
        }
    } else if (vtkDataArray* values = colour.find(*surface)) {
        if (values->GetNumberOfTuples() == polys->GetNumberOfCells() &&
            static_cast<std::size_t>(polys->GetNumberOfCells()) == geometry->triangleCount())
            explode(*geometry, colour, *values);
    }
    return geometry;
}

}  // namespace vexhost
