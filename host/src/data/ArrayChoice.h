// Which array colours the surfaces, and how a tuple of it becomes one scalar: a component, or the
// magnitude of the whole tuple (the value itself for one component).
#ifndef VEXHOST_DATA_ARRAYCHOICE_H
#define VEXHOST_DATA_ARRAYCHOICE_H

#include <string>

class vtkDataArray;
class vtkDataSet;

namespace vexhost {

struct ArrayChoice {
    enum class Association { Point, Cell };
    static constexpr int Magnitude = -1;

    std::string name;  // empty: no array, one colour
    Association association = Association::Point;
    int component = Magnitude;

    // The legend's title: "p", "U magnitude", "U X" (X, Y, Z for the first three components of a
    // vector, the number from 0 otherwise).
    std::string title(int componentCount) const;

    // The array of `block` chosen by `request` (DataFileOptions::colourBy), or, for an empty
    // request, the first scalar point array, else the first scalar cell array (arrays named
    // "vtk..." are VTK's bookkeeping and left out), else none. Throws DataFileError naming
    // `shownName`
    // ("Cannot colour ... by ...") for a name no array of the block has, or a component the array
    // does not have.
    static ArrayChoice choose(vtkDataSet& block, const std::string& request,
                              const std::string& shownName);

    // The array in `block` (nullptr when the block does not have it) and one tuple's value.
    vtkDataArray* find(vtkDataSet& block) const;
    double value(vtkDataArray& array, long long tuple) const;
};

}  // namespace vexhost

#endif
