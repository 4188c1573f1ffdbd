// What the stand-in client does about a sender that comes right behind it. The test stores a
// message at the moment when the lock is free again, and each has to arrive.

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"

#include <gtest/gtest.h>

#include <string>

// The client's main, compiled under another name.
int standInClientMain(int argc, char** argv);

namespace {

constexpr unsigned short messages = 4;
unsigned short sent = 0;

void sendRightBehind(qvSharedMemory& segment)
{
    auto& record = *static_cast<qvClientMailbox volatile*>(segment.data());
    if (sent == messages)
        return;
    ++sent;
    unsigned char const count = record.messageCount;
    record.messageCount = static_cast<unsigned char>(count + 1);
    record.messageKind[count] = 2;
    record.messageType[count] = 5;
    record.messageValue[count] = sent;
}

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

bool __real__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment);

bool __wrap__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment)
{
    bool const done = __real__ZN14qvSharedMemory6unlockEv(segment);
    sendRightBehind(*segment);
    return done;
}
}
// NOLINTEND(bugprone-reserved-identifier)

TEST(StandInClientDrain, LosesNothingThatIsStoredAsSoonAsTheLockIsFree)
{
    std::string arguments[] = {"standInClient", "--messages", "4", "--seconds", "3"};
    char* pointers[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                        arguments[3].data(), arguments[4].data(), nullptr};
    testing::internal::CaptureStdout();
    int const status = standInClientMain(5, pointers);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "standInClient: ready, segment 0x4EFCFF\n"
                                                      "kind 2, type 5, value 1\n"
                                                      "kind 2, type 5, value 2\n"
                                                      "kind 2, type 5, value 3\n"
                                                      "kind 2, type 5, value 4\n"
                                                      "standInClient: 4 received\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(sent, messages);
}
