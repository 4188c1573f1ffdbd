#pragma once

#include "tests/model/string8Image.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qvTest {

// A slow, plain model of the 8-bit strings: the bytes of one whole object and, for each member, the
// steps of its rule one after the other. It knows the image only as data, so one text serves the
// current string and both older ones. Zero-terminated arguments come as a pointer to the characters
// before the terminator, null for a null pointer.
//
// Where a member would write outside the object, the model drops the byte and remembers it.
class String8Model
{
public:
    using Byte = unsigned char;
    using Text = std::string const*;

    // Storage in which every byte holds `seed`: what a constructor finds.
    String8Model(String8Image const& image, Byte seed);
    // A string made by value: what its rule does not write is undetermined.
    static String8Model newResult(String8Image const& image);

    String8Image const& image() const { return layout; }
    std::vector<Byte> const& bytes() const { return object; }
    bool isDetermined(std::size_t at) const { return determined[at]; }
    bool fullyDetermined() const;
    bool leftObject() const { return strayed; }
    std::size_t capacity() const { return layout.capacity; }
    std::size_t length() const;
    // The characters in use, and the stored text up to its first zero whatever the length says.
    std::string used() const;
    std::string storedText() const;
    bool hasStoredZero() const;
    Byte textAt(std::size_t i) const { return object[layout.textAt + i]; }
    void putText(std::size_t i, Byte value);
    void putBytes(std::string const& content);
    void putLength(std::size_t n);

    // Construction, state and assignment.
    void construct() { clear(); }
    void construct(Text s);
    void constructCounted(std::string const& s, int count);
    void constructUnits(std::vector<unsigned short> const* units);
    void constructView(std::string const& viewed);
    void constructLegacy(String8Model const& o);
    String8Model createCharString(char c, int n) const;
    void assign(String8Model const& o);
    void assign(Text s);
    void assignChar(char c);
    void assignString(std::string const& s);
    void assignView(std::string const& viewed);
    void assignLegacy(String8Model const& o);
    void fromChar(Text s, int count);
    void clear();
    void clearUnused();
    void calcLength();
    void setLength(short n);

    // Append.
    void add(Text s);
    void add(Text s, unsigned int n);
    void add(String8Model const& o);
    void append(Text s);
    void append(String8Model const& o);
    void appendChar(char c);
    void appendUnit(unsigned short c);
    String8Model plusChar(char c) const;
    String8Model plus(String8Model const& o) const;
    String8Model combined(Text s) const;

    // Comparison. A result of which only the sign is laid down comes with `exact` false.
    struct Order
    {
        int value;
        bool exact;
    };
    bool equals(String8Model const& o) const;
    bool equals(Text s) const;
    bool equalsLegacy(String8Model const& o) const;
    bool isEqual(String8Model const& o) const;
    bool isEqual(std::string const& s, int n) const;
    bool isEqualSameCase(std::string const& s, int n) const;
    bool isEqualUpperCaseInput(String8Model const& o) const;
    bool isEqualLowerCaseInput(String8Model const& o) const;
    Order compare(String8Model const& o) const;
    Order compareSameCase(String8Model const& o) const;
    bool less(String8Model const& o) const;
    bool greater(String8Model const& o) const;

    // Search.
    int indexOf(String8Model const& p, int start) const;
    int indexOfCaseSen(String8Model const& p, int start) const;
    int indexOfChar(char c, int start) const;
    int indexOfCaseSenChar(char c, int start) const;
    int indexOfUnit(unsigned short c, int start) const;
    int lastIndexOf(char c, int start) const;
    int indexOfFirstOcc(std::vector<String8Model const*> const& patterns, int& which) const;
    int count(char c) const;
    int countCaseSen(char c) const;
    bool containsChar(char c) const;
    bool contains(Text s) const;
    bool contains(String8Model const& p) const;
    bool containsCaseSen(Text s) const;
    bool containsCaseSen(String8Model const& p) const;
    bool containsCaseSen(std::string const& s, int n) const;
    bool containsUpperCaseInput(Text s) const;
    bool containsUpperCaseInput(String8Model const& p) const;
    bool startsWithChar(char c) const;
    bool endsWithChar(char c) const;
    bool startsWith(Text s) const;
    bool startsWith(Text s, int n) const;
    bool startsWith(String8Model const& p) const;
    bool startsWithCaseSen(Text s) const;
    bool startsWithCaseSen(String8Model const& p) const;
    bool endsWith(Text s) const;
    bool endsWith(std::string const& s, int n) const;
    bool endsWith(String8Model const& p) const;
    // The gate of all prefix and suffix checks.
    bool lengthFits(unsigned int patternLength) const;

    // Editing and slicing.
    void replace(String8Model const& from, String8Model const& to);
    void replaceCaseSen(String8Model const& from, String8Model const& to);
    void replaceChar(char a, char b);
    void remove(String8Model const& p);
    void removeCaseSens(String8Model const& p);
    String8Model removeChar(char c);
    void removeRange(int start, int count);
    void insert(int pos, String8Model const& s);
    void trim();
    void makeUpper();
    void makeLower();
    void addSpacing(Text s, int width);
    void addSpacingC(Text s, int width);
    String8Model left(int n) const;
    String8Model mid(int start, int count) const;
    String8Model leftChar(char c, bool withSeparator) const;
    String8Model leftNCut(char c, bool withSeparator);

    // Number and hex text.
    void addNumber(std::string const& digits);
    void addNumber(std::string const& digits, unsigned char minWidth);
    void addNrSpacing(long long v, signed char width);
    String8Model fromNr(long long v) const;
    void addHex(std::string const& digits, bool lastTwoOnly);
    int toInt(bool* ok) const;
    long long toInt64(bool* ok) const;
    long long toIntFromHex(int bits, bool asSigned, bool cutDigits, bool* ok);

private:
    // The temporary that a zero-terminated argument becomes.
    String8Model temporary(Text s) const;
    // Reads on behind the text: the object's own bytes to its end, then zeros.
    Byte reachedByte(unsigned long long i) const;
    void copyIn(std::size_t at, std::string const& s, std::size_t n);
    void terminate() { putText(length(), 0); }
    // Appends `n` bytes of `s`, of which the text area takes what fits.
    void blockAppend(std::string const& s, unsigned int n);
    void characterAppend(String8Model const& o);
    int search(std::string const& pattern, std::string const& receiver, int start) const;
    void splice(std::size_t p, std::size_t cut, String8Model const* insertion);
    void replaceAll(String8Model const& from, String8Model const& to, bool folded);
    void removeAll(String8Model const& p, bool folded);
    void addPadded(Text s, int width, bool insideCapacity);
    bool digitsOnly() const;

    String8Image layout;
    std::vector<Byte> object;
    std::vector<bool> determined;
    bool strayed = false;
};

// ASCII folding, on one byte and on each byte of a text.
char upper(char c);
char lower(char c);
std::string upper(std::string s);
std::string lower(std::string s);

} // namespace qvTest
