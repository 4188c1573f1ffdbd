#pragma once

#include "qv/strings/capacities16.h"
#include "qv/strings/image16.h"
#include "qv/strings/members16.h"

/// The older 16-bit string, text first and length behind it, kept so that text in older records can
/// be read, edited and converted to `_qvString<N>`, which takes it by construction and assignment.
/// There is no way back. Exists for the capacities of `_qvString<N>`, in an image of the same size.
///
/// The members are those of `Members`, `Members16` and the ones below. Writing past the text
/// (`addSpacing` without room) overwrites the length.
///
/// @tparam N The capacity in units.
template <int N>
class _qvString_old : public qvStrings::Members16<_qvString_old<N>, qvStrings::OldImage16<N>>
{
    static_assert(qvStrings::isCapacity16(N) || qvStrings::isTestCapacity16<N>,
                  QV_STRING16_REFUSAL);
    using Base = qvStrings::Members16<_qvString_old<N>, qvStrings::OldImage16<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;
    using Base::startsWith;

    /// \name Construction
    /// @{

    /// Empty, all bytes zero.
    QV_KEEPS_STORAGE _qvString_old() { this->clearAll(); }

    /// One byte, length 1 also for 0; all other bytes zero.
    /// @param c The byte, sign-extended.
    QV_KEEPS_STORAGE _qvString_old(char const& c) { this->construct(qvStrings::Run<char>{&c, 1}); }

    /// The first N bytes of a text; all other bytes zero.
    /// @param s The text, sign-extended. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString_old(char const* s) { this->construct(qvStrings::measured(s)); }

    /// Bytes, zero bytes included; all other bytes zero.
    /// @param s The bytes, sign-extended. Null gives the empty string.
    /// @param n How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString_old(char const* s, int n)
    {
        this->construct(qvStrings::counted(s, n));
    }

    /// The first N units of a text, at most 1024; all text behind them zero, `trailer` stays.
    /// @param s The text. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString_old(unsigned short const* s) { this->construct(s); }

    /// Units, zero units included; all text behind them zero, `trailer` stays.
    /// @param s The units. Null needs n = 0.
    /// @param n How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString_old(unsigned short const* s, int n)
    {
        this->construct(qvStrings::counted(s, n));
    }

    /// @}
    /// \name Start and end of the text
    /// @{

    /// @return True when the first unit is `c`, exact. The current string has no such member.
    /// @param c Byte to compare with; one from 0x80 up never matches.
    bool startsWith(char const& c) const
    {
        return this->hasData() && this->text[0] == static_cast<signed char>(c);
    }

    /// @}
};

// Compiled once, in qvString_old.cpp; small members are still inlined where they are called. A
// checked program compiles its own.
#ifndef QV_CHECKED
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Members<_qvString_old<N>, qvStrings::OldImage16<N>>;          \
    extern template class qvStrings::Members16<_qvString_old<N>, qvStrings::OldImage16<N>>;        \
    extern template class _qvString_old<N>;
QV_STRING16_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
#endif
