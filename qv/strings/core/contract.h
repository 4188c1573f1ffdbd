#pragma once

#include <initializer_list>

// A source file compiled with QV_CHECKED and one compiled without it may meet in one program. The
// members that check have other names in the first one, so that the linker never takes a member of
// one for the other's; the strings themselves have the same name in both, since the library's
// functions take them.

/// QV_MEMBER_NAMESPACE holds the classes that the strings are built of. QV_CHECKS marks each member
/// of a string itself that checks, directly or through another member.
#ifdef QV_CHECKED
#define QV_MEMBER_NAMESPACE qvStrings::inline checked
#define QV_CHECKS __attribute__((abi_tag("checked")))
#else
#define QV_MEMBER_NAMESPACE qvStrings
#define QV_CHECKS
#endif

namespace QV_MEMBER_NAMESPACE {

/// Whether a call outside a member's contract ends the program, instead of doing what the member's
/// comment says. QV_CHECKED is defined by the build option of the same name or by the user's own
/// build; neither the library nor the rest of a program need be built with it.
#ifdef QV_CHECKED
inline constexpr bool isChecked = true;
#else
inline constexpr bool isChecked = false;
#endif

} // namespace QV_MEMBER_NAMESPACE

namespace qvStrings {

/// Writes one line to standard error that names the member, its numbers, and the length and the
/// capacity that it met, and aborts.
[[noreturn]] void contractBroken(char const* member, std::initializer_list<long long> arguments,
                                 unsigned length, unsigned capacity);

} // namespace qvStrings
