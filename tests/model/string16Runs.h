#pragma once

#include "tests/model/stringRun.h"

#include <span>

namespace qvTest {

// Every image at the capacities that matter: the smallest, an even one between, those at the bounds
// of the conversions, and the largest, which alone is above the bound of raw texts. A fuzzer input
// names a run by its place.
std::span<StringRun const> string16Runs();

} // namespace qvTest
