/// Appends to all strings: where each is clipped, what it does with nothing and with a full
/// receiver, and what happens when a string is appended to itself.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

std::u16string ended(Text text)
{
    return std::u16string(text) + u'\0';
}

/// What every form of append gets: one text as a string, as units and as bytes.
struct Added
{
    Added(Image const& image, Text text)
        : string(stringOf(image, text)),
          units(stored(image, text)),
          bytes(narrowed(text)),
          count(static_cast<unsigned>(text.size()))
    {}

    Laid string;
    Bytes units;
    std::string bytes;
    unsigned count;
};

using Append = void (*)(AnyString&, Added const&);

/// The appends of a whole text, in place.
constexpr Append inPlace[] = {
    [](AnyString& s, Added const& a) { s.add(a.bytes.c_str()); },
    [](AnyString& s, Added const& a) { s.append(a.bytes.c_str()); },
    [](AnyString& s, Added const& a) { s.add(a.units.data(), a.count); },
    [](AnyString& s, Added const& a) { s.add(a.string); },
    [](AnyString& s, Added const& a) { s.append(a.string); },
};

using Sum = Value (*)(AnyString&, Added const&);

/// The appends that leave the receiver alone and give a copy.
constexpr Sum sums[] = {
    [](AnyString& s, Added const& a) { return s.plus(a.string); },
    [](AnyString& s, Added const& a) { return s.combined(a.string); },
    [](AnyString& s, Added const& a) { return s.combined(a.bytes.c_str()); },
};

class AppendTo : public OverImages
{
protected:
    /// Lengths of the receiver that leave much room, little, and none.
    std::vector<std::size_t> startLengths() const
    {
        std::size_t const n = image.capacity;
        return {0, 1, 3, n - 3, n - 1, n};
    }
};
INSTANTIATE_TEST_SUITE_P(, AppendTo, testing::ValuesIn(allImages()), imageName);

/// What fits is kept, the end of the new text is lost. The receiver has no terminator before. A
/// sum is a copy of every byte of its left side, the spare bytes included.
TEST_P(AppendTo, everyFormIsCutAtTheCapacity)
{
    std::size_t const n = image.capacity;
    for (std::size_t const size : startLengths()) {
        for (std::size_t const more : {std::size_t{1}, std::size_t{3}, std::size_t{5}, n - 1, n}) {
            SCOPED_TRACE(std::to_string(more) + " onto " + std::to_string(size));
            std::u16string const start(size, u'#');
            Added const added(image, letters(more));
            auto const expected = image.cut(start + letters(more));
            for (Append const append : inPlace) {
                Laid receiver(image, start);
                receiver.stale(size, u"z");
                append(*receiver, added);
                EXPECT_TRUE(became(receiver, expected.size(), ended(expected)));
            }
            for (Sum const sum : sums) {
                Laid receiver(image, start);
                receiver.laySpare(0x44).stale(size, u"z");
                auto const before = receiver.bytes();
                EXPECT_EQ(sum(*receiver, added).bytes,
                          imageOf(image, expected.size(), ended(expected), staleByte, 0x44));
                EXPECT_EQ(receiver.bytes(), before);
            }
        }
    }
}

/// With nothing to add no terminator is written, except by the operators and the sum of strings.
TEST_P(AppendTo, nothing)
{
    std::string const countsAsEmpty(65536, 'e');
    Laid empty(image, u"");
    empty.stale(0, u"z");
    auto const units = stored(image, u"x");
    for (std::size_t const size : startLengths()) {
        SCOPED_TRACE(size);
        auto const start = letters(size);
        Laid receiver(image, start);
        receiver.stale(size, u"z");
        receiver->add(nullText);
        receiver->add("");
        receiver->add(countsAsEmpty.c_str());
        receiver->add(nullUnits, 0U);
        receiver->add(nullUnits, 5U);
        receiver->add(units.data(), 0U);
        receiver->add(empty);
        receiver->append(nullText);
        EXPECT_TRUE(became(receiver, size, start + u'z'));

        auto const untouched = receiver.bytes();
        EXPECT_EQ(receiver->combined("").bytes, untouched);
        EXPECT_EQ(receiver->combined(nullText).bytes, untouched);
        EXPECT_EQ(receiver->combined(countsAsEmpty.c_str()).bytes, untouched);
        auto const terminated = imageOf(image, size, ended(start), staleByte, staleByte);
        EXPECT_EQ(receiver->plus(*empty).bytes, terminated);
        EXPECT_EQ(receiver->combined(*empty).bytes, terminated);
        EXPECT_EQ(receiver.bytes(), untouched);

        receiver->append("");
        EXPECT_TRUE(became(receiver, size, ended(start)));
        receiver.stale(size, u"z");
        receiver->append(countsAsEmpty.c_str());
        EXPECT_TRUE(became(receiver, size, ended(start)));
        receiver.stale(size, u"z");
        receiver->append(empty);
        EXPECT_TRUE(became(receiver, size, ended(start)));
    }
}

TEST_P(AppendTo, zerosInsideAreAppended)
{
    auto const odd = u"\xFF\0\x80z\0"sv;
    Added const added(image, odd);
    Laid counted(image, u"-");
    counted->add(added.units.data(), 5U);
    EXPECT_TRUE(became(counted, 6, u"-\xFF\0\x80z\0\0"sv));
    Laid whole(image, u"-");
    whole->add(added.string);
    EXPECT_TRUE(became(whole, 6, u"-\xFF\0\x80z\0\0"sv));
    Laid byUnit(image, u"-");
    byUnit->append(added.string);
    EXPECT_TRUE(became(byUnit, 6, u"-\xFF\0\x80z\0\0"sv));
    EXPECT_TRUE(holds(Laid(image, u"-")->combined(added.string), u"-\xFF\0\x80z\0"sv));
}

/// Only the low 16 bits of a text's length count.
TEST_P(AppendTo, textLengthsWrapAt65536)
{
    struct Row
    {
        std::size_t given;
        std::size_t counted;
    };
    for (auto const& row : {Row{image.capacity + 300, image.capacity + 300}, Row{65535, 65535},
                            Row{65537, 1}, Row{65539, 3}, Row{65541, 5}, Row{131077, 5}}) {
        auto const bytes = narrowed(letters(row.given));
        for (std::size_t const size : startLengths()) {
            SCOPED_TRACE(std::to_string(row.given) + " onto " + std::to_string(size));
            auto const start = std::u16string(size, u'-');
            auto const counted = std::min(row.counted, image.capacity);
            auto const expected = image.cut(start + letters(counted));
            Laid added(image, start);
            added->add(bytes.c_str());
            EXPECT_TRUE(became(added, expected.size(), ended(expected)));
            Laid appended(image, start);
            appended->append(bytes.c_str());
            EXPECT_TRUE(became(appended, expected.size(), ended(expected)));
        }
    }
    for (std::size_t const size : startLengths()) {
        Laid none(image, letters(size));
        none.stale(size, u"z");
        none->append(std::string(131072, 'x').c_str());
        EXPECT_TRUE(became(none, size, ended(letters(size))));
    }
}

/// A count is no 16-bit value. Together with the length it may pass 2^32, and is cut like any
/// other.
TEST_P(AppendTo, countsAreNotReducedTo16Bits)
{
    auto const units = stored(image, letters(image.capacity));
    for (std::size_t const size : startLengths()) {
        auto const start = std::u16string(size, u'-');
        auto const expected = image.cut(start + letters(image.capacity));
        for (unsigned const count :
             {65535U, 65536U, 65541U, 131072U, 0x7FFFFFFFU, 0x80000000U, UINT_MAX - 2U, UINT_MAX}) {
            SCOPED_TRACE(std::to_string(count) + " onto " + std::to_string(size));
            Laid receiver(image, start);
            receiver->add(units.data(), count);
            EXPECT_TRUE(became(receiver, image.capacity, ended(expected)));
        }
    }
}

TEST_P(AppendTo, singleUnits)
{
    for (std::size_t const size : startLengths()) {
        if (size == image.capacity)
            continue;
        auto const start = letters(size);
        for (Unit const unit : {u'x', u'\0', u'\x80', u'\xFF', u'\x0141', u'\xFFFF'}) {
            if (!image.fits(Text(&unit, 1)))
                continue;
            SCOPED_TRACE(std::to_string(unit) + " onto " + std::to_string(size));
            Laid receiver(image, start);
            receiver.stale(size, u"z");
            receiver->append(unit);
            EXPECT_TRUE(became(receiver, size + 1, ended(start + unit)));
        }
        for (char const character : {'x', '\0', '\x7F'}) {
            Laid receiver(image, start);
            receiver->append(character);
            auto const expected = start + static_cast<Unit>(character);
            EXPECT_TRUE(became(receiver, size + 1, ended(expected)));
            EXPECT_TRUE(
                areaIs(Laid(image, start)->plus(character), size + 1, ended(expected), staleByte));
        }
    }
}

/// A full string is not even given its terminator again.
TEST_P(AppendTo, singleUnitsOntoAFullStringWriteNothing)
{
    auto const full = letters(image.capacity);
    Laid receiver(image, full);
    receiver.stale(image.capacity, u"z");
    receiver->append(u'x');
    receiver->append('x');
    EXPECT_TRUE(became(receiver, image.capacity, full + u'z'));
    EXPECT_EQ(receiver->plus('x').bytes, receiver.bytes());
}

TEST_P(AppendTo, singleUnitsOntoADamagedLengthWriteNothing)
{
    for (std::size_t const length : {image.capacity + 1, image.capacity + 2, std::size_t{65535}}) {
        Laid string(image, letters(image.capacity));
        string.layLength(length);
        auto const before = string.bytes();
        string->append(u'x');
        string->append('x');
        EXPECT_EQ(string.bytes(), before) << length;
        EXPECT_TRUE(string.guardsStand());
    }
}

/// The length of the argument is read again after each unit, so a string that is appended to itself
/// by the operator repeats until it is full.
TEST_P(AppendTo, theOperatorRepeatsAStringOntoItself)
{
    for (auto const& text :
         {std::u16string(u"a"), std::u16string(u"abc"), letters(image.capacity - 1),
          letters(image.capacity), std::u16string(u"a\0\xFF", 3)}) {
        SCOPED_TRACE(text.size());
        std::u16string repeated;
        while (repeated.size() < image.capacity)
            repeated += text;
        Laid string(image, text);
        string.stale(text.size(), u"z");
        string->append(*string);
        EXPECT_TRUE(became(string, image.capacity, ended(image.cut(repeated))));
    }
    Laid empty(image, u"");
    empty.stale(0, u"z");
    empty->add(*empty);
    EXPECT_TRUE(became(empty, 0, u"z"sv));
    empty->append(*empty);
    EXPECT_TRUE(became(empty, 0, u"\0"sv));
}

TEST(AppendToItself, threeUnitsRepeatTenTimes)
{
    for (Image const* image : allImages()) {
        if (image->capacity == 7 || image->capacity == 10) {
            Laid string(*image, u"abc");
            string->append(*string);
            EXPECT_TRUE(holds(*string, Text(u"abcabcabca").substr(0, image->capacity)));
        }
    }
}

TEST_P(AppendTo, allOtherFormsDoubleAString)
{
    std::size_t const n = image.capacity;
    for (std::size_t const size :
         {std::size_t{1}, std::size_t{3}, std::size_t{4}, n / 2, n - 2, n - 1, n}) {
        SCOPED_TRACE(size);
        auto const text = letters(size);
        auto const doubled = image.cut(text + text);
        auto const expected = imageOf(image, doubled.size(), ended(doubled), staleByte, staleByte);
        Laid left(image, text);
        EXPECT_EQ(left->plus(*left).bytes, expected);
        EXPECT_EQ(left->combined(*left).bytes, expected);
        EXPECT_TRUE(became(left, size, ended(text)));
        left->add(*left);
        EXPECT_EQ(left.bytes(), expected);

        Laid counted(image, text);
        counted->add(counted->textAt(), static_cast<unsigned>(size));
        EXPECT_EQ(counted.bytes(), expected);
        EXPECT_TRUE(counted.guardsStand());
    }
}

TEST_P(AppendTo, unitsOfTheReceiverAreTakenAsTheyWere)
{
    Laid tail(image, u"abc");
    tail->add(tail->textAt(1), 2U);
    EXPECT_TRUE(became(tail, 5, u"abcbc\0"sv));

    // The range begins in the text and ends behind it, where the appended units go.
    Laid overlap(image, u"ab");
    overlap.stale(3, u"y");
    overlap->add(overlap->textAt(), 4U);
    EXPECT_TRUE(became(overlap, 6, u"abab\0y\0"sv));

    Laid unit(image, u"abc");
    unit->appendOwn(1);
    EXPECT_TRUE(became(unit, 4, u"abcb\0"sv));
    // The terminator itself: it becomes a zero inside the text.
    unit->appendOwn(4);
    EXPECT_TRUE(became(unit, 5, u"abcb\0\0"sv));
}

} // namespace
} // namespace strings
