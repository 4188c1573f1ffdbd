#include "sender/clientOfSegment.h"
#include "viewer/mailboxReport.h"

#include <ctime>
#include <unistd.h>

namespace {

void printTime(std::FILE* to, char const* what, std::time_t seconds)
{
    char text[64] = "never";
    tm parts;
    if (seconds != 0 && localtime_r(&seconds, &parts) != nullptr)
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    std::fprintf(to, "%-11s%s\n", what, text);
}

void printOwner(std::FILE* to, MailboxLook const& look)
{
    ipc_perm const& rights = look.status.shm_perm;
    bool const isNamed = *look.owner.text != '\0';
    std::fprintf(to, "owner      %s%suid %u, gid %u, mode %04o\n", look.owner.text,
                 isNamed ? ", " : "", rights.uid, rights.gid, rights.mode & 0777u);
}

void printSegment(std::FILE* to, MailboxLook const& look)
{
    shmid_ds const& status = look.status;
    std::fprintf(to, "id         %d\n", look.id);
    std::fprintf(to, "record     %d bytes of at least %d, in a segment of %zu\n", look.recordSize(),
                 clientRecordSize, status.shm_segsz);
    printOwner(to, look);
    std::fprintf(to, "processes  %llu attached\n",
                 static_cast<unsigned long long>(status.shm_nattch));
    printProcessLine(to, "client", look.client);
    printProcessLine(to, "came last", look.last);
    printTime(to, "attached", status.shm_atime);
    printTime(to, "left", status.shm_dtime);
    printTime(to, "changed", status.shm_ctime);
}

void printLock(std::FILE* to, MailboxLook const& look)
{
    if (look.lockedByUs)
        std::fputs("lock       held by this viewer while it looked\n", to);
    else if (look.isLockTaken()) {
        auto const tenths = static_cast<int>(look.timeTaken().count() / 100);
        std::fprintf(to, "lock       taken (byte %d), for at least %d.%d s\n", look.lockByte,
                     tenths / 10, tenths % 10);
    } else
        std::fputs("lock       free\n", to);
}

void printMarkers(std::FILE* to, MailboxLook const& look)
{
    std::fprintf(to, "markers    recordMarker %u (%d), stateMarker %d (%d), stateFlag %d (%d)\n",
                 look.format.recordMarker, clientRecordMarker, look.format.stateMarker,
                 clientStateMarker, look.format.stateFlag, clientStateFlag);
}

void printCount(std::FILE* to, MailboxLook const& look)
{
    std::fprintf(to, "messages   %d of %d\n", look.messageCount, maxClientMessages);
}

void printFields(std::FILE* to, MailboxEntry const& entry)
{
    std::fprintf(to, "kind %d, type %d, value %d", entry.kind, entry.type, entry.value);
}

void printEntries(std::FILE* to, MailboxLook const& look)
{
    for (int i = 0; i < look.entryCount(); ++i) {
        MailboxEntry const& entry = look.entries[i];
        auto const name = entry.name();
        std::fprintf(to, "%5d  ", i + 1);
        printFields(to, entry);
        std::fprintf(to, "%s%s\n", name.length == 0 ? "" : ": ", name.asChar());
    }
}

/// How many entries from `first` on are equal.
int equalEntries(MailboxLook const& look, int first)
{
    int end = first + 1;
    while (end < look.entryCount() && look.entries[end] == look.entries[first])
        ++end;
    return end - first;
}

void printFoldedEntries(std::FILE* to, MailboxLook const& look)
{
    for (int i = 0; i < look.entryCount();) {
        int const equal = equalEntries(look, i);
        auto const name = look.entries[i].name();
        std::fprintf(to, "%5d x ", equal);
        if (name.length == 0)
            printFields(to, look.entries[i]);
        std::fprintf(to, "%s\n", name.asChar());
        i += equal;
    }
}

void printMachine(std::FILE* to, MailboxLook const& look)
{
    std::fprintf(to, "mailbox    key 0x%08x on %s\n", static_cast<unsigned>(clientSegmentKey()),
                 look.host);
}

void printVerdict(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict)
{
    std::fprintf(to, "verdict    %s\n", verdict.what);
    if (look.error != LookError::none)
        std::fprintf(to, "           %s\n", look.errorText.asChar());
    if (*verdict.advice != '\0')
        std::fprintf(to, "to do      %s\n", verdict.advice);
}

/// All but the messages.
void printFacts(std::FILE* to, MailboxLook const& look)
{
    if (look.found)
        printSegment(to, look);
    if (!look.read)
        return;
    printLock(to, look);
    printMarkers(to, look);
    printCount(to, look);
}

} // namespace

void printProcessLine(std::FILE* to, char const* what, ProcessLook const& process)
{
    bool const isNamed = *process.command != '\0';
    std::fprintf(to, "%-11spid %d%s%s%s, %s%s\n", what, process.pid, isNamed ? " (" : "",
                 process.command, isNamed ? ")" : "", processStateWord(process.state),
                 process.pid == getpid() ? ": this viewer" : "");
}

void printMailboxText(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict)
{
    printMachine(to, look);
    printTime(to, "looked", look.secondsSince1970);
    printFacts(to, look);
    printEntries(to, look);
    printVerdict(to, look, verdict);
}

void printMailboxFolded(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict)
{
    printVerdict(to, look, verdict);
    printTime(to, "looked", look.secondsSince1970);
    printMachine(to, look);
    printFacts(to, look);
    printFoldedEntries(to, look);
}
