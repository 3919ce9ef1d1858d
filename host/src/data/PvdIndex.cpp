#include "data/PvdIndex.h"

#include <cmath>
#include <cstdlib>

#include <vtkNew.h>
#include <vtkXMLDataElement.h>
#include <vtkXMLDataParser.h>

#include "data/VtkErrorCapture.h"
#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

bool parseNumber(const char* text, double& value) {
    if (text == nullptr || *text == '\0')
        return false;
    char* end = nullptr;
    value = std::strtod(text, &end);
    while (*end == ' ' || *end == '\t')
        ++end;
    return *end == '\0' && std::isfinite(value);
}

}  // namespace

PvdIndex PvdIndex::read(const std::string& path, const std::string& shownName) {
    const auto fail = [&shownName](const std::string& what) {
        return DataFileError("Cannot read \"" + shownName + "\": " + what);
    };
    VtkErrorCapture capture;
    vtkNew<vtkXMLDataParser> parser;
    parser->SetFileName(path.c_str());
    if (parser->Parse() == 0 || capture.hasError()) {
        const std::string why = capture.firstError();
        throw fail(why.empty() ? "it is not XML." : "VTK says: " + why);
    }
    vtkXMLDataElement* root = parser->GetRootElement();
    const char* type = root != nullptr ? root->GetAttribute("type") : nullptr;
    if (root == nullptr || std::string(root->GetName()) != "VTKFile" || type == nullptr ||
        std::string(type) != "Collection")
        throw fail("it is not a VTKFile of type \"Collection\".");
    vtkXMLDataElement* collection = root->FindNestedElementWithName("Collection");
    if (collection == nullptr)
        throw fail("it has no Collection element.");

    PvdIndex index;
    for (int i = 0; i < collection->GetNumberOfNestedElements(); ++i) {
        vtkXMLDataElement* element = collection->GetNestedElement(i);
        if (std::string(element->GetName()) != "DataSet")
            continue;
        Entry entry;
        const char* file = element->GetAttribute("file");
        if (file == nullptr || *file == '\0')
            throw fail("DataSet " + std::to_string(index.entries.size() + 1) + " names no file.");
        entry.file = file;
        const char* timestep = element->GetAttribute("timestep");
        if (timestep != nullptr && !parseNumber(timestep, entry.time))
            throw fail("the timestep \"" + std::string(timestep) + "\" of \"" + entry.file +
                       "\" is not a number.");
        double part = 0;
        const char* partText = element->GetAttribute("part");
        if (partText != nullptr &&
            (!parseNumber(partText, part) || part < 0 || part != std::floor(part) || part > 1e6))
            throw fail("the part \"" + std::string(partText) + "\" of \"" + entry.file +
                       "\" is not a part number.");
        entry.part = static_cast<int>(part);
        index.entries.push_back(std::move(entry));
    }
    if (index.entries.empty())
        throw fail("its collection names no data set.");
    return index;
}

}  // namespace vexhost
