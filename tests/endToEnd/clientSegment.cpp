#include "tests/endToEnd/clientSegment.h"

#include "tests/setUpFailure.h"

#include <cerrno>
#include <cstring>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace endToEnd {

using qvTest::failSetUp;

namespace {

struct Order
{
    std::uint64_t kind; // a letter; all of an order is sent, so it has no padding
    std::uint64_t first;
    std::uint64_t second;
};

// send() and not write(): a partner that is gone is an error to report, not a signal.
bool sendAll(int channel, void const* data, std::size_t size)
{
    auto const* next = static_cast<char const*>(data);
    while (size > 0) {
        ssize_t const count = ::send(channel, next, size, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        next += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool receiveAll(int channel, void* data, std::size_t size)
{
    auto* next = static_cast<char*>(data);
    while (size > 0) {
        ssize_t const count = read(channel, next, size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        next += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

// The body of the holding process. Each order is answered by a number: 0, an errno, or a size.
class Holding
{
public:
    Holding(int channelToTest, std::size_t segmentSize) : channel(channelToTest), size(segmentSize)
    {
        // Pages come as they are touched: huge sizes cost nothing. The mode narrows later, since
        // the holder has to get in itself.
        id = shmget(clientKey, size, IPC_CREAT | IPC_EXCL | SHM_NORESERVE | 0666);
        if (id < 0) {
            answer(static_cast<std::uint64_t>(errno));
            return;
        }
        map();
        answer(base ? 0 : static_cast<std::uint64_t>(errno));
    }

    void obey()
    {
        Order given{};
        while (receiveAll(channel, &given, sizeof given)) {
            if (given.kind == 'r')
                hand();
            else if (given.kind == 'w')
                take(given.first, given.second);
            else if (given.kind == 'm')
                answer(changeMode(given.first));
            else if (given.kind == 'l')
                answer(unmap());
            else if (given.kind == 'k')
                answer(errorOf(shmctl(id, IPC_RMID, nullptr)));
        }
        if (id >= 0)
            shmctl(id, IPC_RMID, nullptr);
    }

private:
    static std::uint64_t errorOf(int outcome)
    {
        return outcome == 0 ? 0 : static_cast<std::uint64_t>(errno);
    }

    void answer(std::uint64_t number) { sendAll(channel, &number, sizeof number); }

    void map()
    {
        void* const address = shmat(id, nullptr, 0);
        base =
            reinterpret_cast<std::intptr_t>(address) == -1 ? nullptr : static_cast<char*>(address);
    }

    std::uint64_t unmap()
    {
        int const outcome = shmdt(base);
        base = nullptr;
        return errorOf(outcome);
    }

    std::uint64_t changeMode(std::uint64_t mode)
    {
        shmid_ds state{};
        if (shmctl(id, IPC_STAT, &state) != 0)
            return static_cast<std::uint64_t>(errno);
        state.shm_perm.mode = static_cast<unsigned short>(mode);
        return errorOf(shmctl(id, IPC_SET, &state));
    }

    void hand()
    {
        bool const mappedForThis = !base;
        if (mappedForThis)
            map();
        answer(base ? size : 0);
        if (base)
            sendAll(channel, base, size);
        if (base && mappedForThis)
            unmap();
    }

    void take(std::uint64_t offset, std::uint64_t count)
    {
        receiveAll(channel, base + offset, count);
        answer(0);
    }

    int channel;
    std::size_t size;
    int id = -1;
    char* base = nullptr;
};

} // namespace

bool clientSegmentExists()
{
    return shmget(clientKey, 0, 0) >= 0;
}

int clientSegmentAttachCount()
{
    shmid_ds state{};
    int const id = shmget(clientKey, 0, 0);
    if (id < 0 || shmctl(id, IPC_STAT, &state) != 0)
        return -1;
    return static_cast<int>(state.shm_nattch);
}

Mailbox::Mailbox(std::size_t recordSize) : content(prefixSize + recordSize)
{
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<unsigned char>(i * 73 + 19);
    lockByte(0).messageCount(0);
    recordMarker(rightRecordMarker).stateMarker(rightStateMarker).stateFlag(rightStateFlag);
}

// The machine's own byte order; the tail of a value that lies beyond a record too short is left
// out.
void Mailbox::put(std::size_t recordOffset, std::uint32_t value, std::size_t size)
{
    unsigned char image[4];
    std::memcpy(image, &value, sizeof image);
    for (std::size_t i = 0; i < size && prefixSize + recordOffset + i < content.size(); ++i)
        content[prefixSize + recordOffset + i] = image[i];
}

Mailbox& Mailbox::lockByte(unsigned char value)
{
    content.at(0) = value;
    return *this;
}

Mailbox& Mailbox::recordMarker(std::uint32_t value)
{
    put(recordMarkerPlace, value, 4);
    return *this;
}

Mailbox& Mailbox::stateMarker(std::uint16_t value)
{
    put(stateMarkerPlace, value, 2);
    return *this;
}

Mailbox& Mailbox::stateFlag(std::uint16_t value)
{
    put(stateFlagPlace, value, 2);
    return *this;
}

Mailbox& Mailbox::messageCount(unsigned char value)
{
    put(messageCountPlace, value, 1);
    return *this;
}

unsigned char Mailbox::messageCount() const
{
    return content.at(prefixSize + messageCountPlace);
}

Mailbox& Mailbox::message(unsigned char type, std::uint16_t value)
{
    std::size_t const entry = messageCount();
    messageCount(static_cast<unsigned char>(entry + 1));
    put(messageKindPlace + entry, 2, 1);
    put(messageTypePlace + entry, type, 1);
    put(messageValuePlace + 2 * entry, value, 2);
    return *this;
}

testing::AssertionResult sameBytes(Bytes const& expected, Bytes const& actual)
{
    if (expected == actual)
        return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    if (expected.size() != actual.size())
        return failure << expected.size() << " bytes expected, " << actual.size() << " there";
    int told = 0;
    for (std::size_t i = 0; i < expected.size() && told < 8; ++i) {
        if (expected[i] == actual[i])
            continue;
        failure << "segment byte " << i << ": " << int{expected[i]} << " expected, "
                << int{actual[i]} << " there\n";
        ++told;
    }
    return failure;
}

ClientHolder::ClientHolder(Bytes const& segment) : ClientHolder(segment.size())
{
    if (!whyNone.empty())
        failSetUp(whyNone);
    write(0, segment);
}

ClientHolder ClientHolder::ofSegmentSize(std::size_t size)
{
    return ClientHolder(size);
}

ClientHolder::ClientHolder(std::size_t size)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        failSetUp("socketpair");
    process = fork();
    if (process == 0) {
        close(ends[0]);
        Holding(ends[1], size).obey();
        _exit(0);
    }
    close(ends[1]);
    channel = ends[0];
    std::uint64_t failure = 0;
    receive(&failure, sizeof failure);
    if (failure != 0)
        whyNone = std::string("the holder can't make the segment: ") +
                  std::strerror(static_cast<int>(failure));
}

ClientHolder::~ClientHolder()
{
    close(channel);
    if (process > 0)
        waitpid(process, nullptr, 0);
}

void ClientHolder::send(void const* data, std::size_t size)
{
    if (!sendAll(channel, data, size))
        failSetUp("the segment's holder is gone");
}

void ClientHolder::receive(void* data, std::size_t size)
{
    if (!receiveAll(channel, data, size))
        failSetUp("the segment's holder is gone");
}

void ClientHolder::order(char kind, std::uint64_t first, std::uint64_t second)
{
    Order const given{static_cast<unsigned char>(kind), first, second};
    send(&given, sizeof given);
    std::uint64_t failure = 0;
    receive(&failure, sizeof failure);
    if (failure != 0)
        failSetUp(std::string("the segment's holder: ") + std::strerror(static_cast<int>(failure)));
}

Bytes ClientHolder::segment()
{
    Order const given{'r', 0, 0};
    send(&given, sizeof given);
    std::uint64_t size = 0;
    receive(&size, sizeof size);
    Bytes content(size);
    receive(content.data(), content.size());
    return content;
}

void ClientHolder::write(std::size_t offset, Bytes const& bytes)
{
    Order const given{'w', offset, bytes.size()};
    send(&given, sizeof given);
    send(bytes.data(), bytes.size());
    std::uint64_t done = 0;
    receive(&done, sizeof done);
}

void ClientHolder::setMode(unsigned int mode)
{
    order('m', mode);
}

void ClientHolder::leave()
{
    order('l');
}

void ClientHolder::removeKey()
{
    order('k');
}

} // namespace endToEnd
