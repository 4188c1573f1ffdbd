// The words for the kinds of component.

#include "qv/client/qv_AppType.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace {

static_assert(std::is_enum_v<qv_AppType> && sizeof(qv_AppType) == 4);
static_assert(std::is_same_v<decltype(&qv_AppType_asString), _qvString<25> (*)(qv_AppType const&)>);

struct Row
{
    unsigned int value;
    std::string_view word;
};

constexpr Row rows[] = {
    {0, "None"},
    {1, "Server"},
    {2, "Client"},
    {3, "Submitter"},
    {4, "Control"},
    {5, "PostScript"},
    {6, "Test"},
    {7, "LogFile"},
    {8, "ClientWatch"},
    {9, "Config"},
    {10, "Viewer"},
    {11, "Installer"},
    {12, "HistoryDB"},
    {13, "PythonModule"},
    // 14 to 16 have no word, although one follows them.
    {14, "unknown"},
    {15, "unknown"},
    {16, "unknown"},
    {17, "NodeJS"},
    {18, "unknown"},
    {19, "unknown"},
    // Values that would be words if only their low bits counted.
    {32, "unknown"},
    {64, "unknown"},
    {256, "unknown"},
    {0x10001, "unknown"},
    // Every negative value is a large one.
    {0x7FFFFFFF, "unknown"},
    {0x80000000, "unknown"},
    {0x80000001, "unknown"},
    {0xFFFFFFEF, "unknown"},
    {0xFFFFFFFF, "unknown"},
};

// The whole image of the result: length, a reserved word of 0, the units, zeros behind them.
std::array<unsigned char, 56> imageOf(std::string_view word)
{
    std::array<unsigned char, 56> image{};
    image[0] = static_cast<unsigned char>(word.size());
    for (std::size_t i = 0; i < word.size(); ++i)
        image[4 + 2 * i] = static_cast<unsigned char>(word[i]);
    return image;
}

TEST(QvAppType, HasAWordForEachComponent)
{
    for (Row const& row : rows) {
        auto const value = static_cast<std::underlying_type_t<qv_AppType>>(row.value);
        _qvString<25> const word = qv_AppType_asString(static_cast<qv_AppType>(value));
        static_assert(sizeof word == 56);
        std::array<unsigned char, 56> image{};
        std::memcpy(image.data(), &word, image.size());
        EXPECT_EQ(image, imageOf(row.word)) << row.value;
    }
}

TEST(QvAppType, GivesUnknownForAllBehindTheTable)
{
    for (unsigned int value = 18; value < 100'000; ++value) {
        auto const type =
            static_cast<qv_AppType>(static_cast<std::underlying_type_t<qv_AppType>>(value));
        ASSERT_EQ(qv_AppType_asString(type).length, 7) << value;
    }
}

} // namespace
