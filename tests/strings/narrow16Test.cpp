/// From units to bytes: the conversions to 8-bit strings with their limits, the copy into a
/// caller's buffer, and the measure of raw texts.

#include "qv/strings/qvCharLen.h"
#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Narrow16 : public testing::Test
{};
TYPED_TEST_SUITE(Narrow16, MainImages, ImageName);

template <int M>
using String8 = _qvString8_allSize<M>;

/// The length of the target and its whole text area; the pad byte behind it is nobody's.
template <int M>
testing::AssertionResult isNarrow(String8<M> const& target, std::size_t length,
                                  std::string_view text)
{
    if (guarded::lengthOf(target) != static_cast<int>(length)) {
        return testing::AssertionFailure()
               << "length is " << guarded::lengthOf(target) << " instead of " << length;
    }
    for (std::size_t i = 0; i <= M; ++i) {
        int const expected = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        if (guarded::textByte(target, i) != expected) {
            return testing::AssertionFailure()
                   << "byte " << i << " is " << guarded::textByte(target, i) << " instead of "
                   << expected;
        }
    }
    return testing::AssertionSuccess();
}

/// A target of M characters takes one less; its length is that of the source all the same.
template <int M, typename S>
void expectTarget(S const& source, Text text, std::string_view low)
{
    auto const arrived = low.substr(0, M - 1);
    String8<M> const converted = source;
    EXPECT_TRUE(isNarrow<M>(converted, text.size(), arrived));
    EXPECT_TRUE(isNarrow<M>(static_cast<String8<M>>(source), text.size(), arrived));
    if constexpr (M == 250) {
        EXPECT_TRUE(isNarrow<M>(source.to_qvString8_250(), text.size(), arrived));
    } else {
        EXPECT_TRUE(isNarrow<M>(source.to_qvString8_500(), text.size(), arrived));
    }
}

struct NarrowRow
{
    Text units;
    std::string_view bytes;
};

/// The low byte of each unit and nothing else.
constexpr NarrowRow narrowRows[] = {
    {u""sv, ""sv},
    {u"a"sv, "a"sv},
    {u"abcDEF"sv, "abcDEF"sv},
    {u"\xE4\xFFE4"sv, "\xE4\xE4"sv},
    {u"\x0141\x0100z"sv, "A\0z"sv},
    {u"\xFF80\xFFFF\x80"sv, "\x80\xFF\x80"sv},
    {u"a\0b"sv, "a\0b"sv},
    {u"\xD83D\xDE00"sv, "\x3D\0"sv},
};

TYPED_TEST(Narrow16, takesLowBytes)
{
    for (auto const& row : narrowRows) {
        SCOPED_TRACE(shown(row.units));
        Laid<TypeParam> source(row.units);
        auto const before = source.bytes();
        TypeParam const& constant = *source;
        expectTarget<250>(constant, row.units, row.bytes);
        expectTarget<500>(constant, row.units, row.bytes);
        EXPECT_EQ(source.bytes(), before);
    }
}

TYPED_TEST(Narrow16, theTargetIsClearedAndItsLengthIsNotClipped)
{
    for (std::size_t const size :
         {std::size_t{10}, std::size_t{248}, std::size_t{249}, std::size_t{250}, std::size_t{251},
          std::size_t{498}, std::size_t{499}, std::size_t{500}, std::size_t{501}, std::size_t{2000},
          capacity<TypeParam>}) {
        if (size > capacity<TypeParam>) {
            continue;
        }
        SCOPED_TRACE(size);
        auto const text = letters(size);
        Laid<TypeParam> source(text);
        expectTarget<250>(*source, text, guarded::letters(size));
        expectTarget<500>(*source, text, guarded::letters(size));
    }
}

/// The result of a conversion, built right on stale bytes: all behind its text is zero, the spare
/// byte too.
TYPED_TEST(Narrow16, clearsTheTargetWhereverItIsBuilt)
{
    Laid<TypeParam> source(u"abc");
    auto const expectClear = [](auto const& convert) {
        using Target = decltype(convert());
        alignas(Target) unsigned char storage[sizeof(Target)];
        std::memset(storage, staleByte, sizeof storage);
        auto* const built = ::new (storage) Target(convert());
        EXPECT_TRUE(isNarrow(*built, 3, "abc"));
        EXPECT_EQ(built->pad, 0);
    };
    expectClear([&source] { return source->to_qvString8_250(); });
    expectClear([&source] { return source->to_qvString8_500(); });
    expectClear([&source] { return source->operator String8<250>(); });
    expectClear([&source] { return source->operator String8<500>(); });
}

TEST(NarrowExamples16, fullTextsOfTheTargetsCapacity)
{
    auto const bytes = guarded::letters(249);
    Laid<_qvString<250>> whole(letters(249));
    EXPECT_TRUE(isNarrow<250>(whole->to_qvString8_250(), 249, bytes));
    Laid<_qvString<250>> oneMore(letters(250));
    EXPECT_TRUE(isNarrow<250>(oneMore->to_qvString8_250(), 250, bytes));
    Laid<_qvString<2500>> longer(letters(2000));
    EXPECT_TRUE(isNarrow<250>(longer->to_qvString8_250(), 2000, bytes));
    Laid<_qvString_old<2500>> older(letters(2000));
    EXPECT_TRUE(isNarrow<250>(older->to_qvString8_250(), 2000, bytes));
}

/// Sign-extended text comes back to the bytes it was made of.
TYPED_TEST(Narrow16, allBytesComeBack)
{
    for (int i = 1; i < 256; ++i) {
        char const text[] = {static_cast<char>(i), '\0'};
        TypeParam const constructed(text);
        TypeParam assigned;
        assigned = text;
        EXPECT_TRUE(isNarrow<250>(constructed.to_qvString8_250(), 1, text));
        EXPECT_TRUE(isNarrow<250>(assigned.to_qvString8_250(), 1, text));
    }
}

/// Copies into a buffer between guards, which lies on stale bytes.
struct Buffer
{
    Buffer() : bytes(3000, '\xAA') {}
    char* data() { return bytes.data() + 8; }
    /// The copied bytes are these, and nothing else was written.
    bool is(std::string_view written) const
    {
        std::string expected(bytes.size(), '\xAA');
        expected.replace(8, written.size(), written);
        return bytes == expected;
    }
    std::string bytes;
};

TYPED_TEST(Narrow16, toChar)
{
    struct Row
    {
        unsigned short size;
        std::string_view written;
    };
    // Size 0 wraps: the whole text and its zero byte, whatever the buffer is.
    constexpr Row rows[] = {
        {0, "abC\xE4\x41\0"sv},
        {1, "\0"sv},
        {2, "a\0"sv},
        {3, "ab\0"sv},
        {5, "abC\xE4\0"sv},
        {6, "abC\xE4\x41\0"sv},
        {7, "abC\xE4\x41\0"sv},
        {500, "abC\xE4\x41\0"sv},
        {65535, "abC\xE4\x41\0"sv},
    };
    Laid<TypeParam> source(u"abC\xFFE4\x0141");
    auto const before = source.bytes();
    TypeParam const& constant = *source;
    for (auto const& row : rows) {
        Buffer buffer;
        constant.toChar(buffer.data(), row.size);
        EXPECT_TRUE(buffer.is(row.written)) << row.size;
    }
    EXPECT_EQ(source.bytes(), before);
}

TYPED_TEST(Narrow16, toCharOfNothingAndOfAll)
{
    Laid<TypeParam> empty(u"");
    for (std::size_t const size : {0U, 1U, 2U, 100U}) {
        Buffer buffer;
        empty->toChar(buffer.data(), static_cast<unsigned short>(size));
        EXPECT_TRUE(buffer.is("\0"sv)) << size;
    }
    Laid<TypeParam> full(letters(capacity<TypeParam>));
    for (std::size_t const size :
         {std::size_t{0}, capacity<TypeParam> + 1, capacity<TypeParam> + 2}) {
        Buffer buffer;
        full->toChar(buffer.data(), static_cast<unsigned short>(size));
        EXPECT_TRUE(buffer.is(guarded::letters(capacity<TypeParam>) + '\0')) << size;
    }
    Buffer buffer;
    full->toChar(buffer.data(), static_cast<unsigned short>(capacity<TypeParam>));
    EXPECT_TRUE(buffer.is(guarded::letters(capacity<TypeParam> - 1) + '\0'));
}

template <typename S, int M>
inline constexpr bool narrowsTo = std::is_convertible_v<S const&, String8<M>>;

/// Two targets at every capacity, and none of the string's own.
template <typename S>
constexpr bool narrowsToTwoTargetsOnly =
    narrowsTo<S, 250>&& narrowsTo<S, 500> && !narrowsTo<S, 10> && !narrowsTo<S, 15> &&
    !narrowsTo<S, 25> && !narrowsTo<S, 30> && !narrowsTo<S, 50> && !narrowsTo<S, 75> &&
    !narrowsTo<S, 100> && !narrowsTo<S, 125> && !narrowsTo<S, 150> && !narrowsTo<S, 200> &&
    !narrowsTo<S, 1000>;
static_assert(narrowsToTwoTargetsOnly<_qvString<10>>);
static_assert(narrowsToTwoTargetsOnly<_qvString<100>>);
static_assert(narrowsToTwoTargetsOnly<_qvString<250>>);
static_assert(narrowsToTwoTargetsOnly<_qvString<1000>>);
static_assert(narrowsToTwoTargetsOnly<_qvString_old<10>>);
static_assert(narrowsToTwoTargetsOnly<_qvString_old<100>>);
static_assert(narrowsToTwoTargetsOnly<_qvString_old<500>>);

TEST(CharLen, countsUnitsBeforeTheFirstZero)
{
    static_assert(std::is_same_v<decltype(qvCharLen(nullUnits)), unsigned short>);
    EXPECT_EQ(qvCharLen(raw(u"").data()), 0);
    EXPECT_EQ(qvCharLen(raw(u"a").data()), 1);
    EXPECT_EQ(qvCharLen(raw(u"ab\0c"sv).data()), 2);
    EXPECT_EQ(qvCharLen(raw(u"\x0100\xFF\xFF00").data()), 3);
    for (std::size_t const size : {1022U, 1023U, 1024U}) {
        EXPECT_EQ(qvCharLen(raw(letters(size)).data()), size);
    }
    for (std::size_t const size : {1025U, 2000U, 70000U}) {
        EXPECT_EQ(qvCharLen(raw(letters(size)).data()), 1024);
    }
    // Behind the bound nothing is read.
    EXPECT_EQ(qvCharLen(unterminated(letters(1024)).data()), 1024);
}

} // namespace
} // namespace images16
