#pragma once

#include "tests/model/string16Image.h"
#include "tests/model/stringModel.h"

#include <string>
#include <vector>

namespace qvTest {

// How a byte becomes a unit: 0xE4 as 0xFFE4, or as 0x00E4.
std::u16string signExtended(std::string const& s);
std::u16string zeroExtended(std::string const& s);
char16_t signExtended(char c);
// How a unit becomes a byte: its low byte.
std::string lowBytes(std::u16string const& units);
// A raw 16-bit text as it is measured: up to its first zero and to 1024 units, whatever the
// capacity.
std::u16string measured(std::u16string const& units);

// What only the 16-bit strings have, on top of the rules of both widths. Zero-terminated arguments
// come as a pointer to the bytes or units before the terminator, null for a null pointer.
class String16Model : public StringModel<char16_t>
{
public:
    using Text = std::string const*;
    using Units = std::u16string const*;

    using StringModel::StringModel;

    // The word that no member reads. Many leave it alone, which shows only when it is not zero.
    void putSpare(char16_t value) { putStored(image().spareAt, value); }

    // Construction and assignment.
    using StringModel::construct;
    void construct(Text s);
    void constructChar(char c);
    void constructCounted(std::string const& s, int count);
    void constructUnitText(Units s);
    void constructUnitsCounted(std::u16string const& s, int count);
    void constructView(std::u16string const& viewed) { assignView(viewed); }
    void constructView8(Text viewed);
    using StringModel::assign;
    void assign(Text s);
    void assignUnitText(Units s);
    void assignUnit(char16_t c);
    void assignString(std::string const& s);
    void assignView(std::u16string const& viewed);

    // Append.
    using StringModel::add;
    void add(Text s);
    void addUnits(Units s, unsigned int n);
    using StringModel::append;
    void append(Text s);
    void appendUnitText(Units s);
    void appendChar(char c) { appendUnit(signExtended(c)); }
    StringModel plusChar(char c) const { return plusUnit(signExtended(c)); }
    String16Model combined(Text s) const;

    // To 8 bits: the bytes of an 8-bit string up to the end of its text, and of a caller's buffer.
    std::vector<Byte> toString8(std::size_t targetCapacity) const;
    std::vector<Byte> toString8Of250() const { return toString8(250); }
    std::vector<Byte> toString8Of500() const { return toString8(500); }
    void toChar(std::vector<Byte>& buffer, unsigned short size) const;

    // Comparison and search.
    using StringModel::equals;
    bool equals(Text s) const;
    using StringModel::unequal;
    bool unequal(Text s) const;
    bool equalsUnitText(Units s) const;
    using StringModel::isEqual;
    bool isEqual(std::string const& s, int n) const;
    int indexOfText(Text s) const;
    int count(char c) const;
    int countCaseSen(char c) const;
    bool containsChar(char c) const;
    using StringModel::contains;
    bool contains(Text s) const;
    using StringModel::containsCaseSen;
    bool containsCaseSen(Text s) const;
    bool containsCaseSen(std::string const& s, int n) const;
    using StringModel::containsUpperCaseInput;
    bool containsUpperCaseInput(Text s) const;
    bool startsWithChar(char c) const;
    bool endsWithChar(char c) const;
    using StringModel::startsWith;
    bool startsWith(Text s) const;
    bool startsWith(Text s, int n) const;
    using StringModel::startsWithCaseSen;
    bool startsWithCaseSen(Text s) const;
    using StringModel::endsWith;
    bool endsWith(Text s) const;
    bool endsWith(Text s, int n) const;

    // Slicing, padding and number text.
    StringModel mid(int start, int count) const;
    void addSpacingUnits(Units s, int width);
    void addSpacingC(Text s, int width);
    using StringModel::addNumber;
    void addNumber(std::string const& digits, unsigned char minWidth);
    void addNrSpacing(long long v, signed char width);
    int toInt(bool* ok) const;

private:
    // The temporaries that a byte text becomes.
    String16Model temporary(Text s) const;
    String16Model temporary(Text s, int n) const;
    // Takes the units over from the first one on and ends the text behind them.
    void hold(std::u16string const& units, std::size_t n);
    std::string narrowed(std::size_t limit) const;
};

} // namespace qvTest
