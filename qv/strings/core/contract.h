#pragma once

#include <initializer_list>

namespace qvStrings {

/// Whether calls outside a member's contract end the program instead of doing what is laid down
/// for them. Defined by the build option of the same name or by the user's own build, for all of a
/// program alike; the library itself need not be built with it.
#ifdef QV_CHECKED
inline constexpr bool isChecked = true;
#else
inline constexpr bool isChecked = false;
#endif

/// Writes one line to standard error that names the member, its numbers, and the length and the
/// capacity that it met, and aborts.
[[noreturn]] void contractBroken(char const* member, std::initializer_list<long long> arguments,
                                 unsigned length, unsigned capacity);

} // namespace qvStrings
