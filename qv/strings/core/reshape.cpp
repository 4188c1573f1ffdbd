#include "qv/strings/core/reshape.h"

#include "qv/strings/core/edit.h"
#include "qv/strings/core/search.h"

#include <cstring>

namespace qvStrings {

namespace {

/// Cuts `cut` units at `at` and puts in `text`. The object itself as `text` counts as what it
/// holds when its turn comes: its own head.
template <typename Unit>
void splice(TextRef<Unit> self, int at, unsigned cut, TextRef<Unit const> text)
{
    auto const head = static_cast<unsigned>(at);
    unsigned const headKept = std::min(head, self.capacity());
    rebuild(self, head, text.text(), same(self, text) ? headKept : text.length(),
            static_cast<long long>(at) + cut, self.length() - head - cut);
}

template <typename Unit>
bool isBlank(Unit unit)
{
    return unit == 0 || unit == '\t' || unit == '\n' || unit == '\r' || unit == ' ';
}

} // namespace

template <Case mode, typename Unit>
void replaceAll(TextRef<Unit> self, TextRef<Unit const> from, TextRef<Unit const> to)
{
    unsigned const count = from.length();
    int at = find<mode, Unit>(self, from.text(), count, 0);
    while (at >= 0) {
        splice(self, at, count, to);
        at = find<mode, Unit>(self, from.text(), count, at + static_cast<int>(to.length()));
    }
}

template <Case mode, typename Unit>
void removeAll(TextRef<Unit> self, TextRef<Unit const> pattern)
{
    unsigned const count = pattern.length();
    int at = find<mode, Unit>(self, pattern.text(), count, 0);
    while (at >= 0) {
        removeRange(self, at, static_cast<int>(count));
        at = find<mode, Unit>(self, pattern.text(), count, at);
    }
}

template <typename Unit>
void removeUnit(TextRef<Unit> self, Unit unit)
{
    Unit const wanted = foldUpper(unit);
    Unit* const text = self.text();
    unsigned const length = self.length();
    Unit* const end = text + length;
    Unit const first = text[0];
    Unit* const keptEnd =
        std::remove_if(text, end, [wanted](Unit each) { return foldUpper(each) == wanted; });
    if (keptEnd == end)
        return;
    // As if the units went one by one from the end: each removal left a terminator behind the
    // text of the moment, but for the last one of a text that ends empty.
    std::fill(keptEnd, end, Unit{0});
    if (keptEnd == text)
        text[0] = first;
    self.storeLength(static_cast<unsigned>(keptEnd - text));
}

template <typename Unit>
void replaceUnit(TextRef<Unit> self, Unit from, Unit to)
{
    Unit const wanted = foldUpper(from);
    Unit* const text = self.text();
    std::replace_if(
        text, text + self.length(), [wanted](Unit each) { return foldUpper(each) == wanted; }, to);
}

template <typename Unit>
void insert(TextRef<Unit> self, int position, TextRef<Unit const> text)
{
    splice(self, std::min(position, static_cast<int>(self.length())), 0, text);
}

template <typename Unit>
void trim(TextRef<Unit> self)
{
    Unit* const text = self.text();
    unsigned end = self.length();
    while (end != 0 && isBlank(text[end - 1]))
        --end;
    unsigned begin = 0;
    while (begin != end && isBlank(text[begin]))
        ++begin;
    std::memmove(text, text + begin, (end - begin) * sizeof(Unit));
    self.endAt(end - begin);
}

template <typename Unit>
void makeUpper(TextRef<Unit> self)
{
    std::transform(self.text(), self.text() + self.length(), self.text(), foldUpper<Unit>);
}

template <typename Unit>
void makeLower(TextRef<Unit> self)
{
    std::transform(self.text(), self.text() + self.length(), self.text(), foldLower<Unit>);
}

template <typename Unit>
void appendBlanks(TextRef<Unit> self, unsigned count)
{
    for (unsigned i = 0; i < count; ++i)
        self.text()[self.length() + i] = ' ';
    self.storeLength(self.length() + count);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template void replaceAll<Case::exact>(TextRef<Unit>, TextRef<Unit const>,                      \
                                          TextRef<Unit const>);                                    \
    template void replaceAll<Case::folded>(TextRef<Unit>, TextRef<Unit const>,                     \
                                           TextRef<Unit const>);                                   \
    template void removeAll<Case::exact>(TextRef<Unit>, TextRef<Unit const>);                      \
    template void removeAll<Case::folded>(TextRef<Unit>, TextRef<Unit const>);                     \
    template void removeUnit(TextRef<Unit>, Unit);                                                 \
    template void replaceUnit(TextRef<Unit>, Unit, Unit);                                          \
    template void insert(TextRef<Unit>, int, TextRef<Unit const>);                                 \
    template void trim(TextRef<Unit>);                                                             \
    template void makeUpper(TextRef<Unit>);                                                        \
    template void makeLower(TextRef<Unit>);                                                        \
    template void appendBlanks(TextRef<Unit>, unsigned);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
