#include "qv/support/qvSystem.h"

#include "qv/support/core/systemErrorText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

_qvString8_allSize<250> qvLastOSError8(int code)
{
    if (code == -1)
        code = errno;

    _qvString8_allSize<250> text;
    if (code == 0) {
        text = "No Error.";
    } else {
        constexpr std::size_t size = 250;
        if (!qvSupport::systemErrorText(code, text.asChar(), size))
            text.clear();
        text.calcLength();
        if (text.isEmpty())
            text.setLength(
                static_cast<short>(std::snprintf(text.asChar(), size, "Error %d.", code)));
    }
    std::replace(text.asChar(), text.asChar() + text.length, '\n', ' ');
    std::replace(text.asChar(), text.asChar() + text.length, '\r', ' ');
    return text;
}

void qvSleep(int ms)
{
    if (ms <= 0)
        return;
    constexpr int longest = 999; // a single call stays below a full second
    for (; ms >= longest; ms -= longest)
        usleep(longest * 1000u);
    usleep(static_cast<useconds_t>(ms) * 1000u);
}
