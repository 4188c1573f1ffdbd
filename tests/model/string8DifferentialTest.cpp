#include "tests/model/string8Runs.h"
#include "tests/model/stringDifferential.h"

#include <gtest/gtest.h>

namespace {

class String8Differential : public testing::TestWithParam<qvTest::StringRun>
{};

TEST_P(String8Differential, everyMemberLeavesTheBytesOfTheModel)
{
    qvTest::expectTheBytesOfTheModel(GetParam());
}

INSTANTIATE_TEST_SUITE_P(images, String8Differential, testing::ValuesIn(qvTest::string8Runs()),
                         [](auto const& shown) { return nameOf(shown.param); });

TEST(String8Images, giveTheSameTextsAtTheSameCapacity)
{
    qvTest::expectTheSameTexts(qvTest::string8Runs());
}

} // namespace
