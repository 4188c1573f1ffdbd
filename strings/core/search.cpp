#include "strings/core/search.h"

#include <algorithm>

namespace qvStrings {

namespace {

/// The sum by which a span is sieved before its units are compared: of its two ends, in as many
/// bits as a unit has. A sum only spares comparisons, so the cheapest that tells most spans
/// apart is taken; one addition and one comparison settle a position.
template <Case mode, typename Unit>
Unit spanSum(Unit const* span, unsigned count)
{
    return static_cast<Unit>(foldFirst<mode>(span[0]) + foldFirst<mode>(span[count - 1]));
}

/// True when one of `block` neighbouring spans has the wanted sum: no early exit, so that it
/// becomes a few vector steps.
template <Case mode, unsigned block, typename Unit>
bool blockHasSum(Unit const* spans, unsigned count, Unit wanted)
{
    Unit found = 0;
    for (unsigned i = 0; i < block; ++i)
        found = static_cast<Unit>(found | (spanSum<mode>(spans + i, count) == wanted));
    return found != 0;
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

    constexpr unsigned block = 32 / sizeof(Unit);
    unsigned const last = length - count;
    auto const wanted =
        static_cast<Unit>(foldSecond<mode>(pattern[0]) + foldSecond<mode>(pattern[count - 1]));
    for (auto i = static_cast<unsigned>(std::max(start, 0)); i <= last;) {
        if (i + block <= last && !blockHasSum<mode, block>(text + i, count, wanted)) {
            i += block;
            continue;
        }
        for (unsigned const end = std::min(i + block, last + 1); i < end; ++i)
            if (spanSum<mode>(text + i, count) == wanted && equal<mode>(text + i, pattern, count))
                return static_cast<int>(i);
    }
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

} // namespace qvStrings
