#pragma once

#include "qv/strings/capacities16.h"
#include "qv/strings/image16.h"
#include "qv/strings/members16.h"
#include "qv/strings/overlay16.h"

#include <string>

// The older image, in qv/strings/qvString_old.h.
template <int N>
class _qvString_old;

/// The current 16-bit string: up to N opaque units of text, held in the object, in the image that
/// `docs/memory-images.md` shows. Exists for the 16 capacities of `capacities16.h`. An object is
/// plain bytes: it may be part of a shared record and may be copied as a block, and a block of
/// zeros is an empty string.
///
/// The members are those of `Members`, `Members16` and the ones below.
///
/// @tparam N The capacity in units.
template <int N>
class _qvString : public qvStrings::Members16<_qvString<N>, qvStrings::Image16<N>>
{
    static_assert(qvStrings::isCapacity16(N) || qvStrings::isTestCapacity16<N>,
                  QV_STRING16_REFUSAL);
    using Base = qvStrings::Members16<_qvString<N>, qvStrings::Image16<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;
    using Base::addNr;

    /// \name Construction
    /// @{

    /// Empty, all bytes zero.
    QV_KEEPS_STORAGE _qvString() { this->clearAll(); }

    /// One byte, length 1 also for 0; all other bytes zero.
    /// @param c The byte, sign-extended.
    QV_KEEPS_STORAGE _qvString(char const& c) { this->construct(qvStrings::Run<char>{&c, 1}); }

    /// The first N bytes of a text; all other bytes zero.
    /// @param s The text, sign-extended. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString(char const* s) { this->construct(qvStrings::measured(s)); }

    /// Bytes, zero bytes included; all other bytes zero.
    /// @param s The bytes, sign-extended. Null gives the empty string.
    /// @param n How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString(char const* s, int n) { this->construct(qvStrings::counted(s, n)); }

    /// The first N units of a text, at most 1024; all text behind them zero, `reserved` stays.
    /// @param s The text. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString(unsigned short const* s) { this->construct(s); }

    /// Units, zero units included; all text behind them zero, `reserved` stays.
    /// @param s The units. Null needs n = 0.
    /// @param n How many, modulo 65536, cut at N.
    QV_KEEPS_STORAGE _qvString(unsigned short const* s, int n)
    {
        this->construct(qvStrings::counted(s, n));
    }

    /// The text of a view, whose length is trusted: the caller knows that it is at most
    /// N, since a longer text is written past the object. Exactly its units and the terminator are
    /// written.
    /// @param p The view; not null.
    QV_CHECKS QV_KEEPS_STORAGE _qvString(_qvString_Uni_pointer const* p) { takeOverlay(p); }

    /// The first N bytes of a view's 8-bit text; all text behind them zero, `reserved` stays.
    /// @param p The view, its text sign-extended. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString(_qvString8_Uni_pointer const* p)
    {
        qvStrings::assignCleared(this->ref(), qvStrings::viewed(p));
    }

    /// The text of an older image: its length, trusted, and the first N units of its text, stale
    /// ones included. Terminator; `reserved` and, for a shorter text, text[N] stay. A damaged
    /// length above N is taken too, and the terminator is then written past the text.
    /// @param o The image.
    QV_CHECKS QV_KEEPS_STORAGE _qvString(_qvString_old<N> const& o) { takeOld(o); }

    /// @}
    /// \name Assignment
    /// @{

    /// @copydoc _qvString(_qvString_old<N> const&)
    /// @return This string.
    QV_CHECKS _qvString& operator=(_qvString_old<N> const& o)
    {
        takeOld(o);
        return *this;
    }

    /// Takes the first N characters of a text, sign-extended. Terminator.
    /// @param s The text; its size counts modulo 65536.
    /// @return This string.
    _qvString& operator=(std::string const& s)
    {
        qvStrings::assign(this->ref(), qvStrings::counted(s.data(), static_cast<int>(s.size())),
                          qvStrings::Extension::sign);
        return *this;
    }

    /// Takes the text of a view, NOT clipped, unlike the 8-bit namesake: as the constructor.
    /// @param p The view; not null.
    /// @return This string.
    QV_CHECKS _qvString& operator=(_qvString_Uni_pointer* p)
    {
        takeOverlay(p);
        return *this;
    }

    /// @}
    /// \name Text out
    /// @{

    /// @return This object as a view without a capacity. It is writable although this member is
    /// const: whoever writes through it must know that the string is no constant.
    _qvString_Uni_pointer* asUni() const
    {
        return reinterpret_cast<_qvString_Uni_pointer*>(const_cast<_qvString*>(this));
    }

    /// @}
    /// \name Equality
    /// @{

    /// @return False for null, as `operator==` is (intended); else the opposite of it.
    /// @param s Text to compare with.
    QV_CHECKS bool operator!=(char const* s) const { return s != nullptr && !(*this == s); }

    /// @}
    /// \name Numbers to text
    /// @{

    /// Appends the number.
    /// @param v The number.
    QV_CHECKS void addNr(unsigned long long const& v)
    {
        qvStrings::appendNumber(this->checkedRef(), v);
    }
    /// @copydoc addNr(unsigned long long const&)
    QV_CHECKS void addNr(int const& v) { addNr(static_cast<long long>(v)); }
    /// @copydoc addNr(unsigned long long const&)
    QV_CHECKS void addNr(unsigned int const& v) { addNr(static_cast<unsigned long long>(v)); }
    /// @copydoc addNr(unsigned long long const&)
    QV_CHECKS void addNr(unsigned char const& v) { addNr(static_cast<unsigned long long>(v)); }
    /// Refused: a number of any other type, for instance `unsigned long`, fits none of these better
    /// than the rest, so the caller casts it to the type that it means.
    void addNr(qvStrings::CastToLongLongOrUnsignedLongLong&&) = delete;

    /// @}

private:
    QV_CHECKS void takeOverlay(_qvString_Uni_pointer const* p,
                               char const* member = __builtin_FUNCTION())
    {
        auto const source = qvStrings::viewed(p);
        this->expectLength(source.count, member);
        qvStrings::assignUnclipped(this->ref(), source);
    }

    QV_CHECKS void takeOld(_qvString_old<N> const& o, char const* member = __builtin_FUNCTION())
    {
        this->expectLength(o.length, member);
        // A record may be converted in place, so the copy may overwrite the source.
        auto const stored = o.length;
        std::memmove(this->text, o.text, N * sizeof this->text[0]);
        this->ref().endAt(stored);
    }
};

// Compiled once, in qvString.cpp; small members are still inlined where they are called. A checked
// program compiles its own.
#ifndef QV_CHECKED
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Members<_qvString<N>, qvStrings::Image16<N>>;                 \
    extern template class qvStrings::Members16<_qvString<N>, qvStrings::Image16<N>>;               \
    extern template class _qvString<N>;
QV_STRING16_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
#endif
