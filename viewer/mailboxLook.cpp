#include "viewer/mailboxLook.h"

#include "qv/client/qvClientCommandName.h"
#include "qv/segment/core/deferredSignals.h"
#include "qv/segment/qvSharedMemory.h"
#include "sender/clientOfSegment.h"
#include "sender/printable.h"
#include "viewer/segmentMapping.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <thread>
#include <unistd.h>

namespace {

using qvSegment::segmentAttachRights;
using qvSegment::segmentMissingText;

constexpr int readRights = 0444;

/// A holder needs microseconds: one of the many looks finds the lock free.
constexpr std::chrono::milliseconds lookAtLockEvery{50};

LookError errorOf(int systemError)
{
    switch (systemError) {
    case ENOENT:
    case EIDRM: // removed since its key was looked up; the next one too
    case EINVAL:
        return LookError::missing;
    case EACCES:
        return LookError::noRight;
    default:
        return LookError::refused;
    }
}

/// The class has codes of its own that are also values of `errno`; its text tells them apart.
LookError errorOf(qvSharedMemory const& segment)
{
    return segment.errorText == segmentMissingText ? LookError::missing : errorOf(segment.error());
}

void refuse(MailboxLook& look, char const* step)
{
    int const systemError = errno;
    look.error = errorOf(systemError);
    look.errorText = step;
    look.errorText += ": ";
    look.errorText += qvLastOSError8(systemError);
}

/// Asks for a sender's rights first: without them a look may still be possible.
bool findSegment(MailboxLook& look)
{
    look.id = shmget(clientSegmentKey(), 0, segmentAttachRights);
    look.maySend = look.id != -1;
    if (look.id == -1 && errno == EACCES)
        look.id = shmget(clientSegmentKey(), 0, readRights);
    if (look.id == -1)
        refuse(look, "shmget");
    else if (shmctl(look.id, IPC_STAT, &look.status) == -1)
        refuse(look, "shmctl");
    else
        look.found = true;
    return look.found;
}

void lookAtClock(MailboxLook& look)
{
    char host[sizeof look.host] = "";
    gethostname(host, sizeof host - 1);
    copyPrintable(look.host, host);
    look.secondsSince1970 = std::time(nullptr);
}

void lookAtPeople(MailboxLook& look)
{
    shmid_ds const& status = look.status;
    look.owner = userName(status.shm_perm.uid);
    look.client = lookAtClient(status);
    look.last = lookAtProcess(status.shm_lpid, std::max(status.shm_atime, status.shm_dtime));
}

void readRecord(MailboxLook& look, qvClientMailbox const volatile& record)
{
    look.read = true;
    look.format = qvClientFormat::of(record);
    look.messageCount = record.messageCount;
    for (int i = 0; i < look.entryCount(); ++i)
        look.entries[i] = {record.messageKind[i], record.messageType[i], record.messageValue[i]};
}

void readFreely(MailboxLook& look, SegmentMapping const& mapping)
{
    look.lockByte = mapping.lockByte();
    look.time = look.takenFrom = MailboxLook::Clock::now();
    readRecord(look, mapping.record());
}

/// The caller's mapping keeps `segment` from being the last one to leave, which would remove the
/// segment. But `segment` attaches by the key: if another segment gets that key during the look,
/// the mapping does not protect it. The same is true of every sender.
void readUnderLock(MailboxLook& look, SegmentMapping const& mapping)
{
    qvSharedMemory segment(clientSegmentName);
    if (!segment.attach()) {
        look.error = errorOf(segment);
        look.errorText = segment.errorString();
        return;
    }
    qvSegment::DeferredSignals const untilUnlocked;
    look.takenFrom = MailboxLook::Clock::now();
    look.lockedByUs = segment.lock();
    look.lockByte = mapping.lockByte();
    look.time = MailboxLook::Clock::now();
    readRecord(look, mapping.record());
    if (look.lockedByUs)
        segment.unlock();
}

} // namespace

_qvString8_allSize<250> MailboxEntry::name() const
{
    if (type != static_cast<unsigned char>(ClientMessageType::command) || value > UCHAR_MAX)
        return "";
    return qvC::qvClientCommandName(static_cast<unsigned char>(value));
}

bool MailboxLook::hasRunningClient() const
{
    return hasClient() && client.state != ProcessState::stopped;
}

bool MailboxLook::hasClient() const
{
    return read && status.shm_nattch != 0 && format.isRight() && client.state != ProcessState::dead;
}

std::chrono::milliseconds MailboxLook::timeTaken() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time - takenFrom);
}

int MailboxLook::recordSize() const
{
    return qvSegment::segmentRecordSize(qvSegment::segmentTotalSize(status.shm_segsz));
}

int MailboxLook::entryCount() const
{
    return format.isRight() ? std::min<int>(messageCount, maxClientMessages) : 0;
}

MailboxLook lookAtMailbox(bool underLock)
{
    MailboxLook look;
    lookAtClock(look);
    if (!findSegment(look))
        return look;
    lookAtPeople(look);
    if (look.recordSize() < clientRecordSize)
        return look;

    SegmentMapping const mapping(look.id, SHM_RDONLY);
    if (!mapping.isMapped())
        refuse(look, "shmat");
    else if (underLock && look.status.shm_nattch != 0)
        readUnderLock(look, mapping);
    else // nobody writes while nobody is attached, and a wait would block a new client
        readFreely(look, mapping);
    return look;
}

MailboxLook lookAgain(MailboxLook const& last, bool underLock)
{
    MailboxLook look = lookAtMailbox(underLock);
    if (look.id == last.id && look.isLockTaken() && last.isLockTaken())
        look.takenFrom = last.takenFrom;
    return look;
}

MailboxLook lookUntilLockIsJudged()
{
    MailboxLook look = lookAtMailbox(false);
    while (look.isLockTaken() && look.timeTaken() < staleLockTime) {
        std::this_thread::sleep_for(lookAtLockEvery);
        look = lookAgain(look, false);
    }
    return look;
}
