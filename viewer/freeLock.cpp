#include "viewer/freeLock.h"

#include "viewer/mailboxVerdict.h"
#include "viewer/mailboxWatch.h"
#include "viewer/segmentMapping.h"

#include <atomic>
#include <thread>
#include <unistd.h>

namespace {

/// As many looks and pauses as a sender makes while it waits for the lock: enough for a slow holder
/// to give it back, also if this process sleeps meanwhile.
constexpr int lookCount = 25;
constexpr std::chrono::milliseconds lookEvery{100};
static_assert(lookCount * lookEvery == staleLockTime);

bool isOfNobodyElse(MailboxLook const& look)
{
    ProcessLook const& last = look.last;
    return last.state == ProcessState::dead || last.pid == look.client.pid || last.pid == getpid();
}

/// The reason not to free the lock, in a look or since the first one; null for none.
char const* objection(MailboxLook const& look, MailboxLook const& first)
{
    if (look.error != LookError::none || look.status.shm_nattch == 0 || !look.read)
        return judgeMailbox(look).what;
    if (!look.maySend)
        return "This user has no right to write to the segment.";
    if (!look.format.isRight())
        return "The record is not a client's, or not filled in yet.";
    if (look.client.state == ProcessState::dead)
        return "The client is dead: nobody would take a command.";
    if (look.client.state == ProcessState::stopped)
        return "The client is stopped, and may hold the lock.";
    if (look.client.state == ProcessState::unknown)
        return "The client's process is hidden from this user.";
    if (look.status.shm_nattch != 1)
        return "Others than the client are attached, and may hold the lock.";
    if (!isOfNobodyElse(look))
        return "The process that came last is alive, and may hold the lock.";
    if (look.id != first.id || look.lockByte != first.lockByte)
        return "The lock is in use: its byte changed.";
    return nullptr;
}

/// Checks once more, with this process's own mapping counted as one; frees the lock only if the
/// byte is still the one that was seen all the while.
char const* freeByte(MailboxLook const& look)
{
    SegmentMapping const mapping(look.id, 0);
    if (!mapping.isMapped())
        return "The system refused to map the segment.";
    shmid_ds status{};
    if (shmctl(look.id, IPC_STAT, &status) == -1 || status.shm_nattch != 2)
        return "Somebody has come or gone.";
    unsigned char expected = look.lockByte;
    std::atomic_ref<unsigned char> const byte(*mapping.base());
    return byte.compare_exchange_strong(expected, 0) ? nullptr
                                                     : "The lock is in use: its byte changed.";
}

void printFound(MailboxLook const& look)
{
    if (!look.found)
        return;
    std::printf("attached   %llu\n", static_cast<unsigned long long>(look.status.shm_nattch));
    printProcessLine(stdout, "client", look.client);
    printProcessLine(stdout, "came last", look.last);
    if (look.read)
        std::printf("lock byte  %d\n", look.lockByte);
}

int finish(char const* done, char const* reason, MailboxProblem problem)
{
    std::printf("done       %s%s\n", done, reason);
    return std::fflush(stdout) == 0 ? mailboxVerdictOf(problem).status() : viewFailed;
}

int refuse(char const* reason)
{
    return finish("nothing: ", reason, MailboxProblem::lockKept);
}

} // namespace

int freeStaleLock()
{
    MailboxLook const first = lookAtMailbox(false);
    printFound(first);
    MailboxLook look = first;
    for (int i = 0;; ++i) {
        if (look.read && !look.isLockTaken())
            return finish("nothing: ", "The lock is free.", MailboxProblem::none);
        if (char const* const reason = objection(look, first))
            return refuse(reason);
        if (i == lookCount)
            break;
        std::this_thread::sleep_for(lookEvery);
        look = lookAtMailbox(false);
    }
    if (char const* const reason = freeByte(look))
        return refuse(reason);
    return finish("freed the lock, which was taken at every look for 2.5 seconds", "",
                  MailboxProblem::none);
}
