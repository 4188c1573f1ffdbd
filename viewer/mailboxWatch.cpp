#include "viewer/mailboxWatch.h"

#include "viewer/screen.h"

#include <csignal>
#include <cstdlib>
#include <sys/select.h>
#include <unistd.h>

namespace {

std::sig_atomic_t volatile stopAsked = 0;

using Printer = void(std::FILE*, MailboxLook const&, MailboxVerdict const&);

Printer* printerOf(ViewForm form, Printer* forPeople)
{
    switch (form) {
    case ViewForm::json:
        return printMailboxJson;
    case ViewForm::brief:
        return printMailboxBrief;
    default:
        return forPeople;
    }
}

/// Writes the text to memory first, since its length must be known.
void printOnScreen(MailboxLook const& look, MailboxVerdict const& verdict)
{
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const memory = open_memstream(&text, &size);
    if (memory == nullptr)
        return;
    printMailboxFolded(memory, look, verdict);
    std::fclose(memory);
    showOnScreen({text, size});
    std::free(text);
}

/// One look of many: a text is separated from the next one.
bool printWatched(ViewForm form, MailboxLook const& look, MailboxVerdict const& verdict)
{
    if (form == ViewForm::text && isatty(STDOUT_FILENO) == 1)
        printOnScreen(look, verdict);
    else {
        printerOf(form, printMailboxFolded)(stdout, look, verdict);
        if (form == ViewForm::text)
            std::puts("");
    }
    return std::fflush(stdout) == 0;
}

/// SIGINT and SIGTERM take effect only while the watch sleeps: one that comes during a look ends
/// the next sleep at once.
class StopSignals
{
public:
    StopSignals()
    {
        sigset_t ending;
        sigemptyset(&ending);
        for (int const number : {SIGINT, SIGTERM}) {
            sigaddset(&ending, number);
            std::signal(number, [](int) { stopAsked = 1; });
        }
        sigprocmask(SIG_BLOCK, &ending, &whileAsleep_);
        sigdelset(&whileAsleep_, SIGINT);
        sigdelset(&whileAsleep_, SIGTERM);
    }

    /// @return True if one of them came.
    bool sleep(int ms) const
    {
        timespec const pause{ms / 1000, ms % 1000 * 1000000L};
        pselect(0, nullptr, nullptr, nullptr, &pause, &whileAsleep_);
        return stopAsked != 0;
    }

private:
    sigset_t whileAsleep_{};
};

} // namespace

bool printLook(ViewForm form, MailboxLook const& look, MailboxVerdict const& verdict)
{
    printerOf(form, printMailboxText)(stdout, look, verdict);
    return std::fflush(stdout) == 0;
}

int watchMailbox(ViewOptions const& options)
{
    StopSignals const signals;
    MailboxLook last;
    for (;;) {
        last = lookAgain(last, options.lock);
        MailboxVerdict const& verdict = judgeMailbox(last);
        if (!printWatched(options.form, last, verdict))
            return viewFailed;
        if (signals.sleep(options.watchMs))
            return verdict.status();
    }
}
