#include "qv/support/core/applicationPath.h"

#include "qv/support/qvProcess.h"

#include <unistd.h>

namespace {

using Path = _qvString8_allSize<250>;

/// Shorter names do not count as paths.
constexpr int shortestPath = 4;

Path currentDirectory()
{
    Path directory;
    constexpr std::size_t size = 250;
    if (getcwd(directory.asChar(), size) == nullptr)
        directory.clear();
    directory.calcLength();
    return directory;
}

/// Resolves a relative path with a "/" in it against `directory`: each "../" climbs, and all that
/// is ahead of the last one is dropped, names included (intended).
Path resolve(Path const& relative, Path directory)
{
    if (!directory.endsWith('/'))
        directory += '/';
    Path const up("../");
    int rest = 0;
    for (int at = relative.indexOfCaseSen(up, 0); at >= 0;
         at = relative.indexOfCaseSen(up, at + 1)) {
        directory = qvGetDirName_local(directory);
        rest = at + up.length;
    }
    for (int i = rest; i < relative.length; ++i)
        directory += relative.text[i];
    return directory;
}

/// The path that the first argument gives. Nothing for one too short; a bare name or a path
/// without a current directory stays as it is.
Path pathOf(char const* argv0)
{
    Path path;
    path = argv0;
    if (path.length < shortestPath)
        return Path();
    bool const isAbsolute = path.text[0] == '/' || path.text[1] == ':';
    if (isAbsolute || path.indexOfCaseSen('/', 0) < 0)
        return path;
    Path const directory = currentDirectory();
    return directory.length < shortestPath ? path : resolve(path, directory);
}

} // namespace

bool qvSupport::applicationPathFrom(_qvString<250> const& answer, char const* argv0,
                                    _qvString8_allSize<250>& out)
{
    out = answer.to_qvString8_250();
    if (out.isEmpty() && argv0 != nullptr)
        out = pathOf(argv0);
    if (out.isEmpty())
        return false;
    out = qvGetDirName_local(out);
    // A start through the current directory leaves "/./": fold it.
    int const length = out.length;
    if (length >= 3 && out.text[length - 3] == '/' && out.text[length - 2] == '.')
        out.setLength(static_cast<short>(length - 2));
    return true;
}
