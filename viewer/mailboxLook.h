#pragma once

#include "qv/client/qvClientMailbox.h"
#include "qv/strings/qvString8.h"
#include "sender/processLook.h"
#include "viewer/userName.h"

#include <chrono>
#include <sys/shm.h>

struct MailboxEntry
{
    unsigned char kind;
    unsigned char type;
    std::uint16_t value;

    bool operator==(MailboxEntry const&) const = default;

    /// Display name of a command; empty for an entry that is none.
    _qvString8_allSize<250> name() const;
};

/// Why a look ended early.
enum class LookError
{
    none,
    missing, ///< There is no segment, or none any more.
    noRight, ///< The system keeps this user out.
    refused, ///< For another reason.
};

/// What one look at the client's segment found, in a copy of our own: nothing of it is read twice.
struct MailboxLook
{
    using Clock = std::chrono::steady_clock;

    char host[65] = "";               ///< This machine's name.
    std::time_t secondsSince1970 = 0; ///< When the look began, by the system's clock.

    LookError error = LookError::none;
    _qvString8_allSize<250> errorText; ///< In the system's words.

    bool found = false; ///< What follows holds something.
    int id = -1;
    bool maySend = false; ///< This user has the rights that a sender asks for.
    shmid_ds status{};    ///< As it was before this look's own attaching.
    UserName owner;
    ProcessLook client; ///< The process that made the segment.
    ProcessLook last;   ///< The process that attached or left last.

    bool read = false;       ///< What follows holds something.
    bool lockedByUs = false; ///< The record was read under the lock.
    unsigned char lockByte = 0;
    Clock::time_point time;      ///< When the lock byte was read.
    Clock::time_point takenFrom; ///< From when on it was seen taken, if it is.
    qvClientFormat format{};
    unsigned char messageCount = 0; ///< As read; may be above the capacity.
    MailboxEntry entries[maxClientMessages]{};

    bool isLockTaken() const { return read && !lockedByUs && lockByte != 0; }
    /// A client's record is there and attached to, and the process that made it is not dead.
    bool hasClient() const;

    /// The same, and the client is not stopped.
    bool hasRunningClient() const;

    /// How long the lock was seen taken, rounded down: never more than was seen.
    std::chrono::milliseconds timeTaken() const;

    /// The size that the segment offers to the record, as a sender counts it: below 0 for less than
    /// the prefix, and wrapped for 2 GiB and more.
    int recordSize() const;

    /// Entries that may be shown: none of a record that is not a client's, never above 30.
    int entryCount() const;
};

/// From when on a taken lock is stale: as long as a sender waits for it before it gives up.
inline constexpr std::chrono::milliseconds staleLockTime{2500};

/// Looks once, attached for that time only. The segment stays, also when nobody is attached to it.
/// `underLock` waits for the lock as a sender does, up to 2.5 seconds, and holds it while reading.
MailboxLook lookAtMailbox(bool underLock);

/// Looks again. A lock seen taken in the last look and in this one counts as taken all the while,
/// which is how a sender sees it too.
MailboxLook lookAgain(MailboxLook const& last, bool underLock);

/// Looks as often as it takes to tell whether a taken lock is stale: once where it is free.
MailboxLook lookUntilLockIsJudged();
