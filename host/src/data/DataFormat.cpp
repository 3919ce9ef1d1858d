#include "data/DataFormat.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

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

// Every VTK reader here has its own SetFileName; the generic part is the pipeline.
template <typename Reader>
vtkSmartPointer<vtkAlgorithm> readerOf(const std::string& path) {
    auto reader = vtkSmartPointer<Reader>::New();
    reader->SetFileName(path.c_str());
    return reader;
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

// The order of the extensions in messages and docs.
const std::vector<DataFormat>& DataFormat::all() {
    using Kind = DataFormat::Kind;
    static const std::vector<DataFormat> table = {
        {".vtu", Kind::File, readerOf<vtkXMLUnstructuredGridReader>},
        {".vtp", Kind::File, readerOf<vtkXMLPolyDataReader>},
        {".vts", Kind::File, readerOf<vtkXMLStructuredGridReader>},
        {".vtr", Kind::File, readerOf<vtkXMLRectilinearGridReader>},
        {".vti", Kind::File, readerOf<vtkXMLImageDataReader>},
        {".vtm", Kind::File, readerOf<vtkXMLMultiBlockDataReader>},
        {".pvd", Kind::Collection, nullptr},
        {".vtk", Kind::File, readerOf<vtkGenericDataObjectReader>},
        {".stl", Kind::File, readerOf<vtkSTLReader>},
        {".ply", Kind::File, readerOf<vtkPLYReader>},
        {".obj", Kind::File, readerOf<vtkOBJReader>},
    };
    return table;
}

const DataFormat* DataFormat::find(const std::string& path) {
    const std::string extension = lowerExtension(path);
    for (const DataFormat& format : all()) {
        if (extension == format.extension)
            return &format;
    }
    return nullptr;
}

vtkSmartPointer<vtkDataObject> DataFormat::read(const std::string& path,
                                                const std::string& shownName) const {
    if (makeReader == nullptr)
        throw std::logic_error("DataFormat::read(): " + std::string(extension) +
                               " is not read as one file");
    VtkErrorCapture capture;
    vtkSmartPointer<vtkAlgorithm> reader = makeReader(path);
    reader->Update();
    vtkSmartPointer<vtkDataObject> data = reader->GetOutputDataObject(0);
    if (capture.hasError())
        throw DataFileError("Cannot read \"" + shownName + "\": VTK says: " + capture.firstError());
    if (data == nullptr)
        throw DataFileError("Cannot read \"" + shownName + "\": VTK read no data from it.");
    return data;
}

}  // namespace vexhost
