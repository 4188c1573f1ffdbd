#pragma once

#include "tests/model/string16Model.h"
#include "tests/model/stringCall.h"

namespace qvTest {

using String16Models = StringModels<String16Model>;

template <>
bool isWithin(Reach reach, StringCall const& call, String16Models const& models);

} // namespace qvTest
