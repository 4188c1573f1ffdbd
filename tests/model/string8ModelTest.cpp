#include "tests/model/string8Model.h"

#include <gtest/gtest.h>

// The model judges the strings, so its own rules are held against results worked out by hand.
namespace {

using qvTest::currentImage;
using qvTest::evenOldImage;
using qvTest::String8Image;
using qvTest::String8Model;
using qvTest::unevenOldImage;

String8Model holding(std::string const& text, std::size_t capacity = 25)
{
    String8Model made(currentImage(capacity), 0xAA);
    made.construct(&text);
    return made;
}

std::string replaced(std::string const& s, std::string const& from, std::string const& to,
                     std::size_t capacity = 25)
{
    String8Model receiver = holding(s, capacity);
    receiver.replace(holding(from, capacity), holding(to, capacity));
    return receiver.used();
}

std::string inserted(std::string const& s, int pos, std::string const& text,
                     std::size_t capacity = 25)
{
    String8Model receiver = holding(s, capacity);
    receiver.insert(pos, holding(text, capacity));
    return receiver.used();
}

std::string padded(std::string const& text, int width, std::size_t capacity = 25)
{
    String8Model receiver = holding("", capacity);
    receiver.addSpacingC(&text, width);
    return receiver.used();
}

std::string afterNull(std::string const& text, std::string& stored)
{
    String8Model receiver = holding(text);
    receiver.assign(nullptr);
    stored = receiver.storedText();
    return receiver.used();
}

TEST(String8ModelImages, lieWhereTheRecordsHaveThem)
{
    EXPECT_EQ(currentImage(6), (String8Image{6, 2, 0, 9, 1, 10}));
    EXPECT_EQ(currentImage(7), (String8Image{7, 2, 0, 10, 0, 10}));
    EXPECT_EQ(currentImage(5000).size, 5004u);
    EXPECT_EQ(evenOldImage(6), (String8Image{6, 0, 8, 7, 1, 10}));
    EXPECT_EQ(evenOldImage(5000).lengthAt, 5002u);
    EXPECT_EQ(evenOldImage(125).lengthAt, 128u);
    EXPECT_EQ(unevenOldImage(7), (String8Image{7, 0, 8, 8, 0, 10}));
    EXPECT_EQ(unevenOldImage(125).lengthAt, 126u);
    EXPECT_EQ(unevenOldImage(100).lengthAt, 102u);
}

TEST(String8ModelCore, cutsAppendsAndKeepsStaleText)
{
    EXPECT_EQ(holding("abcdefghij", 6).used(), "abcdef");
    EXPECT_EQ(holding("ab", 6).bytes(),
              (std::vector<unsigned char>{2, 0, 'a', 'b', 0, 0, 0, 0, 0, 0xAA}));
    std::string stored;
    EXPECT_EQ(afterNull("abc", stored), "");
    EXPECT_EQ(stored, "abc");

    String8Model repeated = holding("abc", 7);
    repeated.append(repeated);
    EXPECT_EQ(repeated.used(), "abcabca");
    String8Model doubled = holding("abc", 7);
    doubled.add(doubled);
    EXPECT_EQ(doubled.used(), "abcabc");
    EXPECT_EQ(holding("", 6).createCharString('x', 65538).used(), "xx");
    EXPECT_EQ(holding("", 6).createCharString('x', -1).used(), "");

    String8Model large(currentImage(5000), 0);
    std::vector<unsigned short> const units(2000, 0x4161);
    large.constructUnits(&units);
    EXPECT_EQ(large.length(), 1024u);
}

TEST(String8ModelCore, removesARange)
{
    auto const removed = [](int start, int count) {
        String8Model receiver = holding("abcd");
        receiver.removeRange(start, count);
        return receiver.used();
    };
    EXPECT_EQ(removed(1, 2), "ad");
    EXPECT_EQ(removed(2, 2), "ab");
    EXPECT_EQ(removed(0, 4), "");
}

TEST(String8ModelSearch, comparesAndFinds)
{
    EXPECT_TRUE(holding("Hello").isEqual(holding("hELLO")));
    EXPECT_FALSE(holding("Hello").equals(holding("hELLO")));
    EXPECT_EQ(holding("Hello").compare(holding("hELLO")).value, 0);
    EXPECT_EQ(holding("abc").compareSameCase(holding("abcd")).value, 0);
    EXPECT_EQ(holding("abc").compare(holding("abcd")).value, -1);
    EXPECT_TRUE(holding("abc").less(holding("abcd")));
    EXPECT_EQ(holding("bab").indexOfUnit('a', 100), 1);
    EXPECT_EQ(holding("bab").indexOf(holding("a"), 100), -1);
    EXPECT_EQ(holding("a").indexOfWideUnit('A', 0), -1);
    EXPECT_EQ(holding("abcb").lastIndexOfUnit('b', -1), 3);
    EXPECT_EQ(holding("abcb").lastIndexOfUnit('b', 2), 1);
    EXPECT_EQ(holding("").lastIndexOfUnit('b', 2), -1);
    EXPECT_EQ(holding("\xE4").indexOfUnit('\xC4', 0), -1);
    EXPECT_FALSE(holding("abc").contains(holding("")));
    std::string const longer = "abcdefgh";
    EXPECT_TRUE(holding("abcdef", 6).contains(&longer));
    EXPECT_FALSE(holding("abcdef", 6).startsWithCaseSen(&longer));
    EXPECT_TRUE(holding("abcdef", 6).startsWith(&longer));

    String8Model const b = holding("b");
    String8Model const d = holding("d");
    int which = 0;
    EXPECT_EQ(holding("abcdef").indexOfFirstOcc({&b, &d}, which), 3);
    EXPECT_EQ(which, 1);
    EXPECT_EQ(holding("abcdef").indexOfFirstOcc({&d, &b}, which), 1);
    EXPECT_EQ(which, 1);
}

TEST(String8ModelEditing, splices)
{
    EXPECT_EQ(replaced("aXbXc", "x", "--"), "a--b--c");
    EXPECT_EQ(replaced("aaa", "a", "aa", 6), "aaaaaa");
    EXPECT_EQ(replaced("abcabc", "b", "XXXX", 6), "aXXXXc");
    EXPECT_EQ(replaced("abc", "", "x"), "abc");
    EXPECT_EQ(inserted("abcd", 2, "xy"), "abxycd");
    EXPECT_EQ(inserted("abcd", 100, "xy"), "abcdxy");
    EXPECT_EQ(inserted("abcd", 0, "xy"), "xyabcd");
    EXPECT_EQ(inserted("abcd", 1, "wxyz", 6), "awxyzb");

    String8Model folded = holding("aabb");
    folded.remove(holding("ab"));
    EXPECT_EQ(folded.used(), "ab");
    String8Model own = holding("abcd");
    own.insert(2, own);
    EXPECT_EQ(own.used(), "ababcd");
    String8Model letters = holding("AbaB");
    EXPECT_EQ(letters.removeUnit('a').used(), "bB");
    EXPECT_EQ(letters.used(), "bB");
    String8Model blank = holding("\t a b \r\n");
    blank.trim();
    EXPECT_EQ(blank.used(), "a b");
}

TEST(String8ModelEditing, slicesAndPads)
{
    EXPECT_EQ(holding("abcd").left(2).used(), "ab");
    EXPECT_EQ(holding("abcd", 6).left(-1).used(), std::string("abcd\0\0", 6));
    EXPECT_EQ(holding("abcd").mid(1, 2).used(), "bc");
    EXPECT_EQ(holding("abcd").mid(3, 5).used(), std::string("d\0\0\0\0", 5));
    EXPECT_EQ(holding("ab/c").leftUnit('/', true).used(), "ab/");
    EXPECT_EQ(holding("ab/c").leftUnit('/', false).used(), "ab");
    EXPECT_EQ(holding("/abc").leftUnit('/', true).used(), "");
    EXPECT_EQ(holding("/abc").leftUnit('/', false).used(), "/");
    String8Model path = holding("a/b/c");
    EXPECT_EQ(path.leftNCut('/', false).used(), "a");
    EXPECT_EQ(path.used(), "b/c");
    EXPECT_EQ(padded("ab", 5), "ab   ");
    EXPECT_EQ(padded("ab", -5), "   ab");
    EXPECT_EQ(padded("ab", 1), "ab");
    EXPECT_EQ(padded("abcdefgh", 10, 6), "abcdef");
    EXPECT_EQ(padded("ab", 10, 6), "ab    ");
}

// Blanks on a full older string run over its filler and then over its own length.
TEST(String8ModelEditing, blanksCanMeetTheLengthOfAnOlderImage)
{
    std::string const full(14, 'f');
    String8Model receiver(evenOldImage(14), 0);
    receiver.construct(&full);
    String8Model wide = receiver;
    receiver.addSpacing(nullptr, 2);
    EXPECT_EQ(receiver.length(), 0u);
    EXPECT_FALSE(receiver.leftObject());
    wide.addSpacing(nullptr, 5);
    EXPECT_EQ(wide.length(), 37u);
    EXPECT_TRUE(wide.leftObject());

    receiver.construct(&full);
    receiver.putText(15, 0x77);
    EXPECT_EQ(receiver.mid(13, 13).used().substr(0, 5), std::string("f\0\x77\x0E\0", 5));
}

TEST(String8ModelNumbers, formatAndParse)
{
    String8Model padding = holding("n=");
    padding.addNumber("5", 3);
    EXPECT_EQ(padding.used(), "n=005");
    String8Model sign = holding("");
    sign.addNumber("-5", 4);
    EXPECT_EQ(sign.used(), "00-5");
    EXPECT_EQ(holding("", 6).fromNr(-123456).used(), "-12345");
    String8Model six = holding("", 6);
    six.addHex("FFFFFF80", true);
    EXPECT_EQ(six.used(), "FF");
    String8Model seven = holding("", 7);
    seven.addHex("FFFFFF80", true);
    EXPECT_EQ(seven.used(), "F8");

    bool ok = true;
    EXPECT_EQ(holding("12a").toInt(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(holding("12a").toInt(nullptr), 12);
    String8Model field = holding("FF10");
    EXPECT_EQ(field.toIntFromHex(8, true, true, &ok), -1);
    EXPECT_TRUE(ok);
    EXPECT_EQ(field.used(), "10");
    EXPECT_EQ(holding("8000").toIntFromHex(16, true, false, &ok), -32768);
    EXPECT_EQ(holding("FFFF").toIntFromHex(64, true, false, &ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(holding("FFFF").toIntFromHex(64, false, false, &ok), 65535);
}

} // namespace
