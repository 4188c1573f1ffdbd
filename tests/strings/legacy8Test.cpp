/// The images of the two older 8-bit strings, and the way of their text into the current string.

#include "tests/strings/laidOf.h"

#include <cstring>
#include <new>
#include <type_traits>

namespace strings {
namespace {

using namespace std::string_view_literals;

/// No string is made by these images, since at many capacities the older strings have no members.
template <typename S>
constexpr Image recordOf = fieldsOf<S>(nullptr);

/// The ways of an older string into the current one of its capacity, for objects at these places.
struct Way
{
    Image const* current;
    Image const* older;
    void (*construct)(void* place, void const* source);
    void (*assign)(void* place, void const* source);
    /// -1 where the four questions of equality contradict one another.
    int (*equals)(void const* left, void const* right);
    bool (*removesAndCompares)(void* place, void const* source);
};

template <typename Old, typename S>
constexpr Way wayOf = {
    &recordOf<S>,
    &recordOf<Old>,
    [](void* place, void const* source) { ::new (place) S(*static_cast<Old const*>(source)); },
    [](void* place, void const* source) {
        *static_cast<S*>(place) = *static_cast<Old const*>(source);
    },
    [](void const* left, void const* right) {
        S const& current = *static_cast<S const*>(left);
        Old const& older = *static_cast<Old const*>(right);
        bool const isEqual = current == older;
        bool const agrees = isEqual == !(current != older) && isEqual == (older == current);
        return agrees ? static_cast<int>(isEqual) : -1;
    },
    [](void* place, void const* source) {
        S& string = *static_cast<S*>(place);
        string.remove('x');
        bool const isRemoved = string == "ab";
        string = *static_cast<Old const*>(source);
        return isRemoved && string.isEqual(S("AxBx"));
    },
};

template <int... N>
std::vector<Way const*> waysAt()
{
    return {&wayOf<_qvString8_evenSize_old<N>, _qvString8_allSize<N>>...,
            &wayOf<_qvString8_UnevenSize_old<N>, _qvString8_allSize<N>>...};
}

/// Both older templates at every capacity.
std::vector<Way const*> allWays()
{
    return waysAt<6, 7, 8, 10, 12, 14, 15, 20, 25, 29, 30, 40, 50, 75, 100, 125, 150, 200, 250, 500,
                  1000, 2000, 3000, 5000>();
}

/// Bytes that no member has laid down, with guard bytes in front and behind.
class Block
{
public:
    explicit Block(Image const& itsImage, unsigned char rest = staleByte)
        : image(&itsImage),
          storage(room + itsImage.size + room, guardByte)
    {
        std::memset(object(), rest, image->size);
    }
    Block(Image const& itsImage, Text text, unsigned char rest) : Block(itsImage, rest)
    {
        layText(0, std::u16string(text) + u'\0').layLength(text.size());
    }

    Block& layLength(std::size_t length)
    {
        object()[image->lengthAt] = static_cast<unsigned char>(length & 0xFFU);
        object()[image->lengthAt + 1] = static_cast<unsigned char>(length >> 8U);
        return *this;
    }
    Block& layText(std::size_t index, Text text)
    {
        Bytes const bytes = stored(*image, text);
        std::copy(bytes.begin(), bytes.end(), object() + image->textAt + index);
        return *this;
    }

    unsigned char* object() { return storage.data() + room; }
    Value value() { return {image, bytes()}; }
    Bytes bytes() { return {object(), object() + image->size}; }
    Bytes behind() { return {object() + image->size, storage.data() + storage.size()}; }
    bool guardsStand()
    {
        Bytes const guards(room, guardByte);
        return behind() == guards && Bytes(storage.data(), object()) == guards;
    }

private:
    static constexpr std::size_t room = 64;

    Image const* image;
    Bytes storage;
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

class Legacy8 : public testing::TestWithParam<Way const*>
{
protected:
    Way const& way = *GetParam();
    Image const& image = *way.current;
    Image const& older = *way.older;
};
std::string wayName(testing::TestParamInfo<Way const*> const& info)
{
    Image const& older = *info.param->older;
    return older.family + ('_' + std::to_string(older.capacity));
}

INSTANTIATE_TEST_SUITE_P(, Legacy8, testing::ValuesIn(allWays()), wayName);

template <typename L>
void expectImage(std::size_t lengthAt, std::size_t size)
{
    EXPECT_EQ(sizeof(L), size);
    EXPECT_EQ(recordOf<L>.size, size);
    EXPECT_EQ(recordOf<L>.lengthAt, lengthAt);
    static_assert(alignof(L) == 2);
    static_assert(std::is_trivially_destructible_v<L>);
    static_assert(sizeof(L::text) == recordOf<L>.capacity + 1);
    static_assert(sizeof(L::length) == 2);
    Block block(recordOf<L>);
    auto const& string = *reinterpret_cast<L const*>(block.object());
    EXPECT_EQ(static_cast<void const*>(&string.text), block.object());
    EXPECT_EQ(static_cast<void const*>(&string.length), block.object() + lengthAt);
}

template <std::size_t... I>
void expectImages(std::index_sequence<I...>)
{
    (expectImage<_qvString8_evenSize_old<imageRows[I].capacity>>(imageRows[I].evenLengthAt,
                                                                 imageRows[I].evenSize),
     ...);
    (expectImage<_qvString8_UnevenSize_old<imageRows[I].capacity>>(imageRows[I].unevenLengthAt,
                                                                   imageRows[I].unevenSize),
     ...);
}

TEST(LegacyImage8, theFieldsAreWhereTheTableSays)
{
    static_assert(std::size(imageRows) == 24);
    expectImages(std::make_index_sequence<std::size(imageRows)>());
}

TEST(LegacyImage8, bytesAfterClearing)
{
    Laid even(imageNamed("even8", 6), u"abc");
    even->clear();
    EXPECT_EQ(even.bytes(), (Bytes{0, 0, 0, 0, 0, 0, 0, staleByte, 0, 0}));
    Laid uneven(imageNamed("uneven8", 7), u"abc");
    uneven->clear();
    EXPECT_EQ(uneven.bytes(), Bytes(10, 0));
}

TEST(LegacyImage8, aBlockOfZerosIsAnEmptyString)
{
    for (Image const* const image : {&imageNamed("even8", 6), &imageNamed("uneven8", 7)}) {
        Laid const zeros(*image, u"", 0);
        EXPECT_EQ(zeros.bytes(), Bytes(image->size, 0));
        EXPECT_TRUE(zeros->isEmpty());
        EXPECT_TRUE(zeros->equals(""));
    }
}

/// Exactly the text of the capacity comes over, stale bytes included; the last text byte and the
/// pad byte stay what they were in the storage.
TEST_P(Legacy8, constructionTakesTheTextAsItIs)
{
    Block source(older, u"abc", 0x11);
    Block built(image);
    way.construct(built.object(), source.object());
    auto expected = imageOf(image, 3, u"abc\0"sv, 0x11, staleByte);
    expected[image.textAt + image.capacity] = staleByte;
    EXPECT_EQ(built.bytes(), expected);
    EXPECT_TRUE(built.guardsStand());
    EXPECT_TRUE(source.guardsStand());
}

/// The terminator comes from the length, whatever the record holds there.
TEST_P(Legacy8, constructionEndsTheText)
{
    Block source(older, u"abcd", 0x11);
    source.layLength(2);
    Block built(image);
    way.construct(built.object(), source.object());
    EXPECT_TRUE(holds(built.value(), u"ab"));
    EXPECT_EQ(built.value().units(3, 1), u"d");

    source.layLength(0);
    Block empty(image);
    way.construct(empty.object(), source.object());
    EXPECT_TRUE(holds(empty.value(), u""));
    EXPECT_EQ(empty.value().units(1, 1), u"b");
}

TEST_P(Legacy8, constructionOfAFullString)
{
    auto const text = letters(image.capacity);
    Block source(older, text, 0x11);
    source.layText(image.capacity, u"#");
    Block built(image);
    way.construct(built.object(), source.object());
    EXPECT_EQ(built.bytes(), imageOf(image, image.capacity, text + u'\0', 0, staleByte));
    EXPECT_TRUE(built.guardsStand());
}

/// Assigning writes no terminator of its own and leaves the last text byte alone.
TEST_P(Legacy8, assignmentCopiesTheTextAreaOnly)
{
    Block source(older, u"abc", 0x11);
    Block assigned(image, u"xy", staleByte);
    way.assign(assigned.object(), source.object());
    auto expected = imageOf(image, 3, u"abc\0"sv, 0x11, staleByte);
    expected[image.textAt + image.capacity] = staleByte;
    EXPECT_EQ(assigned.bytes(), expected);
    EXPECT_TRUE(assigned.guardsStand());

    source.layLength(2);
    way.assign(assigned.object(), source.object());
    EXPECT_EQ(assigned.value().length(), 2);
    EXPECT_EQ(assigned.value().units(2, 1), u"c");
}

TEST_P(Legacy8, assignmentOfAFullStringKeepsTheOldLastByte)
{
    auto const text = letters(image.capacity);
    Block source(older, text, 0);
    for (Unit const old : {u'#', u'\0'}) {
        Block assigned(image, u"xy", staleByte);
        assigned.layText(image.capacity, {&old, 1});
        way.assign(assigned.object(), source.object());
        EXPECT_EQ(assigned.bytes(), imageOf(image, image.capacity, text + old, 0, staleByte));
        EXPECT_TRUE(assigned.guardsStand());
    }
}

TEST_P(Legacy8, equality)
{
    struct Row
    {
        Text current;
        Text older;
        bool isEqual;
    };
    auto const full = letters(image.capacity);
    for (auto const& row :
         {Row{u"abc", u"abc", true}, Row{u"abc", u"abC", false}, Row{u"abc", u"abd", false},
          Row{u"abc", u"ab", false}, Row{u"abc", u"abcd", false}, Row{u"abc", u"", false},
          Row{u"a\0b"sv, u"a\0b"sv, true}, Row{u"a\0b"sv, u"a\0c"sv, false},
          Row{full, full, true}}) {
        SCOPED_TRACE(shown(row.current) + " and " + shown(row.older));
        // Stale bytes behind the terminators do not matter, nor does a missing terminator.
        for (unsigned char const rest : {std::uint8_t{0}, std::uint8_t{0x11}}) {
            Block current(image, row.current, staleByte);
            Block source(older, row.older, rest);
            EXPECT_EQ(way.equals(current.object(), source.object()), row.isEqual);
            source.layText(row.older.size(), u"#");
            if (!row.older.empty()) {
                EXPECT_EQ(way.equals(current.object(), source.object()), row.isEqual);
            }
        }
    }
}

/// On its way the older text gets its terminator, and with length 0 that is its first byte.
TEST_P(Legacy8, equalityOfEmptyStringsLooksAtTheFirstByte)
{
    Block staleSource(older, u"x", 0);
    staleSource.layLength(0);
    Block cleanSource(older, u"", 0);
    Block clean(image, u"", staleByte);
    Block stale(image, u"", staleByte);
    stale.layText(0, u"x");
    EXPECT_EQ(way.equals(clean.object(), staleSource.object()), 1);
    EXPECT_EQ(way.equals(stale.object(), staleSource.object()), 0);
    EXPECT_EQ(way.equals(stale.object(), cleanSource.object()), 0);
}

/// A damaged length is taken over, and the terminator goes where it points, past the object.
TEST_P(Legacy8, aLengthAboveTheCapacityIsNotRepaired)
{
    auto const text = letters(image.capacity);
    std::size_t const length = image.capacity + 6;
    Block source(older, text, staleByte);
    source.layLength(length);

    Block built(image);
    way.construct(built.object(), source.object());
    EXPECT_EQ(built.value().length(), static_cast<int>(length));
    EXPECT_EQ(built.value().units(0, image.capacity + 1), text + u'\xAA');
    Bytes behind(built.behind().size(), guardByte);
    behind[image.textAt + length - image.size] = 0;
    EXPECT_EQ(built.behind(), behind);

    Block assigned(image, u"", staleByte);
    way.assign(assigned.object(), source.object());
    EXPECT_EQ(assigned.value().length(), static_cast<int>(length));
    EXPECT_EQ(assigned.value().units(0, image.capacity + 1), text + u'\xAA');
    EXPECT_TRUE(assigned.guardsStand());
}

TEST_P(Legacy8, convertedTextIsAStringLikeAnyOther)
{
    Block source(older, u"aXbX", 0x11);
    Block string(image);
    way.construct(string.object(), source.object());
    EXPECT_TRUE(way.removesAndCompares(string.object(), source.object()));
    EXPECT_TRUE(string.guardsStand());
}

} // namespace
} // namespace strings
