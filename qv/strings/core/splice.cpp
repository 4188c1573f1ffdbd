#include "qv/strings/core/splice.h"

#include "qv/strings/core/append.h"
#include "qv/strings/core/edit.h"
#include "qv/strings/core/findText.h"
#include "qv/strings/core/findUnit.h"
#include "qv/strings/core/move.h"

#include <algorithm>

namespace qvStrings {

namespace {

/// Copies `count` units that begin at index `from` of the text to `target`, which may lie in the
/// object. Bytes outside the object read as zeros.
template <typename Unit>
void copyOut(TextRef<Unit const> self, long long from, unsigned count, Unit* target)
{
    if (from >= 0 && from + count <= self.capacity() + 1LL) { // within the contract
        moveUnits(target, {self.text() + from, count});
        return;
    }
    // Byte offsets in the object: of the wanted range, and of the part of it that is inside.
    constexpr long long unitSize = sizeof(Unit);
    long long const begin = self.layout().textAt + from * unitSize;
    long long const end = begin + count * unitSize;
    long long const insideBegin = std::clamp(0LL, begin, end);
    long long const insideEnd = std::clamp<long long>(self.layout().objectSize, insideBegin, end);
    auto* const bytes = reinterpret_cast<unsigned char*>(target);
    if (insideBegin < insideEnd)
        std::memmove(bytes + (insideBegin - begin), self.object() + insideBegin,
                     static_cast<std::size_t>(insideEnd - insideBegin));
    std::memset(bytes, 0, static_cast<std::size_t>(insideBegin - begin));
    std::memset(bytes + (insideEnd - begin), 0, static_cast<std::size_t>(end - insideEnd));
}

/// Rebuilds the text from up to three pieces: the first `head` units as they are, `middle`, which
/// may be the object's own text up to `head`, and `tailCount` units from index `tailFrom`. Each
/// piece is cut to the room that the ones before it leave. A result without units writes no
/// terminator.
template <typename Unit>
void rebuild(TextRef<Unit> self, unsigned head, Run<Unit> middle, long long tailFrom,
             unsigned tailCount)
{
    unsigned const capacity = self.capacity();
    unsigned const headKept = std::min(head, capacity);
    auto const middleKept = cut(middle, capacity - headKept);
    unsigned const tailAt = headKept + middleKept.count;
    unsigned const tailKept = std::min(tailCount, capacity - tailAt);
    // The tail moves first, since the middle may overwrite it; the head is in its place already.
    copyOut<Unit>(self, tailFrom, tailKept, self.text() + tailAt);
    moveUnits(self.text() + headKept, middleKept);
    unsigned const length = tailAt + tailKept;
    self.storeLength(length);
    if (length != 0)
        self.terminate();
}

/// Replaces `count` units at `at` by `text`. When `text` is the object itself, only its first `at`
/// units count.
template <typename Unit>
void splice(TextRef<Unit> self, int at, unsigned count, TextRef<Unit const> text)
{
    auto const head = static_cast<unsigned>(at);
    auto const middle =
        same(self, text) ? cut(Run<Unit>{text.text(), head}, self.capacity()) : text.run();
    rebuild(self, head, middle, static_cast<long long>(at) + count, self.length() - head - count);
}

/// Replaces each pattern in a text that begins with one, and writes the result to `target`, at most
/// `room` units. The text is cut to the room that is left before each further search.
/// @param target May be the start of the text, unless the replacement is longer than the pattern.
/// @return Units written.
template <Case mode, typename Unit>
unsigned writeReplaced(Run<Unit> text, Run<Unit> pattern, Run<Unit> replacement, Unit* target,
                       unsigned room)
{
    Unit* const begin = target;
    Unit const* const end = target + room;
    auto const put = [&](Run<Unit> run) {
        if (run.units != target)
            moveUnits(target, run);
        target += run.count;
    };
    for (int at = 0; at >= 0; at = find<mode>(text, pattern, 0)) {
        auto const head = static_cast<unsigned>(at);
        put({text.units, head});
        put(cut(replacement, static_cast<unsigned>(end - target)));
        unsigned const behind = head + pattern.count;
        text = cut(Run<Unit>{text.units + behind, text.count - behind},
                   static_cast<unsigned>(end - target));
    }
    put(text);
    return static_cast<unsigned>(target - begin);
}

/// The same from a copy of the text, for a replacement longer than the pattern: its writing would
/// overtake the reading.
template <Case mode, typename Unit>
[[gnu::noinline]] unsigned writeReplacedCopy(Run<Unit> text, Run<Unit> pattern,
                                             Run<Unit> replacement, Unit* target, unsigned room)
{
    Unit copy[maxCapacityOf<Unit>];
    moveUnits(copy, text);
    return writeReplaced<mode>({copy, text.count}, pattern, replacement, target, room);
}

/// Writes the units behind a text that shrank from `former` to `length` units, `step` at a time:
/// each time the last units stay where they were, behind a new terminator.
template <typename Unit>
void leaveBehind(Unit* text, unsigned former, unsigned length, unsigned step)
{
    Unit const first = text[former - step];
    for (unsigned end = former - step; end > length; end -= step) {
        text[end] = 0;
        moveUnits(text + end - step + 1, {text + end + 1, step - 1});
    }
    if (length == 0)
        text[0] = first; // no terminator in a text without units
}

/// Replaces every pattern, the first one at `at`, in one pass. The result is the same as replacing
/// one after the other, the units behind the text included.
template <Case mode, typename Unit>
void replaceFrom(TextRef<Unit> self, unsigned at, Run<Unit> pattern, Run<Unit> replacement)
{
    auto const text = self.run();
    Unit* const target = self.text() + at;
    Run<Unit> const rest{target, text.count - at};
    auto const write = replacement.count > pattern.count ? writeReplacedCopy<mode, Unit>
                                                         : writeReplaced<mode, Unit>;
    unsigned const length = at + write(rest, pattern, replacement, target, self.capacity() - at);
    if (length < text.count)
        leaveBehind(self.text(), text.count, length, pattern.count - replacement.count);
    self.storeLength(length);
    if (length != 0)
        self.terminate();
}

/// `sliceUpTo` where the separator is known to be at `at`, or below 0 for none.
template <typename Unit>
void sliceBefore(TextRef<Unit const> self, int at, Unit separator, bool withSeparator,
                 TextRef<Unit> result)
{
    if (at < 0)
        std::memcpy(result.object(), self.object(), self.layout().objectSize);
    else if (at > 0)
        slice(self, 0, withSeparator ? at + 1 : at, result);
    else if (!withSeparator)
        appendUnit(result, separator);
}

} // namespace

template <typename Unit>
void removeRange(TextRef<Unit> self, int start, int count)
{
    // Unsigned on purpose: a range that leaves the text wraps to a count that the cut reduces.
    auto const head = static_cast<unsigned>(start);
    unsigned const tailCount = self.length() - head - static_cast<unsigned>(count);
    rebuild<Unit>(self, head, {self.text(), 0}, static_cast<long long>(start) + count, tailCount);
}

template <Case mode, typename Unit>
void replaceAll(TextRef<Unit> self, TextRef<Unit const> pattern, TextRef<Unit const> replacement)
{
    int const at = find<mode, Unit>(self, pattern.run(), 0);
    if (at < 0)
        return;
    if (same(self, replacement)) // only once: the search would go on behind the end
        splice(self, at, pattern.length(), replacement);
    else
        replaceFrom<mode>(self, static_cast<unsigned>(at), pattern.run(), replacement.run());
}

template <Case mode, typename Unit>
void removeAll(TextRef<Unit> self, TextRef<Unit const> pattern)
{
    int const at = find<mode, Unit>(self, pattern.run(), 0);
    if (at >= 0)
        replaceFrom<mode>(self, static_cast<unsigned>(at), pattern.run(), Run<Unit>{nullptr, 0});
}

template <typename Unit>
void insert(TextRef<Unit> self, int position, TextRef<Unit const> text)
{
    splice(self, std::min(position, static_cast<int>(self.length())), 0, text);
}

void removeField(TextRef<char> self, int digits)
{
    unsigned const rest = self.length() - static_cast<unsigned>(digits);
    self.storeLength(0); // before the move: a negative field moves the length bytes into the text
    rebuild<char>(self, 0, {self.text(), 0}, digits, rest);
}

template <typename Unit>
void slice(TextRef<Unit const> self, int start, int count, TextRef<Unit> result)
{
    unsigned const kept = std::min(static_cast<unsigned>(count), self.capacity());
    copyOut(self, start, kept, result.text());
    result.storeLength(kept);
}

template <typename Unit>
void sliceUpTo(TextRef<Unit const> self, Unit separator, bool withSeparator, TextRef<Unit> result)
{
    int const at = findUnit<Case::folded>(self, separator, 0);
    sliceBefore(self, at, separator, withSeparator, result);
}

template <typename Unit>
void cutUpTo(TextRef<Unit> self, Unit separator, bool withSeparator, TextRef<Unit> result)
{
    int const at = findUnit<Case::folded, Unit>(self, separator, 0);
    sliceBefore<Unit>(self, at, separator, withSeparator, result);
    if (at < 0)
        clear(self);
    else
        removeRange(self, 0, at + 1);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template void removeRange(TextRef<Unit>, int, int);                                            \
    template void replaceAll<Case::exact>(TextRef<Unit>, TextRef<Unit const>,                      \
                                          TextRef<Unit const>);                                    \
    template void replaceAll<Case::folded>(TextRef<Unit>, TextRef<Unit const>,                     \
                                           TextRef<Unit const>);                                   \
    template void removeAll<Case::exact>(TextRef<Unit>, TextRef<Unit const>);                      \
    template void removeAll<Case::folded>(TextRef<Unit>, TextRef<Unit const>);                     \
    template void insert(TextRef<Unit>, int, TextRef<Unit const>);                                 \
    template void slice(TextRef<Unit const>, int, int, TextRef<Unit>);                             \
    template void sliceUpTo(TextRef<Unit const>, Unit, bool, TextRef<Unit>);                       \
    template void cutUpTo(TextRef<Unit>, Unit, bool, TextRef<Unit>);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
