#include "data/StreamtraceBuilder.h"

#include <cmath>

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkCellDataToPointData.h>
#include <vtkCompositeDataIterator.h>
#include <vtkCompositeDataSet.h>
#include <vtkDataArray.h>
#include <vtkDataSet.h>
#include <vtkLineSource.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkStreamTracer.h>

#include "data/VtkErrorCapture.h"
#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

// The leaf data sets of the data, or the data itself.
std::vector<vtkDataSet*> leaves(vtkDataObject& data) {
    std::vector<vtkDataSet*> out;
    if (auto* composite = vtkCompositeDataSet::SafeDownCast(&data)) {
        vtkSmartPointer<vtkCompositeDataIterator> it =
            vtk::TakeSmartPointer(composite->NewIterator());
        for (it->InitTraversal(); !it->IsDoneWithTraversal(); it->GoToNextItem()) {
            if (auto* set = vtkDataSet::SafeDownCast(it->GetCurrentDataObject()))
                out.push_back(set);
        }
    } else if (auto* set = vtkDataSet::SafeDownCast(&data)) {
        out.push_back(set);
    }
    return out;
}

vtkSmartPointer<vtkAlgorithm> seedSource(const DataFileOptions::Seed& seed) {
    if (seed.kind == DataFileOptions::Seed::Kind::Line) {
        auto line = vtkSmartPointer<vtkLineSource>::New();
        line->SetPoint1(seed.start[0], seed.start[1], seed.start[2]);
        line->SetPoint2(seed.end[0], seed.end[1], seed.end[2]);
        line->SetResolution(std::max(1, seed.count - 1));
        return line;
    }
    auto plane = vtkSmartPointer<vtkPlaneSource>::New();
    plane->SetOrigin(seed.start[0], seed.start[1], seed.start[2]);
    plane->SetPoint1(seed.end[0], seed.end[1], seed.end[2]);
    plane->SetPoint2(seed.across[0], seed.across[1], seed.across[2]);
    plane->SetResolution(std::max(1, seed.count - 1), std::max(1, seed.countAcross - 1));
    return plane;
}

}  // namespace

std::vector<std::shared_ptr<const Streamtrace>> StreamtraceBuilder::trace(
    vtkDataObject& data, const std::string& arrayName, const DataFileOptions::Seed& seed,
    const std::string& shownName) {
    const auto cannot = [&](const std::string& what) {
        return DataFileError("Cannot trace streams in \"" + shownName + "\" along \"" + arrayName +
                             "\": " + what);
    };
    bool onPoints = false, onCells = false;
    double diagonal = 0;
    // Only the blocks that carry the flow are traced through: VTK's tracer gives up on a
    // multiblock as soon as one block lacks the array (a wall beside the fluid, say).
    auto carriers = vtkSmartPointer<vtkMultiBlockDataSet>::New();
    for (vtkDataSet* set : leaves(data)) {
        vtkDataArray* array = set->GetPointData()->GetArray(arrayName.c_str());
        vtkDataArray* cellArray = set->GetCellData()->GetArray(arrayName.c_str());
        for (vtkDataArray* found : {array, cellArray}) {
            if (found != nullptr && found->GetNumberOfComponents() != 3)
                throw cannot(
                    "it is not a vector array (it has " +
                    std::to_string(found->GetNumberOfComponents()) +
                    (found->GetNumberOfComponents() == 1 ? " component)." : " components)."));
        }
        onPoints = onPoints || array != nullptr;
        onCells = onCells || cellArray != nullptr;
        if (array != nullptr || cellArray != nullptr) {
            carriers->SetBlock(carriers->GetNumberOfBlocks(), set);
            diagonal = std::max(diagonal, set->GetLength());
        }
    }
    if (!onPoints && !onCells)
        throw cannot("the data has no point or cell array of that name.");

    VtkErrorCapture capture;
    vtkNew<vtkStreamTracer> tracer;
    vtkNew<vtkCellDataToPointData> toPoints;
    vtkDataObject* flow = carriers->GetNumberOfBlocks() == 1 ? carriers->GetBlock(0) : carriers;
    if (onPoints) {
        tracer->SetInputData(flow);
    } else {
        toPoints->SetInputData(flow);
        toPoints->PassCellDataOff();
        tracer->SetInputConnection(toPoints->GetOutputPort());
    }
    tracer->SetSourceConnection(seedSource(seed)->GetOutputPort());
    tracer->SetInputArrayToProcess(0, 0, 0, vtkDataObject::FIELD_ASSOCIATION_POINTS,
                                   arrayName.c_str());
    tracer->SetIntegratorTypeToRungeKutta45();
    tracer->SetIntegrationDirectionToForward();
    tracer->SetIntegrationStepUnit(vtkStreamTracer::CELL_LENGTH_UNIT);
    tracer->SetInitialIntegrationStep(0.2);
    tracer->SetMinimumIntegrationStep(0.01);
    tracer->SetMaximumIntegrationStep(0.5);
    tracer->SetMaximumNumberOfSteps(4000);
    tracer->SetMaximumPropagation(4 * diagonal);
    tracer->SetComputeVorticity(false);
    tracer->Update();
    if (capture.hasError())
        throw cannot("VTK says: " + capture.firstError());

    vtkPolyData* lines = tracer->GetOutput();
    vtkDataArray* times = lines->GetPointData()->GetArray("IntegrationTime");
    std::vector<std::shared_ptr<const Streamtrace>> traces;
    if (times != nullptr) {
        vtkSmartPointer<vtkCellArrayIterator> cells =
            vtk::TakeSmartPointer(lines->GetLines()->NewIterator());
        for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell()) {
            vtkIdType count = 0;
            const vtkIdType* ids = nullptr;
            cells->GetCurrentCell(count, ids);
            if (count < 2)
                continue;
            auto trace = std::make_shared<Streamtrace>();
            double p[3];
            for (vtkIdType i = 0; i < count; ++i) {
                lines->GetPoint(ids[i], p);
                trace->points.insert(
                    trace->points.end(),
                    {static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])});
                trace->times.push_back(static_cast<float>(times->GetComponent(ids[i], 0)));
            }
            traces.push_back(std::move(trace));
        }
    }
    if (traces.empty())
        throw cannot("no streamtrace leaves the seed (does it lie inside the data?).");
    return traces;
}

}  // namespace vexhost
