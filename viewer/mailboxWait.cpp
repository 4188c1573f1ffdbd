#include "viewer/mailboxWatch.h"

#include <thread>

namespace {

constexpr std::chrono::milliseconds lookEvery{100};

/// While another program holds the lock, the count may be ahead of the messages.
bool isReached(ViewTask task, MailboxLook const& look)
{
    if (!look.hasClient())
        return false;
    return task == ViewTask::waitClient || (look.messageCount == 0 && !look.isLockTaken());
}

/// Reports the obstacle on standard error, since a program may read standard output.
int runOut(ViewOptions const& options, MailboxLook const& look)
{
    std::fputs("mailboxView: the last look: ", stderr);
    printMailboxBrief(stderr, look, judgeMailbox(look));
    MailboxVerdict const& verdict = mailboxVerdictOf(MailboxProblem::timedOut);
    return printLook(options.form, look, verdict) ? verdict.status() : viewFailed;
}

} // namespace

int waitForMailbox(ViewOptions const& options)
{
    auto const end = MailboxLook::Clock::now() + std::chrono::seconds(options.timeoutSeconds);
    MailboxLook look;
    for (;;) {
        look = lookAgain(look, options.lock);
        if (isReached(options.task, look))
            return printLook(options.form, look, judgeMailbox(look)) ? 0 : viewFailed;
        if (MailboxLook::Clock::now() >= end)
            return runOut(options, look);
        std::this_thread::sleep_for(lookEvery);
    }
}
