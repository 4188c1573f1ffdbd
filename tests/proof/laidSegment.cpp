#include "tests/proof/laidSegment.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace proof {

LaidSegment::LaidSegment(endToEnd::Bytes const& given)
    : content(given),
      id(shmget(endToEnd::clientKey, content.size(), IPC_CREAT | IPC_EXCL | 0666)),
      base(static_cast<unsigned char*>(shmat(id, nullptr, 0)))
{
    if (reinterpret_cast<std::intptr_t>(base) == -1)
        throw std::runtime_error("can't make the client's segment");
    layAgain();
}

LaidSegment::~LaidSegment()
{
    shmctl(id, IPC_RMID, nullptr);
    shmdt(base);
}

void LaidSegment::layAgain()
{
    std::copy(content.begin(), content.end(), base);
}

testing::AssertionResult LaidSegment::isOursAlone() const
{
    int const attached = endToEnd::clientSegmentAttachCount();
    if (attached == 1)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "the segment is " << (attached < 0 ? "gone" : "attached by others too");
}

} // namespace proof
