#pragma once

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/core/segmentKey.h"
#include "qv/segment/qvSharedMemory.h"
#include "sender/processLook.h"

#include <sys/shm.h>

/// The key of the client's segment, from the name that the class gives it. Nothing is attached: the
/// class would remove the segment if it were the last to leave.
inline int clientSegmentKey()
{
    qvSharedMemory const segment(clientSegmentName);
    return qvSegment::segmentKey(segment.name);
}

/// The client is the process that made the segment, not a viewer or a sender that is attached.
inline ProcessLook lookAtClient(shmid_ds const& segment)
{
    return lookAtProcess(segment.shm_cpid, segment.shm_ctime);
}
