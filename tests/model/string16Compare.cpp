#include "tests/model/stringCompareDefinitions.h"

namespace qvTest {

template std::string describeDifference(ExpectedOutcome<String16Model> const&, Outcome const&);
template std::string describeDifference(std::string const&, StringModel<char16_t> const&,
                                        unsigned char const*);
template std::string describeCall(StringCall const&, String16Models const&);
template std::string describeResult(StringCall const&, ExpectedOutcome<String16Model> const&,
                                    String16Models const&);

} // namespace qvTest
