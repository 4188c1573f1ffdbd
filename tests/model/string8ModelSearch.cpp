#include "tests/model/string8Model.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

namespace qvTest {

namespace {

// Below zero, zero or above it, by unsigned byte value, over the first n bytes.
int compareBytes(std::string const& a, std::string const& b, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        int const difference = static_cast<unsigned char>(a[i]) - static_cast<unsigned char>(b[i]);
        if (difference != 0)
            return difference;
    }
    return 0;
}

bool sameFirst(std::string const& a, std::string const& b, std::size_t n)
{
    return compareBytes(a, b, n) == 0;
}

bool sameEnd(std::string const& text, std::string const& end)
{
    return text.substr(text.size() - end.size()) == end;
}

} // namespace

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string upper(std::string s)
{
    for (char& c : s)
        c = upper(c);
    return s;
}

std::string lower(std::string s)
{
    for (char& c : s)
        c = lower(c);
    return s;
}

// First byte, then length, then the text: the first byte counts even when both are empty.
bool String8Model::equals(String8Model const& o) const
{
    if (textAt(0) != o.textAt(0))
        return false;
    if (length() != o.length())
        return false;
    return used() == o.used();
}

bool String8Model::equals(Text s) const
{
    if (s == nullptr)
        return false;
    unsigned char const first = s->empty() ? Byte{0} : static_cast<Byte>((*s)[0]);
    if (first != textAt(0))
        return false;
    if (s->size() % 65536 != length())
        return false;
    return sameFirst(used(), *s, length());
}

bool String8Model::equalsLegacy(String8Model const& o) const
{
    String8Model made(layout, 0);
    made.constructLegacy(o);
    return equals(made);
}

bool String8Model::isEqual(String8Model const& o) const
{
    return length() == o.length() && upper(used()) == upper(o.used());
}

bool String8Model::isEqual(std::string const& s, int n) const
{
    if (static_cast<int>(length()) != n)
        return false;
    return sameFirst(upper(used()), upper(s), length());
}

bool String8Model::isEqualSameCase(std::string const& s, int n) const
{
    if (static_cast<int>(length()) != n)
        return false;
    return sameFirst(used(), s, length());
}

// Only the characters in use are folded, so a stale first byte of an empty string stays itself.
bool String8Model::isEqualUpperCaseInput(String8Model const& o) const
{
    String8Model folded = *this;
    folded.makeUpper();
    return folded.equals(o);
}

bool String8Model::isEqualLowerCaseInput(String8Model const& o) const
{
    String8Model folded = *this;
    folded.makeLower();
    return folded.equals(o);
}

String8Model::Order String8Model::compare(String8Model const& o) const
{
    int const difference =
        compareBytes(upper(used()), upper(o.used()), std::min(length(), o.length()));
    if (difference != 0)
        return {difference, false};
    if (length() == o.length())
        return {0, true};
    return {length() < o.length() ? -1 : 1, true};
}

String8Model::Order String8Model::compareSameCase(String8Model const& o) const
{
    return {compareBytes(used(), o.used(), std::min(length(), o.length())), false};
}

bool String8Model::less(String8Model const& o) const
{
    int const difference = compareSameCase(o).value;
    return difference == 0 ? length() < o.length() : difference < 0;
}

bool String8Model::greater(String8Model const& o) const
{
    int const difference = compareSameCase(o).value;
    return difference == 0 ? length() > o.length() : difference > 0;
}

int String8Model::search(std::string const& pattern, std::string const& receiver, int start) const
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

int String8Model::indexOf(String8Model const& p, int start) const
{
    return search(upper(p.used()), upper(used()), start);
}

int String8Model::indexOfCaseSen(String8Model const& p, int start) const
{
    return search(p.used(), used(), start);
}

int String8Model::indexOfChar(char c, int start) const
{
    int const n = static_cast<int>(length());
    for (int i = start >= 1 && start < n ? start : 0; i < n; ++i)
        if (upper(static_cast<char>(textAt(static_cast<std::size_t>(i)))) == upper(c))
            return i;
    return -1;
}

int String8Model::indexOfCaseSenChar(char c, int start) const
{
    int const n = static_cast<int>(length());
    for (int i = start >= 1 && start < n ? start : 0; i < n; ++i)
        if (textAt(static_cast<std::size_t>(i)) == static_cast<Byte>(c))
            return i;
    return -1;
}

int String8Model::indexOfUnit(unsigned short c, int start) const
{
    std::size_t const from = static_cast<unsigned int>(start);
    for (std::size_t i = from < length() ? from : 0; i < length(); ++i)
        if (textAt(i) == static_cast<Byte>(c % 256))
            return static_cast<int>(i);
    return -1;
}

int String8Model::lastIndexOf(char c, int start) const
{
    std::size_t const from = static_cast<unsigned int>(start);
    std::size_t behind = from < length() ? from + 1 : length();
    while (behind > 0) {
        --behind;
        if (textAt(behind) == static_cast<Byte>(c))
            return static_cast<int>(behind);
    }
    return -1;
}

// The last pattern found wins, whatever its position; only position 0 ends the search at once.
int String8Model::indexOfFirstOcc(std::vector<String8Model const*> const& patterns,
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

int String8Model::count(char c) const
{
    std::string const folded = upper(used());
    return static_cast<int>(std::count(folded.begin(), folded.end(), upper(c)));
}

int String8Model::countCaseSen(char c) const
{
    std::string const plain = used();
    return static_cast<int>(std::count(plain.begin(), plain.end(), c));
}

bool String8Model::containsChar(char c) const
{
    return count(c) != 0;
}

bool String8Model::contains(Text s) const
{
    return indexOf(temporary(s), 0) != -1;
}

bool String8Model::contains(String8Model const& p) const
{
    return indexOf(p, 0) != -1;
}

bool String8Model::containsCaseSen(Text s) const
{
    return indexOfCaseSen(temporary(s), 0) != -1;
}

bool String8Model::containsCaseSen(String8Model const& p) const
{
    return indexOfCaseSen(p, 0) != -1;
}

bool String8Model::containsCaseSen(std::string const& s, int n) const
{
    String8Model pattern(layout, 0);
    pattern.constructCounted(s, n);
    return indexOfCaseSen(pattern, 0) != -1;
}

bool String8Model::containsUpperCaseInput(Text s) const
{
    return containsUpperCaseInput(temporary(s));
}

bool String8Model::containsUpperCaseInput(String8Model const& p) const
{
    return search(p.used(), upper(used()), 0) != -1;
}

bool String8Model::lengthFits(unsigned int patternLength) const
{
    return static_cast<std::uint16_t>(patternLength - 1) < length();
}

bool String8Model::startsWithChar(char c) const
{
    return length() != 0 && textAt(0) == static_cast<Byte>(c);
}

bool String8Model::endsWithChar(char c) const
{
    return length() != 0 && textAt(length() - 1) == static_cast<Byte>(c);
}

bool String8Model::startsWith(Text s) const
{
    return s != nullptr && startsWith(temporary(s));
}

bool String8Model::startsWith(Text s, int n) const
{
    if (s == nullptr || n == 0 || !lengthFits(static_cast<unsigned int>(n)))
        return false;
    std::size_t const m = std::min<std::size_t>(static_cast<std::uint16_t>(n), capacity());
    return sameFirst(upper(used()), upper(*s), m);
}

bool String8Model::startsWith(String8Model const& p) const
{
    if (!lengthFits(static_cast<unsigned int>(p.length())))
        return false;
    return sameFirst(upper(used()), upper(p.used()), p.length());
}

bool String8Model::startsWithCaseSen(Text s) const
{
    if (s == nullptr)
        return false;
    std::size_t const n = s->size() % 65536;
    return lengthFits(static_cast<unsigned int>(n)) && sameFirst(used(), *s, n);
}

bool String8Model::startsWithCaseSen(String8Model const& p) const
{
    return lengthFits(static_cast<unsigned int>(p.length())) &&
           sameFirst(used(), p.used(), p.length());
}

bool String8Model::endsWith(Text s) const
{
    return s != nullptr && endsWith(temporary(s));
}

// The count is a gate only; what is compared is the zero-terminated text. An empty one ends
// nothing.
bool String8Model::endsWith(std::string const& s, int n) const
{
    if (n == 0 || !lengthFits(static_cast<unsigned int>(n)))
        return false;
    std::string const pattern = s.substr(0, s.size() % 65536);
    return !pattern.empty() && sameEnd(upper(used()), upper(pattern));
}

bool String8Model::endsWith(String8Model const& p) const
{
    return lengthFits(static_cast<unsigned int>(p.length())) &&
           sameEnd(upper(used()), upper(p.used()));
}

} // namespace qvTest
