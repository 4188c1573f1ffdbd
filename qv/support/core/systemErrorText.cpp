// strerror_r exists in two forms, and only the portable one reports a number that the system does
// not know. g++ asks for the other by predefining _GNU_SOURCE, so this file, which includes
// nothing else, takes that back.
#undef _GNU_SOURCE
#undef _POSIX_C_SOURCE
#define _POSIX_C_SOURCE 200809L

#include "qv/support/core/systemErrorText.h"

#include <string.h>

namespace {

#ifdef __GLIBC__
/// It refuses every number that it does not know.
bool isOfUnknown(char const*)
{
    return false;
}
#else
/// Some C libraries, musl for one, refuse none: they have the same words for all that they do not
/// know. No error has the number -1, so these are its words too.
bool isOfUnknown(char const* text)
{
    char unknown[250];
    return strerror_r(-1, unknown, sizeof unknown) == 0 && strcmp(text, unknown) == 0;
}
#endif

} // namespace

bool qvSupport::systemErrorText(int code, char* buffer, std::size_t size)
{
    return strerror_r(code, buffer, size) == 0 && !isOfUnknown(buffer);
}
