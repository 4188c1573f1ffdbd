#include "viewer/mailboxVerdict.h"

#include <algorithm>
#include <cerrno>

namespace {

/// As long as a sender waits for the lock before it gives up.
constexpr double staleLockSeconds = 2.5;

constexpr MailboxVerdict verdicts[] = {
    {MailboxProblem::none, "none", "A client is attached, and its queue has room.", ""},
    {MailboxProblem::missing, "missing", "There is no segment: no client runs on this machine.",
     "Start the client."},
    {MailboxProblem::noRight, "noRight", "This user has no right to the segment.",
     "Run this as the client's user; 'ipcs -m' shows who that is."},
    {MailboxProblem::refused, "refused", "The system refused a step.",
     "As its own words say; 'ipcs -m' shows the segment."},
    {MailboxProblem::abandoned, "abandoned",
     "Nobody is attached: a client that died left this segment.",
     "Start the client, which makes the segment anew; a command sent before that is lost."},
    {MailboxProblem::tooSmall, "tooSmall",
     "The segment is too small: something else holds the key, or a client of another build.",
     "Find out who made it; owner and creator are shown."},
    {MailboxProblem::lockHeld, "lockHeld", "Somebody holds the lock, which is usual for a moment.",
     "Look again, or look on with --watch: a lock that stays for 2.5 seconds is stale."},
    {MailboxProblem::staleLock, "staleLock",
     "The lock has been taken for 2.5 seconds, most likely by a program that died with it.",
     "Restart the client: senders give up until the segment is made anew."},
    {MailboxProblem::starting, "starting",
     "The format fields are not all written: the client is still starting.",
     "Look again; if it stays so, restart the client."},
    {MailboxProblem::wrongFormat, "wrongFormat",
     "The record is not a client's: something else holds the key, or a client of another build.",
     "Find out who made it; owner and creator are shown."},
    {MailboxProblem::countTooHigh, "countTooHigh",
     "The message count is above the queue's capacity: the record is damaged.",
     "Restart the client: senders take the queue for full."},
    {MailboxProblem::queueFull, "queueFull",
     "The queue is full and further commands are lost: the client does not drain it.",
     "See to the client."},
};

MailboxProblem problemOfAccess(int error)
{
    switch (error) {
    case ENOENT:
    case EIDRM: // gone since its key was looked up, and so the next
    case EINVAL:
        return MailboxProblem::missing;
    case EACCES:
        return MailboxProblem::noRight;
    default:
        return MailboxProblem::refused;
    }
}

/// A new segment is all zeros: a field that does not fit yet but is still 0 is one that the client
/// has not come to.
bool isStarting(MailboxLook const& look)
{
    return (look.format.recordMarker == clientRecordMarker || look.format.recordMarker == 0) &&
           (look.format.stateMarker == clientStateMarker || look.format.stateMarker == 0);
}

MailboxProblem problemOf(MailboxLook const& look)
{
    if (look.error != 0)
        return problemOfAccess(look.error);
    if (look.status.shm_nattch == 0)
        return MailboxProblem::abandoned;
    if (!look.read)
        return MailboxProblem::tooSmall;
    if (look.isLockTaken())
        return look.secondsTaken() < staleLockSeconds ? MailboxProblem::lockHeld
                                                      : MailboxProblem::staleLock;
    if (!look.format.isRight())
        return isStarting(look) ? MailboxProblem::starting : MailboxProblem::wrongFormat;
    if (look.messageCount > maxClientMessages)
        return MailboxProblem::countTooHigh;
    if (look.messageCount == maxClientMessages)
        return MailboxProblem::queueFull;
    return MailboxProblem::none;
}

} // namespace

std::span<MailboxVerdict const> allMailboxVerdicts()
{
    return verdicts;
}

MailboxVerdict const& judgeMailbox(MailboxLook const& look)
{
    return *std::ranges::find(verdicts, problemOf(look), &MailboxVerdict::problem);
}
