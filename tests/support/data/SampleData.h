// vextest::SampleData: small data sets written with VTK's own writers, for the tests of reading
// data files (and the benchmarks). Every data set is known exactly, so a test can say what the
// host must make of it:
// - a plane: the unit square [0, 1] x [0, 1] at z = 0 as n x n quads (2 n^2 triangles), with
//   point arrays "temperature" = x (scalar) and "velocity" = (1, 2y, 0), and the cell array
//   "pressure" = the cell's number;
// - a box: [0, 2] x [0, 1] x [0, 1] as nx x ny x nz hexahedra, point arrays "temperature" = x and
//   "flow" = (1, 0, 0.25 z) (a uniform stream along x), the cell array "pressure" = cell number;
//   its outer surface has 4 (nx ny + ny nz + nz nx) triangles.
// - a terrain: a rolling height field over [0, 4] x [0, 3] as 2 n^2 triangles (written as
//   triangles, as large meshes come from a mesher), with the point scalar "height";
// Each can carry a "TimeValue" as VTK keeps a data set's time.
#ifndef VEXTEST_SAMPLEDATA_H
#define VEXTEST_SAMPLEDATA_H

#include <string>
#include <vector>

#include <vtkSmartPointer.h>

class vtkDataObject;
class vtkImageData;
class vtkPolyData;
class vtkUnstructuredGrid;

namespace vextest {

class SampleData {
public:
    enum class Encoding { Ascii, Binary, AppendedRaw, AppendedRawZlib };

    static vtkSmartPointer<vtkPolyData> plane(int n);
    static vtkSmartPointer<vtkUnstructuredGrid> box(int nx, int ny, int nz);
    static vtkSmartPointer<vtkPolyData> terrain(int n);
    // The box as image data (same points, arrays and surface).
    static vtkSmartPointer<vtkImageData> boxImage(int nx, int ny, int nz);
    // Adds the data set's own time ("TimeValue" field data).
    static void setTime(vtkDataObject& data, double time);
    // A box whose "temperature" is shifted by `offset` (to tell time steps apart).
    static vtkSmartPointer<vtkUnstructuredGrid> boxAt(int n, double offset);

    // Writers, chosen by the file's extension for the XML ones: .vtu .vtp .vts .vtr .vti.
    // Structured and rectilinear grids and image data are written from the box's shape.
    static void writeXml(vtkDataObject& data, const std::string& path,
                         Encoding encoding = Encoding::Binary);
    static void writeStructured(int nx, int ny, int nz, const std::string& path);   // .vts
    static void writeRectilinear(int nx, int ny, int nz, const std::string& path);  // .vtr
    // Two blocks, named "wall" (a plane) and "fluid" (a box), as a .vtm with its files.
    static void writeMultiBlock(const std::string& path);
    static void writeLegacy(vtkDataObject& data, const std::string& path);  // .vtk
    static void writeStl(vtkPolyData& surface, const std::string& path);
    static void writePly(vtkPolyData& surface, const std::string& path);
    static void writeObj(vtkPolyData& surface, const std::string& path);
    // A .pvd naming `files` (relative to it) at `times`, with their parts.
    static void writePvd(const std::string& path, const std::vector<std::string>& files,
                         const std::vector<double>& times, const std::vector<int>& parts = {});
};

}  // namespace vextest

#endif
