#pragma once

#include "tests/model/string8Image.h"
#include "tests/model/stringModel.h"

#include <string>
#include <vector>

namespace qvTest {

// What only the 8-bit strings have, on top of the rules of both widths. Zero-terminated arguments
// come as a pointer to the characters before the terminator, null for a null pointer.
class String8Model : public StringModel<char>
{
public:
    using Text = std::string const*;

    using StringModel::StringModel;

    // Construction and assignment.
    using StringModel::construct;
    void construct(Text s);
    void constructCounted(std::string const& s, int count);
    void constructUnits(std::vector<unsigned short> const* units);
    void constructView(std::string const& viewed);
    using StringModel::assign;
    void assign(Text s);
    void assignUnit(char c);
    void assignString(std::string const& s);
    void assignView(std::string const& viewed);
    void assignLegacy(String8Model const& o);
    void fromChar(Text s, int count);

    // Append.
    using StringModel::add;
    void add(Text s);
    void add(Text s, unsigned int n);
    using StringModel::append;
    void append(Text s);
    void appendChar(char c) { appendUnit(c); }
    void appendWideUnit(unsigned short c);
    StringModel plusChar(char c) const { return plusUnit(c); }
    String8Model combined(Text s) const;

    // Comparison and search.
    using StringModel::equals;
    bool equals(Text s) const;
    using StringModel::unequal;
    bool unequal(Text s) const { return !equals(s); }
    bool equalsLegacy(String8Model const& o) const;
    using StringModel::isEqual;
    bool isEqual(std::string const& s, int n) const { return isEqualUnits(s, n); }
    int indexOfWideUnit(unsigned short c, int start) const;
    int lastIndexOfWideUnit(unsigned short c, int start) const;
    int count(char c) const { return countUnit(c); }
    int countCaseSen(char c) const { return countUnitCaseSen(c); }
    bool containsChar(char c) const { return countUnit(c) != 0; }
    using StringModel::contains;
    bool contains(Text s) const;
    using StringModel::containsCaseSen;
    bool containsCaseSen(Text s) const;
    bool containsCaseSen(std::string const& s, int n) const;
    using StringModel::containsUpperCaseInput;
    bool containsUpperCaseInput(Text s) const;
    bool startsWithChar(char c) const { return startsWithUnit(c); }
    bool endsWithChar(char c) const { return endsWithUnit(c); }
    using StringModel::startsWith;
    bool startsWith(Text s) const;
    bool startsWith(Text s, int n) const;
    using StringModel::startsWithCaseSen;
    bool startsWithCaseSen(Text s) const;
    using StringModel::endsWith;
    bool endsWith(Text s) const;
    bool endsWith(Text s, int n) const;

    // Slicing and padding.
    StringModel mid(int start, int count) const;
    void addSpacing(Text s, int width);
    void addSpacingC(Text s, int width);

    // Number and hex text.
    using StringModel::addNumber;
    void addNumber(std::string const& digits, unsigned char minWidth);
    void addNrSpacing(long long v, signed char width);
    void addHex(std::string const& digits, bool lastTwoOnly);
    void addHexCode(signed char v) { addHex(hex(2, v), true); }
    void addHexCode(unsigned char v) { addHex(hex(2, v), true); }
    void addHexCode(short v) { addHex(hex(4, v), false); }
    void addHexCode(unsigned short v) { addHex(hex(4, v), false); }
    void addHexCode(int v) { addHex(hex(8, v), false); }
    void addHexCode(unsigned int v) { addHex(hex(8, static_cast<int>(v)), false); }
    int toInt(bool* ok) const;
    long long toInt64(bool* ok) const;
    long long toIntFromHex(int bits, bool asSigned, bool cutDigits, bool* ok);

private:
    // The value with zeros in front to `digits` places; the formatter sees it promoted to int.
    static std::string hex(int digits, int promoted);
    // The temporary that a zero-terminated argument becomes.
    String8Model temporary(Text s) const;
};

} // namespace qvTest
