// The export setup as the movie writer needs it: the ("ExportSetup", ...) values at export start.
#ifndef VEXHOST_EXPORTSETTINGS_H
#define VEXHOST_EXPORTSETTINGS_H

#include <string>

namespace vexhost {

struct ExportSettings {
    int format = 21;                // VexExportFormat_e
    int region = 0;                 // VexExportRegion_e
    int imageWidth = 800;           // pixels
    double animationSpeed = 10;     // frames per second
    bool useSuperSampling = false;
    int superSampleFactor = 3;
    int flashImageType = 0;         // VexFlashImageType_e
    int flashCompressionType = 0;   // VexFlashCompressionType_e
    std::string fileName;
};

}  // namespace vexhost

#endif
