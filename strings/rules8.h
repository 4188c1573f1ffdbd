#pragma once

#include "strings/core/compare.h"
#include "strings/core/edit.h"
#include "strings/core/layoutOf.h"
#include "strings/keepStorage.h"

namespace qvStrings {

/// The members that every 8-bit string has, whatever its image, each rule written once.
///
/// `Self` is the public class, `Image` its memory image. An object holds up to N characters
/// (N is the capacity of the image), never allocates, and is as safe as its bytes: there is no
/// lock. Text that does not fit is cut at the end, silently; no member reports a failure.
///
/// A `char const*` is measured by the low 16 bits of its strlen. Names without a suffix ignore
/// the case of ASCII letters; bytes from 0x80 up compare as themselves in every member.
/// "Terminator" in a comment means that text[length] = 0 is written; bytes behind it stay as
/// they were unless the comment says otherwise.
template <typename Self, typename Image>
class Rules8 : public Image
{
public:
    Rules8(Rules8 const&) = default;

    /// Copies the length and all N + 1 text bytes, so what stands behind the terminator travels
    /// too; the spare byte of the image stays. Self-assignment changes nothing.
    Rules8& operator=(Rules8 const& other)
    {
        std::memmove(this->text, other.text, sizeof this->text);
        this->length = other.length;
        return *this;
    }

    /// \name Length and state
    /// @{

    /// Empties the string and zeroes all N + 1 text bytes. The spare byte stays.
    void clear()
    {
        std::memset(this->text, 0, sizeof this->text);
        this->length = 0;
    }

    /// Zeroes text[length] to text[N], so that two strings of equal text are equal bytes: for a
    /// block compare or write of a record. A length above N is outside the contract.
    void clearUnused() { qvStrings::clearUnused(ref()); }

    /// Takes the length from the text, after the text was filled through its bytes: the first
    /// zero among text[0] to text[N - 1], else N. Terminator.
    void calcLength() { qvStrings::calcLength(ref()); }

    /// Sets the length: n at or below 0 gives 0, n above N gives N. Terminator. The text stays,
    /// so a greater length exposes whatever bytes stand there.
    void setLength(short const& n) { qvStrings::setLength(ref(), n); }

    /// True for a length of 0.
    bool isEmpty() const { return this->length == 0; }

    /// True for a length other than 0.
    bool hasData() const { return this->length != 0; }

    /// @}
    /// \name Assignment
    /// @{

    /// Takes the first N characters of `s`. Terminator. Null sets the length to 0 and nothing
    /// else, so text[0] keeps its byte. `s` may point into this object.
    Self& operator=(char const* s)
    {
        if (s == nullptr)
            this->length = 0;
        else
            assign(ref(), s, shortLength(s));
        return self();
    }

    /// Becomes the one character `c`, length 1 also for c = 0. Terminator.
    Self& operator=(char const& c)
    {
        assign(ref(), &c, 1);
        return self();
    }

    /// A new string of `n` characters `c`, all other bytes zero: n below 1 gives the empty
    /// string, else n modulo 65536 counts, cut at N.
    static Self createCharString(char& c, int const& n)
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

    /// Appends `s`. Null and the empty text change nothing at all. Terminator.
    void add(char const* s)
    {
        if (s != nullptr)
            add(s, shortLength(s));
    }

    /// Appends `n` bytes of `s`, zero bytes included; n is not reduced modulo 65536. Null and
    /// n = 0 change nothing at all. Terminator. `s` must hold as many of the n bytes as fit.
    void add(char const* s, unsigned int n)
    {
        if (s != nullptr && n != 0)
            append(ref(), s, n);
    }

    /// Appends `other`, whose length is read once: `s.add(s)` doubles the text. An empty `other`
    /// changes nothing at all. Terminator.
    void add(Self const& other) { add(other.text, other.length); }

    /// Appends `s`. Null changes nothing; the empty text rewrites the terminator.
    Self& operator+=(char const* s)
    {
        if (s != nullptr)
            append(ref(), s, shortLength(s));
        return self();
    }

    /// Appends `other` character by character, reading its length afresh on each step. So
    /// `s += s` does not double s: it repeats the text until the capacity is full. This is
    /// intended. Terminator, also for an empty `other`.
    Self& operator+=(Self const& other)
    {
        appendRepeating(ref(), other.ref());
        return self();
    }

    /// Appends one character, zero included. A full string stays as it is.
    Self& operator+=(char const& c)
    {
        appendUnit(ref(), c);
        return self();
    }

    /// A copy with `c` appended. Not const although it changes nothing: callers depend on the
    /// signature.
    Self operator+(char const& c)
    {
        Self result = self();
        result += c;
        return result;
    }

    /// A copy with `other` appended, its length read once: `s + s` doubles the text. Not const
    /// although it changes nothing.
    Self operator+(Self const& other) { return combined(other); }

    /// A copy with `s` appended as by `add`.
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

    /// @}
    /// \name Comparison
    /// @{

    /// True for equal lengths and equal characters, ignoring case. Two empty strings are equal
    /// whatever stands behind their terminators.
    bool isEqual(Self const& other) const
    {
        return this->length == other.length && equalFolded(this->text, other.text, this->length);
    }

    /// @}
    /// \name Start and end of the text
    /// An empty receiver gives false, and so does an empty pattern or one longer than the
    /// receiver.
    /// @{

    /// True when the text begins with `s`, ignoring case; `s` counts with its first N characters.
    /// Null gives false.
    bool startsWith(char const* s) const
    {
        return s != nullptr && beginsFolded(s, patternLength(s));
    }

    /// @}
    /// \name Editing
    /// @{

    /// Cuts `count` characters at `start`; the caller keeps start + count within the length. A
    /// result without characters leaves text[0] as it was, else terminator. A range beyond the
    /// end gives a string of full length N that holds the object's own bytes from behind the
    /// range and zeros beyond the object.
    void remove(int const& start, int const& count) { removeRange(ref(), start, count); }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Rules8() = default;

    TextRef<char> ref() { return {reinterpret_cast<unsigned char*>(this), layout}; }
    TextRef<char const> ref() const
    {
        return {reinterpret_cast<unsigned char const*>(this), layout};
    }

    /// As `clear()` for null, else the first N characters of `s` with all behind them zero.
    void construct(char const* s)
    {
        if (s == nullptr)
            clear();
        else
            assignCleared(ref(), s, shortLength(s));
    }

    /// The low 16 bits of a count that members take modulo 65536, so -1 counts as 65535.
    static unsigned lowCount(int count) { return static_cast<unsigned>(count) & 0xFFFFu; }

private:
    static constexpr Layout layout = layoutOf<Image>();

    Self& self() { return static_cast<Self&>(*this); }
    Self const& self() const { return static_cast<Self const&>(*this); }

    /// Length of a pattern text, which counts with its first N characters.
    static unsigned patternLength(char const* s)
    {
        unsigned const length = shortLength(s);
        return length < layout.capacity ? length : layout.capacity;
    }

    /// One unsigned 16-bit comparison holds a pattern of `n` characters against the length: 0
    /// wraps to 65535 and fails with the patterns that are too long.
    bool holdsPattern(unsigned n) const
    {
        return static_cast<unsigned short>(n - 1) < this->length;
    }

    bool beginsFolded(char const* s, unsigned n) const
    {
        return holdsPattern(n) && equalFolded(this->text, s, n);
    }
};

} // namespace qvStrings
