#include "tests/proof/laidSegment.h"

#include "tests/setUpFailure.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sys/ipc.h>
#include <sys/shm.h>

namespace proof {

namespace {

// There is one at a time, its key being fixed. It goes also with a program that ends ahead of the
// destructor, as where a set-up fails.
int presentId = -1;

void removePresent()
{
    shmctl(presentId, IPC_RMID, nullptr);
}

} // namespace

LaidSegment::LaidSegment(endToEnd::Bytes const& given)
    : content(given),
      id(shmget(endToEnd::clientKey, content.size(), IPC_CREAT | IPC_EXCL | 0666)),
      base(static_cast<unsigned char*>(shmat(id, nullptr, 0)))
{
    presentId = id;
    [[maybe_unused]] static int const asked = std::atexit(removePresent);
    if (reinterpret_cast<std::intptr_t>(base) == -1)
        qvTest::failSetUp("can't make the client's segment");
    layAgain();
}

LaidSegment::~LaidSegment()
{
    removePresent();
    presentId = -1;
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
