#pragma once

#include "qv/strings/capacityText.h"

/// @file
/// The capacities of the 8-bit strings, each list stated here and nowhere else. `DO(N)` is
/// expanded once per capacity, in rising order.

/// `_qvString8_allSize<N>`: all 24.
/// @param DO Macro, expanded once per capacity.
#define QV_STRING8_CAPACITIES(DO)                                                                  \
    DO(6)                                                                                          \
    DO(7)                                                                                          \
    DO(8)                                                                                          \
    DO(10)                                                                                         \
    DO(12)                                                                                         \
    DO(14)                                                                                         \
    DO(15)                                                                                         \
    DO(20)                                                                                         \
    DO(25)                                                                                         \
    DO(29)                                                                                         \
    DO(30)                                                                                         \
    DO(40)                                                                                         \
    DO(50)                                                                                         \
    DO(75)                                                                                         \
    DO(100)                                                                                        \
    DO(125)                                                                                        \
    DO(150)                                                                                        \
    DO(200)                                                                                        \
    DO(250)                                                                                        \
    DO(500)                                                                                        \
    DO(1000)                                                                                       \
    DO(2000)                                                                                       \
    DO(3000)                                                                                       \
    DO(5000)

/// The compiler's message at any other capacity.
#define QV_STRING8_REFUSAL                                                                         \
    "8-bit strings exist for these capacities only:" QV_STRING8_CAPACITIES(QV_CAPACITY_TEXT)

/// `_qvString8_evenSize_old<N>` with its members: 17.
/// @param DO Macro, expanded once per capacity.
#define QV_STRING8_EVEN_OLD_CAPACITIES(DO)                                                         \
    DO(6)                                                                                          \
    DO(8)                                                                                          \
    DO(10)                                                                                         \
    DO(12)                                                                                         \
    DO(14)                                                                                         \
    DO(20)                                                                                         \
    DO(30)                                                                                         \
    DO(40)                                                                                         \
    DO(50)                                                                                         \
    DO(100)                                                                                        \
    DO(150)                                                                                        \
    DO(200)                                                                                        \
    DO(250)                                                                                        \
    DO(500)                                                                                        \
    DO(1000)                                                                                       \
    DO(3000)                                                                                       \
    DO(5000)

/// `_qvString8_UnevenSize_old<N>` with its members: 5.
/// @param DO Macro, expanded once per capacity.
#define QV_STRING8_UNEVEN_OLD_CAPACITIES(DO)                                                       \
    DO(7)                                                                                          \
    DO(15)                                                                                         \
    DO(25)                                                                                         \
    DO(75)                                                                                         \
    DO(125)

namespace qvStrings {

#define QV_IS_CAPACITY(N) capacity == N ||

/// @return True for a capacity at which `_qvString8_allSize<N>` exists.
/// @param capacity In characters.
constexpr bool isCapacity8(int capacity)
{
    return QV_STRING8_CAPACITIES(QV_IS_CAPACITY) false;
}

/// @return True for a capacity at which `_qvString8_evenSize_old<N>` has members.
/// @param capacity In characters.
constexpr bool isEvenOldCapacity8(int capacity)
{
    return QV_STRING8_EVEN_OLD_CAPACITIES(QV_IS_CAPACITY) false;
}

/// @return True for a capacity at which `_qvString8_UnevenSize_old<N>` has members.
/// @param capacity In characters.
constexpr bool isUnevenOldCapacity8(int capacity)
{
    return QV_STRING8_UNEVEN_OLD_CAPACITIES(QV_IS_CAPACITY) false;
}

#undef QV_IS_CAPACITY

} // namespace qvStrings
