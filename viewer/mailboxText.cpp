#include "viewer/mailboxReport.h"

#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace {

void printTime(char const* what, std::time_t seconds)
{
    char text[64] = "never";
    tm parts;
    if (seconds != 0 && localtime_r(&seconds, &parts) != nullptr)
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    std::printf("%-11s%s\n", what, text);
}

void printSegment(MailboxLook const& look)
{
    shmid_ds const& status = look.status;
    std::printf("id         %d\n", look.id);
    std::printf("record     %d bytes of at least %d\n", look.recordSize(), clientRecordSize);
    std::printf("owner      uid %u, gid %u, mode %04o\n", status.shm_perm.uid, status.shm_perm.gid,
                status.shm_perm.mode & 0777u);
    std::printf("processes  %llu attached, created by %d, last attached or left by %d%s\n",
                static_cast<unsigned long long>(status.shm_nattch), status.shm_cpid,
                status.shm_lpid, status.shm_lpid == getpid() ? " (this viewer)" : "");
    printTime("attached", status.shm_atime);
    printTime("left", status.shm_dtime);
    printTime("changed", status.shm_ctime);
}

void printLock(MailboxLook const& look)
{
    if (look.lockedByUs)
        std::puts("lock       held by this viewer while it looked");
    else if (look.isLockTaken()) {
        auto const tenths = static_cast<int>(look.timeTaken().count() / 100);
        std::printf("lock       taken (byte %d), for at least %d.%d s\n", look.lockByte,
                    tenths / 10, tenths % 10);
    } else
        std::puts("lock       free");
}

void printEntries(MailboxLook const& look)
{
    std::printf("messages   %d of %d\n", look.messageCount, maxClientMessages);
    for (int i = 0; i < look.entryCount(); ++i) {
        MailboxEntry const& entry = look.entries[i];
        auto const name = entry.name();
        std::printf("%5d  kind %d, type %d, value %d%s%s\n", i + 1, entry.kind, entry.type,
                    entry.value, name.length == 0 ? "" : ": ", name.asChar());
    }
}

void printRecord(MailboxLook const& look)
{
    printLock(look);
    std::printf("markers    recordMarker %u (%d), stateMarker %d (%d), stateFlag %d (%d)\n",
                look.format.recordMarker, clientRecordMarker, look.format.stateMarker,
                clientStateMarker, look.format.stateFlag, clientStateFlag);
    printEntries(look);
}

} // namespace

void printMailboxText(MailboxLook const& look, MailboxVerdict const& verdict)
{
    std::printf("mailbox    key 0x%08x\n", static_cast<unsigned>(clientSegmentKey()));
    if (look.found)
        printSegment(look);
    if (look.read)
        printRecord(look);
    std::printf("verdict    %s\n", verdict.what);
    if (look.error != LookError::none)
        std::printf("           %s\n", look.errorText.asChar());
    if (*verdict.advice != '\0')
        std::printf("to do      %s\n", verdict.advice);
}
