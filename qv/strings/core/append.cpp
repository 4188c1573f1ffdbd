#include "qv/strings/core/append.h"

#include "qv/strings/core/appendInline.h"

namespace qvStrings {

namespace {

/// The text becomes the source, uncut.
template <typename Unit, typename Source>
void place(TextRef<Unit> self, Run<Source> source, Extension extension)
{
    write(self.text(), source, extension);
    self.endAt(source.count);
}

/// The same, with zeros behind it. Bytes become units by their sign.
template <typename Unit, typename Source>
void placeCleared(TextRef<Unit> self, Run<Source> source)
{
    write(self.text(), source, Extension::sign);
    self.storeLength(source.count);
    zeroUnits(self.text() + source.count, self.capacity() + 1 - source.count);
}

template <auto work, typename Unit, typename Source, typename... Rest>
[[gnu::noinline]] void apart(TextRef<Unit> self, Run<Source> source, Rest... rest)
{
    work(self, source, rest...);
}

/// Runs `work`, for long texts in a function of its own: it calls the C library, and short texts
/// would save registers for a call that they do not make.
template <auto work, typename Unit, typename Source, typename... Rest>
void withWordsFirst(TextRef<Unit> self, Run<Source> source, Rest... rest)
{
    if (source.count * sizeof(Unit) > longestInline) [[unlikely]]
        apart<work>(self, source, rest...);
    else
        work(self, source, rest...);
}

/// Writes blanks behind the text and adds them to the length, without a bound.
template <typename Unit>
void appendBlanks(TextRef<Unit> self, unsigned count)
{
    for (unsigned i = 0; i < count; ++i)
        self.text()[self.storedLength() + i] = ' ';
    self.storeLength(self.storedLength() + count);
}

unsigned columns(int width)
{
    return width < 0 ? 0u - static_cast<unsigned>(width) : static_cast<unsigned>(width);
}

/// Writes `kept` units by `put(target)`, and blanks up to `field` columns on the side that the sign
/// of `width` says. Terminator.
template <typename Unit, typename Put>
void fillField(TextRef<Unit> self, unsigned kept, unsigned field, int width, Put put)
{
    unsigned const pad = field > kept ? field - kept : 0;
    if (width < 0)
        appendBlanks(self, pad);
    unsigned const at = self.storedLength();
    put(self.text() + at);
    self.storeLength(at + kept);
    if (width > 0)
        appendBlanks(self, pad);
    self.terminate();
}

} // namespace

template <typename Unit, typename Source>
void assign(TextRef<Unit> self, Run<Source> source, Extension extension)
{
    withWordsFirst<place<Unit, Source>>(self, cut(source, self.capacity()), extension);
}

template <typename Unit, typename Source>
void assignCleared(TextRef<Unit> self, Run<Source> source)
{
    withWordsFirst<placeCleared<Unit, Source>>(self, cut(source, self.capacity()));
}

void assign(TextRef<unsigned short> self, unsigned short const* text)
{
    if (text == nullptr)
        self.storeLength(0);
    else
        assign(self, measuredInline(text));
}

void assignCleared(TextRef<unsigned short> self, unsigned short const* text)
{
    assignCleared(self, measuredInline(text));
}

template <typename Unit>
void assignUnclipped(TextRef<Unit> self, Run<Unit> source)
{
    withWordsFirst<place<Unit, Unit>>(self, source, Extension::zero);
}

template <typename Unit, typename Source>
void append(TextRef<Unit> self, Run<Source> source, Extension extension)
{
    if (source.units != nullptr)
        appendInline(self, source, extension);
}

void append(TextRef<unsigned short> self, unsigned short const* text)
{
    append(self, measuredInline(text));
}

template <typename Unit>
void appendRepeating(TextRef<Unit> self, TextRef<Unit const> source)
{
    if (!same(self, source)) {
        append(self, source.run());
        return;
    }
    Unit* const text = self.text();
    unsigned const length = self.length();
    unsigned const end = length == 0 ? 0 : self.capacity();
    for (unsigned i = length; i < end; ++i)
        text[i] = text[i - length];
    self.endAt(end);
}

template <typename Unit>
void fill(TextRef<Unit> self, Unit unit, int count)
{
    if (count < 1)
        return;
    unsigned const kept = std::min(lowCount(count), self.capacity());
    std::fill_n(self.text(), kept, unit);
    self.endAt(kept);
}

template <typename Unit>
void appendField(TextRef<Unit> self, Run<char> text, int width)
{
    if (width == 0 && text.count == 0)
        return;
    self.storeLength(self.length()); // a damaged one is cut, so that no blank leaves the text
    unsigned const room = self.room();
    auto const kept = cut(text, room);
    fillField(self, kept.count, std::min(columns(width), room), width,
              [kept](Unit* target) { write(target, kept, Extension::zero); });
}

template <typename Unit>
void appendUnboundedField(TextRef<Unit> self, Run<Unit> text, int width)
{
    if (width == 0 && text.count == 0)
        return;
    auto const kept = cut(text, self.room());
    fillField(self, kept.count, columns(width), width, [kept](Unit* target) {
        if constexpr (sizeof(Unit) == 1)
            moveUnits(target, kept);
        else
            keepLowBytes(target, kept);
    });
}

void narrowTerminated(char* target, Run<unsigned short> units)
{
    narrow(target, units);
    target[units.count] = 0;
}

#define QV_INSTANTIATE_PAIR(Unit, Source)                                                          \
    template void assign(TextRef<Unit>, Run<Source>, Extension);                                   \
    template void assignCleared(TextRef<Unit>, Run<Source>);                                       \
    template void append(TextRef<Unit>, Run<Source>, Extension);
#define QV_INSTANTIATE(Unit)                                                                       \
    template void assignUnclipped(TextRef<Unit>, Run<Unit>);                                       \
    template void appendRepeating(TextRef<Unit>, TextRef<Unit const>);                             \
    template void fill(TextRef<Unit>, Unit, int);                                                  \
    template void appendField(TextRef<Unit>, Run<char>, int);                                      \
    template void appendUnboundedField(TextRef<Unit>, Run<Unit>, int);

QV_INSTANTIATE_PAIR(char, char)
QV_INSTANTIATE_PAIR(unsigned short, unsigned short)
QV_INSTANTIATE_PAIR(unsigned short, char)
template void assignCleared(TextRef<char>, Run<unsigned short>);
QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE
#undef QV_INSTANTIATE_PAIR

} // namespace qvStrings
