#pragma once

#include "tests/model/string8Model.h"
#include "tests/model/stringCall.h"

namespace qvTest {

using String8Models = StringModels<String8Model>;

template <>
bool isWithin(Reach reach, StringCall const& call, String8Models const& models);

} // namespace qvTest
