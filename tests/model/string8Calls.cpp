#include "tests/model/string8Model.h"
#include "tests/model/stringCompareDefinitions.h"
#include "tests/model/stringModelCalls.h"

namespace qvTest {

template bool isWithin(Reach, StringCall const&, StringModels<String8Model> const&);
template ExpectedOutcome<String8Model> runOnModels(StringCall const&, StringModels<String8Model>&);
template std::string describeDifference(ExpectedOutcome<String8Model> const&, Outcome const&);
template std::string describeDifference(std::string const&, StringModel<char> const&,
                                        unsigned char const*);
template std::string describeCall(StringCall const&, StringModels<String8Model> const&);
template std::string describeResult(StringCall const&, ExpectedOutcome<String8Model> const&,
                                    StringModels<String8Model> const&);

} // namespace qvTest
