#pragma once

/// Where the fields of the five string templates are. Written down here a second time on purpose:
/// the image is a format, and a test that took it from the class could not see it move.

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

#include <cstddef>
#include <string>

namespace guarded {

template <typename S>
struct ImageOf;

template <int N>
struct ImageOf<_qvString8_allSize<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = N % 2 == 0 ? N + 4 : N + 3;
    static constexpr std::size_t lengthAt = 0;
    static constexpr std::size_t textAt = 2;
    /// The alignment byte of an even capacity; an odd one has none.
    static constexpr std::size_t spareAt = N + 3;
    static constexpr std::size_t spareSize = size - spareAt;
};

/// The 16-bit length is behind the text and its terminator, on an even offset.
template <int N>
struct ImageOf<_qvString8_evenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = N % 2 == 0 ? N + 4 : N + 5;
    static constexpr std::size_t lengthAt = N % 2 == 0 ? N + 2 : N + 3;
    static constexpr std::size_t textAt = 0;
    /// The filler, and one more alignment byte at an odd capacity.
    static constexpr std::size_t spareAt = N + 1;
    static constexpr std::size_t spareSize = lengthAt - spareAt;
};

template <int N>
struct ImageOf<_qvString8_UnevenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = N % 2 == 0 ? N + 4 : N + 3;
    static constexpr std::size_t lengthAt = N % 2 == 0 ? N + 2 : N + 1;
    static constexpr std::size_t textAt = 0;
    /// Nothing at an odd capacity, one alignment byte at an even one.
    static constexpr std::size_t spareAt = N + 1;
    static constexpr std::size_t spareSize = lengthAt - spareAt;
};

template <int N>
struct ImageOf<_qvString<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = 2 * N + 6;
    static constexpr std::size_t lengthAt = 0;
    /// The word that no member reads.
    static constexpr std::size_t spareAt = 2;
    static constexpr std::size_t spareSize = 2;
    static constexpr std::size_t textAt = 4;
};

/// The older image has the same fields in the other order.
template <int N>
struct ImageOf<_qvString_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr std::size_t size = 2 * N + 6;
    static constexpr std::size_t textAt = 0;
    static constexpr std::size_t lengthAt = 2 * N + 2;
    static constexpr std::size_t spareAt = 2 * N + 4;
    static constexpr std::size_t spareSize = 2;
};

template <typename S>
inline constexpr char const* familyName = nullptr;
template <int N>
inline constexpr char const* familyName<_qvString8_allSize<N>> = "current8";
template <int N>
inline constexpr char const* familyName<_qvString8_evenSize_old<N>> = "even8";
template <int N>
inline constexpr char const* familyName<_qvString8_UnevenSize_old<N>> = "uneven8";
template <int N>
inline constexpr char const* familyName<_qvString<N>> = "current16";
template <int N>
inline constexpr char const* familyName<_qvString_old<N>> = "older16";

template <typename S>
inline constexpr bool isCurrent = false;
template <int N>
inline constexpr bool isCurrent<_qvString8_allSize<N>> = true;
template <int N>
inline constexpr bool isCurrent<_qvString<N>> = true;

/// Names a typed test after image and capacity, such as even8_14.
struct ImageName
{
    template <typename S>
    static std::string GetName(int)
    {
        return std::string(familyName<S>) + '_' + std::to_string(ImageOf<S>::capacity);
    }
};

} // namespace guarded
