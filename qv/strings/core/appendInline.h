#pragma once

#include "qv/strings/core/move.h"
#include "qv/strings/core/textRef.h"

/// Functions that the core inlines, where a call would cost as much as the work. Members call the
/// compiled forms (append.h, run.h).

namespace qvStrings {

/// `append` of a source that is not null.
template <typename Unit, typename Source>
void appendInline(TextRef<Unit> self, Run<Source> source, Extension extension)
{
    unsigned const length = self.length();
    auto const kept = cut(source, self.capacity() - length);
    write(self.text() + length, kept, extension);
    self.endAt(length + kept.count);
}

/// `measured` of units.
inline Run<unsigned short> measuredInline(unsigned short const* text)
{
    constexpr unsigned bound = 1024;
    constexpr unsigned step = 4; // the bound is compared once for this many units
    if (text == nullptr)
        return {nullptr, 0};
    for (unsigned at = 0; at < bound; at += step)
        for (unsigned i = 0; i < step; ++i)
            if (text[at + i] == 0)
                return {text, at + i};
    return {text, bound};
}

} // namespace qvStrings
