#ifndef VEXUTILTOOLS_INITVEXADDON113_H
#define VEXUTILTOOLS_INITVEXADDON113_H

#include "vxsdkbase.h"

// The plug-in's one exported function, called once by the host after loading the library.
// Registers the add-on (and keeps its identifier, see AddOn), adds "&Key Frame Animation..." to
// the host's "Animate" menu and registers the handler of the add-on's macro commands, all under
// the host's own lock.
EXPORTFROMADDON void InitVexAddOn113(void);

#endif
