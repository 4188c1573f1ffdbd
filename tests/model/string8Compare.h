#pragma once

#include "tests/model/string8Call.h"
#include "tests/model/string8Execute.h"
#include "tests/model/string8Expected.h"

#include <string>

namespace qvTest {

// Each gives an empty text when nothing differs.
std::string describeDifference(ExpectedOutcome const& expected, Outcome const& actual);
std::string describeDifference(std::string const& what, String8Model const& expected,
                               unsigned char const* actual);

// The call and the strings that it found.
std::string describeCall(String8Call const& call, String8Models const& before);

// What a caller of any image sees after a call: what it gave back and the texts in use.
std::string describeResult(String8Call const& call, ExpectedOutcome const& outcome,
                           String8Models const& models);

} // namespace qvTest
