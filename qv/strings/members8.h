#pragma once

#include "qv/strings/members.h"

namespace QV_MEMBER_NAMESPACE {

/// The members that every 8-bit string has beside those of `Members`, whatever its image.
///
/// @tparam Self The public class.
/// @tparam Image Its memory image.
template <typename Self, typename Image>
class Members8 : public Members<Self, Image>
{
    using Base = Members<Self, Image>;

public:
    using Base::operator==;
    using Base::endsWith;
    using Base::startsWith;
    using Base::startsWithCaseSen;

    /// \name Assignment
    /// Bytes behind the new terminator stay, and so do the spare bytes.
    /// @{

    /// Takes the first N characters of a text. Terminator.
    /// @param s May point into this object. Null only sets the length to 0: text[0] keeps its byte.
    /// @return This string.
    Self& operator=(char const* s)
    {
        this->take(measured(s));
        return this->self();
    }

    /// Becomes one character, length 1 also for a zero byte. Terminator.
    /// @param c The character.
    /// @return This string.
    Self& operator=(char const& c)
    {
        assign(this->ref(), Run<char>{&c, 1});
        return this->self();
    }

    /// @}
    /// \name Equality
    /// @{

    /// @return True for exact equality of first byte, length and text.
    /// @param s Text to compare with; null gives false.
    bool operator==(char const* s) const { return equalExact(this->checkedRef(), s); }

    /// @}
    /// \name Containment
    /// @{

    /// @return How many characters equal `c`, ignoring case.
    /// @param c Character to count.
    int count(char c) const { return countUnit<Case::folded>(this->checkedRef(), c); }

    /// @return How many characters equal `c`, exact.
    /// @param c Character to count.
    int countCaseSen(char const& c) const { return countUnit<Case::exact>(this->checkedRef(), c); }

    /// @}
    /// \name Start and end of the text
    /// @{

    /// @return True when the text begins with the pattern, ignoring case.
    /// @param s The pattern's bytes; need not be terminated. Null gives false.
    /// @param n How many, modulo 65536. Above the length is false.
    bool startsWith(char const* s, int n) const
    {
        return begins<Case::folded>(this->checkedRef(), counted(s, n));
    }

    /// @return True when the text begins with the pattern, exact.
    /// @param s The whole pattern counts, not cut at N. Null gives false.
    bool startsWithCaseSen(char const* s) const
    {
        return begins<Case::exact>(this->checkedRef(), measured(s));
    }

    /// True when the text ends with the pattern, ignoring case. The count is a gate only: the whole
    /// pattern is compared, not its first n bytes (intended, unlike `startsWith`).
    /// @param s The pattern, which the caller keeps within the text. Null and the empty one give
    /// false.
    /// @param n The gate: modulo 65536, it must be neither 0 nor above the length.
    /// @return True when the gate is passed and the text ends with the pattern.
    bool endsWith(char const* s, int n) const
    {
        if (!holdsPattern(this->checkedRef(), static_cast<unsigned>(n)))
            return false;
        this->expect(measured(s).count <= this->length, {n});
        return ends(this->checkedRef(), measured(s));
    }

    /// @}
    /// \name Append
    /// @{

    /// Appends a text in a field as `addSpacingC` does, but the field is NOT held inside the
    /// capacity: the caller has room for |width| more characters, else the blanks are written past
    /// the text.
    /// @param s The text; null counts as empty.
    /// @param width Columns: negative pads with blanks on the left, positive on the right.
    void addSpacing(char const* s, int const& width)
    {
        this->expectRoomForField(width);
        appendUnboundedField(this->checkedRef(), measured(s), width);
    }

    /// @}

protected:
    /// For the constructors of `Self`, which write what they promise and keep the rest.
    Members8() = default;

    /// The first N characters of a text, all text behind them zero.
    void construct(Run<char> source) { assignCleared(this->ref(), source); }
};

} // namespace QV_MEMBER_NAMESPACE
