// The client's segment, made and mapped by the proof itself: its bytes are there to be looked at
// while the tool works on them.
#pragma once

#include "tests/endToEnd/clientSegment.h"

namespace proof {

class LaidSegment
{
public:
    explicit LaidSegment(endToEnd::Bytes const& content);
    LaidSegment(LaidSegment const&) = delete;
    LaidSegment& operator=(LaidSegment const&) = delete;
    ~LaidSegment(); // removes it

    // The content that it was made with, again.
    void layAgain();

    // One byte, as a neighbour writes it.
    void store(std::size_t place, unsigned char value) { base[place] = value; }

    endToEnd::Bytes bytes() const { return {base, base + content.size()}; }
    bool isLockTaken() const { return *static_cast<unsigned char const volatile*>(base) != 0; }

    // Still found under the key, with nobody attached but this program.
    testing::AssertionResult isOursAlone() const;

private:
    endToEnd::Bytes content;
    int id;
    unsigned char* base;
};

} // namespace proof
