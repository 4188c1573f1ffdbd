#include "qv/strings/core/findText.h"

#include "qv/strings/core/mismatch.h"
#include "qv/strings/core/sieve.h"
#include "qv/strings/core/widePattern.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace qvStrings {

namespace {

/// Where in the text the pattern may still be: the first and the last span, each as long as the
/// pattern. Two words, as a `Run` is, so that both are passed in registers.
template <typename Unit>
struct Spans
{
    Unit const* first;
    Unit const* last;
};

/// A run of units in upper case, folded once.
template <typename Unit>
class UpperCopy
{
public:
    explicit UpperCopy(Run<Unit> source) : count_(source.count)
    {
        std::transform(source.units, source.units + source.count, folded_, foldUpper<Unit>);
    }

    Run<Unit> run() const { return {folded_, count_}; }

private:
    Unit folded_[maxCapacityOf<Unit>];
    unsigned count_;
};

/// The sum filter: compares the sum of the pattern's units with that of a span which slides along
/// the text, taking one unit in and giving one out. Only spans of equal sums are compared.
template <typename Unit>
int slideBySum(Run<Unit> text, Run<Unit> pattern, unsigned start)
{
    unsigned const count = pattern.count;
    auto const sumOf = [count](Unit const* units) {
        return std::accumulate(units, units + count, 0u);
    };
    if (start + count > text.count)
        return -1;
    unsigned const wanted = sumOf(pattern.units);
    unsigned sum = sumOf(text.units + start);
    for (unsigned i = start;; ++i) {
        Unit const* const span = text.units + i;
        // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): no pattern is empty
        if (sum == wanted && *span == *pattern.units &&
            equal<Case::exact>(span, pattern.units, count))
            return static_cast<int>(i);
        if (i + count >= text.count)
            return -1;
        sum += static_cast<unsigned>(span[count]) - static_cast<unsigned>(*span);
    }
}

/// The same in the given case, both sides folded once.
template <Case mode, typename Unit>
int slideBySumIn(Run<Unit> text, Run<Unit> pattern, unsigned start)
{
    if constexpr (mode == Case::exact) {
        return slideBySum(text, pattern, start);
    } else if constexpr (mode == Case::upperInput) {
        UpperCopy<Unit> const upper(text);
        return slideBySum(upper.run(), pattern, start);
    } else {
        UpperCopy<Unit> const upper(text);
        UpperCopy<Unit> const upperPattern(pattern);
        return slideBySum(upper.run(), upperPattern.run(), start);
    }
}

/// Index of the second unit to compare: the last one, or the middle one when first and last are
/// equal ("/.../"), since two equal sieves stop little more than one.
template <typename Unit>
unsigned tellingPlace(Run<Unit> pattern)
{
    return pattern.units[pattern.count - 1] != pattern.units[0] ? pattern.count - 1
                                                                : pattern.count / 2;
}

/// Refuses most spans of a text by two of their units, a block of `size` spans at a time: the
/// first unit, and one that moves to where the last refused span differed, since in periodic text
/// the next ones differ there too.
template <Case mode, unsigned size, typename Unit>
class Sift
{
    static constexpr unsigned bytes = std::min<unsigned>(16, size * sizeof(Unit));
    using Block = Lanes<Unit, bytes>;

public:
    /// @param spans At least a block.
    Sift(Spans<Unit> spans, Unit const* pattern, unsigned place)
        : block_(spans.first),
          last_(spans.last + 1 - size),
          pattern_(pattern),
          place_(place),
          first_(pattern[0]),
          second_(pattern[place])
    {}

    /// Moves on to the first block that lets spans pass, beginning with the present one.
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

    /// Moves to the next block. The last one reaches back into the one before it, whose spans are
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
[[gnu::noinline]] int findByUnits(Spans<Unit> spans, Run<Unit> pattern, Unit const* text)
{
    Sieve<mode, Unit> const first(pattern.units[0]);
    for (Unit const* span = spans.first; span <= spans.last; ++span)
        if (first.difference(*span) == 0 && equal<mode>(span, pattern.units, pattern.count))
            return static_cast<int>(span - text);
    return -1;
}

/// The search where spans look alike: one has differed at `place`. The sieve learns from each
/// refused span. When it still lets too many through, the sum filter searches on: it compares only
/// spans of equal sums, however much the others are alike.
template <Case mode, unsigned size, typename Unit>
int findAmongAlike(Spans<Unit> spans, Run<Unit> pattern, Unit const* text, unsigned place)
{
    constexpr unsigned patience = 16;
    Sift<mode, size, Unit> sift(spans, pattern.units, place);
    unsigned refused = 0;
    do {
        if (!sift.seek())
            return -1;
        do {
            unsigned const differing = mismatch<mode>(sift.span(), pattern.units, pattern.count);
            if (differing == pattern.count)
                return static_cast<int>(sift.span() - text);
            ++refused;
            sift.refuse(differing);
        } while (sift.any());
        // Less than two blocks of spans never wear out the patience.
        if constexpr (size >= patience) {
            if (refused > patience + static_cast<unsigned>(sift.end() - spans.first) / patience) {
                auto const length = static_cast<unsigned>(spans.last - text) + pattern.count;
                return slideBySumIn<mode, Unit>({text, length}, pattern,
                                                static_cast<unsigned>(sift.end() - text));
            }
        }
    } while (sift.advance());
    return -1;
}

/// Searches on behind a span that has passed the sieve and differs at `place`.
template <Case mode, typename Unit>
[[gnu::noinline]] int findBehind(Spans<Unit> passed, Run<Unit> pattern, Unit const* text,
                                 unsigned place)
{
    Spans<Unit> const spans{passed.first + 1, passed.last};
    auto const count = passed.last - passed.first;
    if (count >= 16)
        return findAmongAlike<mode, 16>(spans, pattern, text, place);
    if (count >= 8)
        return findAmongAlike<mode, 8>(spans, pattern, text, place);
    return findByUnits<mode>(spans, pattern, text);
}

/// Searches on from a span that has passed the sieve. Not inlined: the caller then saves no
/// registers.
template <Case mode, typename Unit>
[[gnu::noinline, gnu::flatten]] int findFrom(Spans<Unit> spans, Run<Unit> pattern, Unit const* text)
{
    unsigned const place = mismatchOfShort<mode>(spans.first, pattern.units, pattern.count);
    if (place == pattern.count)
        return static_cast<int>(spans.first - text);
    return findBehind<mode>(spans, pattern, text, place);
}

/// The search over at least a block of spans. Most end at the first span that passes the sieve, or
/// without one.
template <Case mode, unsigned size, typename Unit>
int findByBlocks(Spans<Unit> spans, Run<Unit> pattern, Unit const* text)
{
    Sift<mode, size, Unit> sift(spans, pattern.units, tellingPlace(pattern));
    if (!sift.seek())
        return -1;
    return findFrom<mode, Unit>({sift.span(), spans.last}, pattern, text);
}

} // namespace

template <Case mode, typename Unit>
int find(Run<Unit> text, Run<Unit> pattern, int start)
{
    int const begin = std::max(start, 0);
    int const last = static_cast<int>(text.count) - static_cast<int>(pattern.count);
    if (pattern.count == 0 || begin > last)
        return -1;
    Spans<Unit> const spans{text.units + begin, text.units + last};
    int const count = last - begin + 1;
    if (count >= 16)
        return findByBlocks<mode, 16>(spans, pattern, text.units);
    if (count >= 8)
        return findByBlocks<mode, 8>(spans, pattern, text.units);
    return findByUnits<mode>(spans, pattern, text.units);
}

template <Case mode, typename Unit>
int find(TextRef<Unit const> self, Run<Unit> pattern, int start)
{
    return find<mode>(self.run(), pattern, start);
}

template <Case mode>
int find(TextRef<unsigned short const> self, Run<char> pattern, int start)
{
    return find<mode>(self, WidePattern(pattern).run(), start);
}

template <typename Unit>
int findFirstOcc(TextRef<Unit const> self, std::initializer_list<TextRef<Unit const>> patterns,
                 int* which)
{
    int found = -1;
    int foundWhich = -1;
    int number = 0;
    for (TextRef<Unit const> const& pattern : patterns) {
        int const at = find<Case::folded>(self, pattern.run(), 0);
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

#define QV_INSTANTIATE(Unit)                                                                       \
    template int find<Case::exact>(Run<Unit>, Run<Unit>, int);                                     \
    template int find<Case::folded>(Run<Unit>, Run<Unit>, int);                                    \
    template int find<Case::exact>(TextRef<Unit const>, Run<Unit>, int);                           \
    template int find<Case::folded>(TextRef<Unit const>, Run<Unit>, int);                          \
    template int find<Case::upperInput>(TextRef<Unit const>, Run<Unit>, int);                      \
    template int findFirstOcc(TextRef<Unit const>, std::initializer_list<TextRef<Unit const>>,     \
                              int*);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE
template int find<Case::exact>(TextRef<unsigned short const>, Run<char>, int);
template int find<Case::folded>(TextRef<unsigned short const>, Run<char>, int);
template int find<Case::upperInput>(TextRef<unsigned short const>, Run<char>, int);

} // namespace qvStrings
