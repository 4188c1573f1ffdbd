/// The images of the two older 8-bit strings, and the way of their text into the current string.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

using namespace images8;
using namespace std::string_view_literals;

using guarded::staleByte;

/// An older string as a record holds it: bytes that no member has laid down, in a block of exactly
/// its size. Serves the capacities at which the older strings have no members at all.
template <typename L>
class Record
{
public:
    explicit Record(std::string_view text, unsigned char rest = 0)
        : block(::operator new(sizeof(L)))
    {
        std::memset(block.get(), rest, sizeof(L));
        std::memcpy(bytes(), text.data(), text.size());
        bytes()[text.size()] = 0;
        layLength(text.size());
    }

    Record& layLength(std::size_t length)
    {
        auto const field = static_cast<std::uint16_t>(length);
        std::memcpy(bytes() + guarded::ImageOf<L>::lengthAt, &field, sizeof field);
        return *this;
    }

    Record& layText(std::size_t index, char byte)
    {
        bytes()[index] = static_cast<unsigned char>(byte);
        return *this;
    }

    unsigned char* bytes() { return static_cast<unsigned char*>(block.get()); }
    L const& view() { return *static_cast<L const*>(block.get()); }

private:
    struct Release
    {
        void operator()(void* memory) const { ::operator delete(memory); }
    };
    std::unique_ptr<void, Release> block;
};

struct ImageRow
{
    int capacity;
    std::size_t evenLengthAt;
    std::size_t evenSize;
    std::size_t unevenLengthAt;
    std::size_t unevenSize;
};

/// At even capacities the two are one image; at odd ones the even template has two bytes more.
constexpr ImageRow imageRows[] = {
    {6, 8, 10, 8, 10},
    {7, 10, 12, 8, 10},
    {8, 10, 12, 10, 12},
    {10, 12, 14, 12, 14},
    {12, 14, 16, 14, 16},
    {14, 16, 18, 16, 18},
    {15, 18, 20, 16, 18},
    {20, 22, 24, 22, 24},
    {25, 28, 30, 26, 28},
    {29, 32, 34, 30, 32},
    {30, 32, 34, 32, 34},
    {40, 42, 44, 42, 44},
    {50, 52, 54, 52, 54},
    {75, 78, 80, 76, 78},
    {100, 102, 104, 102, 104},
    {125, 128, 130, 126, 128},
    {150, 152, 154, 152, 154},
    {200, 202, 204, 202, 204},
    {250, 252, 254, 252, 254},
    {500, 502, 504, 502, 504},
    {1000, 1002, 1004, 1002, 1004},
    {2000, 2002, 2004, 2002, 2004},
    {3000, 3002, 3004, 3002, 3004},
    {5000, 5002, 5004, 5002, 5004},
};

template <typename S>
struct OlderOf;
template <int N>
struct OlderOf<_qvString8_allSize<N>>
{
    using Even = _qvString8_evenSize_old<N>;
    using Uneven = _qvString8_UnevenSize_old<N>;
};

/// Runs one check with each of the two older templates.
template <typename S, typename Check>
void withBoth(Check const& check)
{
    {
        SCOPED_TRACE("even");
        check(std::type_identity<typename OlderOf<S>::Even>());
    }
    {
        SCOPED_TRACE("uneven");
        check(std::type_identity<typename OlderOf<S>::Uneven>());
    }
}

template <typename S>
class Legacy8 : public testing::Test
{};
TYPED_TEST_SUITE(Legacy8, guarded::AllStrings8, guarded::ImageName);

template <typename L>
void expectImage(std::size_t lengthAt, std::size_t size)
{
    EXPECT_EQ(sizeof(L), size);
    EXPECT_EQ(alignof(L), 2U);
    EXPECT_EQ(guarded::ImageOf<L>::lengthAt, lengthAt);
    EXPECT_TRUE(std::is_trivially_destructible_v<L>);

    Record<L> record("");
    auto const offset = [&record](auto const& field) {
        return reinterpret_cast<unsigned char const*>(&field) - record.bytes();
    };
    EXPECT_EQ(offset(record.view().text), 0);
    EXPECT_EQ(offset(record.view().length), static_cast<std::ptrdiff_t>(lengthAt));
    EXPECT_EQ(sizeof(record.view().text), capacity<L> + 1);
    EXPECT_EQ(sizeof(record.view().length), 2U);
}

TYPED_TEST(Legacy8, theFieldsStandWhereTheTableSays)
{
    bool found = false;
    for (auto const& row : imageRows) {
        if (row.capacity == intCapacity<TypeParam>) {
            found = true;
            expectImage<typename OlderOf<TypeParam>::Even>(row.evenLengthAt, row.evenSize);
            expectImage<typename OlderOf<TypeParam>::Uneven>(row.unevenLengthAt, row.unevenSize);
        }
    }
    EXPECT_TRUE(found);
}

TEST(LegacyImage8, bytesOfShortTexts)
{
    guarded::Guarded<_qvString8_evenSize_old<6>> even("abc");
    EXPECT_EQ(even.bytes(), (guarded::Bytes{'a', 'b', 'c', 0, 0, 0, 0, staleByte, 3, 0}));
    even->clear();
    EXPECT_EQ(even.bytes(), (guarded::Bytes{0, 0, 0, 0, 0, 0, 0, staleByte, 0, 0}));

    guarded::Guarded<_qvString8_UnevenSize_old<7>> uneven("abcdefg");
    EXPECT_EQ(uneven.bytes(), (guarded::Bytes{'a', 'b', 'c', 'd', 'e', 'f', 'g', 0, 7, 0}));
    EXPECT_STREQ(reinterpret_cast<char const*>(&*uneven), "abcdefg");
}

TEST(LegacyImage8, aBlockOfZerosIsAnEmptyString)
{
    Record<_qvString8_evenSize_old<6>> even("");
    EXPECT_TRUE(even.view().isEmpty());
    EXPECT_TRUE(even.view() == "");
    Record<_qvString8_UnevenSize_old<7>> uneven("");
    EXPECT_TRUE(uneven.view().isEmpty());
    EXPECT_TRUE(uneven.view() == "");
}

/// Exactly the text of the capacity comes over, stale bytes included; the last text byte and the
/// pad byte stay what they were in the storage.
TYPED_TEST(Legacy8, constructionTakesTheTextAsItStands)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        Record<L> record("abc", 0x11);
        guarded::Guarded<TypeParam> built(record.view());
        auto expected = guarded::imageBytes<TypeParam>(3, "abc\0"sv, 0x11, staleByte);
        expected[guarded::ImageOf<TypeParam>::textAt + capacity<TypeParam>] = staleByte;
        EXPECT_EQ(built.bytes(), expected);
        EXPECT_TRUE(built.guardsStand());
    });
}

/// The terminator comes from the length, whatever the record holds there.
TYPED_TEST(Legacy8, constructionEndsTheText)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        Record<L> record("abcd", 0x11);
        record.layLength(2);
        guarded::Guarded<TypeParam> built(record.view());
        EXPECT_TRUE(guarded::holds(*built, "ab"));
        EXPECT_EQ(guarded::textByte(*built, 3), 'd');

        record.layLength(0);
        guarded::Guarded<TypeParam> empty(record.view());
        EXPECT_TRUE(guarded::holds(*empty, ""));
        EXPECT_EQ(guarded::textByte(*empty, 1), 'b');
    });
}

TYPED_TEST(Legacy8, constructionOfAFullString)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        auto const text = guarded::letters(capacity<TypeParam>);
        Record<L> record(text, 0x11);
        record.layText(capacity<TypeParam>, '#');
        guarded::Guarded<TypeParam> built(record.view());
        EXPECT_EQ(built.bytes(),
                  guarded::imageBytes<TypeParam>(capacity<TypeParam>, text + '\0', 0, staleByte));
        EXPECT_TRUE(built.guardsStand());
    });
}

/// Assigning writes no terminator of its own and leaves the last text byte alone.
TYPED_TEST(Legacy8, assignmentCopiesTheTextAreaOnly)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        Record<L> record("abc", 0x11);
        Laid<TypeParam> assigned("xy");
        *assigned = record.view();
        auto expected = guarded::imageBytes<TypeParam>(3, "abc\0"sv, 0x11, staleByte);
        expected[guarded::ImageOf<TypeParam>::textAt + capacity<TypeParam>] = staleByte;
        EXPECT_EQ(assigned.bytes(), expected);
        EXPECT_TRUE(assigned.guardsStand());

        record.layLength(2);
        *assigned = record.view();
        EXPECT_EQ(guarded::lengthOf(*assigned), 2);
        EXPECT_EQ(guarded::textByte(*assigned, 2), 'c');
    });
}

TYPED_TEST(Legacy8, assignmentOfAFullStringKeepsTheOldLastByte)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        auto const text = guarded::letters(capacity<TypeParam>);
        Record<L> record(text);
        for (char const old : {'#', '\0'}) {
            Laid<TypeParam> assigned("xy");
            assigned.layText(capacity<TypeParam>, static_cast<unsigned char>(old));
            *assigned = record.view();
            EXPECT_TRUE(became(assigned, capacity<TypeParam>, text + old));
        }
    });
}

TYPED_TEST(Legacy8, equality)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        auto const equals = [](TypeParam const& current, L const& older) {
            EXPECT_EQ(current == older, !(current != older));
            EXPECT_EQ(current == older, older == current);
            return current == older;
        };
        // Stale bytes behind the terminators do not matter.
        Laid<TypeParam> current("abc");
        EXPECT_TRUE(equals(*current, Record<L>("abc").view()));
        EXPECT_TRUE(equals(*current, Record<L>("abc", 0x11).view()));
        EXPECT_FALSE(equals(*current, Record<L>("abC").view()));
        EXPECT_FALSE(equals(*current, Record<L>("abd").view()));
        EXPECT_FALSE(equals(*current, Record<L>("ab").view()));
        EXPECT_FALSE(equals(*current, Record<L>("abcd").view()));
        EXPECT_FALSE(equals(*current, Record<L>("").view()));
        EXPECT_TRUE(equals(*Laid<TypeParam>("a\0b"sv), Record<L>("a\0b"sv).view()));
        EXPECT_FALSE(equals(*Laid<TypeParam>("a\0b"sv), Record<L>("a\0c"sv).view()));

        auto const text = guarded::letters(capacity<TypeParam>);
        EXPECT_TRUE(equals(*Laid<TypeParam>(text), Record<L>(text).view()));
        Record<L> unterminatedRecord(text);
        unterminatedRecord.layText(capacity<TypeParam>, '#');
        EXPECT_TRUE(equals(*Laid<TypeParam>(text), unterminatedRecord.view()));
    });
}

/// On its way the older text gets its terminator, and with length 0 that is its first byte.
TYPED_TEST(Legacy8, equalityOfEmptyStringsLooksAtTheFirstByte)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        Record<L> staleRecord("x");
        staleRecord.layLength(0);
        Laid<TypeParam> clean("");
        Laid<TypeParam> stale("");
        stale.stale(0, "x");
        EXPECT_TRUE(*clean == staleRecord.view());
        EXPECT_FALSE(*stale == staleRecord.view());
        EXPECT_FALSE(*stale == Record<L>("").view());
    });
}

/// A damaged length is taken over, and the terminator goes where it points, past the object.
TEST(LegacyDamage8, aLengthAboveTheCapacityIsNotRepaired)
{
    auto const check = [](auto type) {
        using L = typename decltype(type)::type;
        auto const text = guarded::letters(14);
        Record<L> record(text);
        record.layLength(20);

        guarded::Guarded<_qvString8_allSize<14>> built(record.view());
        EXPECT_EQ(guarded::lengthOf(*built), 20);
        EXPECT_EQ(textArea(*built), text + '\xAA');
        guarded::Bytes behind(built.behind().size(), guarded::guardByte);
        behind[4] = 0; // text[20]: the object ends behind text[15]
        EXPECT_EQ(built.behind(), behind);

        Laid<_qvString8_allSize<14>> assigned("");
        *assigned = record.view();
        EXPECT_EQ(guarded::lengthOf(*assigned), 20);
        EXPECT_EQ(textArea(*assigned), text + '\xAA');
        EXPECT_TRUE(assigned.guardsStand());
    };
    check(std::type_identity<_qvString8_evenSize_old<14>>());
    check(std::type_identity<_qvString8_UnevenSize_old<14>>());
}

TYPED_TEST(Legacy8, convertedTextIsAStringLikeAnyOther)
{
    withBoth<TypeParam>([](auto type) {
        using L = typename decltype(type)::type;
        Record<L> record("aXbX", 0x11);
        TypeParam string(record.view());
        string.remove('x');
        EXPECT_TRUE(guarded::holds(string, "ab"));
        string = record.view();
        EXPECT_TRUE(string.isEqual(TypeParam("AxBx")));
    });
}

} // namespace
