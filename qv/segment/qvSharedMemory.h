#pragma once

#include "qv/support/qvSystem.h"

/// A named System V shared-memory segment: 8 bytes of prefix (the lock byte at offset 0, seven
/// reserved bytes), then the caller's record. Programs meet in it by name, since the key is
/// derived from the name. docs/mailbox.md shows the segment and its lock.
///
/// Use: construct, `attach()` or `create()`, `size()` and `data()`, `lock()` and `unlock()`
/// around every look at the record, `detach()`. The last process to leave removes the segment,
/// also one that only attached.
///
/// A failure gives a false or null result, and `error()` and `errorString()` describe it; nothing
/// throws or ends the process. An object allocates nothing.
///
/// The lock is cooperative: a byte that is read and then written by plain accesses, without an
/// owner. Two processes that read 0 at the same moment both take it, and a holder that dies
/// leaves it taken. This works because holders are brief.
///
/// Threads: an object serves one thread. Each thread that wants the segment has an object of its
/// own, and they exclude each other by the lock as two processes do. Two threads with one object
/// also share `locked` and the error state, which nothing protects. A race detector then reports
/// the lock and the record, and is right: plain accesses to a byte order nothing. With an object
/// for each thread it is silent, since each maps the segment at an address of its own; the two
/// steps of the lock are no safer for that.
///
/// Fork: the child has a copy of the object, its own mapping and the same lock byte. If the parent
/// held the lock, the copy believes that it does, and its `unlock()`, `detach()` or destructor
/// frees the parent's lock. So a child ends by `_exit` or `exec`, which leave the byte alone, or
/// the parent forks without the lock; then the child's `detach()` ends the child's mapping only.
///
/// Signals: one that runs a handler ends one of the sleeps of `lock()`, so a busy timer makes the
/// wait shorter than 2.5 seconds. A holder that a signal ends leaves the lock taken.
///
/// The fields are public to be looked at; only the members change them.
class qvSharedMemory
{
public:
    /// The segment named "QV_", `givenName`, "_1234567", cut at 250 characters. Makes no system
    /// call.
    /// @param givenName The name that programs agree on.
    explicit qvSharedMemory(_qvString8_allSize<250> const& givenName);

    /// `clearAll()`.
    ~qvSharedMemory();

    qvSharedMemory(qvSharedMemory const&) = delete; // owns its mapping
    qvSharedMemory& operator=(qvSharedMemory const&) = delete;

    /// Makes a new segment, with the rights 0666 and a free lock byte, and maps it. The two flags
    /// have no effect: other programs of the farm pass them.
    /// @param size Bytes of the record; 0 or below is false with no error set.
    /// @return False when the object holds a segment or key already, when the segment exists, when
    /// the system refuses the size, or for any other failure.
    bool create(int size, bool, bool);

    /// Leaves any segment that this object has, then finds the existing one, asking for the rights
    /// 0660, and maps it. Reads neither lock byte nor record.
    /// @return False on failure; after a failed size query the mapping stays although the call
    /// reports failure.
    bool attach();

    /// Leaves the segment, releasing the lock if this object holds it.
    /// @return Always true; a failure of a system call shows in the error state only.
    bool detach();

    /// Releases a held lock, unmaps, removes the segment if nobody is attached any more, forgets
    /// the key. Leaves the error state alone unless one of these steps fails or the lock had to
    /// be released. A process may attach between the query and the removal: its mapping stays
    /// valid, but later attachers find nothing.
    void clearAll();

    /// @return Bytes of the record: `totalSize` less 8, whatever the state; -9 before the first
    /// attach.
    int size() const;

    /// @return The record, 8 bytes behind `base`. Null with an error set when not attached.
    void* data();

    /// Takes the lock. Waits for a taken one in at most 25 sleeps of 100 ms; a handled signal ends
    /// a sleep early. A free lock costs no system call.
    /// @return False when not attached, when this object holds it already, or when it stays taken.
    bool lock();

    /// Gives the lock back.
    /// @return False when not attached or when this object does not hold it.
    bool unlock();

    /// Records `errno` as `errorCode`, and as `errorText` the system's text behind another, cut at
    /// 250 characters.
    /// @param text What failed; ": " follows it.
    void setError(_qvString8_allSize<250> text);

    /// Empties the error state.
    void clearError();

    /// @return The last error: 0 none; -1 a call that does not fit the state, or no lock; 2, 4, 5
    /// the class's own (size, exists, does not exist); else the `errno` of a system call.
    int error() const;

    /// @return A copy of the last error's text; empty for none.
    _qvString8_allSize<250> errorString() const;

    _qvString8_allSize<250> name;               ///< Text that the key is computed from.
    _qvString8_allSize<250> globalName;         ///< "Global\" and `name`; kept, read by nothing.
    _qvString8_allSize<250> errorText;          ///< Text of the last error.
    int errorCode = 0;                          ///< Code of the last error.
    bool locked = false;                        ///< This object holds the lock.
    bool attached = false;                      ///< This object has the segment mapped and usable.
    unsigned char* base = nullptr;              ///< First byte of the segment in this process.
    unsigned char volatile* lockByte = nullptr; ///< Equals `base` once mapped.
    int totalSize = -1;                         ///< Bytes of the whole segment.
    unsigned short modeWord = 1;                ///< Kept, read by nothing.
    int key = 0;                                ///< System V key in use; 0 means none.

private:
    bool fail(int code, char const* text);
    bool map(int id);
    void removeIfLast();
};
