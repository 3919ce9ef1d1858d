#include "data/SampleData.h"

#include <cmath>
#include <fstream>
#include <stdexcept>
#include <vector>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCompositeDataSet.h>
#include <vtkDataObject.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkFloatArray.h>
#include <vtkGenericDataObjectWriter.h>
#include <vtkHexahedron.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkOBJWriter.h>
#include <vtkPLYWriter.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkRectilinearGrid.h>
#include <vtkSTLWriter.h>
#include <vtkStructuredGrid.h>
#include <vtkTriangleFilter.h>
#include <vtkUnstructuredGrid.h>
#include <vtkXMLImageDataWriter.h>
#include <vtkXMLMultiBlockDataWriter.h>
#include <vtkXMLPolyDataWriter.h>
#include <vtkXMLRectilinearGridWriter.h>
#include <vtkXMLStructuredGridWriter.h>
#include <vtkXMLUnstructuredGridWriter.h>
#include <vtkXMLWriter.h>

namespace vextest {
namespace {

vtkSmartPointer<vtkFloatArray> array(const char* name, int components) {
    auto out = vtkSmartPointer<vtkFloatArray>::New();
    out->SetName(name);
    out->SetNumberOfComponents(components);
    return out;
}

// Point arrays of the box at its points: temperature = x + offset, flow = (1, 0, 0.25 z).
void addBoxPointArrays(vtkDataSet& data, double offset) {
    auto temperature = array("temperature", 1);
    auto flow = array("flow", 3);
    double p[3];
    for (vtkIdType i = 0; i < data.GetNumberOfPoints(); ++i) {
        data.GetPoint(i, p);
        temperature->InsertNextValue(static_cast<float>(p[0] + offset));
        const float v[3] = {1.0f, 0.0f, static_cast<float>(0.25 * p[2])};
        flow->InsertNextTuple(v);
    }
    data.GetPointData()->AddArray(temperature);
    data.GetPointData()->AddArray(flow);
}

void addCellNumbers(vtkDataSet& data) {
    auto pressure = array("pressure", 1);
    for (vtkIdType i = 0; i < data.GetNumberOfCells(); ++i)
        pressure->InsertNextValue(static_cast<float>(i));
    data.GetCellData()->AddArray(pressure);
}

void configure(vtkXMLWriter& writer, const std::string& path, SampleData::Encoding encoding) {
    writer.SetFileName(path.c_str());
    switch (encoding) {
        case SampleData::Encoding::Ascii:
            writer.SetDataModeToAscii();
            break;
        case SampleData::Encoding::Binary:
            writer.SetDataModeToBinary();
            break;
        case SampleData::Encoding::AppendedRaw:
            writer.SetDataModeToAppended();
            writer.EncodeAppendedDataOff();
            writer.SetCompressorTypeToNone();
            break;
        case SampleData::Encoding::AppendedRawZlib:
            writer.SetDataModeToAppended();
            writer.EncodeAppendedDataOff();
            writer.SetCompressorTypeToZLib();
            break;
    }
}

template <typename Writer>
void writeWith(vtkDataObject& data, const std::string& path, SampleData::Encoding encoding) {
    vtkNew<Writer> writer;
    writer->SetInputData(&data);
    configure(*writer, path, encoding);
    if (writer->Write() != 1)
        throw std::runtime_error("SampleData: cannot write " + path);
}

template <typename Writer>
void writeSurface(vtkPolyData& surface, const std::string& path) {
    vtkNew<vtkTriangleFilter> triangles;
    triangles->SetInputData(&surface);
    triangles->Update();
    vtkNew<Writer> writer;
    writer->SetInputData(triangles->GetOutput());
    writer->SetFileName(path.c_str());
    if (writer->Write() != 1)
        throw std::runtime_error("SampleData: cannot write " + path);
}

std::string extensionOf(const std::string& path) {
    const std::size_t dot = path.find_last_of('.');
    return dot == std::string::npos ? std::string() : path.substr(dot);
}

}  // namespace

vtkSmartPointer<vtkPolyData> SampleData::plane(int n) {
    vtkNew<vtkPoints> points;
    auto temperature = array("temperature", 1);
    auto velocity = array("velocity", 3);
    for (int j = 0; j <= n; ++j) {
        for (int i = 0; i <= n; ++i) {
            const double x = static_cast<double>(i) / n, y = static_cast<double>(j) / n;
            points->InsertNextPoint(x, y, 0);
            temperature->InsertNextValue(static_cast<float>(x));
            const float v[3] = {1.0f, static_cast<float>(2 * y), 0.0f};
            velocity->InsertNextTuple(v);
        }
    }
    vtkNew<vtkCellArray> quads;
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i) {
            const vtkIdType a = j * (n + 1) + i;
            const vtkIdType quad[4] = {a, a + 1, a + n + 2, a + n + 1};
            quads->InsertNextCell(4, quad);
        }
    }
    auto out = vtkSmartPointer<vtkPolyData>::New();
    out->SetPoints(points);
    out->SetPolys(quads);
    out->GetPointData()->AddArray(temperature);
    out->GetPointData()->AddArray(velocity);
    addCellNumbers(*out);
    return out;
}

vtkSmartPointer<vtkPolyData> SampleData::terrain(int n) {
    vtkNew<vtkPoints> points;
    points->SetDataTypeToFloat();
    points->SetNumberOfPoints(static_cast<vtkIdType>(n + 1) * (n + 1));
    auto height = array("height", 1);
    height->SetNumberOfTuples(points->GetNumberOfPoints());
    vtkIdType id = 0;
    for (int j = 0; j <= n; ++j) {
        for (int i = 0; i <= n; ++i, ++id) {
            const double x = 4.0 * i / n, y = 3.0 * j / n;
            const double z =
                0.3 * std::sin(2.1 * x) * std::cos(1.7 * y) + 0.15 * std::sin(5.3 * x + 3.1 * y);
            points->SetPoint(id, x, y, z);
            height->SetValue(id, static_cast<float>(z));
        }
    }
    vtkNew<vtkCellArray> triangles;
    triangles->AllocateExact(2 * static_cast<vtkIdType>(n) * n, 6 * static_cast<vtkIdType>(n) * n);
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i) {
            const vtkIdType a = static_cast<vtkIdType>(j) * (n + 1) + i;
            const vtkIdType lower[3] = {a, a + 1, a + n + 2};
            const vtkIdType upper[3] = {a, a + n + 2, a + n + 1};
            triangles->InsertNextCell(3, lower);
            triangles->InsertNextCell(3, upper);
        }
    }
    auto out = vtkSmartPointer<vtkPolyData>::New();
    out->SetPoints(points);
    out->SetPolys(triangles);
    out->GetPointData()->AddArray(height);
    return out;
}

vtkSmartPointer<vtkUnstructuredGrid> SampleData::box(int nx, int ny, int nz) {
    vtkNew<vtkPoints> points;
    for (int k = 0; k <= nz; ++k)
        for (int j = 0; j <= ny; ++j)
            for (int i = 0; i <= nx; ++i)
                points->InsertNextPoint(2.0 * i / nx, 1.0 * j / ny, 1.0 * k / nz);
    auto out = vtkSmartPointer<vtkUnstructuredGrid>::New();
    out->SetPoints(points);
    const auto id = [&](int i, int j, int k) -> vtkIdType {
        return (static_cast<vtkIdType>(k) * (ny + 1) + j) * (nx + 1) + i;
    };
    for (int k = 0; k < nz; ++k) {
        for (int j = 0; j < ny; ++j) {
            for (int i = 0; i < nx; ++i) {
                const vtkIdType hex[8] = {id(i, j, k),
                                          id(i + 1, j, k),
                                          id(i + 1, j + 1, k),
                                          id(i, j + 1, k),
                                          id(i, j, k + 1),
                                          id(i + 1, j, k + 1),
                                          id(i + 1, j + 1, k + 1),
                                          id(i, j + 1, k + 1)};
                out->InsertNextCell(VTK_HEXAHEDRON, 8, hex);
            }
        }
    }
    addBoxPointArrays(*out, 0);
    addCellNumbers(*out);
    return out;
}

vtkSmartPointer<vtkUnstructuredGrid> SampleData::boxAt(int n, double offset) {
    vtkSmartPointer<vtkUnstructuredGrid> out = box(n, n, n);
    out->GetPointData()->RemoveArray("temperature");
    out->GetPointData()->RemoveArray("flow");
    addBoxPointArrays(*out, offset);
    return out;
}

vtkSmartPointer<vtkImageData> SampleData::boxImage(int nx, int ny, int nz) {
    auto out = vtkSmartPointer<vtkImageData>::New();
    out->SetDimensions(nx + 1, ny + 1, nz + 1);
    out->SetOrigin(0, 0, 0);
    out->SetSpacing(2.0 / nx, 1.0 / ny, 1.0 / nz);
    addBoxPointArrays(*out, 0);
    addCellNumbers(*out);
    return out;
}

void SampleData::setTime(vtkDataObject& data, double time) {
    vtkNew<vtkDoubleArray> value;
    value->SetName("TimeValue");
    value->InsertNextValue(time);
    data.GetFieldData()->AddArray(value);
}

void SampleData::writeXml(vtkDataObject& data, const std::string& path, Encoding encoding) {
    const std::string extension = extensionOf(path);
    if (extension == ".vtu")
        writeWith<vtkXMLUnstructuredGridWriter>(data, path, encoding);
    else if (extension == ".vtp")
        writeWith<vtkXMLPolyDataWriter>(data, path, encoding);
    else if (extension == ".vti")
        writeWith<vtkXMLImageDataWriter>(data, path, encoding);
    else
        throw std::invalid_argument("SampleData::writeXml(): no writer for " + path);
}

void SampleData::writeStructured(int nx, int ny, int nz, const std::string& path) {
    vtkSmartPointer<vtkImageData> image = boxImage(nx, ny, nz);
    vtkNew<vtkStructuredGrid> grid;
    vtkNew<vtkPoints> points;
    for (vtkIdType i = 0; i < image->GetNumberOfPoints(); ++i)
        points->InsertNextPoint(image->GetPoint(i));
    grid->SetDimensions(nx + 1, ny + 1, nz + 1);
    grid->SetPoints(points);
    grid->GetPointData()->ShallowCopy(image->GetPointData());
    grid->GetCellData()->ShallowCopy(image->GetCellData());
    writeWith<vtkXMLStructuredGridWriter>(*grid, path, Encoding::Binary);
}

void SampleData::writeRectilinear(int nx, int ny, int nz, const std::string& path) {
    vtkNew<vtkRectilinearGrid> grid;
    grid->SetDimensions(nx + 1, ny + 1, nz + 1);
    const int counts[3] = {nx, ny, nz};
    const double sizes[3] = {2, 1, 1};
    vtkSmartPointer<vtkDoubleArray> coordinates[3];
    for (int axis = 0; axis < 3; ++axis) {
        coordinates[axis] = vtkSmartPointer<vtkDoubleArray>::New();
        for (int i = 0; i <= counts[axis]; ++i)
            coordinates[axis]->InsertNextValue(sizes[axis] * i / counts[axis]);
    }
    grid->SetXCoordinates(coordinates[0]);
    grid->SetYCoordinates(coordinates[1]);
    grid->SetZCoordinates(coordinates[2]);
    addBoxPointArrays(*grid, 0);
    addCellNumbers(*grid);
    writeWith<vtkXMLRectilinearGridWriter>(*grid, path, Encoding::Binary);
}

void SampleData::writeMultiBlock(const std::string& path) {
    vtkNew<vtkMultiBlockDataSet> blocks;
    blocks->SetNumberOfBlocks(2);
    blocks->SetBlock(0, plane(4));
    blocks->GetMetaData(0u)->Set(vtkCompositeDataSet::NAME(), "wall");
    blocks->SetBlock(1, box(2, 2, 2));
    blocks->GetMetaData(1u)->Set(vtkCompositeDataSet::NAME(), "fluid");
    writeWith<vtkXMLMultiBlockDataWriter>(*blocks, path, Encoding::Binary);
}

void SampleData::writeLegacy(vtkDataObject& data, const std::string& path) {
    vtkNew<vtkGenericDataObjectWriter> writer;
    writer->SetInputData(&data);
    writer->SetFileName(path.c_str());
    writer->SetFileTypeToBinary();
    if (writer->Write() != 1)
        throw std::runtime_error("SampleData: cannot write " + path);
}

void SampleData::writeStl(vtkPolyData& surface, const std::string& path) {
    writeSurface<vtkSTLWriter>(surface, path);
}

void SampleData::writePly(vtkPolyData& surface, const std::string& path) {
    writeSurface<vtkPLYWriter>(surface, path);
}

void SampleData::writeObj(vtkPolyData& surface, const std::string& path) {
    writeSurface<vtkOBJWriter>(surface, path);
}

void SampleData::writePvd(const std::string& path, const std::vector<std::string>& files,
                          const std::vector<double>& times, const std::vector<int>& parts) {
    std::ofstream out(path);
    out << "<?xml version=\"1.0\"?>\n"
           "<VTKFile type=\"Collection\" version=\"0.1\" byte_order=\"LittleEndian\">\n"
           "  <Collection>\n";
    for (std::size_t i = 0; i < files.size(); ++i) {
        out << "    <DataSet timestep=\"" << times.at(i) << "\" group=\"\" part=\""
            << (parts.empty() ? 0 : parts.at(i)) << "\" file=\"" << files[i] << "\"/>\n";
    }
    out << "  </Collection>\n</VTKFile>\n";
    if (!out)
        throw std::runtime_error("SampleData: cannot write " + path);
}

}  // namespace vextest
