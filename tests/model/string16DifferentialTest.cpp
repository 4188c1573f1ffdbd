#include "tests/model/string16Runs.h"
#include "tests/model/stringDifferential.h"

#include <gtest/gtest.h>

namespace {

class String16Differential : public testing::TestWithParam<qvTest::StringRun>
{};

TEST_P(String16Differential, everyMemberLeavesTheBytesOfTheModel)
{
    qvTest::expectTheBytesOfTheModel(GetParam());
}

INSTANTIATE_TEST_SUITE_P(images, String16Differential, testing::ValuesIn(qvTest::string16Runs()),
                         [](auto const& shown) { return nameOf(shown.param); });

TEST(String16Images, giveTheSameTextsAtTheSameCapacity)
{
    qvTest::expectTheSameTexts(qvTest::string16Runs());
}

} // namespace
