#include "vexhost/DataFileLoader.h"

#include <algorithm>
#include <stdexcept>

#include "vexhost/DataFileReader.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/StyleStore.h"

namespace vexhost {

LoadedData DataFileLoader::load(Host& host, const std::string& path,
                                const DataFileOptions& options) {
    Frame* frame = host.frames().active();
    if (frame == nullptr)
        throw std::logic_error("DataFileLoader::load(): there is no frame to show the data in");
    LoadedData loaded = DataFileReader::read(path, options);

    DataSet& dataSet = host.dataSet();
    dataSet.clear();
    dataSet.addZones(loaded.zones);
    for (const auto& trace : loaded.streamtraces)
        dataSet.addStreamtrace(trace);
    dataSet.setSolutionTime(loaded.times.front());
    dataSet.setColouring({loaded.colourVariable, options.colourMap});
    if (!loaded.streamtraces.empty()) {
        float longest = 0;
        for (const auto& trace : loaded.streamtraces)
            longest = std::max(longest, trace->times.back());
        host.style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
        if (longest > 0)
            host.style().setDouble({"StreamAttributes", "StreamTiming", "DeltaTime"},
                                   longest / MarkersAlongTrace);
    }
    frame->fitView(loaded.boundsMin, loaded.boundsMax);
    return loaded;
}

}  // namespace vexhost
