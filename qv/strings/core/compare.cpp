#include "qv/strings/core/compare.h"

#include "qv/strings/core/mismatch.h"
#include "qv/strings/core/widePattern.h"

#include <algorithm>

namespace qvStrings {

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    if (count * sizeof(Unit) >= 64)
        return mismatchByBlocks<mode, 16, 4>(a, b, count);
    return mismatchOfShort<mode>(a, b, count);
}

template <Case mode, typename Unit>
bool equal(Unit const* a, Unit const* b, unsigned count)
{
    if constexpr (mode == Case::exact)
        return order(a, b, count) == 0;
    else
        return mismatch<mode>(a, b, count) == count;
}

template <Case mode, typename Unit>
bool equalText(TextRef<Unit const> self, Run<Unit> other)
{
    return self.length() == other.count && equal<mode>(self.text(), other.units, other.count);
}

template <typename Unit>
bool equalExact(TextRef<Unit const> self, TextRef<Unit const> other)
{
    return equalExact(self, other.text()[0], other.run());
}

template <Case mode, typename Unit>
bool equalToInput(TextRef<Unit const> self, TextRef<Unit const> other)
{
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
    return holdsPattern(self, pattern.count) &&
           equal<mode>(self.text(), pattern.units, pattern.count);
}

template <Case mode>
bool begins(TextRef<unsigned short const> self, Run<char> pattern)
{
    return holdsPattern(self, pattern.count) && begins<mode>(self, WidePattern(pattern).run());
}

template <typename Unit>
bool ends(TextRef<Unit const> self, Run<Unit> pattern)
{
    return holdsPattern(self, pattern.count) &&
           equal<Case::folded>(self.text() + (self.length() - pattern.count), pattern.units,
                               pattern.count);
}

bool ends(TextRef<unsigned short const> self, Run<char> pattern)
{
    return holdsPattern(self, pattern.count) && ends(self, WidePattern(pattern).run());
}

template <typename Unit>
int orderFolded(TextRef<Unit const> self, TextRef<Unit const> other)
{
    unsigned const count = commonLength(self, other);
    unsigned const at = mismatch<Case::folded>(self.text(), other.text(), count);
    if (at == count)
        return orderOfLengths(self, other);
    Unit const a = foldUpper(self.text()[at]);
    Unit const b = foldUpper(other.text()[at]);
    return order(&a, &b, 1);
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
    template bool equalExact(TextRef<Unit const>, TextRef<Unit const>);                            \
    template bool equalToInput<Case::upperInput>(TextRef<Unit const>, TextRef<Unit const>);        \
    template bool equalToInput<Case::lowerInput>(TextRef<Unit const>, TextRef<Unit const>);        \
    template bool begins<Case::exact>(TextRef<Unit const>, Run<Unit>);                             \
    template bool begins<Case::folded>(TextRef<Unit const>, Run<Unit>);                            \
    template bool ends(TextRef<Unit const>, Run<Unit>);                                            \
    template int orderFolded(TextRef<Unit const>, TextRef<Unit const>);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE
template bool begins<Case::exact>(TextRef<unsigned short const>, Run<char>);
template bool begins<Case::folded>(TextRef<unsigned short const>, Run<char>);

} // namespace qvStrings
