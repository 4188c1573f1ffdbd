#include "tests/model/string16Model.h"
#include "tests/model/stringCompareDefinitions.h"
#include "tests/model/stringModelCalls.h"

namespace qvTest {

template bool isWithin(Reach, StringCall const&, StringModels<String16Model> const&);
template ExpectedOutcome<String16Model> runOnModels(StringCall const&,
                                                    StringModels<String16Model>&);
template std::string describeDifference(ExpectedOutcome<String16Model> const&, Outcome const&);
template std::string describeDifference(std::string const&, StringModel<char16_t> const&,
                                        unsigned char const*);
template std::string describeCall(StringCall const&, StringModels<String16Model> const&);
template std::string describeResult(StringCall const&, ExpectedOutcome<String16Model> const&,
                                    StringModels<String16Model> const&);

} // namespace qvTest
