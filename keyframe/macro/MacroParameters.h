#ifndef VEXUTILTOOLS_MACROPARAMETERS_H
#define VEXUTILTOOLS_MACROPARAMETERS_H

#include <string>

#include "macro/CommandExecuterAbstract.h"
#include "model/Destination_e.h"

namespace vexplot {
namespace vexutiltools {

// The values of the parameters of a parsed macro command, for the executers. Each takes the first
// occurrence of its parameter; later repetitions and parameters the command does not use are
// ignored. Failures are KeyFrameError:
//   Invalid macro command: missing value for parameter "<name>"   the parameter is not given
//   Invalid macro command: invalid value for parameter "<name>"   the value is not one of the
//                                                                 parameter's values

// The value of the first FileName parameter as it stands (any text, the empty text included).
std::string getFileNameParameter(const CommandExecuterAbstract::Parameters& parameters);

// The destination named by the first AnimationDestination parameter ("OnScreen" or "ToFile", in
// any case).
Destination_e getDestinationParameter(const CommandExecuterAbstract::Parameters& parameters);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
