// The nodes of `./dev farm`: a small process in a System V namespace of its own for each, and a
// client in most of them.
//
//     farmNodes STATES
//
// A node for each letter of STATES: c has a client, n none, f one with a full queue that it does
// not fetch, l one whose lock is stale. Prints the nodes' process ids in a line when all are up.
// For each line of its input it prints how many commands each node has taken from its queue so far.
// At the end of its input it ends, and the nodes with it, as they do when it dies.

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

// Seldom, so that a thousand clients take no part of the machine from what is measured.
constexpr int pollMs = 500;

enum State : char
{
    withClient = 'c',
    withoutClient = 'n',
    full = 'f',
    locked = 'l',
};

/// What a node tells, in memory that it shares with the first process.
struct Node
{
    int volatile isUp;
    int volatile taken;
};

[[noreturn]] void fail(char const* what)
{
    std::perror(what);
    _exit(1);
}

/// Returns with the lock taken.
qvClientMailbox volatile& makeSegment(qvSharedMemory& segment)
{
    if (!segment.create(clientRecordSize, false, false) || !segment.lock()) {
        std::fprintf(stderr, "farmNodes: %s\n", segment.errorString().asChar());
        _exit(1);
    }
    auto& record = *static_cast<qvClientMailbox volatile*>(segment.data());
    record.recordMarker = clientRecordMarker;
    record.stateMarker = clientStateMarker;
    record.stateFlag = clientStateFlag;
    return record;
}

[[noreturn]] void sleepForGood()
{
    for (;;)
        pause();
}

[[noreturn]] void serve(qvSharedMemory& segment, qvClientMailbox volatile& record, Node& node)
{
    for (;;) {
        qvSleep(pollMs);
        if (!segment.lock())
            continue;
        int const count = record.messageCount;
        record.messageCount = 0;
        segment.unlock();
        node.taken = node.taken + count;
    }
}

[[noreturn]] void beNode(State state, Node& node)
{
    if (unshare(CLONE_NEWIPC) != 0)
        fail("farmNodes: unshare");
    if (state == withoutClient) {
        node.isUp = 1;
        sleepForGood();
    }
    qvSharedMemory segment(clientSegmentName);
    qvClientMailbox volatile& record = makeSegment(segment);
    if (state == full)
        record.messageCount = maxClientMessages;
    if (state != locked)
        segment.unlock();
    node.isUp = 1;
    if (state == withClient)
        serve(segment, record, node);
    sleepForGood();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || argv[1][std::strspn(argv[1], "cnfl")] != '\0' || argv[1][0] == '\0') {
        std::fputs("usage: farmNodes STATES\n", stderr);
        return 1;
    }
    char const* const states = argv[1];
    std::size_t const count = std::strlen(states);
    void* const shared = mmap(nullptr, count * sizeof(Node), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        fail("farmNodes: mmap");
    auto* const nodes = static_cast<Node*>(shared);

    std::signal(SIGCHLD, SIG_IGN);
    for (std::size_t i = 0; i < count; ++i) {
        std::fflush(stdout);
        pid_t const node = fork();
        if (node == -1)
            fail("farmNodes: fork");
        if (node == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            beNode(static_cast<State>(states[i]), nodes[i]);
        }
        while (nodes[i].isUp == 0) {
            if (kill(node, 0) != 0)
                return 1; // it has said why
            qvSleep(1);
        }
        std::printf("%d ", static_cast<int>(node));
    }
    std::puts("");
    std::fflush(stdout);

    while (std::getchar() != EOF) {
        for (std::size_t i = 0; i < count; ++i)
            std::printf("%d ", nodes[i].taken);
        std::puts("");
        std::fflush(stdout);
    }
    return 0;
}
