// Printers for the SDK's and the host's enumerations, so a failed comparison shows
// "VexSetValue_InvalidValue" rather than 3.
#ifndef VEXTEST_SDKPRINTERS_H
#define VEXTEST_SDKPRINTERS_H

#include <ostream>

#include "vexhost/Bookkeeping.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

void PrintTo(VexSetValueReturnCode_e code, std::ostream* os);
void PrintTo(VexGetValueReturnCode_e code, std::ostream* os);
void PrintTo(VexPlotType_e type, std::ostream* os);
void PrintTo(VexMessageBoxType_e type, std::ostream* os);
void PrintTo(VexSelectFileOption_e option, std::ostream* os);

namespace vexhost {
void PrintTo(StyleStore::ValueType type, std::ostream* os);
void PrintTo(Bookkeeping::Kind kind, std::ostream* os);
void PrintTo(UserDialogs::Kind kind, std::ostream* os);
}  // namespace vexhost

#endif
