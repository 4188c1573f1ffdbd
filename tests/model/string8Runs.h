#pragma once

#include "tests/model/stringRun.h"

#include <span>

namespace qvTest {

// Every image at the capacities that matter: the smallest, both parities, the largest. A fuzzer
// input names a run by its place.
std::span<StringRun const> string8Runs();

} // namespace qvTest
