// docs/memory-images.md tells other programs how the strings lie in the shared records. Its tables
// and its examples are held against the code here, so that neither can drift from the other.

#include "qv/strings/capacities16.h"
#include "qv/strings/capacities8.h"
#include "qv/strings/image16.h"
#include "qv/strings/image8.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"
#include "tests/layout/documentTable.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <type_traits>

namespace {

using namespace qvStrings;

documents::Document const& document()
{
    static documents::Document const read =
        documents::readDocument(std::string(QV_DOCS_DIR) + "/memory-images.md");
    return read;
}

std::vector<documents::Table> imageTables()
{
    return documents::tablesHeaded(document(), {"Offset", "Size", "Field", "Meaning"});
}

bool startsWith(std::string const& text, std::string const& start)
{
    return text.rfind(start, 0) == 0;
}

/// The only one of `blocks` whose caption begins like this, or an empty one and a failed test.
template <typename Block>
Block captioned(std::vector<Block> const& blocks, std::string const& start)
{
    Block found;
    int count = 0;
    for (Block const& block : blocks) {
        if (startsWith(block.caption, start)) {
            found = block;
            ++count;
        }
    }
    EXPECT_EQ(count, 1) << "captions that begin with: " << start;
    return found;
}

/// The fields of an image as the compiler lays them, in the order of their offsets.
template <typename Image>
std::vector<documents::Field> fieldsInCode()
{
    std::vector<documents::Field> fields;
#define QV_FIELD(name)                                                                             \
    if constexpr (requires(Image image) { image.name; }) {                                         \
        fields.push_back({#name, offsetof(Image, name), sizeof(Image::name)});                     \
    }
    QV_FIELD(length)
    QV_FIELD(text)
    QV_FIELD(pad)
    QV_FIELD(filler)
    QV_FIELD(spare)
    QV_FIELD(reserved)
    QV_FIELD(trailer)
#undef QV_FIELD
    std::sort(fields.begin(), fields.end(),
              [](auto const& left, auto const& right) { return left.offset < right.offset; });
    return fields;
}

/// The size that a caption ends in: "Even N, N + 4 bytes:" says N + 4.
std::string sizeIn(std::string const& caption)
{
    std::size_t const end = caption.rfind(" bytes:");
    EXPECT_NE(end, std::string::npos) << "no size in bytes at the end of: " << caption;
    std::size_t const start = caption.find_last_of(",;", end);
    return end == std::string::npos ? "0" : caption.substr(start + 1, end - start - 1);
}

/// One table of the document, by the words that its caption begins with, describes these images.
template <typename... Images>
void expectDescribed(std::string const& caption)
{
    SCOPED_TRACE(caption);
    documents::Table const table = captioned(imageTables(), caption);
    auto const check = [&table]<typename Image>(std::type_identity<Image>) {
        std::size_t const n = std::extent_v<decltype(Image::text)> - 1;
        SCOPED_TRACE("N = " + std::to_string(n));
        std::vector<documents::Field> const described = documents::fieldsOf(table, "Field", n);
        EXPECT_EQ(described, fieldsInCode<Image>());
        documents::expectNoGap(described, sizeof(Image));
        EXPECT_EQ(documents::evaluate(sizeIn(table.caption), n), sizeof(Image));
    };
    (check(std::type_identity<Images>{}), ...);
}

TEST(MemoryImages, TablesAreTheImagesOfTheCode)
{
    expectDescribed<Image8<6>, Image8<14>, Image8<250>, Image8<5000>>("Even N,");
    expectDescribed<Image8<7>, Image8<29>, Image8<125>>("Odd N,");
    expectDescribed<EvenOldImage8<6>, EvenOldImage8<14>, EvenOldImage8<250>, EvenOldImage8<5000>>(
        "`_qvString8_evenSize_old<N>`, N of ");
    expectDescribed<UnevenOldImage8<7>, UnevenOldImage8<75>, UnevenOldImage8<125>>(
        "`_qvString8_UnevenSize_old<N>`, N of ");
    expectDescribed<EvenOldImage8<7>, EvenOldImage8<29>, EvenOldImage8<125>>(
        "`_qvString8_evenSize_old<N>` at odd N,");
    expectDescribed<UnevenOldImage8<6>, UnevenOldImage8<100>, UnevenOldImage8<2000>>(
        "`_qvString8_UnevenSize_old<N>` at even N,");
    expectDescribed<Image16<10>, Image16<15>, Image16<48>, Image16<225>, Image16<2500>>(
        "The image of `_qvString<N>` ");
    expectDescribed<OldImage16<10>, OldImage16<15>, OldImage16<48>, OldImage16<225>,
                    OldImage16<2500>>("The image of `_qvString_old<N>` ");
    EXPECT_EQ(imageTables().size(), 8U) << "a table that nothing here checks";
}

/// "6, 7 and 8" as 6, 7, 8.
std::vector<int> numbersIn(std::string const& text)
{
    std::vector<int> numbers;
    bool inNumber = false;
    for (char const c : text) {
        bool const isDigit = c >= '0' && c <= '9';
        if (isDigit && !inNumber) {
            numbers.push_back(0);
        }
        if (isDigit) {
            numbers.back() = 10 * numbers.back() + (c - '0');
        }
        inNumber = isDigit;
    }
    return numbers;
}

/// The capacities behind "N of", up to the semicolon.
std::vector<int> capacitiesInCaption(std::string const& start)
{
    std::string const caption = captioned(imageTables(), start).caption;
    return numbersIn(caption.substr(start.size(), caption.find(';') - start.size()));
}

TEST(MemoryImages, CapacitiesAreThoseOfTheCode)
{
    std::vector<std::vector<int>> listed;
    for (std::string const& paragraph : document().paragraphs) {
        if (startsWith(paragraph, "Capacities ")) {
            listed.push_back(numbersIn(paragraph));
        }
    }
#define QV_ITEM(N) N,
    std::vector<std::vector<int>> const expected = {{QV_STRING8_CAPACITIES(QV_ITEM)},
                                                    {QV_STRING16_CAPACITIES(QV_ITEM)}};
    EXPECT_EQ(listed, expected);
    EXPECT_EQ(capacitiesInCaption("`_qvString8_evenSize_old<N>`, N of "),
              std::vector<int>({QV_STRING8_EVEN_OLD_CAPACITIES(QV_ITEM)}));
    EXPECT_EQ(capacitiesInCaption("`_qvString8_UnevenSize_old<N>`, N of "),
              std::vector<int>({QV_STRING8_UNEVEN_OLD_CAPACITIES(QV_ITEM)}));
#undef QV_ITEM
}

/// Two hexadecimal digits, or "xx" for a byte that keeps what was there.
constexpr int kept = -1;

std::vector<int> bytesIn(std::string const& text)
{
    std::vector<int> bytes;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        // Wide gaps part the bytes from a remark.
        std::istringstream words(line.substr(0, line.find("   ")));
        for (std::string word; words >> word;) {
            bytes.push_back(word == "xx" ? kept : std::stoi(word, nullptr, 16));
        }
    }
    return bytes;
}

/// Makes an object as the example behind the caption says, over storage with a known byte in it,
/// and compares the bytes.
template <typename S, typename Make>
void expectExample(std::string const& caption, Make const& make)
{
    SCOPED_TRACE(caption);
    constexpr int staleByte = 0xAA;
    alignas(S) unsigned char storage[sizeof(S)];
    std::memset(storage, staleByte, sizeof storage);
    make(storage);

    std::vector<int> expected = bytesIn(captioned(document().examples, caption).text);
    std::replace(expected.begin(), expected.end(), kept, staleByte);
    EXPECT_EQ(std::vector<int>(storage, storage + sizeof storage), expected);
}

TEST(MemoryImages, ExamplesAreTheBytesOfRealStrings)
{
    using Current8 = _qvString8_allSize<6>;
    expectExample<Current8>("\"abc\" in a `_qvString8_allSize<6>` that was cleared before:",
                            [](void* storage) { *::new (storage) Current8 = "abc"; });

    using Old8 = _qvString8_evenSize_old<6>;
    expectExample<Old8>("\"abc\" in a `_qvString8_evenSize_old<6>` that was cleared before:",
                        [](void* storage) { *::new (storage) Old8 = "abc"; });

    using Current16 = _qvString<10>;
    expectExample<Current16>(
        "The bytes 61 E4, taken by the constructor of a `_qvString<10>`,",
        [](void* storage) { ::new (storage) Current16(static_cast<char const*>("a\xE4")); });

    using Old16 = _qvString_old<10>;
    expectExample<Old16>(
        "The bytes 61 E4, taken by the constructor of a `_qvString_old<10>`:",
        [](void* storage) { ::new (storage) Old16(static_cast<char const*>("a\xE4")); });

    EXPECT_EQ(document().examples.size(), 4U) << "an example that nothing here checks";
}

} // namespace
