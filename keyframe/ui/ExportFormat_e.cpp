#include "ui/ExportFormat_e.h"

namespace vexplot {
namespace vexutiltools {

template <>
const ExportSetupTable<ExportFormat_e>& ExportSetupTable<ExportFormat_e>::instance() {
    static const ExportSetupTable<ExportFormat_e> table{
        "ExportFormat",
        {{ExportFormat_e::AVI, "AVI", "AVI", "AVI", "avi"},
         {ExportFormat_e::FLV, "FLV", "FLV", "Flash (FLV)", "flv"},
         {ExportFormat_e::Flash, "Flash", "FLASH", "Flash (SWF)", "swf"},
         {ExportFormat_e::MPEG4, "MPEG4", "MPEG4", "MPEG-4", "mp4"},
         {ExportFormat_e::RasterMetafile, "RasterMetafile", "RASTERMETAFILE", "Raster Metafile",
          "rm"},
         {ExportFormat_e::WMV, "WMV", "WMV", "WMV", "wmv"}}};
    return table;
}

std::ostream& operator<<(std::ostream& out, ExportFormat_e value) {
    return ExportSetupTable<ExportFormat_e>::instance().print(out, value, "ExportFormat_e");
}

}  // namespace vexutiltools
}  // namespace vexplot
