// The error state: how setError() words a failure, and which operations start with an empty one.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>

namespace {

class SegmentErrorState : public ScriptedSegment
{
protected:
    void failSomehow()
    {
        errno = EACCES;
        memory.setError("earlier");
        expectError(memory, 13, "earlier: Permission denied");
    }

    void expectStillFailed() { expectError(memory, 13, "earlier: Permission denied"); }
};

TEST_F(SegmentErrorState, SetErrorJoinsWordAndSystemText)
{
    struct Row
    {
        int error;
        char const* word;
        char const* text;
    };
    Row const rows[] = {
        {ENOENT, "shmget", "shmget: No such file or directory"},
        {EACCES, "attach (shmat)", "attach (shmat): Permission denied"},
        {ENOMEM, "size query failed (shmctl)",
         "size query failed (shmctl): Cannot allocate memory"},
        {EINVAL, "shmdt", "shmdt: Invalid argument"},
        {EPERM, "shmctl", "shmctl: Operation not permitted"},
        {0, "shmget", "shmget: No Error."},
        {41, "shmget", "shmget: Error 41."},
        {4000, "shmget", "shmget: Error 4000."},
        {-7, "shmget", "shmget: Error -7."},
        {-1, "shmget", "shmget: Error -1."},
        {EPERM, "", ": Operation not permitted"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.text);
        Text250 const word = row.word;
        errno = row.error;
        memory.setError(word);
        expectError(memory, row.error, row.text);
    }
}

TEST_F(SegmentErrorState, SetErrorCutsAtTheCapacity)
{
    struct Row
    {
        std::size_t wordLength;
        char const* rest; // what follows the word
    };
    Row const rows[] = {
        {231, ": Permission denied"},
        {232, ": Permission denie"},
        {246, ": Pe"},
        {247, ": P"},
        {248, ": "},
        {249, ":"},
        {250, ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.wordLength);
        Text250 const word = std::string(row.wordLength, 'w').c_str();
        errno = EACCES;
        memory.setError(word);
        expectError(memory, 13, std::string(row.wordLength, 'w') + row.rest);
        EXPECT_EQ(memory.errorText.length, 250);
    }
}

TEST_F(SegmentErrorState, ClearErrorEmptiesIt)
{
    failSomehow();
    memory.clearError();
    expectNoError(memory);
    EXPECT_EQ(memory.errorText.text[0], '\0');
}

TEST_F(SegmentErrorState, ErrorStringIsACopy)
{
    failSomehow();
    Text250 const copy = memory.errorString();
    memory.clearError();
    EXPECT_EQ(textOf(copy), "earlier: Permission denied");
}

TEST_F(SegmentErrorState, TheseOperationsBeginWithAnEmptyOne)
{
    attachNow();
    failSomehow();
    EXPECT_TRUE(memory.lock());
    expectNoError(memory);

    failSomehow();
    EXPECT_TRUE(memory.unlock());
    expectNoError(memory);

    failSomehow();
    EXPECT_FALSE(memory.create(0, false, false));
    expectNoError(memory);

    failSomehow();
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
    EXPECT_TRUE(memory.attach());
    expectNoError(memory);

    failSomehow();
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    EXPECT_TRUE(memory.detach());
    expectNoError(memory);

    failSomehow();
    script.shmgetGives(7).shmatGives(segment.data());
    EXPECT_TRUE(memory.create(56, false, false));
    expectNoError(memory);
    script.takeCalls();
}

TEST_F(SegmentErrorState, TheseOperationsLeaveItAlone)
{
    attachNow();
    failSomehow();
    EXPECT_EQ(memory.size(), 56);
    expectStillFailed();
    EXPECT_EQ(plainAddress(memory.data()), segment.data() + 8);
    expectStillFailed();
    EXPECT_EQ(memory.error(), 13);
    expectStillFailed();
    EXPECT_EQ(textOf(memory.errorString()), "earlier: Permission denied");
    expectStillFailed();

    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    memory.clearAll();
    script.takeCalls();
    expectStillFailed();
}

TEST_F(SegmentErrorState, DataNeedsAMapping)
{
    EXPECT_EQ(memory.data(), nullptr);
    expectError(memory, -1, "Not attached.");

    // Either half missing is enough.
    memory.clearError();
    attachNow();
    memory.attached = false;
    EXPECT_EQ(memory.data(), nullptr);
    expectError(memory, -1, "Not attached.");

    memory.clearError();
    memory.attached = true;
    memory.base = nullptr;
    EXPECT_EQ(memory.data(), nullptr);
    expectError(memory, -1, "Not attached.");
}

TEST_F(SegmentErrorState, DataReplacesAnEarlierErrorOnlyByItsOwn)
{
    holdKeyNow();
    expectError(memory, 12, "attach (shmat): Cannot allocate memory");
    EXPECT_EQ(memory.size(), -9);
    expectError(memory, 12, "attach (shmat): Cannot allocate memory");
    EXPECT_EQ(memory.data(), nullptr);
    expectError(memory, -1, "Not attached.");
}

TEST_F(SegmentErrorState, SizeCountsWithoutRegardToTheState)
{
    qvSharedMemory const& readOnly = memory;
    EXPECT_EQ(readOnly.size(), -9);
    memory.totalSize = 22996;
    EXPECT_EQ(readOnly.size(), 22988);
    memory.totalSize = 0;
    EXPECT_EQ(readOnly.size(), -8);
}

} // namespace
