/// A small client to send commands to: makes the client's segment, drains its message queue and
/// prints each entry. It shows how a program of the farm uses the library, serves `./dev demo`,
/// and is the counterpart of the end-to-end tests.
///
///     standInClient [--messages N] [--seconds S]
///
/// Ends after N messages or S seconds, whichever comes first, or on SIGINT or SIGTERM, and removes
/// its segment.

#include "qv/client/qvClientCommandName.h"
#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"

#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int pollMs = 20;

std::sig_atomic_t volatile stopAsked = 0;

struct Limits
{
    int messages = INT_MAX;
    int seconds = INT_MAX;
};

/// One drained queue, in a copy of our own.
struct Messages
{
    int count;
    unsigned char kind[maxClientMessages];
    unsigned char type[maxClientMessages];
    unsigned short value[maxClientMessages];
};

bool readLimits(int argc, char** argv, Limits& limits)
{
    for (int i = 1; i < argc; i += 2) {
        int* const limit = std::strcmp(argv[i], "--messages") == 0  ? &limits.messages
                           : std::strcmp(argv[i], "--seconds") == 0 ? &limits.seconds
                                                                    : nullptr;
        if (limit == nullptr || i + 1 == argc)
            return false;
        *limit = std::atoi(argv[i + 1]);
        if (*limit <= 0)
            return false;
    }
    return true;
}

/// Makes the segment. A segment that nobody is attached to is a leftover of a client that died: the
/// creation fails on it, and `detach()` removes it, as the last process to leave always does.
bool createSegment(qvSharedMemory& segment)
{
    if (segment.create(clientRecordSize, false, false))
        return true;
    segment.detach();
    return segment.create(clientRecordSize, false, false);
}

/// Takes the whole queue under the lock. Printing waits until the lock is given back, because
/// senders poll for it.
bool drain(qvSharedMemory& segment, qvClientMailbox volatile& record, Messages& messages)
{
    if (!segment.lock())
        return false;
    int const count = record.messageCount;
    messages.count = count < maxClientMessages ? count : maxClientMessages;
    for (int i = 0; i < messages.count; ++i) {
        messages.kind[i] = record.messageKind[i];
        messages.type[i] = record.messageType[i];
        messages.value[i] = record.messageValue[i];
    }
    record.messageCount = 0;
    segment.unlock();
    return true;
}

void print(Messages const& messages)
{
    for (int i = 0; i < messages.count; ++i) {
        std::printf("kind %d, type %d, value %d", messages.kind[i], messages.type[i],
                    messages.value[i]);
        bool const isCommand =
            messages.type[i] == static_cast<unsigned char>(ClientMessageType::command);
        if (isCommand && messages.value[i] <= UCHAR_MAX) {
            auto const code = static_cast<unsigned char>(messages.value[i]);
            std::printf(": %s", qvC::qvClientCommandName(code).asChar());
        }
        std::puts("");
    }
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    Limits limits;
    if (!readLimits(argc, argv, limits)) {
        std::puts("usage: standInClient [--messages N] [--seconds S]");
        return 1;
    }
    for (int const number : {SIGINT, SIGTERM})
        std::signal(number, [](int) { stopAsked = 1; });

    qvSharedMemory segment(clientSegmentName);
    if (!createSegment(segment)) {
        std::printf("standInClient: %s\n", segment.errorString().asChar());
        return 1;
    }
    auto& record = *static_cast<qvClientMailbox volatile*>(segment.data());
    segment.lock();
    record.recordMarker = clientRecordMarker;
    record.stateMarker = clientStateMarker;
    record.stateFlag = clientStateFlag;
    segment.unlock();
    std::printf("standInClient: ready, segment 0x%X\n", static_cast<unsigned>(segment.key));
    std::fflush(stdout);

    auto const start = std::chrono::steady_clock::now();
    auto const end = start + std::chrono::seconds(limits.seconds);
    int received = 0;
    while (stopAsked == 0 && received < limits.messages && std::chrono::steady_clock::now() < end) {
        Messages messages{};
        if (drain(segment, record, messages)) {
            print(messages);
            received += messages.count;
        }
        if (messages.count == 0)
            qvSleep(pollMs);
    }
    std::printf("standInClient: %d received\n", received);
    return 0; // leaving as the last one removes the segment
}
