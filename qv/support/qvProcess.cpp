#include "qv/support/qvProcess.h"

#include "qv/support/core/applicationPath.h"
#include "qv/support/core/executablePath.h"
#include "qv/support/qvSystem.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

template <int N>
_qvString8_allSize<N> environmentVariable(_qvString8_allSize<250> const& name)
{
    // Up to a zero byte, whatever the length; a damaged name may have none.
    char text[sizeof name.text + 1] = {};
    std::copy(std::begin(name.text), std::end(name.text), text);
    _qvString8_allSize<N> value;
    if (char const* const found = std::getenv(text))
        value = found;
    return value;
}

} // namespace

bool qvApplicationPath(_qvString8_allSize<250>& out, char* argv0)
{
    return qvSupport::applicationPathFrom(qvSupport::executablePath(), argv0, out);
}

_qvString8_allSize<250> qvApplicationPath(char* argv0)
{
    _qvString8_allSize<250> path;
    qvApplicationPath(path, argv0);
    return path;
}

_qvString8_allSize<250> qvGetDirName_local(_qvString8_allSize<250> path)
{
    constexpr short longest = 250;
    if (path.length > longest) // damaged: counts as full, here as in the strings' own members
        path.setLength(longest);
    if (path.length <= 2)
        return path;
    if (path.endsWith('/'))
        path.setLength(static_cast<short>(path.length - 1));

    // No cut at positions 0 and 1: it would drop the root, a drive or a network path.
    constexpr int firstCut = 2;
    int const last = path.lastIndexOf('/', -1);
    bool const isNetwork = path.text[1] == '/';
    if (last >= firstCut && (!isNetwork || path.lastIndexOf('/', last - 1) >= firstCut))
        path.setLength(static_cast<short>(last));
    path += '/';
    return path;
}

_qvString8_allSize<250> qvGetEnvironmentVariable8(_qvString8_allSize<250> const& name)
{
    return environmentVariable<250>(name);
}

_qvString8_allSize<5000> qvGetEnvironmentVariable8_long(_qvString8_allSize<250> const& name)
{
    return environmentVariable<5000>(name);
}

_qvString<500> qvLastOSError(int code)
{
    _qvString<500> text;
    text = qvLastOSError8(code).asChar();
    return text;
}
