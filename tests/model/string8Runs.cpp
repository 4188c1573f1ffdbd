#include "tests/model/string8Runs.h"

namespace qvTest {

namespace {

template <class C>
std::string drive(DriverOptions const& options, unsigned char const* data, std::size_t size)
{
    return String8Driver<C>(options).run(data, size);
}

template <int N>
constexpr String8Run current()
{
    return {"current", N, true, drive<_qvString8_allSize<N>>};
}

#if QV_HAS_OLD_STRING8
template <int N>
constexpr String8Run evenOld()
{
    return {"evenOld", N, false, drive<_qvString8_evenSize_old<N>>};
}

template <int N>
constexpr String8Run unevenOld()
{
    return {"unevenOld", N, false, drive<_qvString8_UnevenSize_old<N>>};
}
#endif

constexpr String8Run runs[] = {
    current<6>(),    current<7>(),   current<8>(),    current<14>(),
    current<15>(),   current<250>(), current<5000>(),
#if QV_HAS_OLD_STRING8
    evenOld<6>(),    evenOld<8>(),   evenOld<14>(),   evenOld<250>(),
    evenOld<5000>(), unevenOld<7>(), unevenOld<15>(),
#endif
};

} // namespace

std::span<String8Run const> string8Runs()
{
    return runs;
}

} // namespace qvTest
