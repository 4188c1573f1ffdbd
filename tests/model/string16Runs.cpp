#include "tests/model/string16Runs.h"

#include "tests/model/string16Traits.h"
#include "tests/model/stringDriver.h"

namespace qvTest {

namespace {

template <int N>
constexpr StringRun current16()
{
    return runOf<_qvString<N>>("current");
}

template <int N>
constexpr StringRun old16()
{
    return runOf<_qvString_old<N>>("old");
}

constexpr StringRun runs[] = {
    current16<10>(),   current16<15>(), current16<48>(), current16<250>(),
    current16<2500>(), old16<10>(),     old16<15>(),     old16<250>(),
};

} // namespace

std::span<StringRun const> string16Runs()
{
    return runs;
}

} // namespace qvTest
