#pragma once

/// The two older 8-bit strings at the capacities that have members.

#include "tests/strings/guarded.h"

namespace guarded {

/// The capacities at which the older strings have members.
using EvenOldStrings8 = testing::Types<
    _qvString8_evenSize_old<6>, _qvString8_evenSize_old<8>, _qvString8_evenSize_old<10>,
    _qvString8_evenSize_old<12>, _qvString8_evenSize_old<14>, _qvString8_evenSize_old<20>,
    _qvString8_evenSize_old<30>, _qvString8_evenSize_old<40>, _qvString8_evenSize_old<50>,
    _qvString8_evenSize_old<100>, _qvString8_evenSize_old<150>, _qvString8_evenSize_old<200>,
    _qvString8_evenSize_old<250>, _qvString8_evenSize_old<500>, _qvString8_evenSize_old<1000>,
    _qvString8_evenSize_old<3000>, _qvString8_evenSize_old<5000>>;
using UnevenOldStrings8 =
    testing::Types<_qvString8_UnevenSize_old<7>, _qvString8_UnevenSize_old<15>,
                   _qvString8_UnevenSize_old<25>, _qvString8_UnevenSize_old<75>,
                   _qvString8_UnevenSize_old<125>>;

} // namespace guarded
