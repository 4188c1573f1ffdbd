// Every member of a checked program, as it compiles them for itself; namesOfChecks.py reads the
// object.
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

template class qvStrings::Members<_qvString8_allSize<250>, qvStrings::Image8<250>>;
template class qvStrings::Members8<_qvString8_allSize<250>, qvStrings::Image8<250>>;
template class _qvString8_allSize<250>;
template class qvStrings::Members<_qvString8_evenSize_old<250>, qvStrings::EvenOldImage8<250>>;
template class qvStrings::Members8<_qvString8_evenSize_old<250>, qvStrings::EvenOldImage8<250>>;
template class _qvString8_evenSize_old<250>;
template class qvStrings::Members<_qvString8_UnevenSize_old<25>, qvStrings::UnevenOldImage8<25>>;
template class qvStrings::Members8<_qvString8_UnevenSize_old<25>, qvStrings::UnevenOldImage8<25>>;
template class _qvString8_UnevenSize_old<25>;
template class qvStrings::Members<_qvString<250>, qvStrings::Image16<250>>;
template class qvStrings::Members16<_qvString<250>, qvStrings::Image16<250>>;
template class _qvString<250>;
template class qvStrings::Members<_qvString_old<250>, qvStrings::OldImage16<250>>;
template class qvStrings::Members16<_qvString_old<250>, qvStrings::OldImage16<250>>;
template class _qvString_old<250>;
