#pragma once

#include "qv/strings/capacityText.h"

/// @file
/// The capacities of the 16-bit strings.

/// The capacities of the 16-bit strings, current and older alike, stated here and nowhere else: 16.
/// @param DO Macro, expanded once per capacity, in rising order.
#define QV_STRING16_CAPACITIES(DO)                                                                 \
    DO(10)                                                                                         \
    DO(15)                                                                                         \
    DO(25)                                                                                         \
    DO(30)                                                                                         \
    DO(48)                                                                                         \
    DO(50)                                                                                         \
    DO(75)                                                                                         \
    DO(100)                                                                                        \
    DO(125)                                                                                        \
    DO(150)                                                                                        \
    DO(200)                                                                                        \
    DO(225)                                                                                        \
    DO(250)                                                                                        \
    DO(500)                                                                                        \
    DO(1000)                                                                                       \
    DO(2500)

/// The compiler's message at any other capacity.
#define QV_STRING16_REFUSAL                                                                        \
    "16-bit strings exist for these capacities only:" QV_STRING16_CAPACITIES(QV_CAPACITY_TEXT)

namespace qvStrings {

#define QV_IS_CAPACITY(N) capacity == N ||

/// @return True for a capacity at which the 16-bit strings exist.
/// @param capacity In units.
constexpr bool isCapacity16(int capacity)
{
    return QV_STRING16_CAPACITIES(QV_IS_CAPACITY) false;
}

#undef QV_IS_CAPACITY

/// True at the further capacities at which a test makes the strings. Nothing else may.
template <int capacity>
inline constexpr bool isTestCapacity16 = false;

} // namespace qvStrings
