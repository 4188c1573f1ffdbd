#include "sender/workingText.h"

#include "qv/strings/qvString8_old.h"

// The members of the tools' only string type, for tools that do not link the library's objects:
// compiling all its capacities takes ten times as long as this and the rest together.
template class qvStrings::Members<WorkingText, qvStrings::Image8<250>>;
template class qvStrings::Members8<WorkingText, qvStrings::Image8<250>>;
template class _qvString8_allSize<250>;
