#pragma once

/// The images of the two older 8-bit strings for the helpers of guarded.h.

#include "qv/strings/qvString8_old.h"
#include "tests/strings/guarded.h"

namespace guarded {

/// The 16-bit length stands behind the text and its terminator, on an even offset.
template <int N>
struct ImageOf<_qvString8_evenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = N % 2 == 0 ? N + 4 : N + 5;
    static constexpr std::size_t lengthAt = N % 2 == 0 ? N + 2 : N + 3;
    static constexpr std::size_t textAt = 0;
    /// The filler, and one more alignment byte at an odd capacity.
    static constexpr std::size_t spareAt = N + 1;
    static constexpr std::size_t spareSize = lengthAt - spareAt;
};

template <int N>
struct ImageOf<_qvString8_UnevenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = N % 2 == 0 ? N + 4 : N + 3;
    static constexpr std::size_t lengthAt = N % 2 == 0 ? N + 2 : N + 1;
    static constexpr std::size_t textAt = 0;
    /// Nothing at an odd capacity, one alignment byte at an even one.
    static constexpr std::size_t spareAt = N + 1;
    static constexpr std::size_t spareSize = lengthAt - spareAt;
};

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
