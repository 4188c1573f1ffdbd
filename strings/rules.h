#pragma once

#include "strings/core/compare.h"
#include "strings/core/edit.h"
#include "strings/core/layoutOf.h"
#include "strings/core/numberText.h"
#include "strings/core/reshape.h"
#include "strings/core/search.h"
#include "strings/keepStorage.h"

#include <cstring>
#include <type_traits>

namespace qvStrings {

/// The members that mean the same in every fixed string, of either width and any image, each rule
/// written once. `Self` is the public class, `Image` its memory image. Members that only look
/// alike in both widths are in `Rules8` and `Rules16`.
///
/// An object holds up to N units of text (N is the capacity of the image; a unit is a `char` or an
/// `unsigned short`). It never allocates, and is as safe as its bytes: there is no lock. What does
/// not fit is cut at the end, silently; no member reports a failure.
///
/// Names without a suffix ignore the case of ASCII letters, whatever the locale; every other
/// unit compares as itself. `CaseSen`, `CaseSens` and `SameCase` are exact. "Terminator" in a
/// comment means that text[length] = 0 is written; units behind it stay as they were unless the
/// comment says otherwise.
template <typename Self, typename Image>
class Rules : public Image
{
public:
    /// One unit of the text.
    using Unit = std::remove_extent_t<decltype(Image::text)>;

    Rules(Rules const&) = default;

    /// Copies the length and all N + 1 units of text, so what stands behind the terminator travels
    /// too; the spare bytes of the image stay. Self-assignment changes nothing.
    Rules& operator=(Rules const& other)
    {
        std::memmove(this->text, other.text, sizeof this->text);
        this->length = other.length;
        return *this;
    }

    /// \name Length and state
    /// @{

    /// Empties the string and zeroes all N + 1 units of text. The spare bytes stay.
    void clear()
    {
        std::memset(this->text, 0, sizeof this->text);
        this->length = 0;
    }

    /// Zeroes text[length] to text[N], so that two strings of equal text are equal bytes: for a
    /// block compare or write of a record. A length above N is outside the contract.
    void clearUnused() { qvStrings::clearUnused(ref()); }

    /// Takes the length from the text, after the text was filled in place: the first zero among
    /// text[0] to text[N - 1], else N. Terminator.
    void calcLength() { qvStrings::calcLength(ref()); }

    /// Sets the length: n at or below 0 gives 0, n above N gives N. Terminator. The text stays,
    /// so a greater length exposes whatever units stand there.
    void setLength(short const& n) { qvStrings::setLength(ref(), n); }

    /// True for a length of 0.
    bool isEmpty() const { return this->length == 0; }

    /// True for a length other than 0.
    bool hasData() const { return this->length != 0; }

    /// A new string of `n` units `c`, all behind them zero: n below 1 gives the empty string, else
    /// n modulo 65536 counts, cut at N. Never changes `c`.
    static Self createCharString(Unit& c, int const& n)
    {
        Self result;
        if (n >= 1)
            fill(result.ref(), c, lowCount(n));
        return result;
    }

    /// @}
    /// \name Append
    /// What does not fit under N is dropped from the end of the new text.
    /// @{

    /// Appends `n` units of `s`, zero units included; n is not reduced modulo 65536. Null and
    /// n = 0 change nothing at all. Terminator. `s` must hold as many of the n units as fit, and
    /// may point into this object. A count near 2^32 is clipped like any other.
    void add(Unit const* s, unsigned int n)
    {
        if (s != nullptr && n != 0)
            append(ref(), s, n);
    }

    /// Appends `other`, whose length is read once: `s.add(s)` doubles the text. An empty `other`
    /// changes nothing at all. Terminator.
    void add(Self const& other) { add(other.text, other.length); }

    /// Appends `other` unit by unit, reading its length afresh on each step. So `s += s` does not
    /// double s: it repeats the text until the capacity is full. This is intended. Terminator,
    /// also for an empty `other`.
    Self& operator+=(Self const& other)
    {
        appendRepeating(ref(), other.ref());
        return self();
    }

    /// Appends one unit, zero included. A full string stays as it is.
    Self& operator+=(Unit const& c)
    {
        appendUnit(ref(), c);
        return self();
    }

    /// A copy with `other` appended, its length read once: `s + s` doubles the text. Not const
    /// although it changes nothing: callers depend on the signature.
    Self operator+(Self const& other) { return combined(other); }

    /// A copy with one byte appended as by `operator+=(char const&)`, so sign-extended to a unit.
    /// Not const although it changes nothing.
    Self operator+(char const& c)
    {
        Self result = self();
        result += c;
        return result;
    }

    /// A copy with `s` appended as by `add(char const*)`, so zero-extended to units.
    Self combined(char const* s) const
    {
        Self result = self();
        result.add(s);
        return result;
    }

    /// A copy with `other` appended, its length read once. Terminator.
    Self combined(Self const& other) const
    {
        Self result = self();
        append(result.ref(), other.text, other.length);
        return result;
    }

    /// Appends the number in a field of |width| columns as by `addSpacingC`. No thousands
    /// separator.
    void addNrSpacing(long long const& v, signed char const& width)
    {
        self().addSpacingC(DecimalText(v).text(), width);
    }

    /// @}
    /// \name Equality
    /// @{

    /// Exact equality, in this order: the first unit, which counts for empty strings too, so that
    /// two of them with different stale first units are unequal (intended); the lengths; the text.
    bool operator==(Self const& other) const
    {
        return equalExact(other.text[0], other.text, other.length);
    }

    /// The opposite of `operator==`.
    bool operator!=(Self const& other) const { return !(*this == other); }

    /// The same as `operator==`.
    bool isEqualSameCase(Self const& other) const { return *this == other; }

    /// True for a length of `n` and the same `n` units. `s` need not be terminated and is not read
    /// when the lengths differ or `n` is 0; else it must not be null.
    bool isEqualSameCase(Unit const* s, int n) const
    {
        return this->length == n && equal<Case::exact>(this->text, s, this->length);
    }

    /// True for equal lengths and equal units, ignoring case. Two empty strings are equal
    /// whatever stands behind their terminators.
    bool isEqual(Self const& other) const { return isEqual(other.text, other.length); }

    /// True for a length of `n` and the same `n` units, ignoring case. `s` need not be terminated
    /// and is not read when the lengths differ or `n` is 0; else it must not be null.
    bool isEqual(Unit const* s, int n) const
    {
        return this->length == n && equal<Case::folded>(this->text, s, this->length);
    }

    /// As `operator==` with the upper fold of this string. `other` is promised to be in upper
    /// case already: one with a lower-case letter never matches.
    bool isEqualUpperCaseInput(Self const& other) const
    {
        return equalToInput<Case::upperInput>(other);
    }

    /// The same with lower case.
    bool isEqualLowerCaseInput(Self const& other) const
    {
        return equalToInput<Case::lowerInput>(other);
    }

    /// @}
    /// \name Order
    /// By the stored bytes, unsigned, low byte of a unit first: for units from 0x100 up not the
    /// order of their values (intended). Of a result only the sign counts, but 0 is exact.
    /// @{

    /// Order ignoring case; of a text and its prefix the shorter comes first.
    int compare(Self const& other) const
    {
        int const byText = orderFolded<Unit>(this->text, other.text, commonLength(other));
        if (byText != 0)
            return byText;
        return this->length == other.length ? 0 : this->length < other.length ? -1 : 1;
    }

    /// Exact order over the shorter length and nothing more: a text and its prefix give 0
    /// (intended). `operator<` is an order.
    int compareSameCase(Self const& other) const
    {
        return order<Unit>(this->text, other.text, commonLength(other));
    }

    /// Exact order; of a text and its prefix the shorter is less.
    bool operator<(Self const& other) const
    {
        int const byText = compareSameCase(other);
        return byText != 0 ? byText < 0 : this->length < other.length;
    }

    /// The mirror of `operator<`.
    bool operator>(Self const& other) const
    {
        int const byText = compareSameCase(other);
        return byText != 0 ? byText > 0 : this->length > other.length;
    }

    /// @}
    /// \name Position search
    /// Positions count from 0; -1 means not found.
    /// @{

    /// First place of `pattern` at or behind `start`, ignoring case. An empty pattern is found
    /// nowhere. A start that leaves no room gives -1; a pattern of the text's own length is held
    /// against the whole text. A negative start is outside the contract and counts as 0.
    int indexOf(Self const& pattern, int start) const
    {
        return findText<Case::folded>(pattern, start);
    }

    /// The same, exact.
    int indexOfCaseSen(Self const& pattern, int start) const
    {
        return findText<Case::exact>(pattern, start);
    }

    /// First place of `c`, ignoring case. Only a start inside the text counts: any other starts
    /// over from 0, also one behind the end.
    int indexOf(Unit const& c, int start) const { return findUnit<Case::folded>(ref(), c, start); }

    /// The same, exact.
    int indexOfCaseSen(Unit const& c, int start) const
    {
        return findUnit<Case::exact>(ref(), c, start);
    }

    /// Last place of `c` at or before `start`, exact. A start outside the text means its last
    /// unit.
    int lastIndexOf(Unit const& c, int start) const { return findLastUnit(ref(), c, start); }

    /// Searches the patterns in turn, ignoring case. One found at position 0 ends the search;
    /// else the result is the position of the LAST listed pattern that was found, not the
    /// smallest (intended). `which`, unless null, gets that pattern's number from 0, or -1.
    int indexOfFirstOcc(Self const& a, Self const& b, int* which) const
    {
        return findFirstOcc<Unit>(ref(), {a.ref(), b.ref()}, which);
    }

    /// The same with six patterns.
    int indexOfFirstOcc(Self const& a, Self const& b, Self const& c, Self const& d, Self const& e,
                        Self const& f, int* which) const
    {
        return findFirstOcc<Unit>(ref(), {a.ref(), b.ref(), c.ref(), d.ref(), e.ref(), f.ref()},
                                  which);
    }

    /// @}
    /// \name Containment
    /// An empty pattern is contained nowhere.
    /// @{

    /// True when the pattern is in the text, ignoring case.
    bool contains(Self const& pattern) const { return findText<Case::folded>(pattern, 0) >= 0; }

    /// The same, exact.
    bool containsCaseSen(Self const& pattern) const
    {
        return findText<Case::exact>(pattern, 0) >= 0;
    }

    /// True when the pattern is in the upper fold of the text. The pattern is promised to be in
    /// upper case already: folded once instead of twice.
    bool containsUpperCaseInput(Self const& pattern) const
    {
        return findText<Case::upperInput>(pattern, 0) >= 0;
    }

    /// @}
    /// \name Start and end of the text
    /// An empty text gives false, and so does an empty pattern or one longer than the text.
    /// @{

    /// True when the first unit is `c`, exact in spite of the name.
    bool startsWith(Unit const& c) const { return this->length != 0 && this->text[0] == c; }

    /// True when the last unit is `c`, exact in spite of the name.
    bool endsWith(Unit const& c) const
    {
        return this->length != 0 && this->text[this->length - 1] == c;
    }

    /// True when the text begins with the pattern, ignoring case.
    bool startsWith(Self pattern) const
    {
        return begins<Case::folded>(pattern.text, pattern.length);
    }

    /// The same, exact.
    bool startsWithCaseSen(Self pattern) const
    {
        return begins<Case::exact>(pattern.text, pattern.length);
    }

    /// True when the text ends with the pattern, ignoring case.
    bool endsWith(Self const& pattern) const { return endsFolded(pattern.text, pattern.length); }

    /// @}
    /// \name Editing in place
    /// Text that does not fit under N is lost from the end of the result. A result without
    /// units leaves text[0] as it was, unless the member says otherwise.
    /// @{

    /// Upper fold of every unit.
    void makeUpper() { qvStrings::makeUpper(ref()); }

    /// Lower fold of every unit.
    void makeLower() { qvStrings::makeLower(ref()); }

    /// Strips the units 0, 9, 10, 13 and 32 (zeros, tabs, line ends, blanks) from both ends, and no
    /// others. Terminator in every case.
    void trim() { qvStrings::trim(ref()); }

    /// Every unit equal to `a`, ignoring case, becomes `b` as given; the length stays, also for
    /// b = 0.
    Self& replace(Unit const& a, Unit const& b)
    {
        replaceUnit(ref(), a, b);
        return self();
    }

    /// Every `from`, searched ignoring case, becomes `to` as it stands. The text put in is stepped
    /// over. When the text grows past N its tail is cut, and the search goes on over what is
    /// left. An empty `from` changes nothing.
    Self& replace(Self const& from, Self const& to)
    {
        replaceAll<Case::folded>(ref(), from.ref(), to.ref());
        return self();
    }

    /// The same, searched exactly.
    Self& replaceCaseSen(Self const& from, Self const& to)
    {
        replaceAll<Case::exact>(ref(), from.ref(), to.ref());
        return self();
    }

    /// Removes every `pattern`, ignoring case. An occurrence that a gap forms with text before
    /// it stays: "ab" removed from "aabb" leaves "ab".
    Self& remove(Self const& pattern)
    {
        removeAll<Case::folded>(ref(), pattern.ref());
        return self();
    }

    /// The same, exact.
    Self& removeCaseSens(Self const& pattern)
    {
        removeAll<Case::exact>(ref(), pattern.ref());
        return self();
    }

    /// Removes every `c`, ignoring case, and returns a copy of the changed string.
    Self remove(Unit const& c)
    {
        removeUnit(ref(), c);
        return self();
    }

    /// Cuts `count` units at `start`; the caller keeps start + count within the length. A range
    /// beyond the end gives a string of full length N that holds the object's own bytes from
    /// behind the range and zeros beyond the object.
    void remove(int const& start, int const& count) { removeRange(ref(), start, count); }

    /// Puts `s` in at `pos`, at the end for one beyond it. A negative one is outside the contract
    /// and gives a string of length N, stale units included. `s.insert(p, s)` puts in the first p
    /// units.
    void insert(int const& pos, Self const& s) { qvStrings::insert(ref(), pos, s.ref()); }

    /// @}
    /// \name Slices
    /// New strings whose units behind the text are zero, unless they are copies of the receiver.
    /// @{

    /// The first `n` units, at most all of them. A negative n is no "all": it gives length N,
    /// stale units included (intended).
    Self left(int n) const
    {
        int const count = n < this->length ? n : this->length;
        return mid(0, count);
    }

    /// `count` units from `start`. Neither is held against the length: the result is `count`
    /// long, at most N, also past the end of the text or ahead of it, and then holds the object's
    /// own bytes and zeros beyond the object. A negative count gives N.
    Self mid(int const& start, int const& count) const
    {
        Self result;
        unsigned const kept = cutCount(static_cast<unsigned>(count));
        copyOut<Unit>(ref(), start, kept, result.text);
        result.length = static_cast<unsigned short>(kept);
        return result;
    }

    /// The text up to the first `c`, ignoring case, with it or without. Not found: a copy of the
    /// receiver. Found at position 0 the sense of `withSeparator` turns round (intended): true
    /// gives the empty string, false the one unit `c` as given.
    Self left(Unit const& c, bool const& withSeparator) const
    {
        int const at = indexOf(c, 0);
        if (at < 0)
            return self();
        if (at > 0)
            return left(withSeparator ? at + 1 : at);
        Self result;
        if (!withSeparator)
            result += c;
        return result;
    }

    /// What `left` gives, and the receiver keeps what stands behind the separator, which leaves it
    /// in either case; nothing behind it sets the length to 0 and changes nothing else. Not
    /// found: the receiver is cleared.
    Self leftNCut(Unit const& c, bool const& withSeparator)
    {
        int const at = indexOf(c, 0);
        Self result = left(c, withSeparator);
        if (at < 0)
            clear();
        else
            remove(0, at + 1);
        return result;
    }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Rules() = default;

    TextRef<Unit> ref() { return {reinterpret_cast<unsigned char*>(this), layoutOf<Image>()}; }
    TextRef<Unit const> ref() const
    {
        return {reinterpret_cast<unsigned char const*>(this), layoutOf<Image>()};
    }

    Self& self() { return static_cast<Self&>(*this); }
    Self const& self() const { return static_cast<Self const&>(*this); }

    /// The low 16 bits of a count that members take modulo 65536, so -1 counts as 65535.
    static unsigned lowCount(int count) { return static_cast<unsigned>(count) & 0xFFFFu; }

    /// `count`, at most the capacity.
    static unsigned cutCount(unsigned count)
    {
        unsigned const capacity = layoutOf<Image>().capacity;
        return count < capacity ? count : capacity;
    }

    /// The equal-first check: first unit, which the caller names because an empty text has one
    /// too, then length, then text.
    bool equalExact(Unit first, Unit const* s, unsigned n) const
    {
        return this->text[0] == first && this->length == n && equal<Case::exact>(this->text, s, n);
    }

    /// One unsigned 16-bit comparison holds a pattern of `n` units against the length: 0 wraps to
    /// 65535 and fails with the patterns that are too long.
    bool holdsPattern(unsigned n) const
    {
        return static_cast<unsigned short>(n - 1) < this->length;
    }

    template <Case mode>
    bool begins(Unit const* s, unsigned n) const
    {
        return holdsPattern(n) && equal<mode, Unit>(this->text, s, n);
    }

    bool endsFolded(Unit const* s, unsigned n) const
    {
        return holdsPattern(n) && equal<Case::folded, Unit>(this->text + (this->length - n), s, n);
    }

private:
    unsigned commonLength(Self const& other) const
    {
        return this->length < other.length ? this->length : other.length;
    }

    /// The equal-first check of the folded receiver. Only units of the text are folded, not the
    /// stale first one of an empty text.
    template <Case mode>
    bool equalToInput(Self const& other) const
    {
        Unit const first = isEmpty() ? this->text[0] : foldFirst<mode>(this->text[0]);
        return first == other.text[0] && this->length == other.length &&
               equal<mode>(this->text, other.text, this->length);
    }

    template <Case mode>
    int findText(Self const& pattern, int start) const
    {
        return find<mode, Unit>(ref(), pattern.text, pattern.length, start);
    }
};

} // namespace qvStrings
