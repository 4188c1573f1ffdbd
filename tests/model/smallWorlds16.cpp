#include "qv/strings/capacities16.h"

// Ahead of what makes them: the smallest capacity that a program can ask for is 10.
template <>
inline constexpr bool qvStrings::isTestCapacity16<6> = true;
template <>
inline constexpr bool qvStrings::isTestCapacity16<7> = true;

#include "tests/model/smallWorld.h"
#include "tests/model/string16Traits.h"

namespace qvTest {

namespace {

constexpr SmallWorldRun runs[] = {
    smallWorldOf<_qvString<6>>("current16"),
    smallWorldOf<_qvString<7>>("current16"),
    smallWorldOf<_qvString_old<6>>("old16"),
    smallWorldOf<_qvString_old<7>>("old16"),
};

} // namespace

std::span<SmallWorldRun const> smallWorlds16()
{
    return runs;
}

} // namespace qvTest
