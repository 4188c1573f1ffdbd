// The client's record is a format shared between processes: its places are fixed, and the document
// that describes it is held to the code here, so that neither can drift from the other.

#include "qv/client/qvClientMailbox.h"

#include "tests/endToEnd/clientRecord.h"
#include "tests/layout/documentTable.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

#define QV_FIELD(name)                                                                             \
    documents::Field                                                                               \
    {                                                                                              \
#name, offsetof(qvClientMailbox, name), sizeof(qvClientMailbox::name)                      \
    }
std::vector<documents::Field> const fields = {
    QV_FIELD(recordMarker), QV_FIELD(stateMarker), QV_FIELD(stateFlag),    QV_FIELD(messageCount),
    QV_FIELD(messageKind),  QV_FIELD(messageType), QV_FIELD(messageValue),
};
#undef QV_FIELD

template <typename Member>
constexpr bool isUnsignedOfBytes(std::size_t bytes)
{
    using Element = std::remove_cv_t<std::remove_all_extents_t<Member>>;
    return std::is_integral_v<Element> && std::is_unsigned_v<Element> && sizeof(Element) == bytes;
}

TEST(QvClientMailbox, HasItsSizeAndItsRoom)
{
    static_assert(clientRecordSize == 22988);
    static_assert(maxClientMessages == 30);
    static_assert(sizeof(qvClientMailbox) == 22988);
    static_assert(std::is_trivially_copyable_v<qvClientMailbox>);
    static_assert(std::is_standard_layout_v<qvClientMailbox>);
    // The record starts at byte 8 of a page, so more than 8 can never be promised.
    static_assert(alignof(qvClientMailbox) <= 8);
}

// The other tests lay the record down by these numbers.
TEST(QvClientMailbox, IsTheRecordOfTheOtherTests)
{
    static_assert(endToEnd::clientRecordSize == sizeof(qvClientMailbox));
    static_assert(endToEnd::recordMarkerPlace == offsetof(qvClientMailbox, recordMarker));
    static_assert(endToEnd::stateMarkerPlace == offsetof(qvClientMailbox, stateMarker));
    static_assert(endToEnd::stateFlagPlace == offsetof(qvClientMailbox, stateFlag));
    static_assert(endToEnd::messageCountPlace == offsetof(qvClientMailbox, messageCount));
    static_assert(endToEnd::messageKindPlace == offsetof(qvClientMailbox, messageKind));
    static_assert(endToEnd::messageTypePlace == offsetof(qvClientMailbox, messageType));
    static_assert(endToEnd::messageValuePlace == offsetof(qvClientMailbox, messageValue));
    static_assert(endToEnd::rightRecordMarker == clientRecordMarker);
    static_assert(endToEnd::rightStateMarker == clientStateMarker);
    static_assert(endToEnd::rightStateFlag == clientStateFlag);
}

TEST(QvClientMailbox, KeepsEveryFieldInItsPlace)
{
    std::vector<documents::Field> const expected = {
        {"recordMarker", 0, 4},     {"stateMarker", 928, 2},   {"stateFlag", 930, 2},
        {"messageCount", 2001, 1},  {"messageKind", 2002, 30}, {"messageType", 2032, 30},
        {"messageValue", 2062, 60},
    };
    EXPECT_EQ(fields, expected);
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::recordMarker)>(4));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::stateMarker)>(2));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::stateFlag)>(2));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::messageCount)>(1));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::messageKind)>(1));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::messageType)>(1));
    EXPECT_TRUE(isUnsignedOfBytes<decltype(qvClientMailbox::messageValue)>(2));
}

TEST(QvClientMailbox, QueueEntriesLieSideBySide)
{
    // By the number of a message, counting from 1, as readers of a dump do.
    for (std::size_t n = 1; n <= 30; ++n) {
        EXPECT_EQ(offsetof(qvClientMailbox, messageKind) + (n - 1), 2001 + n);
        EXPECT_EQ(offsetof(qvClientMailbox, messageType) + (n - 1), 2031 + n);
        EXPECT_EQ(offsetof(qvClientMailbox, messageValue) + 2 * (n - 1), 2060 + 2 * n);
    }
    EXPECT_EQ(std::extent_v<decltype(qvClientMailbox::messageKind)>, 30U);
    EXPECT_EQ(std::extent_v<decltype(qvClientMailbox::messageType)>, 30U);
    EXPECT_EQ(std::extent_v<decltype(qvClientMailbox::messageValue)>, 30U);
}

TEST(QvClientMailbox, StoresLandOnTheirBytes)
{
    auto record = std::make_unique<qvClientMailbox>();
    std::memset(static_cast<void*>(record.get()), 0, sizeof *record);
    record->recordMarker = 517;
    record->stateMarker = 3077;
    record->stateFlag = 1;
    record->messageCount = 30;
    record->messageKind[29] = 2;
    record->messageType[0] = 5;
    record->messageValue[29] = 0xABCD;

    std::vector<unsigned char> expected(22988, 0);
    expected[0] = 0x05;
    expected[1] = 0x02;
    expected[928] = 0x05;
    expected[929] = 0x0C;
    expected[930] = 1;
    expected[2001] = 30;
    expected[2031] = 2;
    expected[2032] = 5;
    expected[2120] = 0xCD;
    expected[2121] = 0xAB;
    std::vector<unsigned char> stored(22988);
    std::memcpy(stored.data(), static_cast<void const*>(record.get()), stored.size());
    EXPECT_TRUE(stored == expected);
}

/// docs/mailbox.md describes the record in one table. What belongs to the client has no name there.
std::vector<documents::Field> documentedFields()
{
    documents::Document const document =
        documents::readDocument(std::string(QV_DOCS_DIR) + "/mailbox.md");
    std::vector<documents::Table> const tables =
        documents::tablesHeaded(document, {"Offset", "Size", "Type", "Name", "Meaning"});
    EXPECT_EQ(tables.size(), 1U) << "tables headed Offset | Size | Type | Name | Meaning";
    return tables.empty() ? std::vector<documents::Field>()
                          : documents::fieldsOf(tables.front(), "Name");
}

TEST(QvClientMailbox, DocumentCoversTheRecordWithoutGap)
{
    documents::expectNoGap(documentedFields(), sizeof(qvClientMailbox));
}

TEST(QvClientMailbox, DocumentNamesTheFieldsOfTheCode)
{
    std::vector<documents::Field> named = documentedFields();
    std::erase_if(named, [](documents::Field const& field) { return field.name.empty(); });
    EXPECT_EQ(named, fields);
}

} // namespace
