#pragma once

/// The capacities of the 8-bit strings, each list stated here and nowhere else. `DO(N)` is
/// expanded once per capacity, in rising order.

/// `_qvString8_allSize<N>`: all 24.
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

namespace qvStrings {

/// True for a capacity at which `_qvString8_allSize<N>` exists.
constexpr bool isCapacity8(int capacity)
{
#define QV_IS_CAPACITY(N) capacity == N ||
    return QV_STRING8_CAPACITIES(QV_IS_CAPACITY) false;
#undef QV_IS_CAPACITY
}

} // namespace qvStrings
