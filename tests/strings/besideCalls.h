#pragma once

#include <vector>

/// The same calls outside a contract, compiled in a unit with QV_CHECKED and in one without.
namespace beside {

/// A call that stays inside its objects where nobody checks it.
struct Call
{
    char const* says; ///< The line that a checked one ends with, as a regular expression.
    void (*make)();
};

std::vector<Call> checkedCalls();
std::vector<Call> uncheckedCalls();

} // namespace beside
