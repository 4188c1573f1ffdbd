#include "viewer/mailboxReport.h"

void printMailboxBrief(std::FILE* to, MailboxLook const&, MailboxVerdict const& verdict)
{
    std::fprintf(to, "%s: %s\n", verdict.word, verdict.what);
}
