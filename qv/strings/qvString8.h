#pragma once

#include "qv/strings/capacities8.h"
#include "qv/strings/image8.h"
#include "qv/strings/members8.h"
#include "qv/strings/overlay8.h"
#include "qv/strings/qvCharLen.h"

#include <cstddef>
#include <string>

// The older images, in qv/strings/qvString8_old.h.
template <int N>
class _qvString8_evenSize_old;
template <int N>
class _qvString8_UnevenSize_old;

/// The current 8-bit string: up to N characters of text without an encoding, held in the object, in
/// the image that `docs/memory-images.md` shows. Exists for the 24 capacities of `capacities8.h`.
/// An object is plain bytes: it may be part of a shared record and may be copied as a block, and a
/// block of zeros is an empty string.
///
/// The members are those of `Members`, `Members8` and the ones below.
///
/// @tparam N The capacity in characters.
template <int N>
class _qvString8_allSize : public qvStrings::Members8<_qvString8_allSize<N>, qvStrings::Image8<N>>
{
    static_assert(qvStrings::isCapacity8(N), QV_STRING8_REFUSAL);
    using Base = qvStrings::Members8<_qvString8_allSize<N>, qvStrings::Image8<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;
    using Base::operator+=;
    using Base::indexOf;
    using Base::lastIndexOf;

    /// \name Construction
    /// @{

    /// Empty, all N + 1 text bytes zero. The pad byte of an even capacity stays as it was.
    QV_KEEPS_STORAGE _qvString8_allSize() { this->clear(); }

    /// The first N characters of a text, all text behind them zero.
    /// @param s The text. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s) { this->construct(qvStrings::measured(s)); }

    /// Bytes, zero bytes included, all text behind them zero.
    /// @param s Must hold what is read; null needs a count of 0.
    /// @param count How many, modulo 65536 (-1 gives N characters), cut at N.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s, int count)
    {
        this->construct(qvStrings::counted(s, count));
    }

    /// The low bytes of the units of a 16-bit text, at most 1024 of them whatever N (see
    /// `qvCharLen`), cut at N; all text behind them zero.
    /// @param s The text, ending in a zero unit. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_allSize(unsigned short const* s)
    {
        qvStrings::assignCleared(this->ref(), qvStrings::measured(s));
    }

    /// The text of a view, whose length is trusted: the caller knows that it is at most
    /// N, since a longer text is written past the object (`operator=` clips). Exactly its
    /// characters and the terminator are written.
    /// @param p The view; not null.
    QV_CHECKS QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_Uni_pointer const* p)
    {
        auto const source = qvStrings::viewed(p);
        this->expectLength(source.count);
        qvStrings::assignUnclipped(this->ref(), source);
    }

    /// The text of an older image of the same capacity: its length, trusted, and exactly N bytes
    /// of its text, stale ones included. Terminator; nothing else is cleared. A damaged length
    /// above N is taken too, and the terminator is then written past the text.
    /// @param o The image.
    QV_CHECKS QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_evenSize_old<N> const& o)
    {
        takeOld(o);
        this->ref().terminate();
    }
    /// @copydoc _qvString8_allSize(_qvString8_evenSize_old<N> const&)
    QV_CHECKS QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_UnevenSize_old<N> const& o)
    {
        takeOld(o);
        this->ref().terminate();
    }

    /// @}
    /// \name Assignment
    /// @{

    /// Takes the text of an older image as its constructor does, but without the terminator,
    /// intended: after a text of N characters text[N] is whatever this string held there.
    /// @param o The image.
    /// @return This string.
    QV_CHECKS _qvString8_allSize& operator=(_qvString8_evenSize_old<N> const& o)
    {
        return takeOld(o);
    }
    /// @copydoc operator=(_qvString8_evenSize_old<N> const&)
    QV_CHECKS _qvString8_allSize& operator=(_qvString8_UnevenSize_old<N> const& o)
    {
        return takeOld(o);
    }

    /// Takes a null text: the length becomes 0, text[0] keeps its byte. Without this member
    /// `nullptr` would fit several of the others; `0` and `NULL` are still refused, since they may
    /// mean the character as well.
    /// @return This string.
    _qvString8_allSize& operator=(std::nullptr_t)
    {
        return *this = static_cast<char const*>(nullptr);
    }

    /// Takes the first N characters of a text. Terminator.
    /// @param s The text; its size counts modulo 65536.
    /// @return This string.
    _qvString8_allSize& operator=(std::string const& s)
    {
        qvStrings::assign(this->ref(), qvStrings::counted(s.data(), static_cast<int>(s.size())));
        return *this;
    }

    /// Takes the text of a view, cut at N. Terminator.
    /// @param p The view; not null.
    /// @return This string.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer* p)
    {
        return *this = static_cast<_qvString8_Uni_pointer const*>(p);
    }

    /// The same for the pointer that `asUni()` returns; without this member the assignment would
    /// call the constructor that does not clip.
    /// @param p The view; not null.
    /// @return This string.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer const* p)
    {
        qvStrings::assign(this->ref(), qvStrings::viewed(p));
        return *this;
    }

    /// Takes bytes, zero bytes included. Terminator.
    /// @param s The bytes. Null sets the length to 0 and nothing else.
    /// @param count How many, modulo 65536, cut at N.
    void fromChar(char const* s, int const& count) { this->take(qvStrings::counted(s, count)); }

    /// @}
    /// \name Append
    /// @{

    /// Appends a low byte. A full string stays as it is; only a length of exactly N counts as full
    /// (intended, unlike the `char` form: it shows on a damaged length only).
    /// @param c The unit whose low byte it is.
    /// @return This string.
    QV_CHECKS _qvString8_allSize& operator+=(unsigned short const& c)
    {
        if (this->length != N)
            qvStrings::putUnit(this->checkedRef(), static_cast<char>(c));
        return *this;
    }

    /// @}
    /// \name Equality
    /// @{

    /// @return The opposite of `operator==(char const*)`: true for null.
    /// @param s Text to compare with.
    QV_CHECKS bool operator!=(char const* s) const { return !(*this == s); }

    /// Equality with the text of an older image, as with the string that the constructor makes of
    /// it: an empty one has a first byte of 0.
    /// @param o The image.
    /// @return True for exact equality.
    QV_CHECKS bool operator==(_qvString8_evenSize_old<N> const& o) const { return equalsOld(o); }
    /// @copydoc operator==(_qvString8_evenSize_old<N> const&) const
    QV_CHECKS bool operator==(_qvString8_UnevenSize_old<N> const& o) const { return equalsOld(o); }

    /// @}
    /// \name Position search
    /// @{

    /// @return First place of the low byte of `c` at or behind `start`, or -1.
    /// @param c Unit of the byte; exact, unlike the neighbour for a `char`.
    /// @param start One outside the text means 0.
    QV_CHECKS int indexOf(unsigned short const& c, int start) const
    {
        return this->indexOfCaseSen(static_cast<char>(c), start);
    }

    /// @return Last place of the low byte of `c` at or before `start`, exact, or -1.
    /// @param c Unit of the byte.
    /// @param start One outside the text means its last character.
    QV_CHECKS int lastIndexOf(unsigned short const& c, int start) const
    {
        return this->lastIndexOf(static_cast<char>(c), start);
    }

    /// @}
    /// \name Numbers to text
    /// Decimal, in ASCII whatever the locale; what does not fit is cut at the end, so the low
    /// digits are the ones lost.
    /// @{

    /// Appends the number.
    /// @param v The number.
    QV_CHECKS void addNr(int const& v) { addNr(static_cast<long long>(v)); }
    /// @copydoc addNr(int const&)
    QV_CHECKS void addNr(long long const& v) { qvStrings::appendNumber(this->checkedRef(), v); }
    /// @copydoc addNr(int const&)
    QV_CHECKS void addNr(unsigned long long const& v)
    {
        qvStrings::appendNumber(this->checkedRef(), v);
    }

    /// Appends the number in a field, zeros in front of the digits and of the sign: -5
    /// in 4 columns is "00-5" (intended).
    /// @param v The number.
    /// @param minWidth Least columns, sign included.
    QV_CHECKS void addNr(int const& v, unsigned char const& minWidth)
    {
        addNr(static_cast<long long>(v), minWidth);
    }
    /// @copydoc addNr(int const&, unsigned char const&)
    QV_CHECKS void addNr(long long const& v, unsigned char const& minWidth)
    {
        qvStrings::appendZeroPadded(this->checkedRef(), v, minWidth);
    }

    /// Refused: a number of any other type, for instance `unsigned long`, fits none of the above
    /// better than the rest, so the caller casts it to the type that it means.
    void addNr(qvStrings::CastToLongLongOrUnsignedLongLong&&) = delete;
    /// @copydoc addNr(qvStrings::CastToLongLongOrUnsignedLongLong&&)
    void addNr(qvStrings::CastToLongLong&&, unsigned char const&) = delete;

    /// @return A new string with the number; all bytes behind it zero.
    /// @param v The number.
    QV_CHECKS static _qvString8_allSize fromNr(long long const& v)
    {
        _qvString8_allSize result;
        result.addNr(v);
        return result;
    }

    /// Appends upper-case hex digits: two for a char, four for a short, eight for an int, without a
    /// prefix. A negative short gives the eight digits of its int (intended), a negative char the
    /// last two of its eight. The digits pass through a text of this capacity, so 6 and 7 keep the
    /// first 6 and 7 of eight, and the last two of these for a char (intended).
    /// @param v The number.
    QV_CHECKS void addHexCode(signed char const& v)
    {
        qvStrings::appendHex(this->checkedRef(), asUnsigned(v), 2, true);
    }
    /// @copydoc addHexCode(signed char const&)
    QV_CHECKS void addHexCode(unsigned char const& v)
    {
        qvStrings::appendHex(this->checkedRef(), v, 2, true);
    }
    /// @copydoc addHexCode(signed char const&)
    QV_CHECKS void addHexCode(short const& v)
    {
        qvStrings::appendHex(this->checkedRef(), asUnsigned(v), 4, false);
    }
    /// @copydoc addHexCode(signed char const&)
    QV_CHECKS void addHexCode(unsigned short const& v)
    {
        qvStrings::appendHex(this->checkedRef(), v, 4, false);
    }
    /// @copydoc addHexCode(signed char const&)
    QV_CHECKS void addHexCode(int const& v)
    {
        qvStrings::appendHex(this->checkedRef(), asUnsigned(v), 8, false);
    }
    /// @copydoc addHexCode(signed char const&)
    QV_CHECKS void addHexCode(unsigned int const& v)
    {
        qvStrings::appendHex(this->checkedRef(), v, 8, false);
    }
    /// Refused as by `addNr`: a number of any other type.
    void addHexCode(qvStrings::CastToIntOrUnsignedInt&&) = delete;

    /// @}
    /// \name Text to numbers
    /// @{

    /// `atoi` of the text. With `ok` the text must be all digits but a '-' at position 0 (both may
    /// be missing). Values out of range are not noticed: the result is the low 32 bits of what
    /// `strtol` makes of them.
    /// @param[out] ok Unless null, whether the text is so.
    /// @return The number; 0 where *ok is false.
    QV_CHECKS int toInt(bool* ok) const { return qvStrings::toInt(numberRef(ok), ok); }

    /// As `toInt`, with `atoll`; out of range the result is what `strtoll` makes of it.
    /// @copydetails toInt(bool*) const
    QV_CHECKS long long toInt64(bool* ok) const { return qvStrings::toInt64(numberRef(ok), ok); }

    /// Reads a field of bits / 4 hex digits from the start of the text. Signed, the value is
    /// extended from 8, 16 or 32 bits and *ok tells whether there was one; other widths give 0 and
    /// false. Else any width is read by `strtoll` and *ok is true whatever the text (intended).
    /// The caller cuts no field wider than the text: that leaves a string of length N.
    /// @param bits Width of the value, four bits to a digit.
    /// @param asSigned Whether the value has a sign.
    /// @param cutDigits Whether to remove the field.
    /// @param[out] ok As said; may be null.
    /// @return The value.
    QV_CHECKS long long toIntFromHex(int const& bits, bool const& asSigned, bool const& cutDigits,
                                     bool* ok)
    {
        this->expect(!cutDigits || (bits >= 0 && bits / 4 <= this->length),
                     {bits, asSigned, cutDigits});
        return qvStrings::toIntFromHex(this->checkedRef(), bits, asSigned, cutDigits, ok);
    }

    /// @}
    /// \name Text out
    /// @{

    /// @return The text, writable; `calcLength()` takes the length from it afterwards.
    char* asChar() { return this->text; }
    /// @return The text.
    char const* asChar() const { return this->text; }

    /// @return The same as `asChar()`, by its other name.
    char* toChar() { return this->text; }
    /// @return The same as `asChar()`, by its other name.
    char const* toChar() const { return this->text; }

    /// @return This object as a view without a capacity.
    _qvString8_Uni_pointer const* asUni() const
    {
        return reinterpret_cast<_qvString8_Uni_pointer const*>(this);
    }

    /// @}

private:
    template <typename Old>
    QV_CHECKS _qvString8_allSize& takeOld(Old const& o, char const* member = __builtin_FUNCTION())
    {
        this->expectLength(o.length, member);
        // A record may be converted in place, so the copy may overwrite the source.
        auto const stored = o.length;
        std::memmove(this->text, o.text, N);
        this->length = stored;
        return *this;
    }

    template <typename Old>
    QV_CHECKS bool equalsOld(Old const& o, char const* member = __builtin_FUNCTION()) const
    {
        this->expectLength(o.length, member);
        unsigned const count = o.length < N ? o.length : N;
        return qvStrings::equalExact(this->checkedRef(), count == 0 ? '\0' : o.text[0],
                                     qvStrings::Run<char>{o.text, count});
    }

    /// The text that a number is read from. Only the check that `ok` asks for uses the length,
    /// which a conversion from units may have left above N.
    QV_CHECKS auto numberRef(bool const* ok, char const* member = __builtin_FUNCTION()) const
    {
        return ok == nullptr ? this->ref() : this->checkedRef(member);
    }

    /// A signed value, extended to an int.
    static unsigned asUnsigned(int v) { return static_cast<unsigned>(v); }
};

// Compiled once, in qvString8.cpp; small members are still inlined where they are called. A checked
// program compiles its own.
#ifndef QV_CHECKED
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Members<_qvString8_allSize<N>, qvStrings::Image8<N>>;         \
    extern template class qvStrings::Members8<_qvString8_allSize<N>, qvStrings::Image8<N>>;        \
    extern template class _qvString8_allSize<N>;
QV_STRING8_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
#endif
