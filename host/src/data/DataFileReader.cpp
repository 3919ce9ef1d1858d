#include "vexhost/DataFileReader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <set>

#include <vtkCompositeDataIterator.h>
#include <vtkCompositeDataSet.h>
#include <vtkDataArray.h>
#include <vtkDataSet.h>
#include <vtkFieldData.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkSmartPointer.h>

#include "data/ArrayChoice.h"
#include "data/DataFormat.h"
#include "data/FileSeries.h"
#include "data/StreamtraceBuilder.h"
#include "data/SurfaceBuilder.h"
#include "vexhost/DataFileError.h"

namespace vexhost {
namespace {

struct Block {
    std::string name;  // empty for the one block of a plain data set
    vtkDataSet* data;
};

std::vector<Block> blocksOf(vtkDataObject& data) {
    std::vector<Block> blocks;
    if (auto* composite = vtkCompositeDataSet::SafeDownCast(&data)) {
        vtkSmartPointer<vtkCompositeDataIterator> it =
            vtk::TakeSmartPointer(composite->NewIterator());
        int number = 0;
        for (it->InitTraversal(); !it->IsDoneWithTraversal(); it->GoToNextItem()) {
            ++number;
            auto* set = vtkDataSet::SafeDownCast(it->GetCurrentDataObject());
            if (set == nullptr)
                continue;
            std::string name;
            if (it->HasCurrentMetaData() &&
                it->GetCurrentMetaData()->Has(vtkCompositeDataSet::NAME()))
                name = it->GetCurrentMetaData()->Get(vtkCompositeDataSet::NAME());
            blocks.push_back({name.empty() ? "block " + std::to_string(number) : name, set});
        }
    } else if (auto* set = vtkDataSet::SafeDownCast(&data)) {
        blocks.push_back({std::string(), set});
    }
    return blocks;
}

// The data's own time, as VTK's writers and readers keep it.
bool timeValue(vtkDataObject& data, double& time) {
    vtkFieldData* field = data.GetFieldData();
    vtkDataArray* array = field != nullptr ? field->GetArray("TimeValue") : nullptr;
    if (array == nullptr || array->GetNumberOfTuples() < 1)
        return false;
    time = array->GetComponent(0, 0);
    return std::isfinite(time);
}

std::string formatTime(double time) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", time);
    return text;
}

void includeBounds(LoadedData& data, const std::vector<float>& xyz, bool& any) {
    for (std::size_t i = 0; i + 2 < xyz.size(); i += 3) {
        for (int k = 0; k < 3; ++k) {
            if (!any || xyz[i + k] < data.boundsMin[k])
                data.boundsMin[k] = xyz[i + k];
            if (!any || xyz[i + k] > data.boundsMax[k])
                data.boundsMax[k] = xyz[i + k];
        }
        any = true;
    }
}

}  // namespace

std::size_t LoadedData::triangleCount() const {
    std::size_t count = 0;
    for (const Zone& zone : zones)
        count += zone.geometry != nullptr ? zone.geometry->triangleCount() : 0;
    return count;
}

std::vector<std::string> DataFileReader::extensions() {
    std::vector<std::string> out;
    for (const DataFormat& format : DataFormat::all())
        out.emplace_back(format.extension);
    return out;
}

LoadedData DataFileReader::read(const std::string& path, const DataFileOptions& options) {
    const FileSeries series = FileSeries::resolve(path);
    LoadedData loaded;
    ArrayChoice colour;
    bool colourChosen = false;
    int colourComponents = 1;
    vtkIdType cells = 0;
    std::vector<vtkSmartPointer<vtkDataObject>> firstStep;
    std::set<std::string> blockNames;

    for (std::size_t s = 0; s < series.steps.size(); ++s) {
        const FileSeries::Step& step = series.steps[s];
        double stepTime = step.time;
        bool timeKnown = step.timeFromIndex;
        // Blocks of every part of this step, in part order: a part of several blocks adds them
        // all, so strand numbers follow the leaves of the whole step.
        std::vector<Block> blocks;
        std::vector<vtkSmartPointer<vtkDataObject>> parts;
        for (const std::string& file : step.files) {
            const std::string shown = step.files.size() == 1 && !series.isSeries ? path : file;
            vtkSmartPointer<vtkDataObject> data = DataFormat::find(file)->read(file, shown);
            double own = 0;
            if (!timeKnown && timeValue(*data, own)) {
                stepTime = own;
                timeKnown = true;
            }
            for (const Block& block : blocksOf(*data))
                blocks.push_back(block);
            parts.push_back(data);
        }
        if (!series.isSeries && !timeKnown)
            stepTime = 0;

        for (std::size_t b = 0; b < blocks.size(); ++b) {
            const Block& block = blocks[b];
            cells += block.data->GetNumberOfCells();
            const std::string blockName = block.name.empty() ? series.baseName : block.name;
            blockNames.insert(blockName);
            const bool hidden = std::find(options.hiddenBlocks.begin(), options.hiddenBlocks.end(),
                                          blockName) != options.hiddenBlocks.end();
            if (!hidden && !colourChosen && block.data->GetNumberOfCells() > 0) {
                // The first shown block that has cells decides; a named array must be in it.
                colour = ArrayChoice::choose(*block.data, options.colourBy, path);
                if (vtkDataArray* array = colour.find(*block.data))
                    colourComponents = array->GetNumberOfComponents();
                colourChosen = true;
            }
            Zone zone;
            zone.name = series.baseName + (block.name.empty() ? "" : " " + block.name) +
                        (series.isSeries ? " t=" + formatTime(stepTime) : "");
            zone.solutionTime = stepTime;
            zone.strandId = series.isSeries ? static_cast<int32_t>(b + 1) : 0;
            // A hidden block keeps its place (zone numbers and strands stay those of the file)
            // but has no surface: it neither costs memory nor widens the colour range or the box.
            zone.enabled = !hidden;
            if (!hidden)
                zone.geometry = SurfaceBuilder::build(*block.data, colour, path);
            loaded.zones.push_back(std::move(zone));
        }
        if (loaded.times.empty() || loaded.times.back() != stepTime)
            loaded.times.push_back(stepTime);
        if (s == 0)
            firstStep = std::move(parts);
    }

    if (cells == 0)
        throw DataFileError("Cannot show \"" + path + "\": the data set has no cells.");
    for (const std::string& hidden : options.hiddenBlocks) {
        if (blockNames.count(hidden) == 0) {
            std::string names;
            for (const std::string& name : blockNames)
                names += (names.empty() ? "" : ", ") + name;
            throw DataFileError("Cannot hide \"" + hidden + "\" in \"" + path +
                                "\": it has no block of that name (it has " + names + ").");
        }
    }
    const bool anyShown = std::any_of(loaded.zones.begin(), loaded.zones.end(),
                                      [](const Zone& zone) { return zone.enabled; });
    if (!anyShown)
        throw DataFileError("Cannot show \"" + path + "\": every block of it is hidden.");
    if (loaded.triangleCount() == 0)
        throw DataFileError("Cannot show \"" + path +
                            "\": it has no surface or volume to draw, only points or lines.");
    std::sort(loaded.times.begin(), loaded.times.end());
    loaded.times.erase(std::unique(loaded.times.begin(), loaded.times.end()), loaded.times.end());
    if (!colour.name.empty())
        loaded.colourVariable = colour.title(colourComponents);

    if (!options.streamtraceArray.empty()) {
        // The parts of a step are traced as one data set, so a trace may cross from one to the
        // next.
        vtkSmartPointer<vtkDataObject> flow = firstStep.front();
        if (firstStep.size() > 1) {
            auto all = vtkSmartPointer<vtkMultiBlockDataSet>::New();
            for (unsigned int i = 0; i < firstStep.size(); ++i)
                all->SetBlock(i, firstStep[i]);
            flow = all;
        }
        loaded.streamtraces =
            StreamtraceBuilder::trace(*flow, options.streamtraceArray, options.seed, path);
    }

    bool any = false;
    for (const Zone& zone : loaded.zones) {
        if (zone.geometry != nullptr)
            includeBounds(loaded, zone.geometry->positions, any);
    }
    for (const auto& trace : loaded.streamtraces)
        includeBounds(loaded, trace->points, any);
    return loaded;
}

}  // namespace vexhost
