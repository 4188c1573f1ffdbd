#include "tests/model/stringCompareDefinitions.h"

namespace qvTest {

template std::string describeDifference(ExpectedOutcome<String8Model> const&, Outcome const&);
template std::string describeDifference(std::string const&, StringModel<char> const&,
                                        unsigned char const*);
template std::string describeCall(StringCall const&, String8Models const&);
template std::string describeResult(StringCall const&, ExpectedOutcome<String8Model> const&,
                                    String8Models const&);

} // namespace qvTest
