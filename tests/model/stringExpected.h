#pragma once

#include "tests/model/string16Call.h"
#include "tests/model/string8Call.h"

#include <optional>
#include <vector>

namespace qvTest {

// What a call gives back: a number or truth, what it left in the out-parameter, a string, the bytes
// of a conversion.
template <class Model>
struct ExpectedOutcome
{
    std::optional<long long> value;
    bool signOnly = false; // of the value only the sign is laid down
    std::optional<long long> side;
    std::optional<StringModel<typename Model::UnitType>> text;
    std::optional<std::vector<unsigned char>> narrow;
};

// Runs the call on the models.
template <class Model>
ExpectedOutcome<Model> runOnModels(StringCall const& call, StringModels<Model>& models);

template <>
ExpectedOutcome<String8Model> runOnModels(StringCall const& call, String8Models& models);
template <>
ExpectedOutcome<String16Model> runOnModels(StringCall const& call, String16Models& models);

} // namespace qvTest
