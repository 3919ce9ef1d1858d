#ifndef VEXUTILTOOLS_ADDONMACROCOMMANDMANAGER_H
#define VEXUTILTOOLS_ADDONMACROCOMMANDMANAGER_H

#include "addon/KeyFrameError.h"
#include "macro/Command_e.h"
#include "macro/CreateCommandExecuter.h"
#include "macro/MacroCommandManager.h"
#include "macro/Parameter_e.h"

namespace vexplot {
namespace vexutiltools {

// The add-on's macro command manager: its commands and parameters, failures as KeyFrameError, and
// the executers of createCommandExecuter.
using AddOnMacroCommandManager = MacroCommandManager<Command_e, Parameter_e, KeyFrameError>;

}  // namespace vexutiltools
}  // namespace vexplot

#endif
