#pragma once

#include "strings/core/width.h"
#include "strings/qvCharLen.h"
#include "strings/qvString8.h"
#include "strings/rules.h"

namespace qvStrings {

/// The members that both 16-bit strings have beside those of `Rules`, whatever their image.
///
/// A `char const*` is measured by the low 16 bits of its strlen, a raw 16-bit text by `qvCharLen`,
/// so at most 1024 units at every capacity. Bytes from 0x80 up become units by sign or zero
/// extension, as each member says (0xE4: 0xFFE4 or 0x00E4). A pattern `char const*` becomes a
/// string by the constructor: sign-extended, cut at N; null is found nowhere. Where a single `char`
/// or a counted `char const*` is compared it counts as a signed 32-bit value, so that a byte from
/// 0x80 up equals no unit; the 8-bit namesakes know no such difference.
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

    /// Takes the first N bytes of `s`, zero-extended. Terminator. Null changes nothing, unlike
    /// the 8-bit namesake.
    Self& operator=(char const* s)
    {
        if (s != nullptr)
            assignWidened(this->ref(), s, shortLength(s), Extension::zero);
        return this->self();
    }

    /// Takes the first N units of `s`, at most 1024. Terminator. Null sets the length to 0 and
    /// nothing else, so text[0] keeps its unit.
    Self& operator=(unsigned short const* s)
    {
        if (s == nullptr)
            this->length = 0;
        else
            assign(this->ref(), s, qvCharLen(s));
        return this->self();
    }

    /// Becomes the one unit of the LOW BYTE of `c` (intended), length 1. Terminator.
    Self& operator=(unsigned short const& c)
    {
        auto const lowByte = static_cast<unsigned short>(c & 0xFF);
        assign(this->ref(), &lowByte, 1);
        return this->self();
    }

    /// @}
    /// \name Conversion to bytes
    /// Each unit gives its low byte; no substitution, no encoding.
    /// @{

    /// At most 249 bytes, all behind them zero. The length is this string's, not clipped
    /// (intended): from 250 units up it counts more than was copied, and who needs the true
    /// text stops at the zero byte.
    _qvString8_allSize<250> to_qvString8_250() const { return narrowed<250>(); }
    operator _qvString8_allSize<250>() const { return narrowed<250>(); }

    /// The same with 499 bytes.
    _qvString8_allSize<500> to_qvString8_500() const { return narrowed<500>(); }
    operator _qvString8_allSize<500>() const { return narrowed<500>(); }

    /// Writes at most size - 1 low bytes and a zero byte to `buffer`. Size 0 wraps (intended):
    /// the whole text and its zero byte are written. The buffer must not overlap this string.
    void toChar(char* buffer, unsigned short size) const
    {
        auto const limit = static_cast<unsigned short>(size - 1);
        unsigned const count = this->length < limit ? this->length : limit;
        narrow(this->text, count, buffer);
        buffer[count] = 0;
    }

    /// @}
    /// \name Append
    /// What does not fit under N is dropped from the end of the new text.
    /// @{

    /// Appends `s`, zero-extended. Null and the empty text change nothing at all. Terminator.
    void add(char const* s)
    {
        if (s != nullptr && shortLength(s) != 0)
            appendWidened(this->ref(), s, shortLength(s), Extension::zero);
    }

    /// Appends one byte, sign-extended. A full string stays as it is.
    Self& operator+=(char const& c) { return *this += widen(c, Extension::sign); }

    /// Appends `s`, sign-extended. Null changes nothing; the empty text rewrites the terminator.
    Self& operator+=(char const* s)
    {
        if (s != nullptr)
            appendWidened(this->ref(), s, shortLength(s), Extension::sign);
        return this->self();
    }

    /// Appends `s`, at most 1024 units. Null changes nothing; the empty text rewrites the
    /// terminator.
    Self& operator+=(unsigned short const* s)
    {
        if (s != nullptr)
            append(this->ref(), s, qvCharLen(s));
        return this->self();
    }

    /// @}
    /// \name Equality with raw text
    /// @{

    /// Exact equality with `s`, zero-extended. Null gives false. No first-unit test, unlike the
    /// 8-bit namesake: two empty texts are equal.
    bool operator==(char const* s) const
    {
        return s != nullptr && shortLength(s) == this->length &&
               equalWidenedZero(this->text, s, this->length);
    }

    /// False for null or another length (by `qvCharLen`). Else only `length` BYTES are compared,
    /// the first half of the text (intended).
    bool operator==(unsigned short const* s) const
    {
        return s != nullptr && qvCharLen(s) == this->length &&
               std::memcmp(this->text, s, this->length) == 0;
    }

    /// True for a length of `n` and the same `n` bytes, ignoring case. A byte from 0x80 up equals
    /// no unit. `s` is not read when the lengths differ or `n` is 0; else it must not be null.
    bool isEqual(char const* s, int n) const
    {
        return this->length == n && equalFoldedSigned(this->text, s, this->length);
    }

    /// @}
    /// \name Search
    /// @{

    /// First place of the pattern from position 0, ignoring case; -1 for none. Not const and
    /// without a start, unlike all other searches: callers depend on the signature.
    int indexOf(char const* s) { return this->indexOf(Self(s), 0); }

    /// True when the byte, sign-extended, is in the text, ignoring case.
    bool contains(char const& c) const { return this->indexOf(widen(c, Extension::sign), 0) >= 0; }

    /// True when the pattern is in the text, ignoring case.
    bool contains(char const* s) const { return this->contains(Self(s)); }

    /// The same, exact.
    bool containsCaseSen(char const* s) const { return this->containsCaseSen(Self(s)); }

    /// The same for `n` bytes of `s`, zero bytes included; n counts modulo 65536, cut at N.
    bool containsCaseSen(char const* s, int const& n) const
    {
        return this->containsCaseSen(Self(s, n));
    }

    /// True when the pattern, promised to be in upper case already, is in the upper fold of the
    /// text.
    bool containsUpperCaseInput(char const* s) const
    {
        return this->containsUpperCaseInput(Self(s));
    }

    /// How many units equal `c`, ignoring case; a byte from 0x80 up counts nothing.
    int count(char c) const
    {
        return isAscii(c) ? countUnit<Case::folded>(this->ref(), unit(c)) : 0;
    }

    /// The same, exact.
    int countCaseSen(char const& c) const
    {
        return isAscii(c) ? countUnit<Case::exact>(this->ref(), unit(c)) : 0;
    }

    /// @}
    /// \name Start and end of the text
    /// An empty text gives false, and so does an empty pattern or one longer than the text,
    /// unless the member says otherwise.
    /// @{

    /// True when the text begins with the pattern, ignoring case.
    bool startsWith(char const* s) const { return this->startsWith(Self(s)); }

    /// The same for the first `n` bytes of `s`, which need not be terminated: false when n is 0
    /// or above the length as it stands (the 8-bit namesake takes it modulo 65536), else n modulo
    /// 65536 counts.
    bool startsWith(char const* s, int n) const
    {
        // The pattern's length is judged before `s` is read by it.
        return s != nullptr && this->length >= n && this->holdsPattern(patternCount(n)) &&
               this->startsWith(Self(s, n));
    }

    /// True when the text begins with the pattern, exact. Cut at N, unlike the 8-bit namesake.
    bool startsWithCaseSen(char const* s) const { return this->startsWithCaseSen(Self(s)); }

    /// True when the last unit is `c`, exact; a byte from 0x80 up never matches.
    bool endsWith(char const& c) const { return isAscii(c) && this->endsWith(unit(c)); }

    /// True when the text ends with the pattern, ignoring case.
    bool endsWith(char const* s) const { return this->endsWith(Self(s)); }

    /// The same, with `n` as a gate only, as in `startsWith`. What is compared
    /// is `s` as long as it is (intended); an empty one gives true, unlike the 8-bit namesake.
    /// The caller keeps `s` within the text.
    bool endsWith(char const* s, int n) const
    {
        return s != nullptr && n != 0 && this->hasData() && this->length >= n &&
               (shortLength(s) == 0 || this->endsWith(Self(s)));
    }

    /// @}
    /// \name Numbers and fields
    /// Numbers are ASCII whatever the locale. What does not fit under N is cut at the end.
    /// @{

    /// Appends the number.
    void addNr(long long const& v) { addDecimal(v); }

    /// Appends the number in at least `minWidth` columns, sign included, zeros in front, of the
    /// sign too: -5 in 4 columns is "00-5" (intended). The field is formed in 20 characters
    /// whatever N, unlike the 8-bit namesake's, so a `minWidth` above 20 costs the low digits.
    void addNr(long long const& v, unsigned char const& minWidth)
    {
        _qvString8_allSize<20> field;
        field.addNr(v, minWidth);
        add(field.asChar());
    }

    /// A new string with the number; all other bytes zero.
    static Self fromNr(long long const& v)
    {
        Self result;
        result.addNr(v);
        return result;
    }

    /// `atoi` of the low bytes of the first 249 units. With `ok` all units must be digits but a
    /// '-' at position 0 (both may be missing), else *ok is false and the result 0. Values out
    /// of range are not noticed. An empty text gives 0 whatever stale units it has, unlike the
    /// 8-bit namesake.
    int toInt(bool* ok) const
    {
        if (ok != nullptr) {
            *ok = isNumber(this->ref());
            if (!*ok)
                return 0;
        }
        return to_qvString8_250().toInt(nullptr);
    }

    /// Appends `s`, zero-extended, in a field of |width| columns, padded with blanks on the left
    /// for a negative width and on the right for a positive one, held inside the capacity. A
    /// longer text is not cut to the field. Width 0 without a text changes nothing at all. Null
    /// counts as empty.
    void addSpacingC(char const* s, int const& width)
    {
        unsigned const count = s == nullptr ? 0 : shortLength(s);
        appendField<Field::capped>(
            this->ref(), count, width,
            [s](unsigned short* at, unsigned kept) { widenZero(s, kept, at); });
    }

    /// The same with the LOW BYTES of the units of `s` (intended), at most 1024, and with a field
    /// that is NOT held inside the capacity: the caller has room for |width| more units, else
    /// the blanks are written past the text.
    void addSpacing(unsigned short const* s, int const& width)
    {
        unsigned const count = s == nullptr ? 0u : qvCharLen(s);
        appendField<Field::unbounded>(this->ref(), count, width,
                                      [s](unsigned short* at, unsigned kept) {
                                          for (unsigned i = 0; i < kept; ++i)
                                              at[i] = s[i] & 0xFF;
                                      });
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
            assignWidened(this->ref(), s, shortLength(s), Extension::sign);
    }

    /// `n` bytes of `s`, the same way, zero bytes included; n counts modulo 65536, cut at N.
    void construct(char const* s, int n)
    {
        clearAll();
        if (s != nullptr)
            assignWidened(this->ref(), s, this->lowCount(n), Extension::sign);
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
            assignCleared(this->ref(), s, qvCharLen(s));
    }

    /// `n` units of `s`, zero units included, the same way; n counts modulo 65536, cut at N. Null
    /// goes with n = 0 only.
    void construct(unsigned short const* s, int n)
    {
        assignCleared(this->ref(), s, this->lowCount(n));
    }

    /// Appends a number in decimal.
    template <typename Number>
    void addDecimal(Number v)
    {
        add(DecimalText(v).text());
    }

private:
    static bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }
    static unsigned short unit(char c) { return widen(c, Extension::zero); }

    /// Length of the pattern that `n` bytes make.
    unsigned patternCount(int n) const { return this->cutCount(this->lowCount(n)); }

    template <int M>
    _qvString8_allSize<M> narrowed() const
    {
        _qvString8_allSize<M> result;
        result.pad = 0; // the whole image, not only what clearing clears
        narrow(this->text, this->length < M ? this->length : M - 1, result.text);
        result.length = this->length;
        return result;
    }
};

} // namespace qvStrings
