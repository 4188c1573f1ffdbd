#pragma once

// The seven functions of CoreFoundation behind the path of the running executable, and their
// types, so that the code for that platform is compiled and run on every other one too.

extern "C" {

using CFIndex = long;
using UniChar = unsigned short;
using CFTypeRef = void const*;
using CFBundleRef = struct StandInBundle*;
using CFURLRef = struct StandInUrl const*;
using CFStringRef = struct StandInString const*;

struct CFRange
{
    CFIndex location;
    CFIndex length;
};

inline CFRange CFRangeMake(CFIndex location, CFIndex length)
{
    return {location, length};
}

enum CFURLPathStyle : CFIndex
{
    kCFURLPOSIXPathStyle = 0
};

CFBundleRef CFBundleGetMainBundle(void);
CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle);
CFStringRef CFURLCopyFileSystemPath(CFURLRef url, CFURLPathStyle style);
CFIndex CFStringGetLength(CFStringRef string);
UniChar const* CFStringGetCharactersPtr(CFStringRef string);
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer);
void CFRelease(CFTypeRef object);

} // extern "C"
