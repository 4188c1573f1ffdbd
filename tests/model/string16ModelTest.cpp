#include "tests/model/string16Model.h"

#include <gtest/gtest.h>

// The model judges the strings, so its own rules are held against results worked out by hand.
namespace {

using qvTest::current16Image;
using qvTest::old16Image;
using qvTest::String16Model;
using qvTest::StringImage;

String16Model holding(std::u16string const& text, std::size_t capacity = 25)
{
    String16Model made(current16Image(capacity), 0xAA);
    made.construct();
    made.addUnits(&text, static_cast<unsigned int>(text.size()));
    return made;
}

String16Model builtFrom(std::string const& text, std::size_t capacity = 25)
{
    String16Model made(current16Image(capacity), 0xAA);
    made.construct(&text);
    return made;
}

TEST(String16ModelImages, lieWhereTheRecordsHaveThem)
{
    EXPECT_EQ(current16Image(10), (StringImage{10, 4, 0, 2, 2, 26, true}));
    EXPECT_EQ(current16Image(2500).size, 5006u);
    EXPECT_EQ(old16Image(10), (StringImage{10, 0, 22, 24, 2, 26, true}));
    EXPECT_EQ(old16Image(15).lengthAt, 32u);
    EXPECT_EQ(old16Image(250).lengthAt, 502u);
    EXPECT_EQ(old16Image(250).size, 506u);
    String16Model two(old16Image(10), 0xAA);
    std::u16string const units = u"\u0141b";
    two.constructUnitText(&units);
    EXPECT_EQ(two.bytes(),
              (std::vector<unsigned char>{0x41, 0x01, 'b', 0, 0, 0, 0, 0, 0, 0, 0, 0,    0,
                                          0,    0,    0,   0, 0, 0, 0, 0, 0, 2, 0, 0xAA, 0xAA}));
}

TEST(String16ModelCore, widensByTheRuleOfEachMember)
{
    std::string const high = "\xE4";
    EXPECT_EQ(builtFrom(high).used(), u"\xFFE4");
    String16Model text = holding(u"");
    text.assign(&high);
    EXPECT_EQ(text.used(), u"\x00E4");
    text.add(&high);
    text.append(&high);
    text.appendChar('\xE4');
    EXPECT_EQ(text.used(), u"\x00E4\x00E4\xFFE4\xFFE4");
    EXPECT_EQ(text.combined(&high).used(), u"\x00E4\x00E4\xFFE4\xFFE4\x00E4");
    text.assignString(high);
    EXPECT_EQ(text.used(), u"\xFFE4");
    text.constructView8(&high);
    EXPECT_EQ(text.used(), u"\xFFE4");
    text.assignUnit(u'\u0141');
    EXPECT_EQ(text.used(), u"A");
    text.appendUnit(u'\u0141');
    EXPECT_EQ(text.used(), u"A\u0141");

    EXPECT_FALSE(builtFrom(high).equals(&high));
    EXPECT_TRUE(holding(u"\x00E4").equals(&high));
}

TEST(String16ModelCore, treatsNullByTheRuleOfEachMember)
{
    String16Model text = holding(u"abc");
    text.assign(static_cast<String16Model::Text>(nullptr));
    EXPECT_EQ(text.used(), u"abc");
    text.assignUnitText(nullptr);
    EXPECT_EQ(text.used(), u"");
    EXPECT_EQ(text.storedText(), u"abc");
    EXPECT_FALSE(text.equals(static_cast<String16Model::Text>(nullptr)));
    EXPECT_FALSE(text.unequal(nullptr));
}

TEST(String16ModelCore, zeroesTheSpareWordOnlyWhereTold)
{
    std::u16string const units = u"ab";
    String16Model kept(current16Image(10), 0xAA);
    kept.constructUnitText(&units);
    EXPECT_EQ(kept.bytes()[2], 0xAA);
    EXPECT_EQ(kept.leftUnit(u'z', true).bytes()[2], 0xAA);
    EXPECT_EQ(kept.leftUnit(u'b', true).bytes()[2], 0);
    EXPECT_EQ(kept.mid(0, 1).bytes()[2], 0);
    kept.construct();
    EXPECT_EQ(kept.bytes()[2], 0);
}

TEST(String16ModelCore, cutsRepeatsAndDoubles)
{
    EXPECT_EQ(builtFrom("abcdefghijklmno", 10).used(), u"abcdefghij");
    String16Model repeated = holding(u"abc", 10);
    repeated.append(repeated);
    EXPECT_EQ(repeated.used(), u"abcabcabca");
    String16Model doubled = holding(u"abc", 10);
    doubled.add(doubled);
    EXPECT_EQ(doubled.used(), u"abcabc");
    EXPECT_EQ(holding(u"").createCharString(u'\u0141', 65538).used(), u"\u0141\u0141");
    EXPECT_EQ(holding(u"").createCharString(u'x', 65536).used(), u"");

    String16Model large(current16Image(2500), 0);
    std::u16string const units(2000, u'u');
    large.constructUnitText(&units);
    EXPECT_EQ(large.length(), 1024u);
    large.constructUnitsCounted(units, 2000);
    EXPECT_EQ(large.length(), 2000u);
}

TEST(String16ModelCore, narrowsWithALengthThatIsNotCut)
{
    EXPECT_EQ(holding(std::u16string(249, u'\u0141'), 250).toString8(250)[250], 0x41);
    std::vector<unsigned char> const cut = holding(std::u16string(250, u'x'), 250).toString8(250);
    EXPECT_EQ(cut.size(), 253u);
    EXPECT_EQ(cut[0], 250);
    EXPECT_EQ(cut[250], 'x');
    EXPECT_EQ(cut[251], 0);
    std::vector<unsigned char> buffer(1, 0xAA);
    holding(u"abc").toChar(buffer, 1);
    EXPECT_EQ(buffer, (std::vector<unsigned char>{0}));
    buffer.assign(4, 0xAA);
    holding(u"abc").toChar(buffer, 0);
    EXPECT_EQ(buffer, (std::vector<unsigned char>{'a', 'b', 'c', 0}));
}

TEST(String16ModelSearch, ordersByStoredBytes)
{
    EXPECT_TRUE(holding(u"\u0141").less(holding(u"\u0042")));
    EXPECT_TRUE(holding(u"\u0042").greater(holding(u"\u0141")));
    EXPECT_EQ(holding(u"abc").compare(holding(u"ab")).value, 1);
    EXPECT_EQ(holding(u"abc").compareSameCase(holding(u"ab")).value, 0);
    EXPECT_EQ(holding(u"aBc").compare(holding(u"AbC")).value, 0);
    EXPECT_NE(holding(u"\x00E4").compare(holding(u"\x00C4")).value, 0);
    std::u16string const other = u"abcXYZ";
    EXPECT_TRUE(holding(u"abcdef").equalsUnitText(&other));
    std::u16string const early = u"abXdef";
    EXPECT_FALSE(holding(u"abcdef").equalsUnitText(&early));
}

TEST(String16ModelSearch, finds)
{
    EXPECT_EQ(holding(u"abcabc").indexOf(holding(u"BC"), 2), 4);
    EXPECT_EQ(holding(u"abcdefghij").indexOfUnit(u'C', 500), 2);
    EXPECT_EQ(holding(u"abcb").lastIndexOfUnit(u'b', 500), 3);
    EXPECT_EQ(holding(u"").indexOf(holding(u""), 0), -1);
    // Two spans of the same sum.
    EXPECT_EQ(holding(u"\u0100\u0062\u0061\u0101").indexOf(holding(u"\u0061\u0101"), 0), 2);
    EXPECT_EQ(builtFrom("\xE4x").count('\xE4'), 0);
    EXPECT_TRUE(builtFrom("\xE4x").containsChar('\xE4'));
    EXPECT_FALSE(builtFrom("\xE4").endsWithChar('\xE4'));
    EXPECT_FALSE(builtFrom("\xE4").startsWithChar('\xE4'));
    EXPECT_FALSE(builtFrom("\xE4").isEqual("\xE4", 1));
    EXPECT_TRUE(builtFrom("aB").isEqual("Ab", 2));
    std::string const empty;
    EXPECT_TRUE(holding(u"abc").endsWith(&empty, 1));
    EXPECT_FALSE(holding(u"abc").endsWith(&empty));
    EXPECT_FALSE(holding(u"abc").endsWith(&empty, 4));

    std::u16string const text = u"0123Aa6B";
    String16Model const six = holding(u"6");
    String16Model const three = holding(u"3");
    int which = 0;
    EXPECT_EQ(holding(text).indexOfFirstOcc({&six, &three}, which), 3);
    EXPECT_EQ(which, 1);
    EXPECT_EQ(holding(text).indexOfFirstOcc({&three, &six}, which), 6);
    EXPECT_EQ(which, 1);
}

TEST(String16ModelEditing, rebuildsAndLeavesStaleUnits)
{
    String16Model growing = holding(u"aaa");
    growing.replace(holding(u"a"), holding(u"aa"));
    EXPECT_EQ(growing.used(), u"aaaaaa");
    String16Model nested = holding(u"aabb");
    nested.remove(holding(u"ab"));
    EXPECT_EQ(nested.used(), u"ab");
    String16Model emptied = holding(u"aaaa");
    emptied.remove(holding(u"aa"));
    EXPECT_EQ(emptied.length(), 0u);
    EXPECT_FALSE(emptied.equals(holding(u"")));
    String16Model inserted = holding(u"12345678", 10);
    inserted.insert(2, holding(u"abcde", 10));
    EXPECT_EQ(inserted.used(), u"12abcde345");
    String16Model blanks = holding(u" \t\x00A0 a\x000B");
    blanks.appendUnit(u'\0');
    blanks.trim();
    EXPECT_EQ(blanks.used(), u"\x00A0 a\x000B");
    EXPECT_EQ(holding(u"abcde", 250).mid(2, 100).length(), 100u);
    EXPECT_EQ(holding(u"abcde", 10).left(-1).length(), 10u);
    EXPECT_EQ(holding(u"/ab").leftUnit(u'/', true).used(), u"");
    EXPECT_EQ(holding(u"Xab").leftUnit(u'x', false).used(), u"x");
}

// Blanks on a full older string run over its terminator and then over its own length.
TEST(String16ModelEditing, blanksCanMeetTheLengthOfAnOlderImage)
{
    std::u16string const full(10, u'f');
    String16Model receiver(old16Image(10), 0);
    receiver.constructUnitText(&full);
    String16Model wide = receiver;
    receiver.addSpacingUnits(nullptr, 1);
    EXPECT_EQ(receiver.length(), 0u);
    EXPECT_FALSE(receiver.leftObject());
    wide.addSpacingUnits(nullptr, 3);
    EXPECT_TRUE(wide.leftObject());

    String16Model long250(old16Image(250), 0);
    std::u16string const text(250, u'f');
    long250.constructUnitText(&text);
    EXPECT_EQ(long250.mid(249, 4).used(), (std::u16string{u'f', 0, 250, 0}));
}

TEST(String16ModelNumbers, formatPadAndParse)
{
    String16Model number = holding(u"x");
    number.addNumber("-5", 4);
    EXPECT_EQ(number.used(), u"x00-5");
    String16Model wide = holding(u"");
    wide.addNumber("12345", 22);
    EXPECT_EQ(wide.used(), u"00000000000000000123");
    String16Model zeros = holding(u"");
    zeros.addNumber("12345", 30);
    EXPECT_EQ(zeros.used(), u"00000000000000000000");
    String16Model padded = holding(u"");
    padded.addNrSpacing(12345, -8);
    EXPECT_EQ(padded.used(), u"   12345");
    String16Model narrow = holding(u"12345678", 10);
    std::string const five = "abcde";
    narrow.addSpacingC(&five, -20);
    EXPECT_EQ(narrow.used(), u"12345678ab");
    std::u16string const high = u"\u0141";
    String16Model cut = holding(u"");
    cut.addSpacingUnits(&high, 2);
    EXPECT_EQ(cut.used(), u"A ");

    bool ok = false;
    EXPECT_EQ(holding(u"12").toInt(&ok), 12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(holding(u"12x").toInt(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(holding(u"12x").toInt(nullptr), 12);
    EXPECT_EQ(holding(u"\u0131").toInt(&ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_EQ(holding(u"\u0131").toInt(nullptr), 1);
    EXPECT_EQ(holding(u"").toInt(&ok), 0);
    EXPECT_TRUE(ok);
}

} // namespace
