#undef QV_CHECKED // a checked program compiles its own members
#include "qv/strings/qvString8.h"

#include "qv/strings/qvString8_old.h"

// Every member at every capacity.
#define QV_INSTANTIATE(N)                                                                          \
    template class qvStrings::Members<_qvString8_allSize<N>, qvStrings::Image8<N>>;                \
    template class qvStrings::Members8<_qvString8_allSize<N>, qvStrings::Image8<N>>;               \
    template class _qvString8_allSize<N>;
QV_STRING8_CAPACITIES(QV_INSTANTIATE)
#undef QV_INSTANTIATE
