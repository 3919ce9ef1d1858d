#include "RunScene.h"

#include "DemoScene.h"
#include "vexhost/DataFileLoader.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"

namespace vexplot {
namespace app {

void RunScene::show(vexhost::Host& host, const RunOptions& options) {
    vexhost::Frame& frame = host.frames().create(VexPlotType_Cartesian3D);
    frame.setPosAndSize(vexhost::Frame::DefaultX, vexhost::Frame::DefaultY,
                        options.width / vexhost::FrameStack::PixelsPerInch,
                        options.height / vexhost::FrameStack::PixelsPerInch);
    if (options.data == RunOptions::Data::Demo) {
        DemoScene::load(host, options.demoTriangles);
        host.dataSet().setColouring({std::string(), options.dataOptions.colourMap});
    }
    if (options.data == RunOptions::Data::File)
        vexhost::DataFileLoader::load(host, options.dataPath, options.dataOptions);
}

std::vector<std::string> RunScene::arguments(const RunOptions& options) {
    std::vector<std::string> arguments = {"--data",
                                          options.data == RunOptions::Data::File ? options.dataPath
                                          : options.data == RunOptions::Data::None ? "none"
                                                                                   : "demo"};
    for (const std::string& block : options.dataOptions.hiddenBlocks)
        arguments.insert(arguments.end(), {"--hide-block", block});
    arguments.insert(arguments.end(), {"--size", std::to_string(options.width) + "x" +
                                                     std::to_string(options.height)});
    if (!options.addOnPath.empty())
        arguments.insert(arguments.end(), {"--addon", options.addOnPath});
    return arguments;
}

}  // namespace app
}  // namespace vexplot
