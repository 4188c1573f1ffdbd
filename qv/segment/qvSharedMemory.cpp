#include "qv/segment/qvSharedMemory.h"

#include "qv/segment/core/segmentKey.h"

#include <cerrno>
#include <cstdint>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace {

using qvSegment::segmentKey;
using qvSegment::segmentPrefixSize;

constexpr int stateError = -1;
constexpr int sizeError = 2;
constexpr int existsError = 4;
constexpr int missingError = 5;

constexpr int createFlags = IPC_CREAT | IPC_EXCL | 0666;
constexpr int queryRights = 0444;

constexpr int lockTries = 25;
constexpr int lockSleepMs = 100;

} // namespace

qvSharedMemory::qvSharedMemory(_qvString8_allSize<250> const& givenName)
{
    name = "QV_";
    name += givenName;
    name += "_1234567";
    globalName = "Global\\";
    globalName += name;
}

qvSharedMemory::~qvSharedMemory()
{
    clearAll();
}

bool qvSharedMemory::create(int size, bool, bool)
{
    clearError();
    if (size <= 0)
        return false;
    if (attached)
        return fail(stateError, "We are already attached to memory.");
    if (key != 0)
        return fail(stateError, "We have already created memory.");

    key = segmentKey(name);
    // Sizes are signed 32-bit and wrap. A wrapped one is sign-extended, and the system refuses it;
    // as an unsigned number it would be a valid request for 2 GiB.
    totalSize = static_cast<int>(static_cast<unsigned>(size) + segmentPrefixSize);
    int const id = shmget(key, static_cast<std::size_t>(totalSize), createFlags);
    if (id != -1) {
        if (!map(id))
            return false;
        locked = false;
        *lockByte = 0;
        return true;
    }

    if (errno == EINVAL) {
        // The size may be wrong, or a segment may exist: attaching tells.
        if (!attach()) {
            fail(sizeError,
                 "Requested shared memory larger than system-imposed size restrictions.");
            clearAll();
            return false;
        }
        detach();
        return fail(existsError, "Shared memory ID already exists.");
    }
    if (errno == EEXIST)
        return fail(existsError, "Shared memory ID already exists.");
    setError("shmget");
    clearAll();
    return false;
}

bool qvSharedMemory::attach()
{
    clearError();
    clearAll();
    key = segmentKey(name);
    int const id = shmget(key, 0, qvSegment::segmentAttachRights);
    if (id == -1) {
        if (errno == ENOENT)
            fail(missingError, qvSegment::segmentMissingText);
        else if (errno == EINVAL)
            fail(sizeError, "Shared Memory already exist, but size does not match.");
        else
            setError("shmget");
        clearAll();
        return false;
    }
    if (!map(id))
        return false;

    shmid_ds status;
    if (shmctl(id, IPC_STAT, &status) == -1) {
        totalSize = 0;
        setError("size query failed (shmctl)");
        return false; // the mapping stays, intended: detach() or the destructor ends it
    }
    totalSize = qvSegment::segmentTotalSize(status.shm_segsz);
    return true;
}

bool qvSharedMemory::detach()
{
    clearError();
    clearAll();
    return true;
}

void qvSharedMemory::clearAll()
{
    if (locked && attached)
        unlock();
    if (base != nullptr) {
        if (shmdt(base) == -1) {
            if (errno == EINVAL)
                fail(missingError, "shmdt: not attached");
            else
                setError("shmdt");
        }
        base = nullptr;
    }
    if (key != 0)
        removeIfLast();
    key = 0;
    attached = false;
}

int qvSharedMemory::size() const
{
    return qvSegment::segmentRecordSize(totalSize);
}

void* qvSharedMemory::data()
{
    if (attached && base != nullptr)
        return base + segmentPrefixSize;
    fail(stateError, "Not attached.");
    return nullptr;
}

bool qvSharedMemory::lock()
{
    clearError();
    if (!attached)
        return fail(stateError, "lock: not attached");
    if (locked)
        return fail(stateError, "lock: already locked by us");

    bool taken = *lockByte != 0;
    for (int i = 0; taken && i < lockTries; ++i) {
        qvSleep(lockSleepMs);
        taken = *lockByte != 0;
    }
    if (taken)
        return fail(stateError, "lock: unable to get lock");
    *lockByte = 1;
    locked = true;
    return true;
}

bool qvSharedMemory::unlock()
{
    clearError();
    if (!attached)
        return fail(stateError, "unlock: not attached");
    if (!locked)
        return fail(stateError, "unlock: not locked by us");
    *lockByte = 0;
    locked = false;
    return true;
}

void qvSharedMemory::setError(_qvString8_allSize<250> text)
{
    errorCode = errno; // first, before anything can change it
    errorText = text;
    errorText += ": ";
    errorText += qvLastOSError8(errorCode);
}

void qvSharedMemory::clearError()
{
    errorText.clear();
    errorCode = 0;
}

int qvSharedMemory::error() const
{
    return errorCode;
}

_qvString8_allSize<250> qvSharedMemory::errorString() const
{
    return errorText;
}

/// Records a failure that has a text of its own.
/// @return False, for the caller to return.
bool qvSharedMemory::fail(int code, char const* text)
{
    errorCode = code;
    errorText = text;
    return false;
}

/// Maps the segment. A failure leaves the key set: only clearAll() forgets it.
bool qvSharedMemory::map(int id)
{
    void* const address = shmat(id, nullptr, 0);
    // shmat reports failure as an address of -1.
    if (reinterpret_cast<std::intptr_t>(address) == -1) {
        base = nullptr;
        setError("attach (shmat)");
        return false;
    }
    base = static_cast<unsigned char*>(address);
    lockByte = base;
    attached = true;
    return true;
}

/// Removes the segment when nobody is attached. EINVAL means that it is removed already.
void qvSharedMemory::removeIfLast()
{
    int const id = shmget(key, 0, queryRights); // unchecked: the status query fails then
    shmid_ds status;
    if (shmctl(id, IPC_STAT, &status) == -1) {
        if (errno != EINVAL)
            setError("shmdt"); // for a failed query too (intended)
        return;
    }
    if (status.shm_nattch == 0 && shmctl(id, IPC_RMID, nullptr) == -1 && errno != EINVAL)
        setError("shmctl");
}
