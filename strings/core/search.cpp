#include "strings/core/search.h"

#include "strings/core/lanes.h"

#include <algorithm>
#include <numeric>

namespace qvStrings {

namespace {

/// A run of units in upper case, folded once.
template <typename Unit>
class UpperCopy
{
public:
    UpperCopy(Unit const* units, unsigned count)
    {
        std::transform(units, units + count, folded_, foldUpper<Unit>);
    }

    Unit const* units() const { return folded_; }

private:
    Unit folded_[maxCapacity];
};

/// The sum filter: the sum of the pattern's units is held against that of a span which slides
/// along the text, taking one unit in and giving one out. Only equal sums are worth comparing.
template <typename Unit>
int slideBySum(Unit const* text, unsigned length, Unit const* pattern, unsigned count,
               unsigned start)
{
    auto const sumOf = [count](Unit const* units) {
        return std::accumulate(units, units + count, 0u);
    };
    if (start + count > length)
        return -1;
    unsigned const wanted = sumOf(pattern);
    unsigned sum = sumOf(text + start);
    for (unsigned i = start;; ++i) {
        if (sum == wanted && text[i] == pattern[0] && equal<Case::exact>(text + i, pattern, count))
            return static_cast<int>(i);
        if (i + count >= length)
            return -1;
        sum += static_cast<unsigned>(text[i + count]) - static_cast<unsigned>(text[i]);
    }
}

/// The same in the given case, both sides folded once.
template <Case mode, typename Unit>
int slideBySumIn(Unit const* text, unsigned length, Unit const* pattern, unsigned count,
                 unsigned start)
{
    if constexpr (mode == Case::exact) {
        return slideBySum(text, length, pattern, count, start);
    } else if constexpr (mode == Case::upperInput) {
        UpperCopy<Unit> const upper(text, length);
        return slideBySum(upper.units(), length, pattern, count, start);
    } else {
        UpperCopy<Unit> const upper(text, length);
        UpperCopy<Unit> const upperPattern(pattern, count);
        return slideBySum(upper.units(), length, upperPattern.units(), count, start);
    }
}

/// Finds the units that equal one unit of the pattern in the given case, by their bits under a
/// mask: it drops the bit between the cases of a letter, so that nothing needs folding.
template <Case mode, typename Unit>
struct Sieve
{
    Unit wanted;
    Unit mask;

    explicit Sieve(Unit unit) : wanted(foldSecond<mode>(unit)), mask(static_cast<Unit>(~0))
    {
        // A lower-case letter that was promised to be in upper case keeps the bit: nothing equals
        // it.
        bool const isLetter = foldLower(wanted) != foldUpper(wanted);
        if (mode != Case::exact && isLetter)
            mask = static_cast<Unit>(~('a' ^ 'A'));
    }

    /// 0 for an equal unit.
    Unit difference(Unit unit) const { return static_cast<Unit>((unit & mask) ^ wanted); }
};

/// The same for a block of units at once.
template <Case mode, unsigned bytes, typename Unit>
class BlockSieve
{
    using Block = Lanes<Unit, bytes>;

public:
    explicit BlockSieve(Unit unit) : BlockSieve(Sieve<mode, Unit>(unit)) {}

    /// 0 in the lanes of equal units.
    Block difference(Unit const* units) const { return (Block(units) & mask_) ^ wanted_; }

private:
    explicit BlockSieve(Sieve<mode, Unit> sieve)
        : wanted_(Block::all(sieve.wanted)),
          mask_(Block::all(sieve.mask))
    {}

    Block wanted_;
    Block mask_;
};

/// The place in the pattern of the second unit to sieve by: the last that differs from the first
/// one. The ends are often the same ("/.../"), and two equal sieves stop little more than one.
template <typename Unit>
unsigned tellingPlace(Unit const* pattern, unsigned count)
{
    unsigned place = count - 1;
    while (place > 0 && pattern[place] == pattern[0])
        --place;
    return place > 0 ? place : count - 1;
}

/// The search over at least a block of spans. Most spans are told apart by two of their units, a
/// block of spans at a time: the first, and one that moves to where the last refused span
/// differed, since in periodic text the next ones differ there too. Where even that lets too many
/// through the sum filter takes over: it looks at every unit once, however much the spans are
/// alike.
template <Case mode, unsigned bytes, typename Unit>
int findByBlocks(Unit const* text, unsigned length, Unit const* pattern, unsigned count,
                 unsigned begin)
{
    using Block = Lanes<Unit, bytes>;
    constexpr unsigned patience = 16;
    unsigned const lastBlock = length - count + 1 - Block::size;
    using Wide = BlockSieve<mode, bytes, Unit>;
    Wide const first(pattern[0]);
    unsigned place = tellingPlace(pattern, count);
    Wide second(pattern[place]);
    unsigned refused = 0;
    // The last block reaches back into the one before it, whose spans are refused once more.
    for (unsigned i = begin;; i = std::min(i + Block::size, lastBlock)) {
        Block passed = (first.difference(text + i) | second.difference(text + i + place)).isZero();
        if (passed.any()) {
            do {
                unsigned const span = i + passed.firstSet();
                place = mismatch<mode>(text + span, pattern, count);
                if (place == count)
                    return static_cast<int>(span);
                ++refused;
                second = Wide(pattern[place]);
                passed = passed & second.difference(text + i + place).isZero();
            } while (passed.any());
            // A damaged length is more than a folded copy holds; it does without the filter.
            if (refused > patience + (i - begin) / patience &&
                (mode == Case::exact || length <= maxCapacity))
                return slideBySumIn<mode>(text, length, pattern, count, i + Block::size);
        }
        if (i == lastBlock)
            return -1;
    }
}

} // namespace

template <Case mode, typename Unit>
int find(TextRef<Unit const> self, Unit const* pattern, unsigned count, int start)
{
    Unit const* const text = self.text();
    unsigned const length = self.length();
    if (count == 0 || count + static_cast<long long>(start) > length)
        return -1;
    if (count == length)
        return equal<mode>(text, pattern, count) ? 0 : -1;
    if (count > length)
        return -1; // only a negative start comes here

    auto const begin = static_cast<unsigned>(std::max(start, 0));
    unsigned const end = length - count + 1;
    if (end - begin >= Lanes<Unit, 16>::size)
        return findByBlocks<mode, 16>(text, length, pattern, count, begin);
    if (end - begin >= Lanes<Unit, 8>::size)
        return findByBlocks<mode, 8>(text, length, pattern, count, begin);
    Sieve<mode, Unit> const first(pattern[0]);
    for (unsigned i = begin; i < end; ++i)
        if (first.difference(text[i]) == 0 && equal<mode>(text + i, pattern, count))
            return static_cast<int>(i);
    return -1;
}

template <typename Unit>
int findFirstOcc(TextRef<Unit const> self, std::initializer_list<TextRef<Unit const>> patterns,
                 int* which)
{
    int found = -1;
    int foundWhich = -1;
    int number = 0;
    for (TextRef<Unit const> const& pattern : patterns) {
        int const at = find<Case::folded>(self, pattern.text(), pattern.length(), 0);
        if (at >= 0) {
            found = at;
            foundWhich = number;
        }
        if (at == 0)
            break;
        ++number;
    }
    if (which != nullptr)
        *which = foundWhich;
    return found;
}

template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start)
{
    Unit const* const text = self.text();
    auto const length = static_cast<int>(self.length());
    Unit const wanted = foldSecond<mode>(unit);
    for (int i = start > 0 && start < length ? start : 0; i < length; ++i)
        if (foldFirst<mode>(text[i]) == wanted)
            return i;
    return -1;
}

template <typename Unit>
int findLastUnit(TextRef<Unit const> self, Unit unit, int start)
{
    Unit const* const text = self.text();
    auto const length = static_cast<int>(self.length());
    for (int i = start >= 0 && start < length ? start : length - 1; i >= 0; --i)
        if (text[i] == unit)
            return i;
    return -1;
}

template <Case mode, typename Unit>
int countUnit(TextRef<Unit const> self, Unit unit)
{
    Unit const* const text = self.text();
    Unit const wanted = foldSecond<mode>(unit);
    return static_cast<int>(std::count_if(text, text + self.length(), [wanted](Unit each) {
        return foldFirst<mode>(each) == wanted;
    }));
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template int find<Case::exact>(TextRef<Unit const>, Unit const*, unsigned, int);               \
    template int find<Case::folded>(TextRef<Unit const>, Unit const*, unsigned, int);              \
    template int find<Case::upperInput>(TextRef<Unit const>, Unit const*, unsigned, int);          \
    template int findFirstOcc(TextRef<Unit const>, std::initializer_list<TextRef<Unit const>>,     \
                              int*);                                                               \
    template int findUnit<Case::exact>(TextRef<Unit const>, Unit, int);                            \
    template int findUnit<Case::folded>(TextRef<Unit const>, Unit, int);                           \
    template int findLastUnit(TextRef<Unit const>, Unit, int);                                     \
    template int countUnit<Case::exact>(TextRef<Unit const>, Unit);                                \
    template int countUnit<Case::folded>(TextRef<Unit const>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
