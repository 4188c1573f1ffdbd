#pragma once

#include "tests/model/string8Model.h"
#include "tests/model/stringDriver.h"

namespace qvTest {

template <int N>
struct StringTraits<_qvString8_allSize<N>>
{
    using Model = String8Model;
    static constexpr unsigned place = Images::c8;
    static constexpr std::size_t capacity = N;
    static constexpr StringImage image = currentImage(N);
};

template <int N>
struct StringTraits<_qvString8_evenSize_old<N>>
{
    using Model = String8Model;
    static constexpr unsigned place = Images::o8;
    static constexpr std::size_t capacity = N;
    static constexpr StringImage image = evenOldImage(N);
};

template <int N>
struct StringTraits<_qvString8_UnevenSize_old<N>>
{
    using Model = String8Model;
    static constexpr unsigned place = Images::o8;
    static constexpr std::size_t capacity = N;
    static constexpr StringImage image = unevenOldImage(N);
};

} // namespace qvTest
