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

}  // namespace app
}  // namespace vexplot
