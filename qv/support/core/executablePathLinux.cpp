#include "qv/support/core/executablePath.h"

#include <unistd.h>

_qvString<250> qvSupport::executablePath()
{
    constexpr ssize_t capacity = 250;
    char bytes[capacity + 2]; // one more than fits, to notice a longer path, and the terminator
    ssize_t const length = readlink("/proc/self/exe", bytes, capacity + 1);
    _qvString<250> path;
    if (length > 0 && length <= capacity) {
        bytes[length] = 0;
        path = bytes;
    }
    return path;
}
