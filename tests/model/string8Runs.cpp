#include "tests/model/string8Runs.h"

#include "tests/model/string8Traits.h"
#include "tests/model/stringDriver.h"

namespace qvTest {

namespace {

template <int N>
constexpr StringRun current8()
{
    return runOf<_qvString8_allSize<N>>("current");
}

template <int N>
constexpr StringRun evenOld()
{
    return runOf<_qvString8_evenSize_old<N>>("evenOld");
}

template <int N>
constexpr StringRun unevenOld()
{
    return runOf<_qvString8_UnevenSize_old<N>>("unevenOld");
}

constexpr StringRun runs[] = {
    current8<6>(),   current8<7>(),    current8<8>(),  current8<14>(),  current8<15>(),
    current8<250>(), current8<5000>(), evenOld<6>(),   evenOld<8>(),    evenOld<14>(),
    evenOld<250>(),  evenOld<5000>(),  unevenOld<7>(), unevenOld<15>(),
};

} // namespace

std::span<StringRun const> string8Runs()
{
    return runs;
}

} // namespace qvTest
