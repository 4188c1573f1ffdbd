#pragma once

#include "qv/strings/core/append.h"
#include "qv/strings/core/compare.h"
#include "qv/strings/core/contract.h"
#include "qv/strings/core/edit.h"
#include "qv/strings/core/findText.h"
#include "qv/strings/core/findUnit.h"
#include "qv/strings/core/layoutOf.h"
#include "qv/strings/core/numberText.h"
#include "qv/strings/core/splice.h"
#include "qv/strings/keepStorage.h"

#include <cstring>
#include <type_traits>

/// The bases of the string classes. Their users need none of these names.
namespace QV_MEMBER_NAMESPACE {

/// \name Refused numbers
/// Parameters of deleted members, beside members for some types of integers. A compiler that
/// refuses a number of another type prints the name, which says what to do. An rvalue reference
/// wins over their const references only where all of them need a conversion: a number that fits
/// one of them as it is or by a promotion (a bit-field, an enumerator) still takes that one.
/// @{

/// By `addNr`.
using CastToLongLongOrUnsignedLongLong = long double;
/// By `addNr` with a width.
using CastToLongLong = long double;
/// By `addHexCode`.
using CastToIntOrUnsignedInt = long double;

/// @}

/// The members that mean the same in every fixed string, of either width and any image. Each adapts
/// its arguments and calls the core. Members that only look alike in both widths are in `Members8`
/// and `Members16`.
///
/// An object holds up to N units of text (N is the capacity of the image; a unit is a `char` or an
/// `unsigned short`). It never allocates, and it has no lock: whoever shares it locks it. What does
/// not fit is cut at the end, silently; no member reports a failure.
///
/// Names without a suffix ignore the case of ASCII letters, whatever the locale; every other unit
/// compares as itself. `CaseSen`, `CaseSens` and `SameCase` are exact, and so are the operators,
/// `lastIndexOf`, and `startsWith` and `endsWith` of one unit. "Terminator" in a comment means that
/// text[length] = 0 is written; units behind it stay as they were unless the comment says
/// otherwise.
///
/// A `char const*` is measured by the low 16 bits of its strlen. As a pattern its first N bytes
/// count, sign-extended to units; null is a pattern that is found nowhere. Each member says how a
/// byte from 0x80 up becomes a unit of a 16-bit string (0xE4: 0xFFE4 by sign, 0x00E4 by zero
/// extension); in an 8-bit string it stays a byte.
///
/// A length above N, which only a damaged record holds, counts as N: no member reads or writes
/// outside the object for it, but for the few whose comment says so. The comments also say what a
/// call outside a contract does. It stays so, unless the program is built with QV_CHECKED: then the
/// call ends the program, and so does a member that meets a length above N (`core/contract.h`).
///
/// @tparam Self The public class.
/// @tparam Image Its memory image.
template <typename Self, typename Image>
class Members : public Image
{
public:
    /// One unit of the text.
    using Unit = std::remove_extent_t<decltype(Image::text)>;

    /// \name Construction
    /// @{

    /// Copies the whole image, the spare bytes too.
    Members(Members const&) = default;

    /// @}
    /// \name Assignment
    /// @{

    /// Copies the length and all N + 1 units of text, so the units behind the terminator travel
    /// too; the spare bytes of the image stay.
    /// @param other May be this string: nothing changes.
    /// @return This string.
    // No derived class names it in a `using`: g++ 11 would then warn of every assignment.
    Members& operator=(Members const& other)
    {
        std::memmove(this->text, other.text, sizeof this->text);
        this->length = other.length;
        return *this;
    }

    /// @}
    /// \name Length and state
    /// @{

    /// Empties the string and zeroes all N + 1 units of text. The spare bytes stay.
    void clear()
    {
        std::memset(this->text, 0, sizeof this->text);
        this->length = 0;
    }

    /// Zeroes text[length] to text[N], so that two strings of equal text are equal bytes: for a
    /// block compare or write of a record. A length above N leaves nothing to zero.
    void clearUnused() { qvStrings::clearUnused(checkedRef()); }

    /// Takes the length from the text, after the text was filled in place: the first zero among
    /// text[0] to text[N - 1], else N. Terminator.
    void calcLength() { qvStrings::calcLength(ref()); }

    /// Sets the length. Terminator. The text stays, so a greater length exposes the units
    /// behind the old one.
    /// @param n Units: at or below 0 gives 0, above N gives N.
    void setLength(short const& n) { qvStrings::setLength(ref(), n); }

    /// @return True for a length of 0.
    bool isEmpty() const { return this->length == 0; }

    /// @return True for a length other than 0.
    bool hasData() const { return this->length != 0; }

    /// @}
    /// \name Construction
    /// @{

    /// A new string of one unit repeated, all behind the text zero.
    /// @param c The unit; never changed.
    /// @param n How many: below 1 gives the empty string, else n modulo 65536, cut at N.
    /// @return The string.
    static Self createCharString(Unit& c, int const& n)
    {
        Self result;
        fill(result.ref(), c, n);
        return result;
    }

    /// @}
    /// \name Append
    /// What does not fit under N is dropped from the end of the new text.
    /// @{

    /// Appends units, zero units included. Terminator.
    /// @param s Holds as many of the n units as fit; may point into this object. Null: no change.
    /// @param n Not reduced modulo 65536; near 2^32 clipped like any other. 0: no change at all.
    void add(Unit const* s, unsigned int n) { appendSome(checkedRef(), Run<Unit>{s, n}); }

    /// Appends a text, zero-extended. Terminator.
    /// @param s Null and the empty text change nothing at all.
    void add(char const* s) { appendSome(checkedRef(), measured(s)); }

    /// Appends a string, whose length is read once: `s.add(s)` doubles the text. Terminator.
    /// @param other An empty one changes nothing at all.
    void add(Self const& other) { appendSome(checkedRef(), other.checkedRun()); }

    /// Appends a text, sign-extended. Terminator, for the empty text too.
    /// @param s Null changes nothing.
    /// @return This string.
    Self& operator+=(char const* s)
    {
        append(checkedRef(), measured(s), Extension::sign);
        return self();
    }

    /// Appends a string unit by unit, reading its length afresh on each step. So `s += s` does not
    /// double s: it repeats the text until the capacity is full. This is intended.
    /// @param other Text to append; the terminator is written for an empty one too.
    /// @return This string.
    Self& operator+=(Self const& other)
    {
        appendRepeating<Unit>(checkedRef(), other.checkedRef());
        return self();
    }

    /// Appends one unit. A full string stays as it is.
    /// @param c The unit, also zero.
    /// @return This string.
    Self& operator+=(Unit const& c)
    {
        appendUnit(checkedRef(), c);
        return self();
    }

    /// A copy with a string appended. Not const although it changes nothing: callers depend on the
    /// signature.
    /// @param other Text to append, its length read once: `s + s` doubles the text.
    /// @return The copy.
    Self operator+(Self const& other) { return combined(other); }

    /// A copy with one byte appended as by `operator+=(char const&)`. Not const although it changes
    /// nothing.
    /// @param c The byte, sign-extended to a unit.
    /// @return The copy.
    Self operator+(char const& c)
    {
        Self result = copy();
        result += c;
        return result;
    }

    /// A copy with a text appended as by `add(char const*)`.
    /// @param s Text, zero-extended to units; null adds nothing.
    /// @return The copy.
    Self combined(char const* s) const
    {
        Self result = copy();
        result.add(s);
        return result;
    }

    /// A copy with a string appended. Terminator.
    /// @param other Text to append, its length read once.
    /// @return The copy.
    Self combined(Self const& other) const
    {
        Self result = copy();
        append(result.checkedRef(), other.checkedRun());
        return result;
    }

    /// Appends a text, zero-extended, in a field of |width| columns, held inside the capacity. A
    /// longer text is not cut to the field. Width 0 without a text changes nothing at all.
    /// @param s The text; null counts as empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacingC(char const* s, int const& width)
    {
        appendField(checkedRef(), measured(s), width);
    }

    /// @}
    /// \name Numbers to text
    /// @{

    /// Appends the number in a field as by `addSpacingC`. No thousands separator.
    /// @param v The number.
    /// @param width Columns: negative pads on the left, positive on the right.
    void addNrSpacing(long long const& v, signed char const& width)
    {
        appendNumberField(checkedRef(), v, width);
    }

    /// @}
    /// \name Equality
    /// @{

    /// Exact equality, in this order: the first unit, which counts for empty strings too, so that
    /// two of them with different stale first units are unequal (intended); the lengths; the text.
    /// @param other String to compare with.
    /// @return True when all three are equal.
    bool operator==(Self const& other) const
    {
        return equalExact(checkedRef(), other.checkedRef().object());
    }

    /// @return The opposite of `operator==`.
    /// @param other String to compare with.
    bool operator!=(Self const& other) const { return !(*this == other); }

    /// @return The same as `operator==`.
    /// @param other String to compare with.
    bool isEqualSameCase(Self const& other) const { return *this == other; }

    /// @return True for a length of `n` and the same `n` units.
    /// @param s Not read when the lengths differ or `n` is 0, else not null. Needs no terminator.
    /// @param n Units of `s`.
    bool isEqualSameCase(Unit const* s, int n) const
    {
        return equalText<Case::exact>(checkedRef(), Run<Unit>{s, static_cast<unsigned>(n)});
    }

    /// @return True for equal lengths and equal units, ignoring case. Two empty strings are equal
    /// whatever units are behind their terminators.
    /// @param other String to compare with.
    bool isEqual(Self const& other) const
    {
        return equalText<Case::folded>(checkedRef(), other.checkedRun());
    }

    /// @return True for a length of `n` and the same `n` units, ignoring case.
    /// @param s Not read when the lengths differ or `n` is 0, else not null. Needs no terminator.
    /// @param n Units of `s`.
    bool isEqual(Unit const* s, int n) const
    {
        return equalText<Case::folded>(checkedRef(), Run<Unit>{s, static_cast<unsigned>(n)});
    }

    /// @return As `operator==` with the upper fold of this string.
    /// @param other In upper case already, as promised: a lower-case letter never matches.
    bool isEqualUpperCaseInput(Self const& other) const
    {
        return equalToInput<Case::upperInput>(checkedRef(), other.checkedRef().object());
    }

    /// @return As `operator==` with the lower fold of this string.
    /// @param other In lower case already, as promised: an upper-case letter never matches.
    bool isEqualLowerCaseInput(Self const& other) const
    {
        return equalToInput<Case::lowerInput>(checkedRef(), other.checkedRef().object());
    }

    /// @}
    /// \name Order
    /// By the stored bytes, unsigned, low byte of a unit first: for units from 0x100 up not the
    /// order of their values (intended). A result counts by its sign only.
    /// @{

    /// Order ignoring case; of a text and its prefix the shorter comes first.
    /// @param other String to compare with.
    /// @return Below 0 when this string comes first, 0 when neither does, above 0 else.
    int compare(Self const& other) const
    {
        return orderFolded(checkedRef(), other.checkedRef().object());
    }

    /// Exact order over the shorter length and nothing more: a text and its prefix give 0
    /// (intended). `operator<` is an order.
    /// @param other String to compare with.
    /// @return Below 0 when this string comes first, 0 when neither does, above 0 else.
    int compareSameCase(Self const& other) const
    {
        return orderOfCommon(checkedRef(), other.checkedRef());
    }

    /// Exact order; of a text and its prefix the shorter is less.
    /// @param other String to compare with.
    /// @return True when this string is less.
    bool operator<(Self const& other) const { return precedes(checkedRef(), other.checkedRef()); }

    /// @return The mirror of `operator<`.
    /// @param other String to compare with.
    bool operator>(Self const& other) const { return precedes(other.checkedRef(), checkedRef()); }

    /// @}
    /// \name Position search
    /// Positions count from 0; -1 means not found.
    /// @{

    /// Searches from the front, ignoring case. A pattern as long as the text is compared with the
    /// whole text. A negative start is outside the contract and counts as 0.
    /// @param pattern An empty one is found nowhere.
    /// @param start First place that counts; one that leaves no room gives -1.
    /// @return First place of the pattern at or behind `start`.
    int indexOf(Self const& pattern, int start) const
    {
        expect(start >= 0, {start});
        return find<Case::folded>(checkedRef(), pattern.checkedRun(), start);
    }

    /// As `indexOf` of a pattern, but exact.
    /// @copydetails indexOf(Self const&, int) const
    int indexOfCaseSen(Self const& pattern, int start) const
    {
        expect(start >= 0, {start});
        return find<Case::exact>(checkedRef(), pattern.checkedRun(), start);
    }

    /// @return First place of `c` at or behind `start`, ignoring case.
    /// @param c Unit to look for.
    /// @param start Only one inside the text counts: any other, also one behind the end, means 0.
    int indexOf(Unit const& c, int start) const
    {
        return findUnit<Case::folded>(checkedRef(), c, start);
    }

    /// @return First place of `c` at or behind `start`, exact.
    /// @param c Unit to look for.
    /// @param start As for `indexOf`.
    int indexOfCaseSen(Unit const& c, int start) const
    {
        return findUnit<Case::exact>(checkedRef(), c, start);
    }

    /// @return Last place of `c` at or before `start`, exact.
    /// @param c Unit to look for.
    /// @param start One outside the text means its last unit.
    int lastIndexOf(Unit const& c, int start) const { return findLastUnit(checkedRef(), c, start); }

    /// Searches the patterns in turn, ignoring case. One found at position 0 ends the search; else
    /// the result is the position of the LAST listed pattern that was found, not the smallest
    /// (intended).
    /// @param a First pattern.
    /// @param b Second pattern.
    /// @param[out] which Unless null, that pattern's number from 0, or -1.
    /// @return The position.
    int indexOfFirstOcc(Self const& a, Self const& b, int* which) const
    {
        return findFirstOcc(checkedRef(), {a.checkedRef(), b.checkedRef()}, which);
    }

    /// The same with six patterns.
    /// @param a First pattern.
    /// @param b Second pattern.
    /// @param c Third pattern.
    /// @param d Fourth pattern.
    /// @param e Fifth pattern.
    /// @param f Sixth pattern.
    /// @param[out] which As above.
    /// @return The position.
    int indexOfFirstOcc(Self const& a, Self const& b, Self const& c, Self const& d, Self const& e,
                        Self const& f, int* which) const
    {
        return findFirstOcc(checkedRef(),
                            {a.checkedRef(), b.checkedRef(), c.checkedRef(), d.checkedRef(),
                             e.checkedRef(), f.checkedRef()},
                            which);
    }

    /// @}
    /// \name Containment
    /// An empty pattern is contained nowhere.
    /// @{

    /// @return True when the pattern is in the text, ignoring case.
    /// @param pattern Text to look for.
    bool contains(Self const& pattern) const
    {
        return find<Case::folded>(checkedRef(), pattern.checkedRun(), 0) >= 0;
    }
    /// @return True when the pattern is in the text, ignoring case.
    /// @param pattern The pattern.
    bool contains(char const* pattern) const
    {
        return find<Case::folded>(checkedRef(), patternOf(pattern, capacity()), 0) >= 0;
    }

    /// @return True when the byte is in the text, ignoring case.
    /// @param c Byte to look for, sign-extended.
    bool contains(char const& c) const { return indexOf(unitOf<Unit>(c, Extension::sign), 0) >= 0; }

    /// @return True when the pattern is in the text, exact.
    /// @param pattern Text to look for.
    bool containsCaseSen(Self const& pattern) const
    {
        return find<Case::exact>(checkedRef(), pattern.checkedRun(), 0) >= 0;
    }
    /// @return True when the pattern is in the text, exact.
    /// @param pattern The pattern.
    bool containsCaseSen(char const* pattern) const
    {
        return find<Case::exact>(checkedRef(), patternOf(pattern, capacity()), 0) >= 0;
    }

    /// @return True when the pattern is in the text, exact.
    /// @param s The pattern's bytes, zero bytes included.
    /// @param n How many, modulo 65536, cut at N.
    bool containsCaseSen(char const* s, int const& n) const
    {
        return find<Case::exact>(checkedRef(), cut(counted(s, n), capacity()), 0) >= 0;
    }

    /// @return True when the pattern is in the upper fold of the text.
    /// @param pattern In upper case already, as promised: folded once instead of twice.
    bool containsUpperCaseInput(Self const& pattern) const
    {
        return find<Case::upperInput>(checkedRef(), pattern.checkedRun(), 0) >= 0;
    }
    /// @return True when the pattern is in the upper fold of the text.
    /// @param pattern The pattern, in upper case already, as promised.
    bool containsUpperCaseInput(char const* pattern) const
    {
        return find<Case::upperInput>(checkedRef(), patternOf(pattern, capacity()), 0) >= 0;
    }

    /// @}
    /// \name Start and end of the text
    /// An empty text gives false, and so does an empty pattern or one longer than the text, unless
    /// the member says otherwise.
    /// @{

    /// @return True when the first unit is `c`, exact in spite of the name.
    /// @param c Unit to compare with.
    bool startsWith(Unit const& c) const { return !isEmpty() && this->text[0] == c; }

    /// @return True when the last unit is `c`, exact in spite of the name.
    /// @param c Unit to compare with.
    bool endsWith(Unit const& c) const
    {
        return !isEmpty() && this->text[checkedRun().count - 1] == c;
    }

    /// @return True when the text begins with the pattern, ignoring case.
    /// @param pattern Text to compare with.
    bool startsWith(Self pattern) const
    {
        return begins<Case::folded>(checkedRef(), pattern.checkedRun());
    }
    /// @return True when the text begins with the pattern, ignoring case.
    /// @param pattern Text to compare with.
    bool startsWith(char const* pattern) const
    {
        return begins<Case::folded>(checkedRef(), patternOf(pattern, capacity()));
    }

    /// @return True when the text begins with the pattern, exact.
    /// @param pattern Text to compare with.
    bool startsWithCaseSen(Self pattern) const
    {
        return begins<Case::exact>(checkedRef(), pattern.checkedRun());
    }

    /// @return True when the text ends with the pattern, ignoring case.
    /// @param pattern Text to compare with.
    bool endsWith(Self const& pattern) const { return ends(checkedRef(), pattern.checkedRun()); }
    /// @return True when the text ends with the pattern, ignoring case.
    /// @param pattern The pattern.
    bool endsWith(char const* pattern) const
    {
        return ends(checkedRef(), patternOf(pattern, capacity()));
    }

    /// @}
    /// \name Editing in place
    /// Text that does not fit under N is lost from the end of the result. A result without
    /// units leaves text[0] as it was, unless the member says otherwise.
    /// @{

    /// Upper fold of every unit.
    void makeUpper() { qvStrings::makeUpper(checkedRef()); }

    /// Lower fold of every unit.
    void makeLower() { qvStrings::makeLower(checkedRef()); }

    /// Strips the units 0, 9, 10, 13 and 32 (zeros, tabs, line ends, blanks) from both ends, and no
    /// others. Terminator in every case.
    void trim() { qvStrings::trim(checkedRef()); }

    /// Replaces a unit, ignoring case; the length stays.
    /// @param a Every unit equal to it is replaced.
    /// @param b Put in as given, also 0.
    /// @return This string.
    Self& replace(Unit const& a, Unit const& b)
    {
        replaceUnit(checkedRef(), a, b);
        return self();
    }

    /// Replaces a text, searched ignoring case. The text put in is stepped over. When the text
    /// grows past N its tail is cut, and the search continues in the rest.
    /// @param from Text to replace; an empty one changes nothing.
    /// @param to Put in unchanged.
    /// @return This string.
    Self& replace(Self const& from, Self const& to)
    {
        replaceAll<Case::folded, Unit>(checkedRef(), from.checkedRef(), to.checkedRef());
        return self();
    }

    /// As `replace` of a text, but searched exactly.
    /// @copydetails replace(Self const&, Self const&)
    Self& replaceCaseSen(Self const& from, Self const& to)
    {
        replaceAll<Case::exact, Unit>(checkedRef(), from.checkedRef(), to.checkedRef());
        return self();
    }

    /// Removes every `pattern`, ignoring case. An occurrence that a gap forms with text before it
    /// stays: "ab" removed from "aabb" leaves "ab".
    /// @param pattern An empty one changes nothing.
    /// @return This string.
    Self& remove(Self const& pattern)
    {
        removeAll<Case::folded, Unit>(checkedRef(), pattern.checkedRef());
        return self();
    }

    /// As `remove` of a text, but exact.
    /// @copydetails remove(Self const&)
    Self& removeCaseSens(Self const& pattern)
    {
        removeAll<Case::exact, Unit>(checkedRef(), pattern.checkedRef());
        return self();
    }

    /// Removes a unit wherever it is.
    /// @param c Every unit equal to it, ignoring case, is removed.
    /// @return A copy of the changed string.
    Self remove(Unit const& c)
    {
        removeUnit(checkedRef(), c);
        return copy();
    }

    /// Removes units; the caller keeps start + count within the length. A range beyond the end
    /// gives a string of full length N that holds the object's own bytes from behind the range and
    /// zeros beyond the object.
    /// @param start Place of the first one.
    /// @param count How many.
    void remove(int const& start, int const& count)
    {
        expect(start >= 0 && count >= 0 && static_cast<long long>(start) + count <= this->length,
               {start, count});
        removeRange(checkedRef(), start, count);
    }

    /// Inserts a text. A negative place is outside the contract and gives a string of length N,
    /// stale units included.
    /// @param pos Place of its first unit; beyond the end, the end.
    /// @param s Text to insert; `s.insert(p, s)` inserts the first p units.
    void insert(int const& pos, Self const& s)
    {
        expect(pos >= 0, {pos});
        qvStrings::insert<Unit>(checkedRef(), pos, s.checkedRef());
    }

    /// @}
    /// \name Slices
    /// New strings whose units behind the text are zero, unless they are copies of the receiver.
    /// @{

    /// The start of the text. A negative n does not mean all: it gives length N, stale units
    /// included (intended).
    /// @param n Units, at most all of them.
    /// @return The first `n` units.
    Self left(int n) const
    {
        Self result;
        auto const used = static_cast<int>(checkedRun().count);
        slice<Unit>(ref(), 0, n < used ? n : used, result.ref());
        return result;
    }

    /// Units from anywhere, not checked against the length: past the end of the text or ahead of it
    /// the result holds the object's own bytes and zeros beyond the object. The caller stays inside
    /// the N + 1 units unless the count is 0.
    /// @param start Place of the first one.
    /// @param count How many, cut at N; a negative count gives N.
    /// @return A string of that length.
    Self mid(int const& start, int const& count) const
    {
        expect(count == 0 || (start >= 0 &&
                              start + static_cast<long long>(cutCount(count)) <= capacity() + 1),
               {start, count});
        Self result;
        slice<Unit>(ref(), start, count, result.ref());
        return result;
    }

    /// The text up to a separator, searched ignoring case. Found at position 0 the sense of
    /// `withSeparator` is reversed (intended): true gives the empty string, false the one unit `c`
    /// as given.
    /// @param c The separator. Not found: the result is a copy of the receiver.
    /// @param withSeparator Whether the result ends with the separator.
    /// @return The text ahead of the first separator.
    Self left(Unit const& c, bool const& withSeparator) const
    {
        Self result;
        sliceUpTo(checkedRef(), c, withSeparator, result.ref());
        return result;
    }

    /// Gives the text that `left` gives, and removes the text up to and with the separator from the
    /// receiver. If nothing is left, the length becomes 0 and nothing else changes.
    /// @param c The separator. Not found: the receiver is cleared.
    /// @param withSeparator As for `left`.
    /// @return The text that `left` gives.
    Self leftNCut(Unit const& c, bool const& withSeparator)
    {
        Self result;
        cutUpTo(checkedRef(), c, withSeparator, result.ref());
        return result;
    }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Members() = default;

    /// This object as the core sees it.
    TextRef<Unit> ref() { return {reinterpret_cast<unsigned char*>(this), layoutOf<Image>()}; }
    TextRef<Unit const> ref() const
    {
        return {reinterpret_cast<unsigned char const*>(this), layoutOf<Image>()};
    }

    /// The same for a member that uses the length: in a checked program the length is checked.
    TextRef<Unit> checkedRef(char const* member = __builtin_FUNCTION())
    {
        expectLength(this->length, member);
        return ref();
    }
    TextRef<Unit const> checkedRef(char const* member = __builtin_FUNCTION()) const
    {
        expectLength(this->length, member);
        return ref();
    }

    /// The text, checked in the same way.
    Run<Unit> checkedRun(char const* member = __builtin_FUNCTION()) const
    {
        return checkedRef(member).run();
    }

    /// The text becomes the run; a null one sets the length to 0 and nothing else.
    void take(Run<Unit> run)
    {
        if (run.units == nullptr)
            this->length = 0;
        else
            assign(ref(), run);
    }

    /// Ends a checked program when these arguments break the contract of `member`, by default the
    /// one that calls this. Does nothing in the default build.
    void expect([[maybe_unused]] bool isKept,
                [[maybe_unused]] std::initializer_list<long long> arguments,
                [[maybe_unused]] char const* member = __builtin_FUNCTION()) const
    {
        if constexpr (isChecked)
            if (!isKept)
                contractBroken(member, arguments, this->length, capacity());
    }

    /// The same for a length that this string has or is about to take.
    static void expectLength([[maybe_unused]] unsigned length,
                             [[maybe_unused]] char const* member = __builtin_FUNCTION())
    {
        if constexpr (isChecked)
            if (length > capacity())
                contractBroken(member, {}, length, capacity());
    }

    /// The contract of fields that are not cut to the room.
    void expectRoomForField(int width, char const* member = __builtin_FUNCTION()) const
    {
        long long const columns = width < 0 ? -static_cast<long long>(width) : width;
        expect(this->length + columns <= capacity(), {width}, member);
    }

    static constexpr unsigned capacity() { return layoutOf<Image>().capacity; }

    Self& self() { return static_cast<Self&>(*this); }
    Self const& self() const { return static_cast<Self const&>(*this); }

private:
    /// A copy. Not inlined: a copy of up to 250 bytes would be expanded in five members of each
    /// class.
    [[gnu::noinline]] Self copy() const { return self(); }

    /// Units of a slice of `count`: at most N, and N for a negative count.
    static unsigned cutCount(int count)
    {
        auto const units = static_cast<unsigned>(count);
        return units < capacity() ? units : capacity();
    }
};

} // namespace QV_MEMBER_NAMESPACE
