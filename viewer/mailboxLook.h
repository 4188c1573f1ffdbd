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

    /// Display name of a command; empty for any other entry.
    _qvString8_allSize<250> name() const;
};

/// Why a look ended early.
enum class LookError
{
    none,
    missing, ///< There is no segment, or no longer.
    noRight, ///< The system refuses this user.
    refused, ///< For another reason.
};

/// What one look at the client's segment found, in a copy: nothing in the segment is read twice.
struct MailboxLook
{
    using Clock = std::chrono::steady_clock;

    char host[65] = "";               ///< This machine's name.
    std::time_t secondsSince1970 = 0; ///< When the look began, by the system's clock.

    LookError error = LookError::none;
    _qvString8_allSize<250> errorText; ///< In the system's words.

    bool found = false; ///< The fields from here to `last` are filled in.
    int id = -1;
    bool maySend = false; ///< This user has the rights that a sender asks for.
    shmid_ds status{};    ///< As it was before this look attached.
    UserName owner;
    ProcessLook client; ///< The process that made the segment.
    ProcessLook last;   ///< The process that attached or left last.

    bool read = false;       ///< The fields from here on are filled in.
    bool lockedByUs = false; ///< The record was read under the lock.
    unsigned char lockByte = 0;
    Clock::time_point time;      ///< When the lock byte was read.
    Clock::time_point takenFrom; ///< Since when it was seen taken, if it is.
    qvClientFormat format{};
    unsigned char messageCount = 0; ///< As read; may be above the capacity.
    MailboxEntry entries[maxClientMessages]{};

    bool isLockTaken() const { return read && !lockedByUs && lockByte != 0; }
    /// The segment has a client's record and is attached to, and the process that made it is not
    /// dead.
    bool hasClient() const;

    /// The same, and the client is not stopped.
    bool hasRunningClient() const;

    /// How long the lock was seen taken, rounded down: never more than was seen.
    std::chrono::milliseconds timeTaken() const;

    /// The size that the segment offers to the record, as a sender counts it: below 0 for less than
    /// the prefix, and wrapped for 2 GiB and more.
    int recordSize() const;

    /// How many entries to show: none when the record is not a client's, never above 30.
    int entryCount() const;
};

/// A lock that is taken for so long is stale: a sender waits as long before it gives up.
inline constexpr std::chrono::milliseconds staleLockTime{2500};

/// Looks once, attached for that time only. Never removes the segment, even when nobody else is
/// attached.
/// `underLock` waits for the lock as a sender does, up to 2.5 seconds, and holds it while reading.
MailboxLook lookAtMailbox(bool underLock);

/// Looks again. A lock seen taken in the last look and in this one counts as taken all the while,
/// as it does for a sender.
MailboxLook lookAgain(MailboxLook const& last, bool underLock);

/// Looks until it is known whether a taken lock is stale: once when the lock is free.
MailboxLook lookUntilLockIsJudged();
