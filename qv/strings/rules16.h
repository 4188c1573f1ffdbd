#pragma once

#include "qv/strings/core/width.h"
#include "qv/strings/qvCharLen.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/rules.h"

namespace qvStrings {

/// The members that both 16-bit strings have beside those of `Rules`, whatever their image.
///
/// A `char const*` is measured by the low 16 bits of its strlen, a raw 16-bit text by `qvCharLen`,
/// so at most 1024 units at every capacity. Bytes from 0x80 up become units by sign or zero
/// extension, as each member says (0xE4: 0xFFE4 or 0x00E4). A pattern `char const*` becomes a
/// string by the constructor: sign-extended, cut at N; null is found nowhere. Where a single `char`
/// or a counted `char const*` is compared it counts as a signed 32-bit value, so that a byte from
/// 0x80 up equals no unit; the 8-bit namesakes know no such difference.
///
/// @tparam Self The public class.
/// @tparam Image Its memory image.
template <typename Self, typename Image>
class Rules16 : public Rules<Self, Image>
{
    using Base = Rules<Self, Image>;

public:
    using Base::operator=;
    using Base::operator+=;
    using Base::operator==;
    using Base::add;
    using Base::contains;
    using Base::containsCaseSen;
    using Base::containsUpperCaseInput;
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
            assignWidened(this->storage(), s, shortLength(s), Extension::zero);
        return this->self();
    }

    /// Takes the first N units of a text, at most 1024. Terminator.
    /// @param s Null sets the length to 0 and nothing else, so text[0] keeps its unit.
    /// @return This string.
    Self& operator=(unsigned short const* s)
    {
        if (s == nullptr)
            this->length = 0;
        else
            assign(this->storage(), s, qvCharLen(s));
        return this->self();
    }

    /// Becomes one unit, length 1. Terminator.
    /// @param c Counts with its LOW BYTE (intended).
    /// @return This string.
    Self& operator=(unsigned short const& c)
    {
        auto const lowByte = static_cast<unsigned short>(c & 0xFF);
        assign(this->storage(), &lowByte, 1);
        return this->self();
    }

    /// @}
    /// \name Conversion to bytes
    /// Each unit gives its low byte; no substitution, no encoding.
    /// @{

    /// At most 249 bytes, all behind them zero. The length is this string's, not clipped
    /// (intended): from 250 units up it counts more than was copied, and who needs the true text
    /// stops at the zero byte.
    /// @return The bytes as an 8-bit string.
    _qvString8_allSize<250> to_qvString8_250() const { return narrowed<250>(); }
    /// @copydoc to_qvString8_250() const
    operator _qvString8_allSize<250>() const { return narrowed<250>(); }

    /// The same with 499 bytes.
    /// @return The bytes as an 8-bit string.
    _qvString8_allSize<500> to_qvString8_500() const { return narrowed<500>(); }
    /// @copydoc to_qvString8_500() const
    operator _qvString8_allSize<500>() const { return narrowed<500>(); }

    /// Writes at most size - 1 low bytes and a zero byte. Size 0 wraps (intended): the whole text
    /// and its zero byte are written.
    /// @param[out] buffer Where to; must not overlap this string.
    /// @param size Bytes of the buffer.
    void toChar(char* buffer, unsigned short size) const
    {
        auto const limit = static_cast<unsigned short>(size - 1);
        unsigned const count = this->used() < limit ? this->length : limit;
        narrow(this->text, count, buffer);
        buffer[count] = 0;
    }

    /// @}
    /// \name Append
    /// What does not fit under N is dropped from the end of the new text.
    /// @{

    /// Appends a text, zero-extended. Terminator.
    /// @param s Null and the empty text change nothing at all.
    void add(char const* s)
    {
        if (s != nullptr && shortLength(s) != 0)
            appendWidened(this->ref(), s, shortLength(s), Extension::zero);
    }

    /// Appends one byte, sign-extended. A full string stays as it is.
    /// @param c The byte.
    /// @return This string.
    Self& operator+=(char const& c) { return *this += widen(c, Extension::sign); }

    /// Appends a text, sign-extended.
    /// @param s Null changes nothing; the empty text rewrites the terminator.
    /// @return This string.
    Self& operator+=(char const* s)
    {
        if (s != nullptr)
            appendWidened(this->ref(), s, shortLength(s), Extension::sign);
        return this->self();
    }

    /// Appends a text, at most 1024 units.
    /// @param s Null changes nothing; the empty text rewrites the terminator.
    /// @return This string.
    Self& operator+=(unsigned short const* s)
    {
        if (s != nullptr)
            append(this->ref(), s, qvCharLen(s));
        return this->self();
    }

    /// @}
    /// \name Equality with raw text
    /// @{

    /// Exact equality. No first-unit test, unlike the 8-bit namesake: two empty texts are equal.
    /// @param s Text to compare with, zero-extended; null gives false.
    /// @return True when lengths and units are equal.
    bool operator==(char const* s) const
    {
        return s != nullptr && shortLength(s) == this->used() &&
               equalWidenedZero(this->text, s, this->length);
    }

    /// Equality of the lengths and of `length` BYTES, the first half of the text (intended).
    /// @param s Text to compare with, measured by `qvCharLen`; null gives false.
    /// @return True when both are equal.
    bool operator==(unsigned short const* s) const
    {
        return s != nullptr && qvCharLen(s) == this->used() &&
               std::memcmp(this->text, s, this->length) == 0;
    }

    /// @return True for a length of `n` and the same `n` bytes, ignoring case. A byte from 0x80 up
    /// equals no unit.
    /// @param s Not read when the lengths differ or `n` is 0, else not null. Needs no terminator.
    /// @param n Bytes of `s`.
    bool isEqual(char const* s, int n) const
    {
        return this->used() == n && equalFoldedSigned(this->text, s, this->length);
    }

    /// @}
    /// \name Search
    /// @{

    /// Searches from position 0, ignoring case. Not const and without a start, unlike all other
    /// searches: callers depend on the signature.
    /// @param s The pattern.
    /// @return First place of the pattern; -1 for none.
    int indexOf(char const* s) { return this->indexOf(Self(s), 0); }

    /// @return True when the byte is in the text, ignoring case.
    /// @param c Byte to look for, sign-extended.
    bool contains(char const& c) const { return this->indexOf(widen(c, Extension::sign), 0) >= 0; }

    /// @return True when the pattern is in the text, ignoring case.
    /// @param s The pattern.
    bool contains(char const* s) const { return this->contains(Self(s)); }

    /// @return True when the pattern is in the text, exact.
    /// @param s The pattern.
    bool containsCaseSen(char const* s) const { return this->containsCaseSen(Self(s)); }

    /// @return True when the pattern is in the text, exact.
    /// @param s The pattern's bytes, zero bytes included.
    /// @param n How many, modulo 65536, cut at N.
    bool containsCaseSen(char const* s, int const& n) const
    {
        return this->containsCaseSen(Self(s, n));
    }

    /// @return True when the pattern is in the upper fold of the text.
    /// @param s The pattern, in upper case already, as promised.
    bool containsUpperCaseInput(char const* s) const
    {
        return this->containsUpperCaseInput(Self(s));
    }

    /// @return How many units equal `c`, ignoring case.
    /// @param c Byte to count; one from 0x80 up counts nothing.
    int count(char c) const
    {
        return isAscii(c) ? countUnit<Case::folded>(this->ref(), unit(c)) : 0;
    }

    /// @return How many units equal `c`, exact.
    /// @param c Byte to count; one from 0x80 up counts nothing.
    int countCaseSen(char const& c) const
    {
        return isAscii(c) ? countUnit<Case::exact>(this->ref(), unit(c)) : 0;
    }

    /// @}
    /// \name Start and end of the text
    /// An empty text gives false, and so does an empty pattern or one longer than the text,
    /// unless the member says otherwise.
    /// @{

    /// @return True when the text begins with the pattern, ignoring case.
    /// @param s The pattern.
    bool startsWith(char const* s) const { return this->startsWith(Self(s)); }

    /// The same with a count: false when it is 0 or above the length as it stands (the 8-bit
    /// namesake takes it modulo 65536), else n modulo 65536 counts.
    /// @param s The pattern's bytes; need not be terminated.
    /// @param n How many.
    /// @return True when the text begins with the pattern, ignoring case.
    bool startsWith(char const* s, int n) const
    {
        // The pattern's length is judged before `s` is read by it.
        return s != nullptr && this->length >= n && this->holdsPattern(patternCount(n)) &&
               this->startsWith(Self(s, n));
    }

    /// @return True when the text begins with the pattern, exact.
    /// @param s The pattern, cut at N, unlike in the 8-bit namesake.
    bool startsWithCaseSen(char const* s) const { return this->startsWithCaseSen(Self(s)); }

    /// @return True when the last unit is `c`, exact.
    /// @param c Byte to compare with; one from 0x80 up never matches.
    bool endsWith(char const& c) const { return isAscii(c) && this->endsWith(unit(c)); }

    /// @return True when the text ends with the pattern, ignoring case.
    /// @param s The pattern.
    bool endsWith(char const* s) const { return this->endsWith(Self(s)); }

    /// The same, with a count as a gate only. What is compared is the text as long as it is
    /// (intended); an empty one gives true, unlike the 8-bit namesake.
    /// @param s The pattern, which the caller keeps within the text.
    /// @param n The gate, as in `startsWith`.
    /// @return True when the gate is passed and the text ends with the pattern.
    bool endsWith(char const* s, int n) const
    {
        if (s == nullptr || n == 0 || !this->hasData() || this->used() < n)
            return false;
        this->expect(shortLength(s) <= this->length, {n});
        return shortLength(s) == 0 || this->endsWith(Self(s));
    }

    /// @}
    /// \name Numbers and fields
    /// Numbers are ASCII whatever the locale. What does not fit under N is cut at the end.
    /// @{

    /// Appends the number.
    /// @param v The number.
    void addNr(long long const& v) { addDecimal(v); }

    /// Appends the number in a field, zeros in front, of the sign too: -5 in 4 columns is "00-5"
    /// (intended). The field is formed in 20 characters whatever N, unlike the 8-bit namesake's, so
    /// a `minWidth` above 20 costs the low digits.
    /// @param v The number.
    /// @param minWidth Least columns, sign included.
    void addNr(long long const& v, unsigned char const& minWidth)
    {
        _qvString8_allSize<20> field;
        field.addNr(v, minWidth);
        add(field.asChar());
    }

    /// @return A new string with the number; all other bytes zero.
    /// @param v The number.
    static Self fromNr(long long const& v)
    {
        Self result;
        result.addNr(v);
        return result;
    }

    /// `atoi` of the low bytes of the first 249 units. With `ok` all units must be digits but a '-'
    /// at position 0 (both may be missing). Values out of range are not noticed. An empty text
    /// gives 0 whatever stale units it has, unlike the 8-bit namesake.
    /// @param[out] ok Unless null, whether the units are so.
    /// @return The number; 0 where *ok is false.
    int toInt(bool* ok) const
    {
        if (ok != nullptr) {
            *ok = isNumber(this->ref());
            if (!*ok)
                return 0;
        }
        return to_qvString8_250().toInt(nullptr);
    }

    /// Appends a text, zero-extended, in a field of |width| columns, held inside the capacity. A
    /// longer text is not cut to the field. Width 0 without a text changes nothing at all.
    /// @param s The text; null counts as empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacingC(char const* s, int const& width)
    {
        unsigned const count = s == nullptr ? 0 : shortLength(s);
        appendField<Field::capped>(
            this->ref(), count, width,
            [s](unsigned short* at, unsigned kept) { widenZero(s, kept, at); });
    }

    /// The same with a field that is NOT held inside the capacity: the caller has room for |width|
    /// more units, else the blanks are written past the text.
    /// @param s The text, at most 1024 units, of which the LOW BYTES count (intended); null: empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacing(unsigned short const* s, int const& width)
    {
        this->expectRoomForField(width);
        unsigned const count = s == nullptr ? 0u : qvCharLen(s);
        appendField<Field::unbounded>(
            this->ref(), count, width,
            [s](unsigned short* at, unsigned kept) { keepLowBytes(s, kept, at); });
    }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Rules16() = default;

    /// Empties the string and zeroes its whole image, the spare word too.
    void clearAll()
    {
        this->clear();
        this->clearSpare();
    }

    /// The first N bytes of `s`, sign-extended, in an image that is zero else. Null gives the
    /// empty string.
    void construct(char const* s)
    {
        clearAll();
        if (s != nullptr)
            assignWidened(this->storage(), s, shortLength(s), Extension::sign);
    }

    /// `n` bytes of `s`, the same way, zero bytes included; n counts modulo 65536, cut at N.
    void construct(char const* s, int n)
    {
        clearAll();
        if (s != nullptr)
            assignWidened(this->storage(), s, this->lowCount(n), Extension::sign);
    }

    /// One byte, sign-extended, the same way; length 1 also for 0.
    void construct(char c)
    {
        clearAll();
        *this += c;
    }

    /// The first N units of `s`, at most 1024, all text behind them zero; the spare word stays.
    /// Null gives the empty string.
    void construct(unsigned short const* s)
    {
        if (s == nullptr)
            this->clear();
        else
            assignCleared(this->storage(), s, qvCharLen(s));
    }

    /// `n` units of `s`, zero units included, the same way; n counts modulo 65536, cut at N. Null
    /// goes with n = 0 only.
    void construct(unsigned short const* s, int n)
    {
        assignCleared(this->storage(), s, this->lowCount(n));
    }

    /// Appends a number in decimal.
    template <typename Number>
    void addDecimal(Number v, char const* member = __builtin_FUNCTION())
    {
        DecimalText const number(v);
        appendWidened(this->ref(member), number.text(), number.length(), Extension::zero);
    }

private:
    static bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }
    static unsigned short unit(char c) { return widen(c, Extension::zero); }

    /// Length of the pattern that `n` bytes make.
    unsigned patternCount(int n) const { return this->cutCount(this->lowCount(n)); }

    template <int M>
    _qvString8_allSize<M> narrowed(char const* member = __builtin_FUNCTION()) const
    {
        _qvString8_allSize<M> result;
        result.pad = 0; // the whole image, not only what clearing clears
        narrow(this->text, this->used(member) < M ? this->length : M - 1, result.text);
        result.length = this->length;
        return result;
    }
};

} // namespace qvStrings
