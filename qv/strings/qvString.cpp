#undef QV_CHECKED // a checked program compiles its own members
#include "qv/strings/qvString.h"

#include "qv/strings/qvString_old.h"

// Every member at every capacity.
#define QV_INSTANTIATE(N)                                                                          \
    template class qvStrings::Members<_qvString<N>, qvStrings::Image16<N>>;                        \
    template class qvStrings::Members16<_qvString<N>, qvStrings::Image16<N>>;                      \
    template class _qvString<N>;
QV_STRING16_CAPACITIES(QV_INSTANTIATE)
#undef QV_INSTANTIATE
