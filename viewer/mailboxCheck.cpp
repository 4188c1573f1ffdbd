#include "viewer/mailboxMonitor.h"
#include "viewer/mailboxVerdict.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr char const* stateNames[] = {"OK", "WARNING", "CRITICAL", "UNKNOWN"};

/// The limit that the queue exceeds; below 0 for none.
int exceededLimit(ViewOptions const& options, MailboxLook const& look)
{
    if (!look.read || !look.format.isRight())
        return -1;
    if (look.messageCount > options.critical)
        return options.critical;
    return look.messageCount > options.warning ? options.warning : -1;
}

CheckState stateOf(ViewOptions const& options, MailboxVerdict const& verdict, int exceeded)
{
    if (exceeded < 0)
        return verdict.check;
    return std::max(verdict.check,
                    exceeded == options.critical ? CheckState::critical : CheckState::warning);
}

/// The figures, each with its limits and its range if it has them.
void printFigures(ViewOptions const& options, MailboxLook const& look)
{
    std::printf(" | client=%d;;;0;1", look.hasRunningClient() ? 1 : 0);
    if (!look.read)
        return;
    auto const ms = look.isLockTaken() ? static_cast<int>(look.timeTaken().count()) : 0;
    std::printf(" queue=%d;%d;%d;0;%d lock=%dms;;;0", look.messageCount, options.warning,
                options.critical, maxClientMessages, ms);
}

int endOfCheck(CheckState state)
{
    bool const isWritten = std::fflush(stdout) == 0;
    return static_cast<int>(isWritten ? state : CheckState::unknown);
}

void printState(CheckState state)
{
    std::printf("MAILBOX %s - ", stateNames[static_cast<int>(state)]);
}

} // namespace

int checkMailbox(ViewOptions const& options)
{
    MailboxLook const look = lookUntilLockIsJudged();
    MailboxVerdict const& verdict = judgeMailbox(look);
    int const exceeded = exceededLimit(options, look);
    CheckState const state = stateOf(options, verdict, exceeded);
    printState(state);
    std::printf("%s: %s", verdict.word, verdict.what);
    if (exceeded >= 0)
        std::printf(" Messages: %d, more than %d.", look.messageCount, exceeded);
    printFigures(options, look);
    std::putchar('\n');
    return endOfCheck(state);
}

int failCheck(char const* reason)
{
    printState(CheckState::unknown);
    std::puts(reason);
    return endOfCheck(CheckState::unknown);
}
