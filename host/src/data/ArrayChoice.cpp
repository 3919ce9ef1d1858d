#include "data/ArrayChoice.h"

#include <cmath>
#include <cstdlib>
#include <vector>

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkDataSet.h>
#include <vtkPointData.h>

#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

const char* const kAxisNames[] = {"X", "Y", "Z"};

vtkFieldData* arrays(vtkDataSet& block, ArrayChoice::Association association) {
    if (association == ArrayChoice::Association::Point)
        return block.GetPointData();
    return block.GetCellData();
}

// The numeric arrays of a block, point arrays first, for messages.
std::string arrayList(vtkDataSet& block) {
    std::string list;
    for (auto association : {ArrayChoice::Association::Point, ArrayChoice::Association::Cell}) {
        vtkFieldData* data = arrays(block, association);
        for (int i = 0; i < data->GetNumberOfArrays(); ++i) {
            if (data->GetArray(i) != nullptr && data->GetArrayName(i) != nullptr)
                list += (list.empty() ? "" : ", ") + std::string(data->GetArrayName(i));
        }
    }
    return list.empty() ? "it has no arrays" : "it has " + list;
}

// "X", "y", "2", "magnitude": the component a request's suffix names; false if it names none.
bool parseComponent(const std::string& text, int& component) {
    if (text == "magnitude" || text == "Magnitude") {
        component = ArrayChoice::Magnitude;
        return true;
    }
    for (int axis = 0; axis < 3; ++axis) {
        if (text.size() == 1 &&
            std::toupper(static_cast<unsigned char>(text[0])) == kAxisNames[axis][0]) {
            component = axis;
            return true;
        }
    }
    if (text.empty() || text.size() > 3 ||
        text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    component = std::atoi(text.c_str());
    return true;
}

}  // namespace

std::string ArrayChoice::title(int componentCount) const {
    if (component == Magnitude)
        return componentCount > 1 ? name + " magnitude" : name;
    if (componentCount <= 3 && component < 3)
        return name + " " + kAxisNames[component];
    return name + " " + std::to_string(component);
}

ArrayChoice ArrayChoice::choose(vtkDataSet& block, const std::string& request,
                                const std::string& shownName) {
    ArrayChoice choice;
    if (request.empty()) {
        for (auto association : {Association::Point, Association::Cell}) {
            vtkFieldData* data = arrays(block, association);
            for (int i = 0; i < data->GetNumberOfArrays(); ++i) {
                vtkDataArray* array = data->GetArray(i);
                const char* name = data->GetArrayName(i);
                if (array == nullptr || name == nullptr || std::string(name).rfind("vtk", 0) == 0 ||
                    array->GetNumberOfComponents() != 1)
                    continue;
                choice.name = name;
                choice.association = association;
                return choice;
            }
        }
        return choice;
    }

    choice.name = request;
    const std::size_t colon = request.rfind(':');
    int component = Magnitude;
    if (colon != std::string::npos && parseComponent(request.substr(colon + 1), component)) {
        choice.name = request.substr(0, colon);
        choice.component = component;
    }
    const auto cannot = [&](const std::string& what) {
        return DataFileError("Cannot colour \"" + shownName + "\" by \"" + request + "\": " + what);
    };
    for (auto association : {Association::Point, Association::Cell}) {
        vtkDataArray* array = arrays(block, association)->GetArray(choice.name.c_str());
        if (array == nullptr)
            continue;
        choice.association = association;
        if (choice.component >= array->GetNumberOfComponents())
            throw cannot("\"" + choice.name + "\" has " +
                         std::to_string(array->GetNumberOfComponents()) +
                         (array->GetNumberOfComponents() == 1 ? " component." : " components."));
        return choice;
    }
    throw cannot("no point or cell array has that name (" + arrayList(block) + ").");
}

vtkDataArray* ArrayChoice::find(vtkDataSet& block) const {
    if (name.empty())
        return nullptr;
    vtkDataArray* array = arrays(block, association)->GetArray(name.c_str());
    if (array == nullptr || (component != Magnitude && component >= array->GetNumberOfComponents()))
        return nullptr;
    return array;
}

double ArrayChoice::value(vtkDataArray& array, long long tuple) const {
    if (component != Magnitude)
        return array.GetComponent(tuple, component);
    const int count = array.GetNumberOfComponents();
    if (count == 1)
        return array.GetComponent(tuple, 0);
    double sum = 0;
    for (int c = 0; c < count; ++c) {
        const double v = array.GetComponent(tuple, c);
        sum += v * v;
    }
    return std::sqrt(sum);
}

}  // namespace vexhost
