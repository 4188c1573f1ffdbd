#undef QV_CHECKED // a checked program compiles its own members
#include "qv/strings/qvString8_old.h"

// Every member at every capacity.
#define QV_INSTANTIATE(N)                                                                          \
    template class qvStrings::Members<_qvString8_evenSize_old<N>, qvStrings::EvenOldImage8<N>>;    \
    template class qvStrings::Members8<_qvString8_evenSize_old<N>, qvStrings::EvenOldImage8<N>>;   \
    template class _qvString8_evenSize_old<N>;
QV_STRING8_EVEN_OLD_CAPACITIES(QV_INSTANTIATE)
#undef QV_INSTANTIATE

#define QV_INSTANTIATE(N)                                                                          \
    template class qvStrings::Members<_qvString8_UnevenSize_old<N>,                                \
                                      qvStrings::UnevenOldImage8<N>>;                              \
    template class qvStrings::Members8<_qvString8_UnevenSize_old<N>,                               \
                                       qvStrings::UnevenOldImage8<N>>;                             \
    template class _qvString8_UnevenSize_old<N>;
QV_STRING8_UNEVEN_OLD_CAPACITIES(QV_INSTANTIATE)
#undef QV_INSTANTIATE
