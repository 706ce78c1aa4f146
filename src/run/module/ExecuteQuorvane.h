#pragma once

/// The module's one exported function, ExecuteQuorvane, is declared once, for hosts and for the module's own code. It
/// returns when the user is done. A failure of a stage of the run is told in a message box. Nobody is told of a work
/// file that can't be read, of a model that can't be written and of a target that doesn't take the finished file; the
/// host learns of nothing.
#define JLANDXML_BUILDS_MODULE
#include "jlandxml/JLandXmlConvert.h"
