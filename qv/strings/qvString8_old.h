#pragma once

#include "qv/strings/capacities8.h"
#include "qv/strings/image8.h"
#include "qv/strings/members8.h"

/// @file
/// The older 8-bit strings, kept so that text in older records can be read, edited and converted to
/// `_qvString8_allSize<N>`, which takes them by construction, assignment and comparison. Text first
/// and length behind it, so the image depends on whether N is even or odd; hence two templates.
/// They have the members that every 8-bit string has, and no others.
///
/// Writing past the text (`addSpacing` without room) overwrites the filler and the length.

/// The older string of even capacities; members at the 17 that `capacities8.h` lists. At any other
/// capacity of the current string it is its bare image, as a source for the conversions.
/// @tparam N The capacity in characters.
template <int N>
class _qvString8_evenSize_old : public qvStrings::EvenOldImage8<N>
{
    static_assert(qvStrings::isCapacity8(N), QV_STRING8_REFUSAL);
};

/// The older string of even capacities, with the members of `Members` and `Members8`.
/// @tparam N The capacity in characters.
template <int N>
requires(qvStrings::isEvenOldCapacity8(N)) class _qvString8_evenSize_old<N>
    : public qvStrings::Members8<_qvString8_evenSize_old<N>, qvStrings::EvenOldImage8<N>>
{
    using Base = qvStrings::Members8<_qvString8_evenSize_old<N>, qvStrings::EvenOldImage8<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;

    /// \name Construction
    /// @{

    /// Empty, all N + 1 text bytes zero. The filler stays as it was.
    QV_KEEPS_STORAGE _qvString8_evenSize_old() { this->clear(); }

    /// The first N characters of a text, all text behind them zero.
    /// @param s The text. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_evenSize_old(char const* s)
    {
        this->construct(qvStrings::measured(s));
    }

    /// Bytes, zero bytes included, all text behind them zero.
    /// @param s Must hold what is read; null needs a count of 0.
    /// @param count How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString8_evenSize_old(char const* s, int count)
    {
        this->construct(qvStrings::counted(s, count));
    }

    /// @}
};

/// The older string of odd capacities; members at the 5 that `capacities8.h` lists. At any other
/// capacity of the current string it is its bare image, as a source for the conversions.
/// @tparam N The capacity in characters.
template <int N>
class _qvString8_UnevenSize_old : public qvStrings::UnevenOldImage8<N>
{
    static_assert(qvStrings::isCapacity8(N), QV_STRING8_REFUSAL);
};

/// The older string of odd capacities, with the members of `Members` and `Members8`.
/// @tparam N The capacity in characters.
template <int N>
requires(qvStrings::isUnevenOldCapacity8(N)) class _qvString8_UnevenSize_old<N>
    : public qvStrings::Members8<_qvString8_UnevenSize_old<N>, qvStrings::UnevenOldImage8<N>>
{
    using Base = qvStrings::Members8<_qvString8_UnevenSize_old<N>, qvStrings::UnevenOldImage8<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;

    /// \name Construction
    /// @{

    /// Empty, all N + 1 text bytes zero.
    QV_KEEPS_STORAGE _qvString8_UnevenSize_old() { this->clear(); }

    /// The first N characters of a text, all text behind them zero.
    /// @param s The text. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_UnevenSize_old(char const* s)
    {
        this->construct(qvStrings::measured(s));
    }

    /// Bytes, zero bytes included, all text behind them zero.
    /// @param s Must hold what is read; null needs a count of 0.
    /// @param count How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString8_UnevenSize_old(char const* s, int count)
    {
        this->construct(qvStrings::counted(s, count));
    }

    /// @}
};

// Compiled once, in qvString8_old.cpp; small members are still inlined where they are called. A
// checked program compiles its own.
#ifndef QV_CHECKED
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Members<_qvString8_evenSize_old<N>,                           \
                                             qvStrings::EvenOldImage8<N>>;                         \
    extern template class qvStrings::Members8<_qvString8_evenSize_old<N>,                          \
                                              qvStrings::EvenOldImage8<N>>;                        \
    extern template class _qvString8_evenSize_old<N>;
QV_STRING8_EVEN_OLD_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Members<_qvString8_UnevenSize_old<N>,                         \
                                             qvStrings::UnevenOldImage8<N>>;                       \
    extern template class qvStrings::Members8<_qvString8_UnevenSize_old<N>,                        \
                                              qvStrings::UnevenOldImage8<N>>;                      \
    extern template class _qvString8_UnevenSize_old<N>;
QV_STRING8_UNEVEN_OLD_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
#endif
