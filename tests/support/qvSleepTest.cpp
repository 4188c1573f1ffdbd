// qvSleep: no single call to the system reaches a full second.

#include "qv/support/qvSystem.h"
#include "tests/segment/systemCallStandIns.h"

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>

namespace {

static_assert(std::is_same_v<decltype(&qvSleep), void (*)(int)>);

TEST(QvSleep, CutsTheTimeIntoCallsBelowASecond)
{
    struct Row
    {
        int milliseconds;
        Calls calls;
    };
    Row const rows[] = {
        {0, {}},
        {-1, {}},
        {-5, {}},
        {INT_MIN, {}},
        {1, {"usleep(1000)"}},
        {100, {"usleep(100000)"}},
        {998, {"usleep(998000)"}},
        {999, {"usleep(999000)", "usleep(0)"}},
        {1000, {"usleep(999000)", "usleep(1000)"}},
        {1997, {"usleep(999000)", "usleep(998000)"}},
        {1998, {"usleep(999000)", "usleep(999000)", "usleep(0)"}},
        {2000, {"usleep(999000)", "usleep(999000)", "usleep(2000)"}},
        {2997, {"usleep(999000)", "usleep(999000)", "usleep(999000)", "usleep(0)"}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.milliseconds);
        SystemCallScript script;
        qvSleep(row.milliseconds);
        EXPECT_EQ(script.takeCalls(), row.calls);
    }
}

} // namespace
