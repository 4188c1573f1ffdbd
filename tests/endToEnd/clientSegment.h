// The client's side of the segment: its bytes as a test wants them, and a process that holds them.
// Made by the bare system calls, so that a mistake in the product's segment class isn't made on
// both sides and hidden.
#pragma once

#include "tests/endToEnd/clientRecord.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace endToEnd {

using Bytes = std::vector<unsigned char>;

// Looked at from outside, without entering the segment.
bool clientSegmentExists();
int clientSegmentAttachCount(); // -1 without a segment

// The bytes of a segment, prefix included. Every byte that is the client's own holds a pattern, and
// so do the queue's unused entries: a write that strays by one byte shows.
class Mailbox
{
public:
    explicit Mailbox(std::size_t recordSize = clientRecordSize);

    Mailbox& lockByte(unsigned char value);
    Mailbox& recordMarker(std::uint32_t value);
    Mailbox& stateMarker(std::uint16_t value);
    Mailbox& stateFlag(std::uint16_t value);
    Mailbox& messageCount(unsigned char value);

    // The queue after one more message: the count and the three fields of that entry.
    Mailbox& message(unsigned char type, std::uint16_t value);

    unsigned char messageCount() const;
    Bytes const& bytes() const { return content; }

private:
    void put(std::size_t recordOffset, std::uint32_t value, std::size_t size);

    Bytes content;
};

// All bytes equal; tells the first places that aren't.
testing::AssertionResult sameBytes(Bytes const& expected, Bytes const& actual);

// Another process that has made the client's segment and stays attached to it, as a client does. It
// obeys this object; when the object ends (or the test program dies) the segment is removed too.
class ClientHolder
{
public:
    explicit ClientHolder(Bytes const& segment);
    explicit ClientHolder(Mailbox const& mailbox) : ClientHolder(mailbox.bytes()) {}

    // A segment of this size, whose bytes aren't looked at. There is none where refusal() says so.
    static ClientHolder ofSegmentSize(std::size_t size);

    // Why the system made no segment; empty where it did.
    std::string const& refusal() const { return whyNone; }

    ClientHolder(ClientHolder const&) = delete;
    ClientHolder& operator=(ClientHolder const&) = delete;
    ~ClientHolder();

    // The segment as the holder sees it; empty once it is gone.
    Bytes segment();

    void write(std::size_t offset, Bytes const& bytes);
    void fill(Mailbox const& mailbox) { write(0, mailbox.bytes()); }
    void setLockByte(unsigned char value) { write(0, {value}); }
    unsigned char lockByte() { return segment().at(0); }

    void setMode(unsigned int mode);

    // Lets go of the segment, which stays there with nobody attached.
    void leave();

    // Marks it for removal while staying attached: the bytes live on, the key doesn't.
    void removeKey();

private:
    explicit ClientHolder(std::size_t size);
    void order(char kind, std::uint64_t first = 0, std::uint64_t second = 0);
    void send(void const* data, std::size_t size);
    void receive(void* data, std::size_t size);

    pid_t process = -1;
    int channel = -1;
    std::string whyNone;
};

} // namespace endToEnd
