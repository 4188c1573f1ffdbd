#pragma once

// Stand-ins for the system calls under qvSharedMemory, qvSleep and qvLastOSError8.
//
// The test program is linked with --wrap for shmget, shmat, shmdt, shmctl, usleep and
// __xpg_strerror_r, so every such call of the product lands here. While a SystemCallScript lives,
// calls are answered from it and written down; without one they go through to the real system,
// which is how the tests between processes run in the same program.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// One line per call, e.g. "shmget(0x4EFCFF, 0, 0x1B0)": a whole sequence compares as plain text.
using Calls = std::vector<std::string>;

class SystemCallScript
{
public:
    SystemCallScript();
    ~SystemCallScript();
    SystemCallScript(SystemCallScript const&) = delete;
    SystemCallScript& operator=(SystemCallScript const&) = delete;

    // Answers, in the order in which the calls must come. Any other call fails the test.
    SystemCallScript& shmgetGives(int id);
    SystemCallScript& shmgetFails(int error);
    SystemCallScript& shmatGives(void* address);
    SystemCallScript& shmatFails(int error);
    SystemCallScript& shmdtGives();
    SystemCallScript& shmdtFails(int error);
    SystemCallScript& statGives(std::size_t segmentSize, unsigned long attachCount);
    // The buffer is zeroed all the same: whoever trusts it after a failure sees nobody attached.
    SystemCallScript& statFails(int error);
    SystemCallScript& removeGives();
    SystemCallScript& removeFails(int error);

    // Sleeping needs no answer and takes no time; the hook gets the number of the sleep, from 1.
    void whileSleeping(std::function<void(int)> hook);
    // From here on every sleep ends at once with this error.
    void sleepsFail(int error);
    // Runs when shmdt is entered, before the memory is gone.
    void whenUnmapping(std::function<void()> hook);

    // The calls since the last takeCalls().
    Calls takeCalls();
    // Fails the test if answers are left over.
    void expectAllAnswersUsed() const;
    // From here on every call fails with EINVAL and is not written down: lets objects go out of
    // scope at the end of a test without a script for it.
    void stopWatching();
};

// Answers strerror_r from a fixed text while it lives.
class SystemTextScript
{
public:
    SystemTextScript(int result, std::string text);
    ~SystemTextScript();
    SystemTextScript(SystemTextScript const&) = delete;
    SystemTextScript& operator=(SystemTextScript const&) = delete;

    // e.g. "strerror_r(2, 250)": code and size of the buffer.
    Calls takeCalls();
};
