#pragma once

#include "strings/capacities16.h"
#include "strings/image16.h"
#include "strings/rules16.h"

/// The older 16-bit string, text first and length behind it, kept so that text in older records
/// can be read, worked on and brought to `_qvString<N>`, which takes it by construction and
/// assignment. There is no way back. Exists for the capacities of `_qvString<N>`, in an image of
/// the same size.
///
/// The members are those of `Rules`, `Rules16` and the ones below. Writing past the text
/// (`addSpacing` without room) meets the length itself.
template <int N>
class _qvString_old : public qvStrings::Rules16<_qvString_old<N>, qvStrings::OldImage16<N>>
{
    static_assert(qvStrings::isCapacity16(N), "16-bit strings exist for the capacities that "
                                              "strings/capacities16.h lists, and for no other");
    using Base = qvStrings::Rules16<_qvString_old<N>, qvStrings::OldImage16<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;
    using Base::startsWith;

    /// Empty, all bytes zero.
    QV_KEEPS_STORAGE _qvString_old() { this->clearAll(); }

    /// One byte, sign-extended, length 1 also for 0; all other bytes zero.
    QV_KEEPS_STORAGE _qvString_old(char const& c) { this->construct(c); }

    /// The first N bytes of `s`, sign-extended; all other bytes zero. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString_old(char const* s) { this->construct(s); }

    /// `n` bytes of `s`, zero bytes included, sign-extended; all other bytes zero. n counts modulo
    /// 65536, cut at N. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString_old(char const* s, int n) { this->construct(s, n); }

    /// The first N units of `s`, at most 1024; all text behind them zero, `trailer` stays. Null
    /// gives the empty string.
    QV_KEEPS_STORAGE _qvString_old(unsigned short const* s) { this->construct(s); }

    /// `n` units of `s`, zero units included; all text behind them zero, `trailer` stays. n counts
    /// modulo 65536, cut at N. Null goes with n = 0 only.
    QV_KEEPS_STORAGE _qvString_old(unsigned short const* s, int n) { this->construct(s, n); }

    /// True when the first unit is `c`, exact; a byte from 0x80 up never matches. The current
    /// string has no such member.
    bool startsWith(char const& c) const
    {
        return this->hasData() && this->text[0] == static_cast<signed char>(c);
    }
};

// Compiled once, in qvString_old.cpp; small members are still inlined where they are called.
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Rules<_qvString_old<N>, qvStrings::OldImage16<N>>;            \
    extern template class qvStrings::Rules16<_qvString_old<N>, qvStrings::OldImage16<N>>;          \
    extern template class _qvString_old<N>;
QV_STRING16_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
