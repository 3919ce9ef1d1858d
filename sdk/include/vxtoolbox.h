/*
 * Vexplot SDK: the toolbox library (vxtoolbox), small C++ classes over the C calls.
 */
#ifndef VXTOOLBOX_H
#define VXTOOLBOX_H

#include "vxtoolbox/ArgList.h"
#include "vxtoolbox/StateChangeListenerInterface.h"
#include "vxtoolbox/StateChangeNotifier.h"
#include "vxtoolbox/StringList.h"
#include "vxtoolbox/StyleValue.h"

#endif
