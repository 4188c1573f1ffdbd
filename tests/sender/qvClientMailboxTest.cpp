// The client's record is a format shared between processes: its places are fixed, and the document
// that describes it is held to the code here, so that neither can drift from the other.

#include "sender/qvClientMailbox.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

struct Field
{
    char const* name;
    std::size_t offset;
    std::size_t size;
};

#define QV_FIELD(name)                                                                             \
    Field                                                                                          \
    {                                                                                              \
#name, offsetof(qvClientMailbox, name), sizeof(qvClientMailbox::name)                      \
    }
Field const fields[] = {
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

TEST(QvClientMailbox, KeepsEveryFieldInItsPlace)
{
    Field const expected[] = {
        {"recordMarker", 0, 4},     {"stateMarker", 928, 2},   {"stateFlag", 930, 2},
        {"messageCount", 2001, 1},  {"messageKind", 2002, 30}, {"messageType", 2032, 30},
        {"messageValue", 2062, 60},
    };
    ASSERT_EQ(std::size(fields), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_STREQ(fields[i].name, expected[i].name);
        EXPECT_EQ(fields[i].offset, expected[i].offset) << expected[i].name;
        EXPECT_EQ(fields[i].size, expected[i].size) << expected[i].name;
    }
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

// docs/mailbox.md describes the record in a table headed
// "| Offset | Size | Type | Name | Meaning |".
struct DocumentedRow
{
    std::size_t offset = 0;
    std::size_t size = 0;
    std::string name;
};

// "| 0 | 4 | ... |" as its cells, without blanks and backticks around them.
std::vector<std::string> cellsOf(std::string const& line)
{
    std::vector<std::string> cells;
    std::istringstream parts(line.substr(1));
    for (std::string part; std::getline(parts, part, '|');) {
        std::size_t const first = part.find_first_not_of(" `\r");
        std::size_t const last = part.find_last_not_of(" `\r");
        cells.push_back(first == std::string::npos ? "" : part.substr(first, last - first + 1));
    }
    return cells;
}

std::vector<DocumentedRow> documentedRows()
{
    std::vector<DocumentedRow> rows;
    std::ifstream document(std::string(QV_DOCS_DIR) + "/mailbox.md");
    EXPECT_TRUE(document.is_open()) << "no mailbox.md in " << QV_DOCS_DIR;
    bool inTable = false;
    for (std::string line; std::getline(document, line);) {
        if (line.empty() || line[0] != '|') {
            if (inTable) {
                break;
            }
            continue;
        }
        std::vector<std::string> const cells = cellsOf(line);
        if (cells.size() < 5) {
            continue;
        }
        if (cells[0] == "Offset" && cells[1] == "Size" && cells[2] == "Type" &&
            cells[3] == "Name") {
            inTable = true;
        } else if (inTable && cells[0].find_first_not_of("-:") != std::string::npos) {
            rows.push_back({std::stoul(cells[0]), std::stoul(cells[1]), cells[3]});
        }
    }
    return rows;
}

TEST(QvClientMailbox, DocumentCoversTheRecordWithoutGap)
{
    std::vector<DocumentedRow> const rows = documentedRows();
    ASSERT_FALSE(rows.empty()) << "no table headed Offset | Size | Type | Name | Meaning";
    std::size_t next = 0;
    for (DocumentedRow const& row : rows) {
        EXPECT_EQ(row.offset, next) << row.name;
        EXPECT_GT(row.size, 0U) << row.name;
        next = row.offset + row.size;
    }
    EXPECT_EQ(next, sizeof(qvClientMailbox));
}

TEST(QvClientMailbox, DocumentNamesTheFieldsOfTheCode)
{
    std::vector<DocumentedRow> named;
    for (DocumentedRow const& row : documentedRows()) {
        if (!row.name.empty()) {
            named.push_back(row);
        }
    }
    ASSERT_EQ(named.size(), std::size(fields));
    for (std::size_t i = 0; i < named.size(); ++i) {
        EXPECT_EQ(named[i].name, fields[i].name);
        EXPECT_EQ(named[i].offset, fields[i].offset) << fields[i].name;
        EXPECT_EQ(named[i].size, fields[i].size) << fields[i].name;
    }
}

} // namespace
