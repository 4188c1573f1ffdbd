#pragma once

// The fixture of all scripted segment tests: one qvSharedMemory, a piece of memory that plays the
// segment, and the script that answers the system calls.

#include "qv/segment/qvSharedMemory.h"
#include "qv/strings/qvString8.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using Text250 = _qvString8_allSize<250>;

// The stored characters, whatever bytes they are.
inline std::string textOf(Text250 const& string)
{
    return std::string(&string.text[0], string.length);
}

// Addresses compare alike whether a field points to plain or volatile bytes.
template <typename Byte>
void const* plainAddress(Byte* address)
{
    return const_cast<void const*>(static_cast<void const volatile*>(address));
}

inline void expectError(qvSharedMemory& memory, int code, std::string const& text)
{
    EXPECT_EQ(memory.errorCode, code);
    EXPECT_EQ(textOf(memory.errorText), text);
    EXPECT_EQ(memory.errorText.text[memory.errorText.length], '\0');
    EXPECT_EQ(memory.error(), code);
    EXPECT_EQ(textOf(memory.errorString()), text);
}

inline void expectNoError(qvSharedMemory& memory)
{
    expectError(memory, 0, "");
}

class ScriptedSegment : public ::testing::Test
{
protected:
    static constexpr int clientKey = 0x4EFCFF;
    static constexpr unsigned char untouched = 0xAA;

    SystemCallScript script;
    alignas(8) std::array<unsigned char, 64> segment{};
    qvSharedMemory memory{Text250("qvClientSharedMemory")};

    ScriptedSegment() { segment.fill(untouched); }

    void TearDown() override
    {
        script.expectAllAnswersUsed();
        EXPECT_EQ(script.takeCalls(), Calls{}) << "calls that the test did not look at";
        script.stopWatching();
    }

    // Mapped by attach(), no call left to look at, lock byte free.
    void attachNow()
    {
        script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
        ASSERT_TRUE(memory.attach());
        EXPECT_EQ(script.takeCalls().size(), 3U);
        segment[0] = 0;
    }

    // Key held, not mapped: found, but not mappable.
    void holdKeyNow()
    {
        script.shmgetGives(7).shmatFails(ENOMEM);
        ASSERT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls().size(), 2U);
    }

    void expectIdle() const
    {
        EXPECT_EQ(memory.key, 0);
        EXPECT_EQ(plainAddress(memory.base), nullptr);
        EXPECT_FALSE(memory.attached);
    }

    void expectMapped()
    {
        EXPECT_EQ(memory.key, clientKey);
        EXPECT_EQ(plainAddress(memory.base), segment.data());
        EXPECT_EQ(plainAddress(memory.lockByte), segment.data());
        EXPECT_TRUE(memory.attached);
    }

    void expectKeyHeld() const
    {
        EXPECT_EQ(memory.key, clientKey);
        EXPECT_EQ(plainAddress(memory.base), nullptr);
        EXPECT_FALSE(memory.attached);
    }

    void expectSegmentUntouchedFrom(std::size_t first) const
    {
        for (std::size_t i = first; i < segment.size(); ++i) {
            EXPECT_EQ(segment[i], untouched) << "byte " << i;
        }
    }
};
