#pragma once

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/core/segmentKey.h"

#include <sys/shm.h>

/// A segment mapped by its id. Leaving it never removes it.
class SegmentMapping
{
public:
    /// @param flags As for `shmat`.
    SegmentMapping(int id, int flags) : address_(shmat(id, nullptr, flags)) {}

    ~SegmentMapping()
    {
        if (isMapped())
            shmdt(address_);
    }

    SegmentMapping(SegmentMapping const&) = delete;
    SegmentMapping& operator=(SegmentMapping const&) = delete;

    bool isMapped() const { return reinterpret_cast<std::intptr_t>(address_) != -1; }

    unsigned char* base() const { return static_cast<unsigned char*>(address_); }

    unsigned char lockByte() const { return *static_cast<unsigned char const volatile*>(address_); }

    qvClientMailbox const volatile& record() const
    {
        return *reinterpret_cast<qvClientMailbox const volatile*>(base() +
                                                                  qvSegment::segmentPrefixSize);
    }

private:
    void* address_;
};
