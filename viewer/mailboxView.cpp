/// Shows the client's mailbox and whether a command would get through. It changes nothing in the
/// mailbox, apart from a lock that an option takes or frees, and never removes the segment.
/// docs/man/mailboxView.1 has the options.

#include "sender/qvVersion.h"
#include "viewer/freeLock.h"
#include "viewer/mailboxMonitor.h"
#include "viewer/mailboxWatch.h"
#include "viewer/viewOptions.h"

namespace {

void printHelp()
{
    printOptions(stdout);
    std::puts("\nThe exit status tells the last look:");
    for (MailboxVerdict const& verdict : allMailboxVerdicts())
        std::printf("  %2d  %-13s  %s\n", verdict.status(), verdict.word, verdict.what);
}

int lookOnce(ViewOptions const& options)
{
    MailboxLook const look = lookAtMailbox(options.lock);
    MailboxVerdict const& verdict = judgeMailbox(look);
    return printLook(options.form, look, verdict) ? verdict.status() : viewFailed;
}

int run(ViewOptions const& options)
{
    switch (options.task) {
    case ViewTask::watch:
        return watchMailbox(options);
    case ViewTask::waitEmpty:
    case ViewTask::waitClient:
        return waitForMailbox(options);
    case ViewTask::freeLock:
        return freeStaleLock();
    case ViewTask::check:
        return checkMailbox(options);
    case ViewTask::metrics:
        return printMetrics();
    case ViewTask::help:
        printHelp();
        return std::fflush(stdout) == 0 ? 0 : viewFailed;
    case ViewTask::version:
        std::printf("mailboxView%s\n", qvVersion); // which begins with a blank
        return std::fflush(stdout) == 0 ? 0 : viewFailed;
    default:
        return lookOnce(options);
    }
}

} // namespace

int main(int argc, char** argv)
{
    char error[200];
    ViewOptions const options = readOptions(argc, argv, error);
    if (error[0] == '\0')
        return run(options);
    if (options.task == ViewTask::check)
        return failCheck(error);
    std::fprintf(stderr, "mailboxView: %s\n", error);
    printOptions(stderr);
    return viewFailed;
}
