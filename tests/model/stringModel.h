#pragma once

#include "tests/model/stringImage.h"

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace qvTest {

// A slow, plain model of a fixed-capacity string: the bytes of one whole object and, for each
// member, the steps of its rule one after the other. It knows the image only as data, so one text
// serves every layout. Here are the rules that the 8-bit strings (char) and the 16-bit strings
// (char16_t) share to the letter; where only the names are the same, each width has its own.
//
// Where a member would write outside the object, the model drops the unit and remembers it.
template <class Unit>
class StringModel
{
public:
    using Byte = unsigned char;
    using UnitType = Unit;
    using String = std::basic_string<Unit>;

    // Storage in which every byte holds `seed`: what a constructor finds.
    StringModel(StringImage const& image, Byte seed);

    StringImage const& image() const { return layout; }
    std::vector<Byte> const& bytes() const { return object; }
    bool isDetermined(std::size_t at) const { return determined[at]; }
    bool fullyDetermined() const;
    bool leftObject() const { return strayed; }
    std::size_t capacity() const { return layout.capacity; }
    std::size_t length() const;
    bool isEmpty() const { return length() == 0; }
    bool hasData() const { return length() != 0; }
    // The units in use, and the stored text up to its first zero whatever the length says.
    String used() const;
    String storedText() const;
    bool hasStoredZero() const;
    Unit textAt(std::size_t i) const;
    void putText(std::size_t i, Unit value);
    void putBytes(std::string const& content);
    void putLength(std::size_t n);

    // Construction, state and assignment.
    void construct();
    void constructLegacy(StringModel const& o);
    StringModel createCharString(Unit c, int n) const;
    void assign(StringModel const& o);
    void clear();
    void clearUnused();
    void calcLength();
    void setLength(short n);

    // Append.
    void add(StringModel const& o);
    void append(StringModel const& o);
    void appendUnit(Unit c);
    StringModel plus(StringModel const& o) const;
    StringModel plusUnit(Unit c) const;

    // Comparison. A result of which only the sign is laid down comes with `exact` false.
    struct Order
    {
        int value;
        bool exact;
    };
    bool equals(StringModel const& o) const;
    bool unequal(StringModel const& o) const { return !equals(o); }
    bool isEqual(StringModel const& o) const;
    bool isEqualUnits(String const& s, int n) const;
    bool isEqualSameCaseUnits(String const& s, int n) const;
    bool isEqualUpperCaseInput(StringModel const& o) const;
    bool isEqualLowerCaseInput(StringModel const& o) const;
    Order compare(StringModel const& o) const;
    Order compareSameCase(StringModel const& o) const;
    bool less(StringModel const& o) const;
    bool greater(StringModel const& o) const;

    // Search.
    int indexOf(StringModel const& p, int start) const;
    int indexOfCaseSen(StringModel const& p, int start) const;
    int indexOfUnit(Unit c, int start) const;
    int indexOfCaseSenUnit(Unit c, int start) const;
    int lastIndexOfUnit(Unit c, int start) const;
    int indexOfFirstOcc(std::vector<StringModel const*> const& patterns, int& which) const;
    int indexOfFirstOcc(StringModel const& a, StringModel const& b, int* which) const;
    int indexOfFirstOcc(StringModel const& a, StringModel const& b, StringModel const& c,
                        StringModel const& d, StringModel const& e, StringModel const& f,
                        int* which) const;
    int countUnit(Unit c) const;
    int countUnitCaseSen(Unit c) const;
    bool contains(StringModel const& p) const;
    bool containsCaseSen(StringModel const& p) const;
    bool containsUpperCaseInput(StringModel const& p) const;
    bool startsWithUnit(Unit c) const;
    bool endsWithUnit(Unit c) const;
    bool startsWith(StringModel const& p) const;
    bool startsWithCaseSen(StringModel const& p) const;
    bool endsWith(StringModel const& p) const;
    // The gate of prefix and suffix checks: longer than nothing, no longer than the text.
    bool lengthFits(unsigned int patternLength) const;

    // Editing and slicing.
    void replace(StringModel const& from, StringModel const& to);
    void replaceCaseSen(StringModel const& from, StringModel const& to);
    void replaceUnit(Unit a, Unit b);
    void remove(StringModel const& p);
    void removeCaseSens(StringModel const& p);
    StringModel removeUnit(Unit c);
    void removeRange(int start, int count);
    void insert(int pos, StringModel const& s);
    void trim();
    void makeUpper();
    void makeLower();
    StringModel left(int n) const;
    StringModel leftUnit(Unit c, bool withSeparator) const;
    StringModel leftNCut(Unit c, bool withSeparator);

    // Number text, formed in bytes.
    void addNumber(std::string const& digits);
    StringModel fromNr(long long v) const;

protected:
    // A string made by value: zeros, where the spare bytes may be undetermined.
    StringModel zeroedResult() const;
    // Reads on behind the text: the object's own bytes to its end, then zeros.
    Unit reachedUnit(unsigned long long i) const;
    void putStored(std::size_t at, Unit value);
    void copyIn(std::size_t at, String const& s, std::size_t n);
    void terminate() { putText(length(), Unit{0}); }
    // Appends `n` units of `s`, of which the text area takes what fits.
    void blockAppend(String const& s, unsigned int n);
    void copyLegacy(StringModel const& o);
    int search(String const& pattern, String const& receiver, int start) const;
    // Fills `made` with units from `start` on, as far as the count and the capacity go.
    StringModel slice(StringModel made, int start, int count) const;
    // A text in a field of |width| units; `insideCapacity` holds the field back, else blanks may
    // run past the text.
    void addPadded(String const* s, int width, bool insideCapacity);
    bool digitsOnly() const;
    void undetermine(std::size_t from, std::size_t count);

private:
    using UnsignedUnit = std::make_unsigned_t<Unit>;

    void unitwiseAppend(StringModel const& o);
    void splice(std::size_t p, std::size_t cut, StringModel const* insertion);
    void replaceAll(StringModel const& from, StringModel const& to, bool folded);
    void removeAll(StringModel const& p, bool folded);

    StringImage layout;
    std::vector<Byte> object;
    std::vector<bool> determined;
    bool strayed = false;
};

// The default locale's folds: of all values of either width only the ASCII letters change.
template <class Unit>
constexpr Unit upper(Unit c)
{
    return c >= 'a' && c <= 'z' ? static_cast<Unit>(c - 'a' + 'A') : c;
}

template <class Unit>
constexpr Unit lower(Unit c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<Unit>(c - 'A' + 'a') : c;
}

template <class Unit>
std::basic_string<Unit> upper(std::basic_string<Unit> s)
{
    for (Unit& c : s)
        c = upper(c);
    return s;
}

template <class Unit>
std::basic_string<Unit> lower(std::basic_string<Unit> s)
{
    for (Unit& c : s)
        c = lower(c);
    return s;
}

// Whether the first n units of both are the same, and whether a text ends on another.
template <class Unit>
bool sameFirst(std::basic_string<Unit> const& a, std::basic_string<Unit> const& b, std::size_t n)
{
    return a.compare(0, n, b, 0, n) == 0;
}

template <class Unit>
bool sameEnd(std::basic_string<Unit> const& text, std::basic_string<Unit> const& end)
{
    return text.substr(text.size() - end.size()) == end;
}

constexpr std::size_t lowSixteenBits(std::size_t n)
{
    return n % 65536;
}

constexpr std::size_t lowSixteenBits(int n)
{
    return static_cast<unsigned short>(n);
}

extern template class StringModel<char>;
extern template class StringModel<char16_t>;

} // namespace qvTest
