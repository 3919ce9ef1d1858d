#include "data/DataFormat.h"

#include <algorithm>
#include <cctype>
#include <functional>

#include <vtkAlgorithm.h>
#include <vtkGenericDataObjectReader.h>
#include <vtkOBJReader.h>
#include <vtkPLYReader.h>
#include <vtkSTLReader.h>
#include <vtkXMLImageDataReader.h>
#include <vtkXMLMultiBlockDataReader.h>
#include <vtkXMLPolyDataReader.h>
#include <vtkXMLRectilinearGridReader.h>
#include <vtkXMLStructuredGridReader.h>
#include <vtkXMLUnstructuredGridReader.h>

#include "data/VtkErrorCapture.h"
#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

using ReaderFactory = std::function<vtkSmartPointer<vtkAlgorithm>(const std::string&)>;

// Every VTK reader here has its own SetFileName; the generic part is the pipeline.
template <typename Reader>
vtkSmartPointer<vtkAlgorithm> makeReader(const std::string& path) {
    auto reader = vtkSmartPointer<Reader>::New();
    reader->SetFileName(path.c_str());
    return reader;
}

struct Row {
    DataFormat format;
    ReaderFactory factory;
};

// The order of the extensions in messages and docs.
const std::vector<Row>& rows() {
    using Kind = DataFormat::Kind;
    static const std::vector<Row> table = {
        {{".vtu", Kind::File, "VTK XML unstructured grid"},
         makeReader<vtkXMLUnstructuredGridReader>},
        {{".vtp", Kind::File, "VTK XML polygonal data"}, makeReader<vtkXMLPolyDataReader>},
        {{".vts", Kind::File, "VTK XML structured grid"}, makeReader<vtkXMLStructuredGridReader>},
        {{".vtr", Kind::File, "VTK XML rectilinear grid"}, makeReader<vtkXMLRectilinearGridReader>},
        {{".vti", Kind::File, "VTK XML image data"}, makeReader<vtkXMLImageDataReader>},
        {{".vtm", Kind::File, "VTK XML multiblock"}, makeReader<vtkXMLMultiBlockDataReader>},
        {{".pvd", Kind::Collection, "VTK data collection (time series)"}, nullptr},
        {{".vtk", Kind::File, "VTK legacy"}, makeReader<vtkGenericDataObjectReader>},
        {{".stl", Kind::File, "STL surface"}, makeReader<vtkSTLReader>},
        {{".ply", Kind::File, "PLY surface"}, makeReader<vtkPLYReader>},
        {{".obj", Kind::File, "Wavefront OBJ surface"}, makeReader<vtkOBJReader>},
    };
    return table;
}

std::string lowerExtension(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    const std::size_t dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
        return std::string();
    std::string extension = path.substr(dot);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

}  // namespace

const DataFormat* DataFormat::find(const std::string& path) {
    const std::string extension = lowerExtension(path);
    for (const Row& row : rows()) {
        if (extension == row.format.extension)
            return &row.format;
    }
    return nullptr;
}

const std::vector<DataFormat>& DataFormat::all() {
    static const std::vector<DataFormat> formats = [] {
        std::vector<DataFormat> out;
        for (const Row& row : rows())
            out.push_back(row.format);
        return out;
    }();
    return formats;
}

vtkSmartPointer<vtkDataObject> DataFormat::read(const std::string& path,
                                                const std::string& shownName) const {
    const auto row = std::find_if(rows().begin(), rows().end(), [this](const Row& r) {
        return std::string(r.format.extension) == extension;
    });
    if (row == rows().end() || !row->factory)
        throw std::logic_error("DataFormat::read(): " + std::string(extension) +
                               " is not read as one file");
    VtkErrorCapture capture;
    vtkSmartPointer<vtkAlgorithm> reader = row->factory(path);
    reader->Update();
    vtkSmartPointer<vtkDataObject> data = reader->GetOutputDataObject(0);
    if (capture.hasError())
        throw DataFileError("Cannot read \"" + shownName + "\": VTK says: " + capture.firstError());
    if (data == nullptr)
        throw DataFileError("Cannot read \"" + shownName + "\": VTK read no data from it.");
    return data;
}

}  // namespace vexhost
