#pragma once

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/core/segmentKey.h"
#include "qv/segment/qvSharedMemory.h"
#include "sender/processLook.h"

#include <sys/shm.h>

/// The key of the client's segment: by the class's own name for it, though without attaching. The
/// class would leave by its own rule.
inline int clientSegmentKey()
{
    qvSharedMemory const segment(clientSegmentName);
    return qvSegment::segmentKey(segment.name);
}

/// The client is the process that made the segment. A viewer or a sender that is attached is none.
inline ProcessLook lookAtClient(shmid_ds const& segment)
{
    return lookAtProcess(segment.shm_cpid, segment.shm_ctime);
}
