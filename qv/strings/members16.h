#pragma once

#include "qv/strings/members.h"
#include "qv/strings/qvString8.h"

namespace QV_MEMBER_NAMESPACE {

/// The members that both 16-bit strings have beside those of `Members`, whatever their image.
///
/// A raw 16-bit text is measured by `qvCharLen`, so it has at most 1024 units at every capacity.
/// Where a single `char` or a counted `char const*` is compared it counts as a signed 32-bit value,
/// so that a byte from 0x80 up equals no unit; the 8-bit namesakes compare the bytes.
///
/// @tparam Self The public class.
/// @tparam Image Its memory image.
template <typename Self, typename Image>
class Members16 : public Members<Self, Image>
{
    using Base = Members<Self, Image>;

public:
    using Base::operator+=;
    using Base::operator==;
    using Base::endsWith;
    using Base::indexOf;
    using Base::isEqual;
    using Base::startsWith;
    using Base::startsWithCaseSen;

    /// \name Assignment
    /// Units behind the new terminator stay, and so does the spare word.
    /// @{

    /// Takes the first N bytes of a text, zero-extended. Terminator.
    /// @param s Null changes nothing, unlike the 8-bit namesake.
    /// @return This string.
    Self& operator=(char const* s)
    {
        if (s != nullptr)
            assign(this->ref(), measured(s));
        return this->self();
    }

    /// Takes the first N units of a text, at most 1024. Terminator.
    /// @param s Null sets the length to 0 and nothing else, so text[0] keeps its unit.
    /// @return This string.
    Self& operator=(unsigned short const* s)
    {
        assign(this->ref(), s);
        return this->self();
    }

    /// Becomes one unit, length 1. Terminator.
    /// @param c Counts with its LOW BYTE (intended).
    /// @return This string.
    Self& operator=(unsigned short const& c)
    {
        auto const lowByte = static_cast<unsigned short>(c & 0xFF);
        assign(this->ref(), Run<unsigned short>{&lowByte, 1});
        return this->self();
    }

    /// @}
    /// \name Text out
    /// Each unit gives its low byte; no substitution, no encoding.
    /// @{

    /// At most 249 bytes, all behind them zero. The length is this string's, not clipped
    /// (intended): from 250 units up it counts more than was copied, and a reader of the copied
    /// text has to stop at the zero byte.
    /// @return The bytes as an 8-bit string.
    _qvString8_allSize<250> to_qvString8_250() const { return narrowed<250>(); }
    /// @copydoc to_qvString8_250() const
    operator _qvString8_allSize<250>() const { return to_qvString8_250(); }

    /// As `to_qvString8_250`, with 499 bytes.
    /// @return The bytes as an 8-bit string.
    _qvString8_allSize<500> to_qvString8_500() const { return narrowed<500>(); }
    /// @copydoc to_qvString8_500() const
    operator _qvString8_allSize<500>() const { return to_qvString8_500(); }

    /// Writes at most size - 1 low bytes and a zero byte. Size 0 wraps (intended): the whole text
    /// and its zero byte are written.
    /// @param[out] buffer Where to; must not overlap this string.
    /// @param size Bytes of the buffer.
    void toChar(char* buffer, unsigned short size) const
    {
        narrowTerminated(buffer, cut(this->checkedRun(), static_cast<unsigned short>(size - 1)));
    }

    /// @}
    /// \name Append
    /// @{

    /// Appends one byte, sign-extended. A full string stays as it is.
    /// @param c The byte.
    /// @return This string.
    Self& operator+=(char const& c) { return *this += unitOf<unsigned short>(c, Extension::sign); }

    /// Appends a text, at most 1024 units.
    /// @param s Null changes nothing; the empty text rewrites the terminator.
    /// @return This string.
    Self& operator+=(unsigned short const* s)
    {
        append(this->checkedRef(), s);
        return this->self();
    }

    /// @}
    /// \name Equality
    /// @{

    /// Exact equality. No first-unit test, unlike the 8-bit namesake: two empty texts are equal.
    /// @param s Text to compare with, zero-extended; null gives false.
    /// @return True when lengths and units are equal.
    bool operator==(char const* s) const
    {
        return s != nullptr && equalBytes(this->checkedRef(), measured(s));
    }

    /// Equality of the lengths and of `length` BYTES, the first half of the text (intended).
    /// @param s Text to compare with, measured by `qvCharLen`; null gives false.
    /// @return True when both are equal.
    bool operator==(unsigned short const* s) const
    {
        return s != nullptr && equalFirstHalf(this->checkedRef(), measured(s));
    }

    /// @return True for a length of `n` and the same `n` bytes, ignoring case. A byte from 0x80 up
    /// equals no unit.
    /// @param s Not read when the lengths differ or `n` is 0, else not null. Needs no terminator.
    /// @param n Bytes of `s`.
    bool isEqual(char const* s, int n) const
    {
        return equalBytesFolded(this->checkedRef(), {s, static_cast<unsigned>(n)});
    }

    /// @}
    /// \name Position search
    /// @{

    /// Searches from position 0, ignoring case. Not const and without a start, unlike all other
    /// searches: callers depend on the signature.
    /// @param s The pattern.
    /// @return First place of the pattern; -1 for none.
    int indexOf(char const* s)
    {
        TextRef<unsigned short const> const self = this->checkedRef();
        return find<Case::folded>(self, patternOf(s, this->capacity()), 0);
    }

    /// @}
    /// \name Containment
    /// @{

    /// @return How many units equal `c`, ignoring case.
    /// @param c Byte to count; one from 0x80 up counts nothing.
    int count(char c) const
    {
        return isAscii(c) ? countUnit<Case::folded>(this->checkedRef(), unit(c)) : 0;
    }

    /// @return How many units equal `c`, exact.
    /// @param c Byte to count; one from 0x80 up counts nothing.
    int countCaseSen(char const& c) const
    {
        return isAscii(c) ? countUnit<Case::exact>(this->checkedRef(), unit(c)) : 0;
    }

    /// @}
    /// \name Start and end of the text
    /// @{

    /// False when the count is 0 or above the length, compared as it is (the 8-bit namesake
    /// compares it modulo 65536); else n modulo 65536 counts.
    /// @param s The pattern's bytes; need not be terminated.
    /// @param n How many.
    /// @return True when the text begins with the pattern, ignoring case.
    bool startsWith(char const* s, int n) const
    {
        auto const self = this->checkedRef();
        return static_cast<int>(self.length()) >= n &&
               begins<Case::folded>(self, cut(counted(s, n), this->capacity()));
    }

    /// @return True when the text begins with the pattern, exact.
    /// @param s The pattern, cut at N, unlike in the 8-bit namesake.
    bool startsWithCaseSen(char const* s) const
    {
        return begins<Case::exact>(this->checkedRef(), patternOf(s, this->capacity()));
    }

    /// @return True when the last unit is `c`, exact.
    /// @param c Byte to compare with; one from 0x80 up never matches.
    bool endsWith(char const& c) const { return isAscii(c) && this->endsWith(unit(c)); }

    /// True when the text ends with the pattern, ignoring case. The count is a gate only: the whole
    /// pattern is compared (intended); an empty one gives true, unlike the 8-bit namesake.
    /// @param s The pattern, which the caller keeps within the text.
    /// @param n The gate, as in `startsWith`.
    /// @return True when the gate is passed and the text ends with the pattern.
    bool endsWith(char const* s, int n) const
    {
        auto const self = this->checkedRef();
        if (s == nullptr || n == 0 || this->isEmpty() || static_cast<int>(self.length()) < n)
            return false;
        auto const pattern = patternOf(s, this->capacity());
        this->expect(measured(s).count <= this->length, {n});
        return pattern.count == 0 || ends(self, pattern);
    }

    /// @}
    /// \name Numbers to text
    /// Numbers are ASCII whatever the locale. What does not fit under N is cut at the end.
    /// @{

    /// Appends the number.
    /// @param v The number.
    void addNr(long long const& v) { appendNumber(this->checkedRef(), v); }

    /// Appends the number in a field, zeros in front, of the sign too: -5 in 4 columns is "00-5"
    /// (intended). The field is formed in 20 characters whatever N, unlike the 8-bit namesake's, so
    /// a `minWidth` above 20 costs the low digits.
    /// @param v The number.
    /// @param minWidth Least columns, sign included.
    void addNr(long long const& v, unsigned char const& minWidth)
    {
        appendZeroPadded(this->checkedRef(), v, minWidth);
    }

    /// @return A new string with the number; all other bytes zero.
    /// @param v The number.
    static Self fromNr(long long const& v)
    {
        Self result;
        result.addNr(v);
        return result;
    }

    /// @}
    /// \name Text to numbers
    /// @{

    /// `atoi` of the low bytes of the first 249 units. With `ok` all units must be digits but a '-'
    /// at position 0 (both may be missing). Values out of range are not noticed: the
    /// result is the low 32 bits of what `strtol` makes of them. An empty text gives 0 whatever
    /// stale units it has, unlike the 8-bit namesake.
    /// @param[out] ok Unless null, whether the units are so.
    /// @return The number; 0 where *ok is false.
    int toInt(bool* ok) const { return qvStrings::toInt(this->checkedRef(), ok); }

    /// @}
    /// \name Append
    /// @{

    /// Appends a text in a field as `addSpacingC` does, but the field is NOT held inside the
    /// capacity: the caller has room for |width| more units, else the blanks are written past the
    /// text.
    /// @param s The text, at most 1024 units, of which the LOW BYTES count (intended); null: empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacing(unsigned short const* s, int const& width)
    {
        this->expectRoomForField(width);
        appendUnboundedField(this->checkedRef(), measured(s), width);
    }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Members16() = default;

    /// Empties the string and zeroes its whole image, the spare word too.
    void clearAll()
    {
        this->clear();
        this->clearSpare();
    }

    /// The first N bytes of a text, sign-extended, in an image that is zero else.
    void construct(Run<char> source)
    {
        this->clearSpare();
        assignCleared(this->ref(), source);
    }

    /// The first N units of a text, all text behind them zero; the spare word stays.
    void construct(Run<unsigned short> source) { assignCleared(this->ref(), source); }
    void construct(unsigned short const* source) { assignCleared(this->ref(), source); }

private:
    static bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }
    static unsigned short unit(char c) { return unitOf<unsigned short>(c, Extension::zero); }

    template <int M>
    _qvString8_allSize<M> narrowed(char const* member = __builtin_FUNCTION()) const
    {
        _qvString8_allSize<M> result;
        result.pad = 0; // the whole image; construction leaves this byte
        auto const units = this->checkedRun(member);
        narrowTerminated(result.text, cut(units, M - 1));
        result.length = static_cast<unsigned short>(units.count);
        return result;
    }
};

} // namespace QV_MEMBER_NAMESPACE
