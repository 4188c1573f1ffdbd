/// A unit compiled with QV_CHECKED beside one without, in one program: the first checks each call,
/// the second none, whichever of them the linker meets first.

#include "tests/strings/besideCalls.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

TEST(CheckedBesideUnchecked, uncheckedCallsGoOn)
{
    for (beside::Call const& call : beside::uncheckedCalls()) {
        SCOPED_TRACE(call.says);
        EXPECT_EXIT(
            {
                call.make();
                std::exit(0);
            },
            testing::ExitedWithCode(0), "^$");
    }
}

TEST(CheckedBesideUnchecked, checkedCallsEnd)
{
    for (beside::Call const& call : beside::checkedCalls()) {
        SCOPED_TRACE(call.says);
        EXPECT_EXIT(call.make(), testing::KilledBySignal(SIGABRT),
                    "^qv: outside the contract: " + std::string(call.says) + "\n$");
    }
}
