/// Shows what stands in the client's mailbox and whether a command would get through. It changes
/// nothing in there, apart from the lock that --lock takes and gives back, and never removes the
/// segment.
///
///     mailboxView [--json] [--lock] [--watch [MS]]

#include "viewer/mailboxReport.h"

#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/select.h>
#include <unistd.h>

namespace {

/// Exit status of a wrong command line, and of output that could not be written.
constexpr int failed = 1;
constexpr int defaultWatchMs = 1000;

/// Home, and clear what is below. No mode of the terminal is changed, so that none has to be set
/// back, however the watching ends.
constexpr char clearScreen[] = "\033[H\033[J";

std::sig_atomic_t volatile stopAsked = 0;

struct Options
{
    bool help = false;
    bool json = false;
    bool lock = false;
    int watchMs = 0; ///< 0 looks once.
};

bool readMilliseconds(char const* text, int& ms)
{
    char const* const end = text + std::strlen(text);
    auto const result = std::from_chars(text, end, ms);
    return result.ec == std::errc() && result.ptr == end && ms > 0;
}

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0)
            options.help = true;
        else if (std::strcmp(argv[i], "--json") == 0)
            options.json = true;
        else if (std::strcmp(argv[i], "--lock") == 0)
            options.lock = true;
        else if (std::strcmp(argv[i], "--watch") == 0) {
            options.watchMs = defaultWatchMs;
            bool const isNumberGiven = i + 1 < argc && argv[i + 1][0] != '-';
            if (isNumberGiven && !readMilliseconds(argv[++i], options.watchMs))
                return false;
        } else
            return false;
    }
    return true;
}

void printUsage(std::FILE* stream)
{
    std::fputs("usage: mailboxView [--json] [--lock] [--watch [MS]]\n\n"
               "  --json        one JSON object per look, on one line\n"
               "  --lock        look under the mailbox's lock\n"
               "  --watch [MS]  look every MS milliseconds (1000) until SIGINT or SIGTERM\n\n"
               "The exit status tells the last look:\n",
               stream);
    for (MailboxVerdict const& verdict : allMailboxVerdicts())
        std::fprintf(stream, "  %2d  %-12s  %s\n", verdict.status(), verdict.word, verdict.what);
}

/// Looks and prints; the status of what was found. A lock seen taken in the last look and in this
/// one counts as taken all the while, which is how a sender sees it too.
int lookOnce(Options const& options, MailboxLook& last)
{
    MailboxLook look = lookAtMailbox(options.lock);
    if (look.id == last.id && look.isLockTaken() && last.isLockTaken())
        look.takenFrom = last.takenFrom;
    MailboxVerdict const& verdict = judgeMailbox(look);
    if (options.json)
        printMailboxJson(look, verdict);
    else
        printMailboxText(look, verdict);
    last = look;
    return std::fflush(stdout) == 0 ? verdict.status() : failed;
}

/// SIGINT and SIGTERM are let in only while it sleeps: one that comes during a look ends the sleep
/// behind it at once.
int watch(Options const& options)
{
    sigset_t ending;
    sigset_t whileAsleep;
    sigemptyset(&ending);
    for (int const number : {SIGINT, SIGTERM}) {
        sigaddset(&ending, number);
        std::signal(number, [](int) { stopAsked = 1; });
    }
    sigprocmask(SIG_BLOCK, &ending, &whileAsleep);
    sigdelset(&whileAsleep, SIGINT);
    sigdelset(&whileAsleep, SIGTERM);

    timespec const pause{options.watchMs / 1000, options.watchMs % 1000 * 1000000L};
    bool const isScreen = !options.json && isatty(STDOUT_FILENO) == 1;
    MailboxLook last;
    for (;;) {
        if (isScreen)
            std::fputs(clearScreen, stdout);
        int const status = lookOnce(options, last);
        if (std::ferror(stdout) != 0)
            return status;
        pselect(0, nullptr, nullptr, nullptr, &pause, &whileAsleep);
        if (stopAsked != 0)
            return status;
        if (!isScreen && !options.json)
            std::puts("");
    }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        printUsage(stderr);
        return failed;
    }
    if (options.help) {
        printUsage(stdout);
        return 0;
    }
    if (options.watchMs != 0)
        return watch(options);
    MailboxLook none;
    return lookOnce(options, none);
}
