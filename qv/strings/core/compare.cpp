#include "qv/strings/core/compare.h"

#include "qv/strings/core/mismatch.h"
#include "qv/strings/core/widePattern.h"

#include <algorithm>

namespace qvStrings {

namespace {

/// Whether `count` units fill a block of 64 bytes. Fewer are compared without a call.
template <typename Unit>
constexpr bool isLong(unsigned count)
{
    return count * sizeof(Unit) >= 64;
}

/// Index of the first unit that differs in long runs, or `count`. Most runs that begin with the
/// same bytes are equal, and memcmp is the fastest to see it. Not for an input that was promised in
/// upper case: where it breaks the promise, equal bytes differ.
template <Case mode, typename Unit>
[[gnu::noinline]] unsigned mismatchOfLong(Unit const* a, Unit const* b, unsigned count)
{
    if (mode == Case::folded && std::memcmp(a, b, 16) == 0 &&
        std::memcmp(a, b, count * sizeof(Unit)) == 0)
        return count;
    return mismatchByBlocks<mode, 16, 4>(a, b, count);
}

/// The order of two texts whose first `count` units were compared: the first that differs is at
/// `at`, or none when `at` is `count`.
template <typename Unit>
int orderAt(unsigned at, Run<Unit> self, Run<Unit> other, unsigned count)
{
    if (at == count)
        return (self.count > other.count) - (self.count < other.count);
    Unit const own = foldUpper(self.units[at]);
    Unit const others = foldUpper(other.units[at]);
    return order(&own, &others, 1);
}

template <typename Unit>
[[gnu::noinline]] int orderOfLong(Run<Unit> self, Run<Unit> other, unsigned count)
{
    return orderAt(mismatchOfLong<Case::folded>(self.units, other.units, count), self, other,
                   count);
}

/// Whether the first units are those of a pattern that the text holds.
template <Case mode, typename Unit>
bool equalStart(TextRef<Unit const> self, Run<Unit> pattern)
{
    return equal<mode>(self.text(), pattern.units, pattern.count);
}

/// Whether the last units are, ignoring case.
template <typename Unit>
bool equalEnd(TextRef<Unit const> self, Run<Unit> pattern)
{
    return equal<Case::folded>(self.text() + (self.length() - pattern.count), pattern.units,
                               pattern.count);
}

} // namespace

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    if (isLong<Unit>(count))
        return mismatchOfLong<mode>(a, b, count);
    return mismatchOfShort<mode>(a, b, count);
}

template <Case mode, typename Unit>
bool equal(Unit const* a, Unit const* b, unsigned count)
{
    if constexpr (mode == Case::exact)
        return order(a, b, count) == 0;
    else if (isLong<Unit>(count)) [[unlikely]]
        return mismatchOfLong<mode>(a, b, count) == count;
    else
        return mismatchOfShort<mode>(a, b, count) == count;
}

template <Case mode, typename Unit>
bool equalText(TextRef<Unit const> self, Run<Unit> other)
{
    return self.length() == other.count && equal<mode>(self.text(), other.units, other.count);
}

template <typename Unit>
bool equalExact(TextRef<Unit const> self, Unit first, Run<Unit> other)
{
    return self.text()[0] == first && self.length() == other.count &&
           equal<Case::exact>(self.text(), other.units, other.count);
}

template <typename Unit>
bool equalExact(TextRef<Unit const> self, unsigned char const* otherObject)
{
    auto const other = self.beside(otherObject);
    return equalExact(self, other.text()[0], other.run());
}

bool equalExact(TextRef<char const> self, char const* other)
{
    return other != nullptr && *other == self.text()[0] &&
           equalExact(self, *other, measured(other));
}

template <Case mode, typename Unit>
bool equalToInput(TextRef<Unit const> self, unsigned char const* otherObject)
{
    auto const other = self.beside(otherObject);
    unsigned const length = self.length();
    Unit const first = length == 0 ? self.text()[0] : foldFirst<mode>(self.text()[0]);
    return first == other.text()[0] && length == other.length() &&
           equal<mode>(self.text(), other.text(), length);
}

bool equalBytes(TextRef<unsigned short const> self, Run<char> bytes)
{
    return self.length() == bytes.count &&
           std::equal(bytes.units, bytes.units + bytes.count, self.text(),
                      [](char byte, unsigned short unit) {
                          return unitOf<unsigned short>(byte, Extension::zero) == unit;
                      });
}

bool equalBytesFolded(TextRef<unsigned short const> self, Run<char> bytes)
{
    return self.length() == bytes.count &&
           std::equal(bytes.units, bytes.units + bytes.count, self.text(),
                      [](char byte, unsigned short unit) {
                          return static_cast<signed char>(foldUpper(byte)) ==
                                 static_cast<int>(foldUpper(unit));
                      });
}

bool equalFirstHalf(TextRef<unsigned short const> self, Run<unsigned short> other)
{
    return self.length() == other.count &&
           (other.count == 0 || std::memcmp(self.text(), other.units, other.count) == 0);
}

template <Case mode, typename Unit>
bool begins(TextRef<Unit const> self, Run<Unit> pattern)
{
    return holdsPattern(self, pattern.count) && equalStart<mode>(self, pattern);
}

template <Case mode>
bool begins(TextRef<unsigned short const> self, Run<char> pattern)
{
    return holdsPattern(self, pattern.count) && equalStart<mode>(self, WidePattern(pattern).run());
}

template <typename Unit>
bool ends(TextRef<Unit const> self, Run<Unit> pattern)
{
    return holdsPattern(self, pattern.count) && equalEnd(self, pattern);
}

bool ends(TextRef<unsigned short const> self, Run<char> pattern)
{
    return holdsPattern(self, pattern.count) && equalEnd(self, WidePattern(pattern).run());
}

template <typename Unit>
int orderFolded(TextRef<Unit const> self, unsigned char const* otherObject)
{
    auto const a = self.run();
    auto const b = self.beside(otherObject).run();
    unsigned const count = std::min(a.count, b.count);
    if (isLong<Unit>(count)) [[unlikely]]
        return orderOfLong(a, b, count);
    return orderAt(mismatchOfShort<Case::folded>(a.units, b.units, count), a, b, count);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template unsigned mismatch<Case::exact>(Unit const*, Unit const*, unsigned);                   \
    template unsigned mismatch<Case::folded>(Unit const*, Unit const*, unsigned);                  \
    template unsigned mismatch<Case::upperInput>(Unit const*, Unit const*, unsigned);              \
    template bool equal<Case::exact>(Unit const*, Unit const*, unsigned);                          \
    template bool equal<Case::folded>(Unit const*, Unit const*, unsigned);                         \
    template bool equal<Case::upperInput>(Unit const*, Unit const*, unsigned);                     \
    template bool equalText<Case::exact>(TextRef<Unit const>, Run<Unit>);                          \
    template bool equalText<Case::folded>(TextRef<Unit const>, Run<Unit>);                         \
    template bool equalExact(TextRef<Unit const>, Unit, Run<Unit>);                                \
    template bool equalExact(TextRef<Unit const>, unsigned char const*);                           \
    template bool equalToInput<Case::upperInput>(TextRef<Unit const>, unsigned char const*);       \
    template bool equalToInput<Case::lowerInput>(TextRef<Unit const>, unsigned char const*);       \
    template bool begins<Case::exact>(TextRef<Unit const>, Run<Unit>);                             \
    template bool begins<Case::folded>(TextRef<Unit const>, Run<Unit>);                            \
    template bool ends(TextRef<Unit const>, Run<Unit>);                                            \
    template int orderFolded(TextRef<Unit const>, unsigned char const*);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE
template bool begins<Case::exact>(TextRef<unsigned short const>, Run<char>);
template bool begins<Case::folded>(TextRef<unsigned short const>, Run<char>);

} // namespace qvStrings
