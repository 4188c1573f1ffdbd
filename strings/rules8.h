#pragma once

#include "strings/rules.h"

namespace qvStrings {

/// The members that every 8-bit string has beside those of `Rules`, whatever its image.
///
/// A `char const*` is measured by the low 16 bits of its strlen. As a pattern it counts with its
/// first N characters unless its member says otherwise, and null is a pattern that is found
/// nowhere.
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

    /// Takes the first N characters of `s`. Terminator. Null sets the length to 0 and nothing
    /// else, so text[0] keeps its byte. `s` may point into this object.
    Self& operator=(char const* s)
    {
        if (s == nullptr)
            this->length = 0;
        else
            assign(this->ref(), s, shortLength(s));
        return this->self();
    }

    /// Becomes the one character `c`, length 1 also for c = 0. Terminator.
    Self& operator=(char const& c)
    {
        assign(this->ref(), &c, 1);
        return this->self();
    }

    /// Appends `s`. Null and the empty text change nothing at all. Terminator.
    void add(char const* s)
    {
        if (s != nullptr)
            this->add(s, shortLength(s));
    }

    /// Appends `s`. Null changes nothing; the empty text rewrites the terminator.
    Self& operator+=(char const* s)
    {
        if (s != nullptr)
            append(this->ref(), s, shortLength(s));
        return this->self();
    }

    /// Exact equality with `s`: first byte, length, text. Null gives false.
    bool operator==(char const* s) const
    {
        return s != nullptr && s[0] == this->text[0] && this->equalExact(s[0], s, shortLength(s));
    }

    /// How many characters equal `c`, ignoring case.
    int count(char c) const { return countUnit<Case::folded>(this->ref(), c); }

    /// How many characters equal `c`, exact.
    int countCaseSen(char const& c) const { return countUnit<Case::exact>(this->ref(), c); }

    /// True when `c` is in the text, ignoring case.
    bool contains(char const& c) const { return this->indexOf(c, 0) >= 0; }

    /// True when the pattern is in the text, ignoring case.
    bool contains(char const* s) const { return findsText<Case::folded>(s); }

    /// The same, exact.
    bool containsCaseSen(char const* s) const { return findsText<Case::exact>(s); }

    /// The same for `n` bytes of `s`, zero bytes included; n counts modulo 65536, cut at N.
    bool containsCaseSen(char const* s, int const& n) const
    {
        return s != nullptr &&
               find<Case::exact>(this->ref(), s, this->cutCount(this->lowCount(n)), 0) >= 0;
    }

    /// True when the pattern, promised to be in upper case already, is in the upper fold of the
    /// text.
    bool containsUpperCaseInput(char const* s) const { return findsText<Case::upperInput>(s); }

    /// True when the text begins with the pattern, ignoring case.
    bool startsWith(char const* s) const
    {
        return s != nullptr &&
               this->template begins<Case::folded>(s, this->cutCount(shortLength(s)));
    }

    /// The same for the first `n` bytes of `s`, which need not be terminated; n counts modulo
    /// 65536.
    bool startsWith(char const* s, int n) const
    {
        return s != nullptr && this->template begins<Case::folded>(s, this->lowCount(n));
    }

    /// True when the text begins with the pattern, exact. `s` counts whole, not cut at N.
    bool startsWithCaseSen(char const* s) const
    {
        return s != nullptr && this->template begins<Case::exact>(s, shortLength(s));
    }

    /// True when the text ends with the pattern, ignoring case.
    bool endsWith(char const* s) const
    {
        return s != nullptr && this->endsFolded(s, this->cutCount(shortLength(s)));
    }

    /// The same, with `n` as a gate only: false when n, modulo 65536, is 0 or above the length.
    /// What is compared is `s` as long as it is, not its first n bytes (intended, unlike
    /// `startsWith`); an empty one gives false. The caller keeps `s` within the text.
    bool endsWith(char const* s, int n) const
    {
        return s != nullptr && this->holdsPattern(this->lowCount(n)) &&
               this->endsFolded(s, shortLength(s));
    }

    /// Appends `s` in a field of |width| columns, padded with blanks on the left for a negative
    /// width and on the right for a positive one, held inside the capacity. A longer text is not
    /// cut to the field. Width 0 without a text changes nothing at all. Null counts as empty.
    void addSpacingC(char const* s, int const& width) { addField<Field::capped>(s, width); }

    /// The same with a field that is NOT held inside the capacity: the caller has room for
    /// |width| more characters, else the blanks are written past the text.
    void addSpacing(char const* s, int const& width) { addField<Field::unbounded>(s, width); }

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Rules8() = default;

    /// As `clear()` for null, else the first N characters of `s` with all behind them zero.
    void construct(char const* s)
    {
        if (s == nullptr)
            this->clear();
        else
            assignCleared(this->ref(), s, shortLength(s));
    }

    /// `count` bytes of `s`, zero bytes included, count taken modulo 65536 (-1 gives N characters)
    /// and cut at N; all text behind them zero.
    void construct(char const* s, int count)
    {
        assignCleared(this->ref(), s, this->lowCount(count));
    }

private:
    template <Case mode>
    bool findsText(char const* s) const
    {
        return s != nullptr && find<mode>(this->ref(), s, this->cutCount(shortLength(s)), 0) >= 0;
    }

    template <Field kind>
    void addField(char const* s, int width)
    {
        unsigned const count = s == nullptr ? 0 : shortLength(s);
        appendField<kind>(this->ref(), count, width, [s](char* at, unsigned kept) {
            if (kept != 0)
                std::memmove(at, s, kept);
        });
    }
};

} // namespace qvStrings
