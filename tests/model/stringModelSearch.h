#pragma once

// Definitions of stringModel.h, for the files that instantiate it: comparison and search.
#include "tests/model/stringModel.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

namespace qvTest {

// Below zero, zero or above it, over the first n units by their stored bytes: the low byte of a
// unit counts before the high one.
template <class Unit>
int compareStored(std::basic_string<Unit> const& a, std::basic_string<Unit> const& b, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t byte = 0; byte < sizeof(Unit); ++byte) {
            int const left = static_cast<int>(a[i]) >> (8 * byte) & 0xFF;
            int const right = static_cast<int>(b[i]) >> (8 * byte) & 0xFF;
            if (left != right)
                return left - right;
        }
    return 0;
}

// First unit, then length, then the text: the first unit counts even when both are empty.
template <class Unit>
bool StringModel<Unit>::equals(StringModel const& o) const
{
    if (textAt(0) != o.textAt(0))
        return false;
    if (length() != o.length())
        return false;
    return used() == o.used();
}

template <class Unit>
bool StringModel<Unit>::isEqual(StringModel const& o) const
{
    return length() == o.length() && upper(used()) == upper(o.used());
}

template <class Unit>
bool StringModel<Unit>::isEqualUnits(String const& s, int n) const
{
    if (static_cast<int>(length()) != n)
        return false;
    return sameFirst(upper(used()), upper(s), length());
}

template <class Unit>
bool StringModel<Unit>::isEqualSameCaseUnits(String const& s, int n) const
{
    if (static_cast<int>(length()) != n)
        return false;
    return sameFirst(used(), s, length());
}

// Only the units in use are folded, so a stale first unit of an empty string stays itself.
template <class Unit>
bool StringModel<Unit>::isEqualUpperCaseInput(StringModel const& o) const
{
    StringModel folded = *this;
    folded.makeUpper();
    return folded.equals(o);
}

template <class Unit>
bool StringModel<Unit>::isEqualLowerCaseInput(StringModel const& o) const
{
    StringModel folded = *this;
    folded.makeLower();
    return folded.equals(o);
}

template <class Unit>
typename StringModel<Unit>::Order StringModel<Unit>::compare(StringModel const& o) const
{
    int const difference =
        compareStored(upper(used()), upper(o.used()), std::min(length(), o.length()));
    if (difference != 0)
        return {difference, false};
    if (length() == o.length())
        return {0, true};
    return {length() < o.length() ? -1 : 1, true};
}

template <class Unit>
typename StringModel<Unit>::Order StringModel<Unit>::compareSameCase(StringModel const& o) const
{
    return {compareStored(used(), o.used(), std::min(length(), o.length())), false};
}

template <class Unit>
bool StringModel<Unit>::less(StringModel const& o) const
{
    int const difference = compareSameCase(o).value;
    return difference == 0 ? length() < o.length() : difference < 0;
}

template <class Unit>
bool StringModel<Unit>::greater(StringModel const& o) const
{
    int const difference = compareSameCase(o).value;
    return difference == 0 ? length() > o.length() : difference > 0;
}

template <class Unit>
int StringModel<Unit>::search(String const& pattern, String const& receiver, int start) const
{
    long long const patternLength = static_cast<long long>(pattern.size());
    long long const receiverLength = static_cast<long long>(receiver.size());
    if (patternLength == 0)
        return -1;
    if (patternLength + start > receiverLength)
        return -1;
    if (patternLength == receiverLength)
        return pattern == receiver ? 0 : -1;
    assert(start >= 0);
    for (std::size_t at = static_cast<std::size_t>(start); at + pattern.size() <= receiver.size();
         ++at) {
        std::size_t same = 0;
        while (same < pattern.size() && receiver[at + same] == pattern[same])
            ++same;
        if (same == pattern.size())
            return static_cast<int>(at);
    }
    return -1;
}

template <class Unit>
int StringModel<Unit>::indexOf(StringModel const& p, int start) const
{
    return search(upper(p.used()), upper(used()), start);
}

template <class Unit>
int StringModel<Unit>::indexOfCaseSen(StringModel const& p, int start) const
{
    return search(p.used(), used(), start);
}

template <class Unit>
int StringModel<Unit>::indexOfUnit(Unit c, int start) const
{
    int const n = static_cast<int>(length());
    for (int i = start >= 1 && start < n ? start : 0; i < n; ++i)
        if (upper(textAt(static_cast<std::size_t>(i))) == upper(c))
            return i;
    return -1;
}

template <class Unit>
int StringModel<Unit>::indexOfCaseSenUnit(Unit c, int start) const
{
    int const n = static_cast<int>(length());
    for (int i = start >= 1 && start < n ? start : 0; i < n; ++i)
        if (textAt(static_cast<std::size_t>(i)) == c)
            return i;
    return -1;
}

template <class Unit>
int StringModel<Unit>::lastIndexOfUnit(Unit c, int start) const
{
    std::size_t const from = static_cast<unsigned int>(start);
    std::size_t behind = from < length() ? from + 1 : length();
    while (behind > 0) {
        --behind;
        if (textAt(behind) == c)
            return static_cast<int>(behind);
    }
    return -1;
}

// The last pattern found wins, whatever its position; only position 0 ends the search at once.
template <class Unit>
int StringModel<Unit>::indexOfFirstOcc(std::vector<StringModel const*> const& patterns,
                                       int& which) const
{
    which = -1;
    int found = -1;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        int const at = indexOf(*patterns[i], 0);
        if (at == -1)
            continue;
        found = at;
        which = static_cast<int>(i);
        if (at == 0)
            break;
    }
    return found;
}

template <class Unit>
int StringModel<Unit>::indexOfFirstOcc(StringModel const& a, StringModel const& b, int* which) const
{
    int found = 0;
    int const at = indexOfFirstOcc({&a, &b}, found);
    if (which != nullptr)
        *which = found;
    return at;
}

template <class Unit>
int StringModel<Unit>::indexOfFirstOcc(StringModel const& a, StringModel const& b,
                                       StringModel const& c, StringModel const& d,
                                       StringModel const& e, StringModel const& f, int* which) const
{
    int found = 0;
    int const at = indexOfFirstOcc({&a, &b, &c, &d, &e, &f}, found);
    if (which != nullptr)
        *which = found;
    return at;
}

template <class Unit>
int StringModel<Unit>::countUnit(Unit c) const
{
    String const folded = upper(used());
    return static_cast<int>(std::count(folded.begin(), folded.end(), upper(c)));
}

template <class Unit>
int StringModel<Unit>::countUnitCaseSen(Unit c) const
{
    String const plain = used();
    return static_cast<int>(std::count(plain.begin(), plain.end(), c));
}

template <class Unit>
bool StringModel<Unit>::contains(StringModel const& p) const
{
    return indexOf(p, 0) != -1;
}

template <class Unit>
bool StringModel<Unit>::containsCaseSen(StringModel const& p) const
{
    return indexOfCaseSen(p, 0) != -1;
}

template <class Unit>
bool StringModel<Unit>::containsUpperCaseInput(StringModel const& p) const
{
    return search(p.used(), upper(used()), 0) != -1;
}

template <class Unit>
bool StringModel<Unit>::lengthFits(unsigned int patternLength) const
{
    return static_cast<std::uint16_t>(patternLength - 1) < length();
}

template <class Unit>
bool StringModel<Unit>::startsWithUnit(Unit c) const
{
    return length() != 0 && textAt(0) == c;
}

template <class Unit>
bool StringModel<Unit>::endsWithUnit(Unit c) const
{
    return length() != 0 && textAt(length() - 1) == c;
}

template <class Unit>
bool StringModel<Unit>::startsWith(StringModel const& p) const
{
    return lengthFits(static_cast<unsigned int>(p.length())) &&
           sameFirst(upper(used()), upper(p.used()), p.length());
}

template <class Unit>
bool StringModel<Unit>::startsWithCaseSen(StringModel const& p) const
{
    return lengthFits(static_cast<unsigned int>(p.length())) &&
           sameFirst(used(), p.used(), p.length());
}

template <class Unit>
bool StringModel<Unit>::endsWith(StringModel const& p) const
{
    return lengthFits(static_cast<unsigned int>(p.length())) &&
           sameEnd(upper(used()), upper(p.used()));
}

} // namespace qvTest
