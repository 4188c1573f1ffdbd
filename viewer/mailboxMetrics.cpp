#include "viewer/mailboxMonitor.h"
#include "viewer/mailboxVerdict.h"
#include "viewer/mailboxWatch.h"

#include <cstdio>

namespace {

struct Metric
{
    char const* name;
    char const* help;
    bool isOfRecord; ///< Printed only when a record was read.
    double (*value)(MailboxLook const& look);
};

constexpr Metric metrics[] = {
    {"qv_mailbox_status", "Verdict on the mailbox, as the exit status of mailboxView; 0 is fine.",
     false, [](MailboxLook const& look) { return double(judgeMailbox(look).status()); }},
    {"qv_mailbox_client_running", "1 if a client is attached and runs, else 0.", false,
     [](MailboxLook const& look) { return look.hasRunningClient() ? 1.0 : 0.0; }},
    {"qv_mailbox_look_timestamp_seconds", "When the mailbox was looked at.", false,
     [](MailboxLook const& look) { return double(look.secondsSince1970); }},
    {"qv_mailbox_messages", "Messages that wait for the client.", true,
     [](MailboxLook const& look) { return double(look.messageCount); }},
    {"qv_mailbox_messages_limit", "Messages that the queue holds.", true,
     [](MailboxLook const&) { return double(maxClientMessages); }},
    {"qv_mailbox_lock_taken_seconds", "How long the lock was seen taken; 2.5 and more is stale.",
     true,
     [](MailboxLook const& look) {
         return look.isLockTaken() ? double(look.timeTaken().count()) / 1000 : 0.0;
     }},
};

} // namespace

int printMetrics()
{
    MailboxLook const look = lookUntilLockIsJudged();
    for (Metric const& metric : metrics)
        if (look.read || !metric.isOfRecord)
            std::printf("# HELP %s %s\n# TYPE %s gauge\n%s %.15g\n", metric.name, metric.help,
                        metric.name, metric.name, metric.value(look));
    return std::fflush(stdout) == 0 ? 0 : viewFailed;
}
