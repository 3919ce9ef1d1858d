// The data file formats read, one row each: the extension and how to read a file of it with VTK.
// The one table behind DataFileReader::extensions(), the unknown-extension message and reading.
#ifndef VEXHOST_DATA_DATAFORMAT_H
#define VEXHOST_DATA_DATAFORMAT_H

#include <string>
#include <vector>

#include <vtkAlgorithm.h>
#include <vtkDataObject.h>
#include <vtkSmartPointer.h>

namespace vexhost {

struct DataFormat {
    enum class Kind {
        File,        // one data set or multiblock file, read by VTK
        Collection,  // a .pvd index of files and times
    };
    const char* extension;  // lower case, with the dot
    Kind kind;
    // The VTK reader of a file of this format, set to read it; null for Kind::Collection.
    vtkSmartPointer<vtkAlgorithm> (*makeReader)(const std::string& path);

    // The format of a file name by its extension (case-insensitive); nullptr for none.
    static const DataFormat* find(const std::string& path);
    static const std::vector<DataFormat>& all();

    // Reads a file of this format (Kind::File) under a VtkErrorCapture; throws DataFileError
    // naming `shownName` with VTK's first error, or when VTK gives no data.
    vtkSmartPointer<vtkDataObject> read(const std::string& path,
                                        const std::string& shownName) const;
};

}  // namespace vexhost

#endif
