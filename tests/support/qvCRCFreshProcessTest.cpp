// What the CRC-32 table is before its first use. Every test looks at it from a process of its own,
// so this program must hold no test that builds the table in the program itself.

#include "qv/support/qvCRC.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Byte = unsigned char;

template <typename Body>
void inAFreshProcess(Body const& body)
{
    ASSERT_FALSE(qvCRCulTableInitialized) << "the table was built before this test";
    pid_t const child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        body();
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "see the failures above";
}

void expectTableOfZeros()
{
    EXPECT_FALSE(qvCRCulTableInitialized);
    for (unsigned i = 0; i < 256; ++i) {
        EXPECT_EQ(qvCRCulTable[i], 0U) << i;
    }
}

void expectTableBuilt()
{
    EXPECT_TRUE(qvCRCulTableInitialized);
    EXPECT_EQ(qvCRCulTable[0], 0U);
    EXPECT_EQ(qvCRCulTable[1], 0x77073096U);
    EXPECT_EQ(qvCRCulTable[255], 0x2D02EF8DU);
}

TEST(QvCRCFreshProcess, StartsWithoutATable)
{
    inAFreshProcess([] { expectTableOfZeros(); });
}

TEST(QvCRCFreshProcess, PartialDoesNotBuildTheTable)
{
    inAFreshProcess([] {
        Byte const blocks[][4] = {{0, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0xFF}, {'1', '2', '3', '4'}};
        for (auto const& block : blocks) {
            unsigned int state = 0xFFFFFFFFU;
            qvCRCPartial(&state, &block[0], 1);
            EXPECT_EQ(state, 0x00FFFFFFU);
            qvCRCPartial(&state, &block[1], 2);
            EXPECT_EQ(state, 0x000000FFU);
            qvCRCPartial(&state, &block[3], 1);
            EXPECT_EQ(state, 0U);

            state = 0xFFFFFFFFU;
            qvCRCPartial(&state, &block[0], 4);
            EXPECT_EQ(state, 0U);
        }
        expectTableOfZeros();
    });
}

TEST(QvCRCFreshProcess, ACallWithoutBytesBuildsTheTable)
{
    inAFreshProcess([] {
        EXPECT_EQ(qvCRCCalc(nullptr, 0), 0U);
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, TheFirstCallGivesTheRightResult)
{
    inAFreshProcess([] {
        Byte const digits[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
        EXPECT_EQ(qvCRCCalc(&digits[0], 9), 0xCBF43926U);
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, InitializeBuildsTheTable)
{
    inAFreshProcess([] {
        qvCRCInitialize();
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, TheOthersLeaveTheTableAlone)
{
    inAFreshProcess([] {
        Byte const digits[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
        EXPECT_EQ(qvCRCCalc64(&digits[0], 9), 0xE9C6D914C4B8D9CAU);
        EXPECT_EQ(qvCRCCalc16(&digits[0], 9), 0x31C3);
        EXPECT_EQ(qvCRCCalc8(&digits[0], 9, false), 0x31);
        EXPECT_EQ(qvCRCReflect(1, 32), 0x80000000U);
        expectTableOfZeros();
    });
}

// A table that is called complete is used as it stands.
TEST(QvCRCFreshProcess, TheFlagAloneDecidesWhetherToBuild)
{
    inAFreshProcess([] {
        qvCRCulTableInitialized = true;
        Byte const digits[] = {'1', '2', '3', '4'};
        EXPECT_EQ(qvCRCCalc(&digits[0], 4), 0xFFFFFFFFU);
        for (unsigned i = 0; i < 256; ++i) {
            EXPECT_EQ(qvCRCulTable[i], 0U);
        }
    });
}

} // namespace
