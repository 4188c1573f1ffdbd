#pragma once

#include "tests/model/string8Call.h"

#include <optional>

namespace qvTest {

// What a call gives back: a number or truth, what it left in the out-parameter, a string.
struct ExpectedOutcome
{
    std::optional<long long> value;
    bool signOnly = false; // of the value only the sign is laid down
    std::optional<long long> side;
    std::optional<String8Model> text;
};

// Runs the call on the models.
ExpectedOutcome runOnModels(String8Call const& call, String8Models& models);

} // namespace qvTest
