#pragma once

#include "qv/strings/rules.h"

namespace qvStrings {

/// The members that every 8-bit string has beside those of `Rules`, whatever its image.
///
/// A `char const*` is measured by the low 16 bits of its strlen. As a pattern it counts with its
/// first N characters unless its member says otherwise, and null is a pattern that is found
/// nowhere.
///
/// @tparam Self The public class.
/// @tparam Image Its memory image.
template <typename Self, typename Image>
class Rules8 : public Rules<Self, Image>
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
    using Base::startsWith;
    using Base::startsWithCaseSen;

    /// Takes the first N characters of a text. Terminator.
    /// @param s May point into this object. Null only sets the length to 0: text[0] keeps its byte.
    /// @return This string.
    Self& operator=(char const* s)
    {
        if (s == nullptr)
            this->length = 0;
        else
            assign(this->storage(), s, shortLength(s));
        return this->self();
    }

    /// Becomes one character, length 1 also for a zero byte. Terminator.
    /// @param c The character.
    /// @return This string.
    Self& operator=(char const& c)
    {
        assign(this->storage(), &c, 1);
        return this->self();
    }

    /// Appends a text. Terminator.
    /// @param s Null and the empty text change nothing at all.
    void add(char const* s)
    {
        if (s != nullptr)
            this->add(s, shortLength(s));
    }

    /// Appends a text.
    /// @param s Null changes nothing; the empty text rewrites the terminator.
    /// @return This string.
    Self& operator+=(char const* s)
    {
        if (s != nullptr)
            append(this->ref(), s, shortLength(s));
        return this->self();
    }

    /// @return True for exact equality of first byte, length and text.
    /// @param s Text to compare with; null gives false.
    bool operator==(char const* s) const
    {
        return s != nullptr && s[0] == this->text[0] && this->equalExact(s[0], s, shortLength(s));
    }

    /// @return How many characters equal `c`, ignoring case.
    /// @param c Character to count.
    int count(char c) const { return countUnit<Case::folded>(this->ref(), c); }

    /// @return How many characters equal `c`, exact.
    /// @param c Character to count.
    int countCaseSen(char const& c) const { return countUnit<Case::exact>(this->ref(), c); }

    /// @return True when `c` is in the text, ignoring case.
    /// @param c Character to look for.
    bool contains(char const& c) const { return this->indexOf(c, 0) >= 0; }

    /// @return True when the pattern is in the text, ignoring case.
    /// @param s The pattern.
    bool contains(char const* s) const { return findsText<Case::folded>(s); }

    /// @return True when the pattern is in the text, exact.
    /// @param s The pattern.
    bool containsCaseSen(char const* s) const { return findsText<Case::exact>(s); }

    /// @return True when the pattern is in the text, exact.
    /// @param s The pattern's bytes, zero bytes included.
    /// @param n How many, modulo 65536, cut at N.
    bool containsCaseSen(char const* s, int const& n) const
    {
        return s != nullptr &&
               find<Case::exact>(this->ref(), s, this->cutCount(this->lowCount(n)), 0) >= 0;
    }

    /// @return True when the pattern is in the upper fold of the text.
    /// @param s The pattern, in upper case already, as promised.
    bool containsUpperCaseInput(char const* s) const { return findsText<Case::upperInput>(s); }

    /// @return True when the text begins with the pattern, ignoring case.
    /// @param s The pattern.
    bool startsWith(char const* s) const
    {
        return s != nullptr &&
               this->template begins<Case::folded>(s, this->cutCount(shortLength(s)));
    }

    /// @return True when the text begins with the pattern, ignoring case.
    /// @param s The pattern's bytes; need not be terminated.
    /// @param n How many, modulo 65536. Above the length is false; at most N are compared.
    bool startsWith(char const* s, int n) const
    {
        unsigned const count = this->lowCount(n);
        return s != nullptr && this->holdsPattern(count) &&
               this->template begins<Case::folded>(s, this->cutCount(count));
    }

    /// @return True when the text begins with the pattern, exact.
    /// @param s The pattern, which counts whole, not cut at N.
    bool startsWithCaseSen(char const* s) const
    {
        return s != nullptr && this->template begins<Case::exact>(s, shortLength(s));
    }

    /// @return True when the text ends with the pattern, ignoring case.
    /// @param s The pattern.
    bool endsWith(char const* s) const
    {
        return s != nullptr && this->endsFolded(s, this->cutCount(shortLength(s)));
    }

    /// The same, with a count as a gate only. What is compared is the text as long as it is, not
    /// its first n bytes (intended, unlike `startsWith`); an empty one gives false.
    /// @param s The pattern, which the caller keeps within the text.
    /// @param n The gate: modulo 65536, it must be neither 0 nor above the length.
    /// @return True when the gate is passed and the text ends with the pattern.
    bool endsWith(char const* s, int n) const
    {
        if (s == nullptr || !this->holdsPattern(this->lowCount(n)))
            return false;
        this->expect(shortLength(s) <= this->length, {n});
        return this->endsFolded(s, shortLength(s));
    }

    /// Appends a text in a field of |width| columns, held inside the capacity. A longer text is not
    /// cut to the field. Width 0 without a text changes nothing at all.
    /// @param s The text; null counts as empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacingC(char const* s, int const& width) { addField<Field::capped>(s, width); }

    /// The same with a field that is NOT held inside the capacity: the caller has room for |width|
    /// more characters, else the blanks are written past the text.
    /// @copydetails addSpacingC(char const*, int const&)
    void addSpacing(char const* s, int const& width)
    {
        this->expectRoomForField(width);
        addField<Field::unbounded>(s, width);
    }

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Rules8() = default;

    /// As `clear()` for null, else the first N characters of `s` with all behind them zero.
    void construct(char const* s)
    {
        if (s == nullptr)
            this->clear();
        else
            assignCleared(this->storage(), s, shortLength(s));
    }

    /// `count` bytes of `s`, zero bytes included, count taken modulo 65536 (-1 gives N characters)
    /// and cut at N; all text behind them zero.
    void construct(char const* s, int count)
    {
        assignCleared(this->storage(), s, this->lowCount(count));
    }

private:
    template <Case mode>
    bool findsText(char const* s, char const* member = __builtin_FUNCTION()) const
    {
        return s != nullptr &&
               find<mode>(this->ref(member), s, this->cutCount(shortLength(s)), 0) >= 0;
    }

    template <Field kind>
    void addField(char const* s, int width, char const* member = __builtin_FUNCTION())
    {
        unsigned const count = s == nullptr ? 0 : shortLength(s);
        appendField<kind>(this->ref(member), count, width,
                          [s](char* at, unsigned kept) { moveUnits(s, kept, at); });
    }
};

} // namespace qvStrings
