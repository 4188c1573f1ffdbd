#include "tests/model/smallWorld.h"
#include "tests/model/string8Traits.h"

namespace qvTest {

namespace {

constexpr SmallWorldRun runs[] = {
    smallWorldOf<_qvString8_allSize<6>>("current8"),
    smallWorldOf<_qvString8_allSize<7>>("current8"),
    smallWorldOf<_qvString8_evenSize_old<6>>("evenOld8"),
    smallWorldOf<_qvString8_UnevenSize_old<7>>("unevenOld8"),
};

} // namespace

std::span<SmallWorldRun const> smallWorlds8()
{
    return runs;
}

} // namespace qvTest
