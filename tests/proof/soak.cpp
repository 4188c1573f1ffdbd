// Sixteen senders of two thousand commands each, a client that drains its queue, and a neighbour
// that keeps taking the lock.
//
//     soak [COMMANDS [SEED]]
//
// Every command is another one, so each entry that the client receives can be judged. The lock is
// cooperative: what it loses, hands out twice or lets be read too early is counted. What must not
// be is an entry that nobody sent, or one whose sender was told that it wasn't stored.
#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"
#include "tests/proof/figures.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <random>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace endToEnd;
using proof::figure;

namespace {

constexpr unsigned senderCount = 16;

// What its sender was told of each command; its place is the value that was sent.
enum class Told : unsigned char
{
    nothing,
    stored,
    queueFull,
    noLock,
    somethingElse
};
using Answers = std::array<Told, 65536>;

// What the processes of the soak have in common.
struct Shared
{
    Answers answers;
    std::atomic<bool> isOver;
    long holds;            // times that the neighbour had the lock
    long changesUnderHold; // of these, the ones in which the queue changed
};

// A value that no sender sends. It stands in the queue from the beginning, so that an entry that is
// read ahead of its writing shows.
constexpr std::uint16_t unwritten = 65535;

Told answerOf(std::string const& output)
{
    return output == storedOutput      ? Told::stored
           : output == queueFullOutput ? Told::queueFull
           : output == noLockOutput    ? Told::noLock
                                       : Told::somethingElse;
}

std::uint16_t valueOf(unsigned sender, unsigned command)
{
    return static_cast<std::uint16_t>(1 + command * senderCount + sender);
}

template <typename Work>
pid_t startWorker(Work const& work)
{
    pid_t const process = fork();
    if (process == 0) {
        work();
        _exit(0);
    }
    return process;
}

void send(unsigned sender, unsigned commands, Answers& answers)
{
    for (unsigned command = 0; command < commands; ++command) {
        std::uint16_t const value = valueOf(sender, command);
        RunResult const run = runTool({"EventFrameDone", std::to_string(value)});
        bool const isInOrder = run.status == 0 && run.errors.empty();
        answers[value] = isInOrder ? answerOf(run.output) : Told::somethingElse;
    }
}

// Holds the lock a tenth of the time for as long as a client would. Now and then it holds it for
// longer than any sender waits, as a program would that hangs.
void keepTakingTheLock(Shared& shared, unsigned seed)
{
    qvSharedMemory segment(clientSegmentName);
    if (!segment.attach())
        _exit(1);
    auto const& record = *static_cast<qvClientMailbox volatile const*>(segment.data());
    std::mt19937 generator(seed);
    std::uniform_int_distribution<int> microseconds(0, 1000);
    for (unsigned turn = 1; !shared.isOver; ++turn) {
        if (segment.lock()) {
            int const count = record.messageCount;
            nap(turn % 2000 == 0 ? 3 : microseconds(generator) * 1e-6);
            ++shared.holds;
            shared.changesUnderHold += record.messageCount != count;
            segment.unlock();
        }
        nap(microseconds(generator) * 9e-6);
    }
}

// The queue as the client sees it.
class Queue
{
public:
    Queue()
        : base(static_cast<unsigned char*>(shmat(shmget(clientKey, 0, 0), nullptr, 0))),
          record(*reinterpret_cast<qvClientMailbox volatile*>(base + prefixSize))
    {
        for (std::uint16_t volatile& value : record.messageValue)
            value = unwritten;
        for (int i = 0; i < maxClientMessages; ++i) {
            record.messageKind[i] = 2;
            record.messageType[i] = 5;
        }
    }

    Queue(Queue const&) = delete;
    Queue& operator=(Queue const&) = delete;
    ~Queue() { shmdt(base); }

    bool isAtRest() const { return record.messageCount == 0 && !isLockTaken(); }

private:
    bool isLockTaken() const { return *static_cast<unsigned char const volatile*>(base) != 0; }

    unsigned char* base;
    qvClientMailbox volatile& record;
};

// Time for the client to fetch what is left, and for whoever waits for the lock to be done.
testing::AssertionResult comesToRest(Queue const& queue)
{
    double const limit = secondsNow() + 10;
    while (secondsNow() < limit) {
        if (queue.isAtRest())
            return testing::AssertionSuccess();
        nap(0.01);
    }
    return testing::AssertionFailure() << "the lock stays taken, or the client no longer fetches";
}

void judge(std::string const& clientsOutput, Answers const& answers)
{
    std::array<int, 65536> receivedOf{};
    long& received = figure("received");
    long& early = figure("readTooEarly");
    std::istringstream lines(clientsOutput);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("standInClient:", 0) == 0)
            continue;
        unsigned value = 0;
        int length = 0;
        bool const isOurs =
            std::sscanf(line.c_str(), "kind 2, type 5, value %u%n", &value, &length) == 1 &&
            line.size() == static_cast<std::size_t>(length) && value < answers.size();
        ASSERT_TRUE(isOurs) << "corrupt entry: " << line;
        if (value == unwritten) {
            ++early;
            continue;
        }
        ASSERT_EQ(answers[value], Told::stored) << "nobody stored this entry: " << line;
        ++received;
        ++receivedOf[value];
    }

    long& lost = figure("lost");
    long& twice = figure("receivedTwice");
    for (std::size_t value = 0; value < answers.size(); ++value) {
        lost += answers[value] == Told::stored && receivedOf[value] == 0;
        twice += receivedOf[value] > 1;
    }
    EXPECT_LE(lost, figure("stored") / 20) << "more than the lock can lose";
}

} // namespace

TEST(Soak, EveryEntryIsOneThatWasSent)
{
    unsigned const commands = proof::argument(1, 2000);
    unsigned const seed = proof::argument(2, 20261121);
    ASSERT_LE(senderCount * commands, unwritten - 1);
    auto& shared = *static_cast<Shared*>(
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    Answers const& answers = shared.answers;
    figure("senders") = senderCount;
    figure("commands") = static_cast<long>(senderCount * commands);

    Process client = startStandInClient(1000000, 3600);
    ASSERT_TRUE(client.waitForOutput("standInClient: ready", 10));
    {
        Queue const queue;
        double const start = secondsNow();
        pid_t const neighbour = startWorker([&] { keepTakingTheLock(shared, seed); });
        std::vector<pid_t> senders;
        for (unsigned sender = 0; sender < senderCount; ++sender)
            senders.push_back(startWorker([&] { send(sender, commands, shared.answers); }));
        for (pid_t const sender : senders)
            waitpid(sender, nullptr, 0);
        figure("seconds") = static_cast<long>(secondsNow() - start);
        shared.isOver = true;
        int status = -1;
        waitpid(neighbour, &status, 0);
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(comesToRest(queue));
    }
    client.signal(SIGTERM);
    double const limit = secondsNow() + 10;
    while (!client.hasEnded() && secondsNow() < limit)
        nap(0.01);
    RunResult const ended = client.finish();
    EXPECT_EQ(ended.status, 0);

    long& stored = figure("stored");
    long& full = figure("queueFull");
    long& withoutLock = figure("withoutLock");
    for (Told const answer : answers) {
        EXPECT_NE(answer, Told::somethingElse);
        stored += answer == Told::stored;
        full += answer == Told::queueFull;
        withoutLock += answer == Told::noLock;
    }
    EXPECT_EQ(stored + full + withoutLock, figure("commands"));
    figure("holds") = shared.holds;
    figure("changesUnderHold") = shared.changesUnderHold;
    EXPECT_LE(shared.changesUnderHold, shared.holds / 20) << "nobody minds the lock";
    judge(ended.output, answers);
}
