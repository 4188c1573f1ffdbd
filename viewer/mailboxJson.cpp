#include "sender/clientOfSegment.h"
#include "viewer/mailboxReport.h"

#include <ctime>

namespace {

void printString(std::FILE* to, char const* text)
{
    std::fputc('"', to);
    for (; *text != '\0'; ++text) {
        auto const character = static_cast<unsigned char>(*text);
        if (character == '"' || character == '\\')
            std::fprintf(to, "\\%c", character);
        else if (character < ' ')
            std::fprintf(to, "\\u%04x", character);
        else
            std::fputc(character, to);
    }
    std::fputc('"', to);
}

void printMember(std::FILE* to, char const* name, char const* text)
{
    std::fprintf(to, ",\"%s\":", name);
    printString(to, text);
}

/// By RFC 3339, in UTC.
struct TimeText
{
    char text[32] = "";
};

TimeText timeText(std::time_t seconds)
{
    TimeText time;
    tm parts;
    if (gmtime_r(&seconds, &parts) != nullptr)
        std::strftime(time.text, sizeof time.text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return time;
}

void printProcess(std::FILE* to, char const* name, ProcessLook const& process)
{
    std::fprintf(to, ",\"%s\":{\"pid\":%d", name, process.pid);
    printMember(to, "command", process.command);
    printMember(to, "state", processStateWord(process.state));
    std::fputc('}', to);
}

void printSegment(std::FILE* to, MailboxLook const& look)
{
    shmid_ds const& status = look.status;
    std::fprintf(
        to,
        ",\"segment\":{\"id\":%d,\"recordSize\":%d,\"leastRecordSize\":%d,\"uid\":%u,\"gid\":%u,"
        "\"mode\":\"%04o\",\"attached\":%llu,\"creatorPid\":%d,\"lastPid\":%d,"
        "\"attachTime\":%lld,\"leaveTime\":%lld,\"changeTime\":%lld",
        look.id, look.recordSize(), clientRecordSize, status.shm_perm.uid, status.shm_perm.gid,
        status.shm_perm.mode & 0777u, static_cast<unsigned long long>(status.shm_nattch),
        status.shm_cpid, status.shm_lpid, static_cast<long long>(status.shm_atime),
        static_cast<long long>(status.shm_dtime), static_cast<long long>(status.shm_ctime));
    std::fprintf(to, ",\"size\":%zu", status.shm_segsz);
    printMember(to, "user", look.owner.text);
    printProcess(to, "client", look.client);
    printProcess(to, "last", look.last);
    std::fputc('}', to);
}

void printMarker(std::FILE* to, char const* name, unsigned found, int expected)
{
    std::fprintf(to, ",\"%s\":{\"found\":%u,\"expected\":%d}", name, found, expected);
}

void printEntries(std::FILE* to, MailboxLook const& look)
{
    std::fputc('[', to);
    for (int i = 0; i < look.entryCount(); ++i) {
        MailboxEntry const& entry = look.entries[i];
        std::fprintf(to, "%s{\"kind\":%d,\"type\":%d,\"value\":%d", i == 0 ? "" : ",", entry.kind,
                     entry.type, entry.value);
        auto const name = entry.name();
        if (name.length != 0)
            printMember(to, "name", name.asChar());
        std::fputc('}', to);
    }
    std::fputc(']', to);
}

void printRecord(std::FILE* to, MailboxLook const& look)
{
    std::fprintf(to, ",\"record\":{\"lock\":{\"byte\":%d,\"byViewer\":%s,\"secondsTaken\":%.3f}",
                 look.lockByte, look.lockedByUs ? "true" : "false",
                 look.isLockTaken() ? static_cast<double>(look.timeTaken().count()) / 1000 : 0.0);
    printMarker(to, "recordMarker", look.format.recordMarker, clientRecordMarker);
    printMarker(to, "stateMarker", look.format.stateMarker, clientStateMarker);
    printMarker(to, "stateFlag", look.format.stateFlag, clientStateFlag);
    std::fprintf(to, ",\"messageCount\":%d,\"capacity\":%d,\"entries\":", look.messageCount,
                 maxClientMessages);
    printEntries(to, look);
    std::fputc('}', to);
}

} // namespace

void printMailboxJson(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict)
{
    std::fputs("{\"schema\":1", to);
    printMember(to, "host", look.host);
    printMember(to, "time", timeText(look.secondsSince1970).text);
    std::fprintf(to, ",\"key\":%d,\"keyHex\":\"0x%08x\",\"status\":%d", clientSegmentKey(),
                 static_cast<unsigned>(clientSegmentKey()), verdict.status());
    printMember(to, "problem", verdict.word);
    printMember(to, "what", verdict.what);
    printMember(to, "system", look.errorText.asChar());
    printMember(to, "advice", verdict.advice);
    if (look.found)
        printSegment(to, look);
    if (look.read)
        printRecord(to, look);
    std::fputs("}\n", to);
}
