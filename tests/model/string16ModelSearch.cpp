#include "tests/model/string16Model.h"

#include <algorithm>

namespace qvTest {

namespace {

// A char that is compared as a signed number equals no unit from 0x80 on.
bool equalsSomeUnit(char c)
{
    return static_cast<signed char>(c) >= 0;
}

std::string storedBytes(std::u16string const& units)
{
    std::string bytes;
    for (char16_t const unit : units) {
        bytes += static_cast<char>(unit % 256);
        bytes += static_cast<char>(unit / 256);
    }
    return bytes;
}

} // namespace

// Byte texts compare zero-extended and without a look at the first unit.
bool String16Model::equals(Text s) const
{
    if (s == nullptr || lowSixteenBits(s->size()) != length())
        return false;
    return sameFirst(used(), zeroExtended(*s), length());
}

// Null is neither equal nor unequal.
bool String16Model::unequal(Text s) const
{
    return s != nullptr && !equals(s);
}

// As many bytes as there are units, so half of the text.
bool String16Model::equalsUnitText(Units s) const
{
    if (s == nullptr)
        return false;
    return measured(*s).size() == length() &&
           sameFirst(storedBytes(used()), storedBytes(*s), length());
}

bool String16Model::isEqual(std::string const& s, int n) const
{
    if (static_cast<int>(length()) != n)
        return false;
    for (std::size_t i = 0; i < length(); ++i)
        if (!equalsSomeUnit(s[i]) || upper(textAt(i)) != static_cast<char16_t>(upper(s[i])))
            return false;
    return true;
}

int String16Model::indexOfText(Text s) const
{
    return indexOf(temporary(s), 0);
}

int String16Model::count(char c) const
{
    return equalsSomeUnit(c) ? countUnit(signExtended(c)) : 0;
}

int String16Model::countCaseSen(char c) const
{
    return equalsSomeUnit(c) ? countUnitCaseSen(signExtended(c)) : 0;
}

// Here, unlike in the count, the char is cut to a unit, so 0xE4 is found as 0xFFE4.
bool String16Model::containsChar(char c) const
{
    return countUnit(signExtended(c)) != 0;
}

bool String16Model::contains(Text s) const
{
    return contains(temporary(s));
}

bool String16Model::containsCaseSen(Text s) const
{
    return containsCaseSen(temporary(s));
}

bool String16Model::containsCaseSen(std::string const& s, int n) const
{
    return containsCaseSen(temporary(&s, n));
}

bool String16Model::containsUpperCaseInput(Text s) const
{
    return containsUpperCaseInput(temporary(s));
}

bool String16Model::startsWithChar(char c) const
{
    return equalsSomeUnit(c) && startsWithUnit(signExtended(c));
}

bool String16Model::endsWithChar(char c) const
{
    return equalsSomeUnit(c) && endsWithUnit(signExtended(c));
}

bool String16Model::startsWith(Text s) const
{
    return startsWith(temporary(s));
}

bool String16Model::startsWith(Text s, int n) const
{
    if (s == nullptr || n == 0 || static_cast<int>(length()) < n)
        return false;
    return startsWith(temporary(s, n));
}

bool String16Model::startsWithCaseSen(Text s) const
{
    return startsWithCaseSen(temporary(s));
}

bool String16Model::endsWith(Text s) const
{
    return endsWith(temporary(s));
}

// The count is a gate only; behind it the whole text is compared, and an empty one ends all.
bool String16Model::endsWith(Text s, int n) const
{
    if (s == nullptr || n == 0 || static_cast<int>(length()) < n)
        return false;
    std::string const end = s->substr(0, lowSixteenBits(s->size()));
    return sameEnd(upper(used()), upper(signExtended(end)));
}

} // namespace qvTest
