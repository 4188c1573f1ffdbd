// Every image at every capacity, and the other objects that lie in shared memory or in other
// programs' binaries: size, alignment and offsets are held to images.txt, so that a change of any
// of them shows as a change of that table.

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"
#include "qv/support/qvStringList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <sstream>
#include <string>

namespace {

// offsetof is the compiler's word for these classes, whose data lies in a base class.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

std::string row(std::string const& type, std::size_t size, std::size_t alignment)
{
    return type + " size " + std::to_string(size) + " alignment " + std::to_string(alignment);
}

std::string member(char const* name, std::size_t offset)
{
    return std::string(" ") + name + " " + std::to_string(offset);
}

#define ROW(...) row(#__VA_ARGS__, sizeof(__VA_ARGS__), alignof(__VA_ARGS__))
#define MEMBER(type, name) member(#name, offsetof(type, name))

template <typename String>
std::string stringRow(std::string const& type)
{
    std::string line =
        row(type, sizeof(String), alignof(String)) + MEMBER(String, length) + MEMBER(String, text);
    if constexpr (requires(String s) { s.pad; })
        line += MEMBER(String, pad);
    if constexpr (requires(String s) { s.filler; })
        line += MEMBER(String, filler);
    if constexpr (requires(String s) { s.spare; })
        line += MEMBER(String, spare);
    if constexpr (requires(String s) { s.reserved; })
        line += MEMBER(String, reserved);
    if constexpr (requires(String s) { s.trailer; })
        line += MEMBER(String, trailer);
    return line + "\n";
}

std::string table()
{
    std::string lines;
#define STRING_ROW(...) stringRow<__VA_ARGS__>(#__VA_ARGS__)
#define ROWS8(N)                                                                                   \
    lines += STRING_ROW(_qvString8_allSize<N>) + STRING_ROW(_qvString8_evenSize_old<N>) +          \
             STRING_ROW(_qvString8_UnevenSize_old<N>);
#define ROWS16(N) lines += STRING_ROW(_qvString<N>) + STRING_ROW(_qvString_old<N>);
    QV_STRING8_CAPACITIES(ROWS8)
    QV_STRING16_CAPACITIES(ROWS16)
    lines += ROW(qvClientMailbox) + MEMBER(qvClientMailbox, recordMarker) +
             MEMBER(qvClientMailbox, messageCount) + MEMBER(qvClientMailbox, messageKind) +
             MEMBER(qvClientMailbox, messageType) + MEMBER(qvClientMailbox, messageValue) +
             MEMBER(qvClientMailbox, stateMarker) + MEMBER(qvClientMailbox, stateFlag) + "\n";
    lines += ROW(qvSharedMemory) + MEMBER(qvSharedMemory, name) +
             MEMBER(qvSharedMemory, globalName) + MEMBER(qvSharedMemory, errorText) +
             MEMBER(qvSharedMemory, errorCode) + MEMBER(qvSharedMemory, locked) +
             MEMBER(qvSharedMemory, attached) + MEMBER(qvSharedMemory, base) +
             MEMBER(qvSharedMemory, lockByte) + MEMBER(qvSharedMemory, totalSize) +
             MEMBER(qvSharedMemory, modeWord) + MEMBER(qvSharedMemory, key) + "\n";
    lines += ROW(_qvStringList) + MEMBER(_qvStringList, items) + MEMBER(_qvStringList, count) +
             MEMBER(_qvStringList, charBuffer) + "\n";
    return lines;
}

TEST(LayoutLock, IsTheTable)
{
    std::ifstream file(QV_IMAGES_TABLE);
    std::stringstream kept;
    kept << file.rdbuf();
    EXPECT_EQ(kept.str(), table());
}

} // namespace
