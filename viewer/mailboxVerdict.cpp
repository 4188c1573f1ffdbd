#include "viewer/mailboxVerdict.h"

#include <algorithm>

namespace {

constexpr MailboxVerdict verdicts[] = {
    {MailboxProblem::none, "none", "A client is attached, and its queue has room.", "",
     CheckState::ok},
    {MailboxProblem::missing, "missing", "There is no segment: no client runs on this machine.",
     "Start the client."},
    {MailboxProblem::noRight, "noRight", "This user has no right to the segment.",
     "Run this as the client's user; 'ipcs -m' shows who that is.", CheckState::unknown},
    {MailboxProblem::refused, "refused", "The system refused a step.",
     "As its own words say; 'ipcs -m' shows the segment.", CheckState::unknown},
    {MailboxProblem::abandoned, "abandoned",
     "Nobody is attached: a client that died left this segment.",
     "Start the client, which makes the segment anew; a command sent before that is lost."},
    {MailboxProblem::tooSmall, "tooSmall",
     "The segment is too small: something else holds the key, or a client of another build.",
     "Find out who made it; owner and creator are shown."},
    {MailboxProblem::lockHeld, "lockHeld", "Somebody holds the lock, which is usual for a moment.",
     "Look again, or look on with --watch: a lock that stays for 2.5 seconds is stale.",
     CheckState::ok},
    {MailboxProblem::staleLock, "staleLock",
     "The lock has been taken for 2.5 seconds, most likely by a program that died with it.",
     "Restart the client: senders give up until the segment is made anew."},
    {MailboxProblem::starting, "starting",
     "The format fields are not all written: the client is still starting.",
     "Look again; if it stays so, restart the client.", CheckState::warning},
    {MailboxProblem::wrongFormat, "wrongFormat",
     "The record is not a client's: something else holds the key, or a client of another build.",
     "Find out who made it; owner and creator are shown."},
    {MailboxProblem::countTooHigh, "countTooHigh",
     "The message count is above the queue's capacity: the record is damaged.",
     "Restart the client: senders take the queue for full."},
    {MailboxProblem::queueFull, "queueFull",
     "The queue is full and further commands are lost: the client does not drain it.",
     "See to the client."},
    {MailboxProblem::clientDead, "clientDead",
     "The client is dead: what is still attached keeps its segment, and nobody takes commands.",
     "End what is attached, then start the client; a command sent before that is lost."},
    {MailboxProblem::clientStopped, "clientStopped",
     "The client is stopped: what waits is not taken until it is continued.",
     "Continue the client, by SIGCONT or in the debugger that holds it."},
    {MailboxProblem::mayNotSend, "mayNotSend",
     "This user may look at the mailbox but not send: it lacks the right to write.",
     "Send as the client's user; the owner is shown.", CheckState::warning},
    {MailboxProblem::timedOut, "timedOut", "The time ran out before it was so.",
     "Look once without waiting: that tells what is in the way.", CheckState::unknown},
    {MailboxProblem::lockKept, "lockKept", "The lock was not freed, for the reason that is shown.",
     "See to that reason; restarting the client always frees the lock.", CheckState::unknown},
};

MailboxProblem problemOfAccess(LookError error)
{
    switch (error) {
    case LookError::missing:
        return MailboxProblem::missing;
    case LookError::noRight:
        return MailboxProblem::noRight;
    default:
        return MailboxProblem::refused;
    }
}

/// A new segment is all zeros: a format field that is still 0 is one that the client has not
/// written yet.
bool isStarting(MailboxLook const& look)
{
    return (look.format.recordMarker == clientRecordMarker || look.format.recordMarker == 0) &&
           (look.format.stateMarker == clientStateMarker || look.format.stateMarker == 0);
}

/// True for a record that is neither a client's nor being filled in by one.
bool isForeign(MailboxLook const& look)
{
    return !look.format.isRight() && !isStarting(look);
}

/// A dead or stopped client explains the state of its mailbox. A record that is not a client's was
/// made by another process, so it has no client to judge.
MailboxProblem problemOfClient(MailboxLook const& look)
{
    if (isForeign(look))
        return MailboxProblem::none;
    if (look.client.state == ProcessState::dead)
        return MailboxProblem::clientDead;
    if (look.client.state == ProcessState::stopped && look.messageCount != 0)
        return MailboxProblem::clientStopped;
    return MailboxProblem::none;
}

MailboxProblem problemOfRecord(MailboxLook const& look)
{
    if (look.isLockTaken())
        return look.timeTaken() < staleLockTime ? MailboxProblem::lockHeld
                                                : MailboxProblem::staleLock;
    if (!look.format.isRight())
        return isStarting(look) ? MailboxProblem::starting : MailboxProblem::wrongFormat;
    if (look.messageCount > maxClientMessages)
        return MailboxProblem::countTooHigh;
    if (look.messageCount == maxClientMessages)
        return MailboxProblem::queueFull;
    return MailboxProblem::none;
}

MailboxProblem problemOf(MailboxLook const& look)
{
    if (look.error != LookError::none)
        return problemOfAccess(look.error);
    if (look.status.shm_nattch == 0)
        return MailboxProblem::abandoned;
    if (!look.read)
        return MailboxProblem::tooSmall;
    MailboxProblem problem = problemOfClient(look);
    if (problem == MailboxProblem::none)
        problem = problemOfRecord(look);
    if (problem == MailboxProblem::none && !look.maySend)
        problem =
            MailboxProblem::mayNotSend; // last: a user who only watches must learn of all others
    return problem;
}

} // namespace

std::span<MailboxVerdict const> allMailboxVerdicts()
{
    return verdicts;
}

MailboxVerdict const& mailboxVerdictOf(MailboxProblem problem)
{
    return *std::ranges::find(verdicts, problem, &MailboxVerdict::problem);
}

MailboxVerdict const& judgeMailbox(MailboxLook const& look)
{
    return mailboxVerdictOf(problemOf(look));
}
