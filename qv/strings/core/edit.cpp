#include "qv/strings/core/edit.h"

#include "qv/strings/core/fold.h"
#include "qv/strings/core/move.h"

#include <algorithm>

namespace qvStrings {

namespace {

template <typename Unit>
bool isBlank(Unit unit)
{
    return unit == 0 || unit == '\t' || unit == '\n' || unit == '\r' || unit == ' ';
}

} // namespace

template <typename Unit>
void clear(TextRef<Unit> self)
{
    zeroUnits(self.text(), self.capacity() + 1);
    self.storeLength(0);
}

template <typename Unit>
void clearUnused(TextRef<Unit> self)
{
    if (self.storedLength() <= self.capacity())
        zeroUnits(self.text() + self.length(), self.capacity() + 1 - self.length());
}

template <typename Unit>
void calcLength(TextRef<Unit> self)
{
    Unit const* const text = self.text();
    self.endAt(static_cast<unsigned>(std::find(text, text + self.capacity(), Unit{0}) - text));
}

template <typename Unit>
void setLength(TextRef<Unit> self, int length)
{
    self.endAt(static_cast<unsigned>(std::clamp(length, 0, static_cast<int>(self.capacity()))));
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
    moveUnits(text, {text + begin, end - begin});
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
void replaceUnit(TextRef<Unit> self, Unit from, Unit to)
{
    Unit const wanted = foldUpper(from);
    Unit* const text = self.text();
    std::replace_if(
        text, text + self.length(), [wanted](Unit each) { return foldUpper(each) == wanted; }, to);
}

template <typename Unit>
void removeUnit(TextRef<Unit> self, Unit unit)
{
    Unit const wanted = foldUpper(unit);
    Unit* const text = self.text();
    Unit* const end = text + self.length();
    Unit const first = text[0];
    Unit* const keptEnd =
        std::remove_if(text, end, [wanted](Unit each) { return foldUpper(each) == wanted; });
    if (keptEnd == end)
        return;
    // As if the units were removed one by one from the end: each removal left a terminator behind
    // the text of the moment, but for the last one of a text that ends empty.
    std::fill(keptEnd, end, Unit{0});
    if (keptEnd == text)
        text[0] = first;
    self.storeLength(static_cast<unsigned>(keptEnd - text));
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template void clear(TextRef<Unit>);                                                            \
    template void clearUnused(TextRef<Unit>);                                                      \
    template void calcLength(TextRef<Unit>);                                                       \
    template void setLength(TextRef<Unit>, int);                                                   \
    template void trim(TextRef<Unit>);                                                             \
    template void makeUpper(TextRef<Unit>);                                                        \
    template void makeLower(TextRef<Unit>);                                                        \
    template void replaceUnit(TextRef<Unit>, Unit, Unit);                                          \
    template void removeUnit(TextRef<Unit>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
