// strerror_r exists in two forms, and only the portable one reports a number that the system does
// not know. g++ asks for the other by predefining _GNU_SOURCE, so this file, which includes
// nothing else, takes that back.
#undef _GNU_SOURCE
#undef _POSIX_C_SOURCE
#define _POSIX_C_SOURCE 200809L

#include "qv/support/core/systemErrorText.h"

#include <string.h>

bool qvSupport::systemErrorText(int code, char* buffer, std::size_t size)
{
    return strerror_r(code, buffer, size) == 0;
}
