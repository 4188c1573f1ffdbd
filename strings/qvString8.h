#pragma once

#include "strings/capacities8.h"
#include "strings/core/width.h"
#include "strings/image8.h"
#include "strings/overlay8.h"
#include "strings/qvCharLen.h"
#include "strings/rules8.h"

#include <string>

// The older images, in strings/qvString8_old.h.
template <int N>
class _qvString8_evenSize_old;
template <int N>
class _qvString8_UnevenSize_old;

/// The current 8-bit string: up to N characters of text without an encoding, held in the object,
/// in the image that `docs/memory-images.md` shows. Exists for the 24 capacities of
/// `capacities8.h`. An object is plain bytes: it may lie in a shared record, be copied as a
/// block, and a block of zeros is an empty string.
///
/// The members are those of `Rules`, `Rules8` and the ones below.
template <int N>
class _qvString8_allSize : public qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>
{
    static_assert(qvStrings::isCapacity8(N), "8-bit strings exist for the capacities that "
                                             "strings/capacities8.h lists, and for no other");
    using Base = qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>;

public:
    using Base::operator=;
    using Base::operator==;
    using Base::operator!=;
    using Base::operator+=;
    using Base::indexOf;
    using Base::lastIndexOf;

    /// Empty, all N + 1 text bytes zero. The pad byte of an even capacity stays as it was.
    QV_KEEPS_STORAGE _qvString8_allSize() { this->clear(); }

    /// The first N characters of `s`, all text behind them zero. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s) { this->construct(s); }

    /// `count` bytes of `s`, zero bytes included, all text behind them zero; count is taken
    /// modulo 65536 (-1 gives N characters) and cut at N. `s` must hold what is read; it may be
    /// null only with a count of 0.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s, int count) { this->construct(s, count); }

    /// The low bytes of the units of a zero-terminated 16-bit text, at most 1024 of them
    /// whatever N (see `qvCharLen`), cut at N; all text behind them zero. Null gives the empty
    /// string.
    QV_KEEPS_STORAGE _qvString8_allSize(unsigned short const* s)
    {
        if (s == nullptr)
            this->clear();
        else
            qvStrings::assignNarrowedCleared(this->ref(), s, qvCharLen(s));
    }

    /// The text that `p` views, whose length is taken as it stands: the caller knows that it is
    /// at most N, since a longer text is written past the object (`operator=` clips). Exactly
    /// its characters and the terminator are written. Does not accept null.
    QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_Uni_pointer const* p)
    {
        auto const viewed = qvStrings::overlayText8(p);
        qvStrings::assignUnclipped(this->ref(), viewed.text, viewed.length);
    }

    /// The text of an older image of the same capacity: its length as it stands and exactly N
    /// bytes of its text, stale ones included. Terminator; nothing else is cleared. A damaged
    /// length above N is taken too, and the terminator is then written past the text.
    QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_evenSize_old<N> const& o)
    {
        takeOld(o);
        this->ref().terminate();
    }
    QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_UnevenSize_old<N> const& o)
    {
        takeOld(o);
        this->ref().terminate();
    }

    /// The same without the terminator, intended: after a text of N characters text[N] is
    /// whatever this string held there.
    _qvString8_allSize& operator=(_qvString8_evenSize_old<N> const& o) { return takeOld(o); }
    _qvString8_allSize& operator=(_qvString8_UnevenSize_old<N> const& o) { return takeOld(o); }

    /// Takes the first N characters of `s`; its size counts modulo 65536. Terminator.
    _qvString8_allSize& operator=(std::string const& s)
    {
        qvStrings::assign(this->ref(), s.data(), static_cast<unsigned>(s.size() & 0xFFFFu));
        return *this;
    }

    /// Takes the text that `p` views, cut at N. Terminator. Does not accept null.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer* p)
    {
        return *this = static_cast<_qvString8_Uni_pointer const*>(p);
    }

    /// The same for what `asUni()` hands out; without it such an assignment would go through the
    /// constructor that does not clip.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer const* p)
    {
        auto const viewed = qvStrings::overlayText8(p);
        qvStrings::assign(this->ref(), viewed.text, viewed.length);
        return *this;
    }

    /// Takes `count` bytes of `s`, zero bytes included; count is taken modulo 65536 and cut at N.
    /// Terminator. Null sets the length to 0 and nothing else.
    void fromChar(char const* s, int const& count)
    {
        if (s == nullptr)
            this->length = 0;
        else
            qvStrings::assign(this->ref(), s, Base::lowCount(count));
    }

    /// Appends the low byte of `c`. A full string stays as it is; only a length of exactly N counts
    /// as full (intended, unlike the `char` form: it shows on a damaged length only).
    _qvString8_allSize& operator+=(unsigned short const& c)
    {
        if (this->length != N)
            qvStrings::putUnit(this->ref(), static_cast<char>(c));
        return *this;
    }

    /// The opposite of `operator==(char const*)`: true for null.
    bool operator!=(char const* s) const { return !(*this == s); }

    /// Equality with the text of an older image, as with the string that the constructor makes of
    /// it: an empty one has a first byte of 0.
    bool operator==(_qvString8_evenSize_old<N> const& o) const { return equalsOld(o); }
    bool operator==(_qvString8_UnevenSize_old<N> const& o) const { return equalsOld(o); }

    /// First place of the low byte of `c`, exact, unlike its neighbour for a `char`. A start
    /// outside the text means 0.
    int indexOf(unsigned short const& c, int start) const
    {
        return this->indexOfCaseSen(static_cast<char>(c), start);
    }

    /// Last place of the low byte of `c` at or before `start`, exact; a start outside the text
    /// means its last character.
    int lastIndexOf(unsigned short const& c, int start) const
    {
        return this->lastIndexOf(static_cast<char>(c), start);
    }

    /// \name Numbers to text
    /// Decimal, in ASCII whatever the locale; what does not fit is cut at the end, so the low
    /// digits are the ones lost.
    /// @{

    /// Appends the number.
    void addNr(int const& v) { addDecimal(v); }
    void addNr(long long const& v) { addDecimal(v); }
    void addNr(unsigned long long const& v) { addDecimal(v); }

    /// Appends the number in at least `minWidth` columns, sign included, zeros in front. The
    /// zeros stand in front of the sign too: -5 in 4 columns is "00-5" (intended).
    void addNr(int const& v, unsigned char const& minWidth) { addDecimal(v, minWidth); }
    void addNr(long long const& v, unsigned char const& minWidth) { addDecimal(v, minWidth); }

    /// A new string with the number; all bytes behind it zero.
    static _qvString8_allSize fromNr(long long const& v)
    {
        _qvString8_allSize result;
        result.addNr(v);
        return result;
    }

    /// Appends upper-case hex digits: two of a char, four of a short, eight of an int, without a
    /// prefix. A negative short has the eight digits of its int (intended); of a negative char
    /// the last two of eight count. The digits pass through a text of this capacity, so 6 and 7
    /// keep the first 6 and 7 of eight, and the last two of these for a char (intended).
    void addHexCode(signed char const& v)
    {
        qvStrings::appendHex(this->ref(), asUnsigned(v), 2, true);
    }
    void addHexCode(unsigned char const& v) { qvStrings::appendHex(this->ref(), v, 2, true); }
    void addHexCode(short const& v) { qvStrings::appendHex(this->ref(), asUnsigned(v), 4, false); }
    void addHexCode(unsigned short const& v) { qvStrings::appendHex(this->ref(), v, 4, false); }
    void addHexCode(int const& v) { qvStrings::appendHex(this->ref(), asUnsigned(v), 8, false); }
    void addHexCode(unsigned int const& v) { qvStrings::appendHex(this->ref(), v, 8, false); }

    /// @}
    /// \name Text to numbers
    /// @{

    /// `atoi` of the text. With `ok` the text must be all digits but a '-' at position 0 (both
    /// may be missing), else *ok is false and the result 0. Values out of range are not noticed.
    int toInt(bool* ok) const { return qvStrings::toInt(this->ref(), ok); }

    /// The same with `atoll`.
    long long toInt64(bool* ok) const { return qvStrings::toInt64(this->ref(), ok); }

    /// Reads a field of bits / 4 hex digits from the start of the text and, with `cutDigits`,
    /// removes it. With `asSigned` the value is sign-extended from 8, 16 or 32 bits and *ok tells
    /// whether there was one; other widths give 0 and false. Without, any width is read by
    /// `strtoll` and *ok is true whatever stood there (intended). `ok` may be null. The caller
    /// cuts no field wider than the text: that leaves a string of length N.
    long long toIntFromHex(int const& bits, bool const& asSigned, bool const& cutDigits, bool* ok)
    {
        return qvStrings::toIntFromHex(this->ref(), bits, asSigned, cutDigits, ok);
    }

    /// @}

    /// The text, writable; `calcLength()` takes the length from it afterwards.
    char* asChar() { return this->text; }
    char const* asChar() const { return this->text; }

    /// The same as `asChar()`, by its other name.
    char* toChar() { return this->text; }
    char const* toChar() const { return this->text; }

    /// This object as a view without a capacity.
    _qvString8_Uni_pointer const* asUni() const
    {
        return reinterpret_cast<_qvString8_Uni_pointer const*>(this);
    }

private:
    template <typename Old>
    _qvString8_allSize& takeOld(Old const& o)
    {
        // A record may be converted in place, so the source may go while it is copied.
        auto const stored = o.length;
        std::memmove(this->text, o.text, N);
        this->length = stored;
        return *this;
    }

    template <typename Old>
    bool equalsOld(Old const& o) const
    {
        return this->equalExact(o.length == 0 ? '\0' : o.text[0], o.text, o.length);
    }

    template <typename Number>
    void addDecimal(Number v, unsigned minWidth = 0)
    {
        qvStrings::appendZeroPadded(this->ref(), qvStrings::DecimalText(v), minWidth);
    }

    /// A signed value as the formatter sees it, extended to an int.
    static unsigned asUnsigned(int v) { return static_cast<unsigned>(v); }
};

// Compiled once, in qvString8.cpp; small members are still inlined where they are called.
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Rules<_qvString8_allSize<N>, qvStrings::Image8<N>>;           \
    extern template class qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>;          \
    extern template class _qvString8_allSize<N>;
QV_STRING8_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
