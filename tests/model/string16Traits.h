#pragma once

#include "tests/model/string16Model.h"
#include "tests/model/stringDriver.h"

namespace qvTest {

template <int N>
struct StringTraits<_qvString<N>>
{
    using Model = String16Model;
    static constexpr unsigned place = Images::c16;
    static constexpr std::size_t capacity = N;
    static constexpr StringImage image = current16Image(N);
};

template <int N>
struct StringTraits<_qvString_old<N>>
{
    using Model = String16Model;
    static constexpr unsigned place = Images::o16;
    static constexpr std::size_t capacity = N;
    static constexpr StringImage image = old16Image(N);
};

} // namespace qvTest
