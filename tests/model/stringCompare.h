#pragma once

#include "tests/model/stringCall.h"

#include <string>

namespace qvTest {

// Each gives an empty text when nothing differs.
template <class Model>
std::string describeDifference(ExpectedOutcome<Model> const& expected, Outcome const& actual);
template <class Unit>
std::string describeDifference(std::string const& what, StringModel<Unit> const& expected,
                               unsigned char const* actual);

// The call and the strings that it found.
template <class Model>
std::string describeCall(StringCall const& call, StringModels<Model> const& before);

// What a caller of any image sees after a call: what it gave back and the texts in use.
template <class Model>
std::string describeResult(StringCall const& call, ExpectedOutcome<Model> const& outcome,
                           StringModels<Model> const& models);

} // namespace qvTest
