// This program is built with QV_CHECKED, against the library as it is: each call outside a member's
// contract ends it with one line that names the member, its numbers, the length and the capacity.
// Calls at the very edge of a contract, and those that mend a damaged length, go through.

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <utility>
#include <vector>

namespace {

#define EXPECT_BROKEN(call, line)                                                                  \
    EXPECT_EXIT(call, testing::KilledBySignal(SIGABRT), "^qv: outside the contract: " line "\n$")

template <typename String>
String damaged()
{
    String s("ab");
    s.length = 60000;
    return s;
}

template <typename String>
struct Row
{
    char const* member; // as a regular expression
    void (*call)(String& damaged, String& sound);
};

// Members that go by the length of the receiver or of an argument.
template <typename String>
std::vector<Row<String>> rowsOfAllImages()
{
    using S = String&;
    return {
        {"add", [](S d, S) { d.add("x"); }},
        {"add", [](S d, S s) { s.add(d); }},
        {"operator\\+=", [](S d, S s) { d += s; }},
        {"operator\\+=", [](S d, S s) { s += d; }},
        {"operator\\+=", [](S d, S) { d += 'x'; }},
        {"operator\\+=", [](S d, S) { d += "x"; }},
        {"combined", [](S d, S s) { (void)s.combined(d); }},
        {"operator==", [](S d, S s) { (void)(s == d); }},
        {"isEqual", [](S d, S s) { (void)s.isEqual(d); }},
        {"isEqual", [](S d, S s) { (void)d.isEqual(s.text, 2); }},
        {"isEqualSameCase", [](S d, S s) { (void)d.isEqualSameCase(s.text, 2); }},
        {"isEqualUpperCaseInput",
         [](S, S) {
             String upper("AB");
             String d("AB");
             d.length = 60000;
             (void)upper.isEqualUpperCaseInput(d);
         }},
        {"compare", [](S d, S s) { (void)d.compare(s); }},
        {"compareSameCase", [](S d, S s) { (void)s.compareSameCase(d); }},
        {"indexOf", [](S d, S s) { (void)d.indexOf(s, 0); }},
        {"indexOf", [](S d, S s) { (void)s.indexOf(d, 0); }},
        {"indexOfCaseSen", [](S d, S s) { (void)d.indexOfCaseSen(s, 0); }},
        {"indexOf", [](S d, S) { (void)d.indexOf(d.text[0], 0); }},
        {"indexOfCaseSen", [](S d, S) { (void)d.indexOfCaseSen(d.text[0], 0); }},
        {"lastIndexOf", [](S d, S) { (void)d.lastIndexOf(d.text[0], 0); }},
        {"indexOfFirstOcc", [](S d, S s) { (void)s.indexOfFirstOcc(s, d, nullptr); }},
        {"contains", [](S d, S s) { (void)d.contains(s); }},
        {"containsCaseSen", [](S d, S s) { (void)d.containsCaseSen(s); }},
        {"containsUpperCaseInput", [](S d, S s) { (void)d.containsUpperCaseInput(s); }},
        {"count", [](S d, S) { (void)d.count('a'); }},
        {"countCaseSen", [](S d, S) { (void)d.countCaseSen('a'); }},
        {"startsWith", [](S d, S s) { (void)d.startsWith(s); }},
        {"startsWithCaseSen", [](S d, S s) { (void)d.startsWithCaseSen(s); }},
        {"endsWith", [](S d, S s) { (void)d.endsWith(s); }},
        {"endsWith", [](S d, S) { (void)d.endsWith(d.text[0]); }},
        {"makeUpper", [](S d, S) { d.makeUpper(); }},
        {"makeLower", [](S d, S) { d.makeLower(); }},
        {"trim", [](S d, S) { d.trim(); }},
        {"replace", [](S d, S) { d.replace(d.text[0], d.text[1]); }},
        {"replace", [](S d, S s) { d.replace(s, s); }},
        {"replaceCaseSen", [](S d, S s) { s.replaceCaseSen(s, d); }},
        {"remove", [](S d, S s) { d.remove(s); }},
        {"removeCaseSens", [](S d, S s) { s.removeCaseSens(d); }},
        {"remove", [](S d, S) { d.remove(d.text[0]); }},
        {"insert", [](S d, S s) { s.insert(0, d); }},
        {"left", [](S d, S) { (void)d.left(1); }},
        {"clearUnused", [](S d, S) { d.clearUnused(); }},
        {"addSpacingC", [](S d, S) { d.addSpacingC("x", 2); }},
    };
}

template <typename String>
void expectDamageIsMet(std::vector<Row<String>> const& rows, std::string const& capacity)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE("row " + std::to_string(i) + ", " + rows[i].member);
        String broken = damaged<String>();
        String sound("ab");
        EXPECT_EXIT(rows[i].call(broken, sound), testing::KilledBySignal(SIGABRT),
                    "^qv: outside the contract: " + std::string(rows[i].member) +
                        "\\(\\) at length 60000, capacity " + capacity + "\n$");
    }
}

TEST(Contract, damagedLengthIsMetInEveryImage)
{
    expectDamageIsMet(rowsOfAllImages<_qvString8_allSize<6>>(), "6");
    expectDamageIsMet(rowsOfAllImages<_qvString8_allSize<5000>>(), "5000");
    expectDamageIsMet(rowsOfAllImages<_qvString8_evenSize_old<14>>(), "14");
    expectDamageIsMet(rowsOfAllImages<_qvString8_UnevenSize_old<15>>(), "15");
    expectDamageIsMet(rowsOfAllImages<_qvString<10>>(), "10");
    expectDamageIsMet(rowsOfAllImages<_qvString_old<250>>(), "250");
}

TEST(Contract, damagedLengthIsMetByMembersOfOneImage)
{
    using S8 = _qvString8_allSize<250>;
    expectDamageIsMet<S8>(
        {
            {"operator\\+=", [](S8& d, S8&) { d += static_cast<unsigned short>('x'); }},
            {"addNr", [](S8& d, S8&) { d.addNr(5); }},
            {"addHexCode", [](S8& d, S8&) { d.addHexCode(5); }},
            {"toInt",
             [](S8& d, S8&) {
                 bool ok;
                 (void)d.toInt(&ok);
             }},
            {"toInt64",
             [](S8& d, S8&) {
                 bool ok;
                 (void)d.toInt64(&ok);
             }},
            {"toIntFromHex", [](S8& d, S8&) { d.toIntFromHex(8, true, true, nullptr); }},
            {"contains", [](S8& d, S8&) { (void)d.contains("a"); }},
            {"startsWith", [](S8& d, S8&) { (void)d.startsWith("a"); }},
            {"endsWith", [](S8& d, S8&) { (void)d.endsWith("a"); }},
            {"operator==", [](S8& d, S8&) { (void)(d == "ab"); }},
        },
        "250");
    using S16 = _qvString<250>;
    expectDamageIsMet<S16>(
        {
            {"addNr", [](S16& d, S16&) { d.addNr(5); }},
            {"toChar",
             [](S16& d, S16&) {
                 char buffer[4];
                 d.toChar(buffer, 4);
             }},
            {"operator==", [](S16& d, S16&) { (void)(d == "ab"); }},
            {"operator==", [](S16& d, S16& s) { (void)(d == s.text); }},
            {"isEqual", [](S16& d, S16&) { (void)d.isEqual("ab", 2); }},
            {"toInt",
             [](S16& d, S16&) {
                 bool ok;
                 (void)d.toInt(&ok);
             }},
            {"to_qvString8_250", [](S16& d, S16&) { (void)d.to_qvString8_250(); }},
        },
        "250");
}

TEST(Contract, lengthThatWouldBeTakenIsMet)
{
    _qvString8_allSize<15> longer("fifteen letters");
    EXPECT_BROKEN(_qvString8_allSize<14>(longer.asUni()),
                  "_qvString8_allSize\\(\\) at length 15, capacity 14");
    _qvString8_evenSize_old<14> old = damaged<_qvString8_evenSize_old<14>>();
    EXPECT_BROKEN((void)_qvString8_allSize<14>(old),
                  "_qvString8_allSize\\(\\) at length 60000, capacity 14");
    _qvString8_UnevenSize_old<15> oldOdd = damaged<_qvString8_UnevenSize_old<15>>();
    _qvString8_allSize<15> target;
    EXPECT_BROKEN(target = oldOdd, "operator=\\(\\) at length 60000, capacity 15");
    EXPECT_BROKEN((void)(target == oldOdd), "operator==\\(\\) at length 60000, capacity 15");

    _qvString<15> longer16("fifteen letters");
    EXPECT_BROKEN(_qvString<10>(longer16.asUni()), "_qvString\\(\\) at length 15, capacity 10");
    _qvString<10> target16;
    EXPECT_BROKEN(target16 = longer16.asUni(), "operator=\\(\\) at length 15, capacity 10");
    _qvString_old<10> old16 = damaged<_qvString_old<10>>();
    EXPECT_BROKEN(target16 = old16, "operator=\\(\\) at length 60000, capacity 10");
}

template <typename String>
class ContractOfRanges : public testing::Test
{};

using Images = testing::Types<_qvString8_allSize<14>, _qvString8_evenSize_old<14>, _qvString<15>,
                              _qvString_old<15>, _qvString8_UnevenSize_old<15>>;
TYPED_TEST_SUITE(ContractOfRanges, Images);

TYPED_TEST(ContractOfRanges, rangeOutsideIsMet)
{
    TypeParam s("abcd");
    EXPECT_BROKEN(s.remove(-1, 2), "remove\\(-1, 2\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN(s.remove(3, 2), "remove\\(3, 2\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN(s.remove(0, -1), "remove\\(0, -1\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN(s.remove(2147483647, 2147483647),
                  "remove\\(2147483647, 2147483647\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN(s.insert(-1, s), "insert\\(-1\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.indexOf(s, -1), "indexOf\\(-1\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.indexOfCaseSen(s, -7),
                  "indexOfCaseSen\\(-7\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.mid(-1, 2), "mid\\(-1, 2\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.mid(3, 14), "mid\\(3, 14\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.mid(2147483647, 1), "mid\\(2147483647, 1\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.mid(2, -1), "mid\\(2, -1\\) at length 4, capacity 1[45]");
    EXPECT_BROKEN((void)s.endsWith("abcde", 1), "endsWith\\(1\\) at length 4, capacity 1[45]");
}

TYPED_TEST(ContractOfRanges, edgeOfAContractIsInside)
{
    constexpr int capacity = sizeof(TypeParam::text) / sizeof(TypeParam::text[0]) - 1;
    TypeParam s("abcd");
    s.remove(4, 0);
    s.remove(3, 1);
    s.remove(0, 3);
    s = "abcd";
    s.insert(9, s); // an end beyond the text is the text's end
    EXPECT_TRUE(s == "abcdabcd");
    EXPECT_EQ(-1, s.indexOf(s, 2147483647));
    EXPECT_EQ(capacity, s.mid(1, capacity).length);
    EXPECT_EQ(0, s.mid(2147483647, 0).length);
    EXPECT_EQ(0, s.mid(-1, 0).length);
    EXPECT_EQ(capacity, s.left(-1).length);
    EXPECT_TRUE(s.endsWith("abcdabcd", 1));
    EXPECT_FALSE(s.endsWith("abcdabcdabcd", 0)); // the count refuses before the text is looked at
}

TEST(Contract, conversionToFewerBytesIsInside)
{
    _qvString<500> wide;
    for (int i = 0; i < 300; ++i)
        wide += '0';
    EXPECT_EQ(300, wide.to_qvString8_250().length); // counts more than was copied
    EXPECT_EQ(0, wide.toInt(nullptr));
    bool ok = false;
    EXPECT_EQ(0, wide.toInt(&ok));
    EXPECT_TRUE(ok);
}

TYPED_TEST(ContractOfRanges, damagedLengthCanBeMended)
{
    TypeParam s = damaged<TypeParam>();
    s.setLength(1);
    EXPECT_EQ(1, s.length);
    s = damaged<TypeParam>();
    s.calcLength();
    EXPECT_EQ(2, s.length);
    s = damaged<TypeParam>();
    s.clear();
    EXPECT_EQ(0, s.length);
    s.length = 60000;
    s = "x";
    EXPECT_EQ(1, s.length);
    s.length = 60000;
    EXPECT_TRUE(s.hasData());
    TypeParam const copy = s;
    EXPECT_EQ(60000, copy.length);
}

TEST(Contract, fieldWithoutRoomIsMet)
{
    _qvString8_allSize<14> s("abcd");
    EXPECT_BROKEN(s.addSpacing("x", 11), "addSpacing\\(11\\) at length 4, capacity 14");
    EXPECT_BROKEN(s.addSpacing(nullptr, -2147483647 - 1),
                  "addSpacing\\(-2147483648\\) at length 4, capacity 14");
    s.addSpacing("x", -10);
    EXPECT_EQ(14, s.length);

    unsigned short const text[] = {'x', 0};
    _qvString_old<15> wide("abcd");
    EXPECT_BROKEN(wide.addSpacing(text, -12), "addSpacing\\(-12\\) at length 4, capacity 15");
    wide.addSpacing(text, 11);
    EXPECT_EQ(15, wide.length);
}

TEST(Contract, hexFieldWiderThanTheTextIsMet)
{
    _qvString8_allSize<14> s("1F");
    EXPECT_BROKEN(s.toIntFromHex(16, true, true, nullptr),
                  "toIntFromHex\\(16, 1, 1\\) at length 2, capacity 14");
    EXPECT_BROKEN(s.toIntFromHex(-8, false, true, nullptr),
                  "toIntFromHex\\(-8, 0, 1\\) at length 2, capacity 14");
    EXPECT_EQ(31, s.toIntFromHex(16, true, false, nullptr)); // read without a cut
    EXPECT_EQ(31, s.toIntFromHex(8, true, true, nullptr));
    EXPECT_EQ(0, s.length);
}

} // namespace
