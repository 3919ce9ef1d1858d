// One block of a data file as the host draws it: its outer surface (volumes through VTK's
// vtkDataSetSurfaceFilter; polygonal data as it is), triangulated (vtkTriangleFilter, skipped when
// every cell is a triangle already), with the block's point normals where it has them (otherwise
// the renderer computes smooth ones) and one scalar per vertex from the chosen array. For a cell
// array each triangle gets three vertices of its own, so it is drawn in its cell's one colour.
#ifndef VEXHOST_DATA_SURFACEBUILDER_H
#define VEXHOST_DATA_SURFACEBUILDER_H

#include <memory>

#include "data/ArrayChoice.h"
#include "vexhost/ZoneGeometry.h"

class vtkDataSet;

namespace vexhost {

class SurfaceBuilder {
public:
    // Empty triangles when the block has no surface (points or lines only, or no cells). Throws
    // DataFileError naming `shownName` for a surface of more vertices than the renderer indexes.
    static std::shared_ptr<const ZoneGeometry> build(vtkDataSet& block, const ArrayChoice& colour,
                                                     const std::string& shownName);
};

}  // namespace vexhost

#endif
