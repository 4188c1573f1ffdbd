#pragma once

#include <cstddef>

namespace qvSupport {

/// Writes the system's text for an error number into `buffer` of `size` bytes. False when the
/// system does not know the number or the text does not fit; `buffer` then holds anything.
bool systemErrorText(int code, char* buffer, std::size_t size);

} // namespace qvSupport
