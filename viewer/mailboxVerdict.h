#pragma once

#include "viewer/mailboxLook.h"

#include <span>

/// What keeps a command from reaching the client. The value is the exit status of `mailboxView`;
/// 1 is for the program's own failures.
enum class MailboxProblem
{
    none = 0,
    missing = 2,
    noRight = 3,
    refused = 4,
    abandoned = 5,
    tooSmall = 6,
    lockHeld = 7,
    staleLock = 8,
    starting = 9,
    wrongFormat = 10,
    countTooHigh = 11,
    queueFull = 12,
    clientDead = 13,
    clientStopped = 14,
    mayNotSend = 15,
    timedOut = 16,
    lockKept = 17,
};

/// The state of a problem in a monitoring system. The value is the exit status of its plugins.
enum class CheckState
{
    ok = 0,
    warning = 1,
    critical = 2,
    unknown = 3,
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the order in which the table is read
struct MailboxVerdict
{
    MailboxProblem problem;
    char const* word;   ///< For programs.
    char const* what;   ///< What is wrong, as a sentence.
    char const* advice; ///< What to do; empty for nothing.
    CheckState check = CheckState::critical;

    int status() const { return static_cast<int>(problem); }
};

/// Every verdict, in the order of their statuses.
std::span<MailboxVerdict const> allMailboxVerdicts();

/// The verdict of this problem.
MailboxVerdict const& mailboxVerdictOf(MailboxProblem problem);

/// The verdict on a look. Of several problems it is the one that explains the others, else the one
/// that a sender would meet first.
MailboxVerdict const& judgeMailbox(MailboxLook const& look);
