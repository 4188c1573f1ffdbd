#include "viewer/mailboxReport.h"

#include <cstdio>

namespace {

void printString(char const* text)
{
    std::putchar('"');
    for (; *text != '\0'; ++text) {
        auto const character = static_cast<unsigned char>(*text);
        if (character == '"' || character == '\\')
            std::printf("\\%c", character);
        else if (character < ' ')
            std::printf("\\u%04x", character);
        else
            std::putchar(character);
    }
    std::putchar('"');
}

void printMember(char const* name, char const* text)
{
    std::printf(",\"%s\":", name);
    printString(text);
}

void printSegment(MailboxLook const& look)
{
    shmid_ds const& status = look.status;
    std::printf(
        ",\"segment\":{\"id\":%d,\"recordSize\":%d,\"leastRecordSize\":%d,\"uid\":%u,\"gid\":%u,"
        "\"mode\":\"%04o\",\"attached\":%llu,\"creatorPid\":%d,\"lastPid\":%d,"
        "\"attachTime\":%lld,\"leaveTime\":%lld,\"changeTime\":%lld}",
        look.id, look.recordSize(), clientRecordSize, status.shm_perm.uid, status.shm_perm.gid,
        status.shm_perm.mode & 0777u, static_cast<unsigned long long>(status.shm_nattch),
        status.shm_cpid, status.shm_lpid, static_cast<long long>(status.shm_atime),
        static_cast<long long>(status.shm_dtime), static_cast<long long>(status.shm_ctime));
}

void printMarker(char const* name, unsigned found, int expected)
{
    std::printf(",\"%s\":{\"found\":%u,\"expected\":%d}", name, found, expected);
}

void printEntries(MailboxLook const& look)
{
    std::putchar('[');
    for (int i = 0; i < look.entryCount(); ++i) {
        MailboxEntry const& entry = look.entries[i];
        std::printf("%s{\"kind\":%d,\"type\":%d,\"value\":%d", i == 0 ? "" : ",", entry.kind,
                    entry.type, entry.value);
        auto const name = entry.name();
        if (name.length != 0)
            printMember("name", name.asChar());
        std::putchar('}');
    }
    std::putchar(']');
}

void printRecord(MailboxLook const& look)
{
    std::printf(",\"record\":{\"lock\":{\"byte\":%d,\"byViewer\":%s,\"secondsTaken\":%.3f}",
                look.lockByte, look.lockedByUs ? "true" : "false",
                look.isLockTaken() ? static_cast<double>(look.timeTaken().count()) / 1000 : 0.0);
    printMarker("recordMarker", look.format.recordMarker, clientRecordMarker);
    printMarker("stateMarker", look.format.stateMarker, clientStateMarker);
    printMarker("stateFlag", look.format.stateFlag, clientStateFlag);
    std::printf(",\"messageCount\":%d,\"capacity\":%d,\"entries\":", look.messageCount,
                maxClientMessages);
    printEntries(look);
    std::putchar('}');
}

} // namespace

void printMailboxJson(MailboxLook const& look, MailboxVerdict const& verdict)
{
    std::printf("{\"key\":%d,\"status\":%d", clientSegmentKey(), verdict.status());
    printMember("problem", verdict.word);
    printMember("what", verdict.what);
    printMember("system", look.errorText.asChar());
    printMember("advice", verdict.advice);
    if (look.found)
        printSegment(look);
    if (look.read)
        printRecord(look);
    std::puts("}");
}
