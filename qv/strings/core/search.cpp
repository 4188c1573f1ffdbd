#include "qv/strings/core/search.h"

#include "qv/strings/core/mismatch.h"

#include <algorithm>
#include <bit>
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

/// The place in the pattern of the second unit to sieve by: its end, or its middle where both ends
/// are the same ("/.../"), since two equal sieves stop little more than one.
template <typename Unit>
unsigned tellingPlace(Unit const* pattern, unsigned count)
{
    return pattern[count - 1] != pattern[0] ? count - 1 : count / 2;
}

/// Tells most spans of a text apart by two of their units, a block of `size` spans at a time: the
/// first unit, and one that moves to where the last refused span differed, since in periodic text
/// the next ones differ there too.
template <Case mode, unsigned size, typename Unit>
class Sift
{
    static constexpr unsigned bytes = std::min<unsigned>(16, size * sizeof(Unit));
    using Block = Lanes<Unit, bytes>;

public:
    /// Over the spans from `begin` to `lastSpan`, which are at least a block.
    Sift(Unit const* begin, Unit const* lastSpan, Unit const* pattern, unsigned place)
        : block_(begin),
          last_(lastSpan + 1 - size),
          pattern_(pattern),
          place_(place),
          first_(pattern[0]),
          second_(pattern[place])
    {}

    /// Goes on to the first block that lets spans pass, beginning with the one where it stands.
    bool seek()
    {
        do {
            passed_ = zeros([this](Unit const* units) {
                return first_.difference(units) | second_.difference(units + place_);
            });
            if (passed_ != 0)
                return true;
        } while (advance());
        return false;
    }

    /// Goes to the next block. The last one reaches back into the one before it, whose spans are
    /// refused once more.
    bool advance()
    {
        if (block_ == last_)
            return false;
        block_ = std::min(end(), last_);
        return true;
    }

    bool any() const { return passed_ != 0; }

    /// The first span of the block that has passed.
    Unit const* span() const { return block_ + std::countr_zero(passed_); }

    /// Where the next block begins.
    Unit const* end() const { return block_ + size; }

    /// Refuses that span, which differs at this place, and all that differ there in the same way.
    void refuse(unsigned place)
    {
        place_ = place;
        second_ = BlockSieve<mode, bytes, Unit>(pattern_[place]);
        passed_ &= zeros([this](Unit const* units) { return second_.difference(units + place_); });
    }

private:
    /// A bit for every span of the block whose difference is 0.
    template <typename Difference>
    unsigned zeros(Difference difference) const
    {
        if constexpr (size == Block::size)
            return difference(block_).zeros();
        else
            return Block::zeros(difference(block_), difference(block_ + Block::size));
    }

    Unit const* block_;
    Unit const* last_;
    Unit const* pattern_;
    unsigned place_;
    unsigned passed_ = 0;
    BlockSieve<mode, bytes, Unit> first_;
    BlockSieve<mode, bytes, Unit> second_;
};

/// The search over less than a block of spans.
template <Case mode, typename Unit>
[[gnu::noinline]] int findByUnits(Unit const* begin, Unit const* lastSpan, Unit const* pattern,
                                  unsigned count, Unit const* text)
{
    Sieve<mode, Unit> const first(pattern[0]);
    for (Unit const* span = begin; span <= lastSpan; ++span)
        if (first.difference(*span) == 0 && equal<mode>(span, pattern, count))
            return static_cast<int>(span - text);
    return -1;
}

/// The search where spans look alike: one has differed at `place`. A sieve that learns helps, and
/// where even that lets too many through the sum filter, which looks at every unit once, however
/// much the spans are alike.
template <Case mode, unsigned size, typename Unit>
int findAmongAlike(Unit const* begin, Unit const* lastSpan, Unit const* pattern, unsigned count,
                   Unit const* text, unsigned place)
{
    constexpr unsigned patience = 16;
    Sift<mode, size, Unit> sift(begin, lastSpan, pattern, place);
    unsigned refused = 0;
    do {
        if (!sift.seek())
            return -1;
        do {
            unsigned const differing = mismatch<mode>(sift.span(), pattern, count);
            if (differing == count)
                return static_cast<int>(sift.span() - text);
            ++refused;
            sift.refuse(differing);
        } while (sift.any());
        // Less than two blocks of spans never wear out the patience. A damaged length is more than
        // a folded copy holds; it does without the filter.
        if constexpr (size >= patience) {
            auto const length = static_cast<unsigned>(lastSpan - text) + count;
            if (refused > patience + static_cast<unsigned>(sift.end() - begin) / patience &&
                (mode == Case::exact || length <= maxCapacity))
                return slideBySumIn<mode>(text, length, pattern, count,
                                          static_cast<unsigned>(sift.end() - text));
        }
    } while (sift.advance());
    return -1;
}

/// Goes on behind a span that has passed the sieve and differs at `place`.
template <Case mode, typename Unit>
[[gnu::noinline]] int findBehind(Unit const* span, Unit const* lastSpan, Unit const* pattern,
                                 unsigned count, Unit const* text, unsigned place)
{
    Unit const* const begin = span + 1;
    auto const spans = lastSpan - span;
    if (spans >= 16)
        return findAmongAlike<mode, 16>(begin, lastSpan, pattern, count, text, place);
    if (spans >= 8)
        return findAmongAlike<mode, 8>(begin, lastSpan, pattern, count, text, place);
    return findByUnits<mode>(begin, lastSpan, pattern, count, text);
}

/// Goes on where a span has passed the sieve. By itself, so that a search which ends there needs no
/// registers saved.
template <Case mode, typename Unit>
[[gnu::noinline, gnu::flatten]] int findFrom(Unit const* span, Unit const* lastSpan,
                                             Unit const* pattern, unsigned count, Unit const* text)
{
    unsigned const place = mismatchOfShort<mode>(span, pattern, count);
    if (place == count)
        return static_cast<int>(span - text);
    return findBehind<mode>(span, lastSpan, pattern, count, text, place);
}

/// The search over at least a block of spans. Most end at the first span that passes the sieve, or
/// without one.
template <Case mode, unsigned size, typename Unit>
int findByBlocks(Unit const* begin, Unit const* lastSpan, Unit const* pattern, unsigned count,
                 Unit const* text)
{
    Sift<mode, size, Unit> sift(begin, lastSpan, pattern, tellingPlace(pattern, count));
    if (!sift.seek())
        return -1;
    return findFrom<mode>(sift.span(), lastSpan, pattern, count, text);
}

} // namespace

template <Case mode, typename Unit>
int find(TextRef<Unit const> self, Unit const* pattern, unsigned count, int start)
{
    Unit const* const text = self.text();
    int const begin = std::max(start, 0);
    int const lastSpan = static_cast<int>(self.length()) - static_cast<int>(count);
    if (count == 0 || begin > lastSpan)
        return -1;
    int const spans = lastSpan - begin + 1;
    if (spans >= 16)
        return findByBlocks<mode, 16>(text + begin, text + lastSpan, pattern, count, text);
    if (spans >= 8)
        return findByBlocks<mode, 8>(text + begin, text + lastSpan, pattern, count, text);
    return findByUnits<mode>(text + begin, text + lastSpan, pattern, count, text);
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
