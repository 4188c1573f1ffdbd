#pragma once

/// What the typed tests of the 16-bit strings share: ways to lay and look at their texts in units
/// that ask none of their own members.

#include "tests/strings/guarded.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace images16 {

using guarded::Bytes;
using guarded::Guarded;
using guarded::ImageName;
using guarded::Seen;
using guarded::staleByte;
using Unit = unsigned short;
using Units = std::vector<Unit>;
using Text = std::u16string_view;

/// Null texts that no overload for another pointer can claim.
inline constexpr char const* nullText = nullptr;
inline constexpr Unit const* nullUnits = nullptr;

/// Capacities that matter: the smallest, an odd one, both targets of the conversions to 8 bits, one
/// between, and the only one above the bound of a measured text.
using CurrentImages = testing::Types<_qvString<10>, _qvString<15>, _qvString<48>, _qvString<250>,
                                     _qvString<500>, _qvString<2500>>;
using MainImages =
    testing::Types<_qvString<10>, _qvString<15>, _qvString<48>, _qvString<250>, _qvString<500>,
                   _qvString<2500>, _qvString_old<10>, _qvString_old<15>, _qvString_old<48>,
                   _qvString_old<250>, _qvString_old<500>, _qvString_old<2500>>;
/// Few and cheap: for tests that run over all units.
using SmallestImages = testing::Types<_qvString<10>, _qvString_old<10>>;

template <template <int> class S>
using AllCapacities16 =
    testing::Types<S<10>, S<15>, S<25>, S<30>, S<48>, S<50>, S<75>, S<100>, S<125>, S<150>, S<200>,
                   S<225>, S<250>, S<500>, S<1000>, S<2500>>;

template <typename S>
inline constexpr std::size_t capacity = guarded::ImageOf<S>::capacity;

/// The capacity as the members take their counts.
template <typename S>
inline constexpr int intCapacity = static_cast<int>(capacity<S>);

/// The bytes of a text as an image holds them: low byte first.
inline std::string storedBytes(Text text)
{
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (char16_t const unit : text) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    }
    return bytes;
}

/// A text for a failure message.
inline std::string shown(Text text)
{
    std::string line;
    for (char16_t const unit : text) {
        if (unit >= 0x20 && unit < 0x7F) {
            line += static_cast<char>(unit);
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "<%04X>", static_cast<unsigned>(unit));
            line += code;
        }
    }
    return line;
}

/// A raw text with its terminator, as the members take it.
inline Units raw(Text text)
{
    Units units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

/// Units without a terminator, alone in their block: a sanitizer sees every read behind them.
inline Units unterminated(Text text)
{
    return {text.begin(), text.end()};
}

/// The same for bytes.
inline std::vector<char> unterminated(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// A string between guard bytes that holds `text`; every byte that is no part of it, spare ones
/// included, becomes `rest`.
template <typename S>
class Laid : public Guarded<S>
{
public:
    explicit Laid(Text text, unsigned char rest = staleByte)
    {
        // The terminator is two bytes wide: one comes along, the other is written behind it.
        this->lay(storedBytes(text) + '\0', rest);
        this->layLength(text.size());
    }

    /// Puts units into the text area, whatever the length says.
    Laid& stale(std::size_t index, Text units)
    {
        auto const bytes = storedBytes(units);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            this->layText(2 * index + i, static_cast<unsigned char>(bytes[i]));
        }
        return *this;
    }
};

/// An argument that holds `text`, zeros inside included; all else in it is zero.
template <typename S>
S stringOf(Text text)
{
    Laid<S> laid(text, 0);
    return *laid;
}

/// What is left of a text that has to go into an S.
template <typename S, typename Character>
std::basic_string<Character> cut(std::basic_string<Character> const& text)
{
    return text.substr(0, capacity<S>);
}

/// The units of an object as text positions see them, in the order of its image: positions below 0
/// and behind the text reach the other fields, and what lies outside of the object reads as zero.
inline std::u16string ownUnits(Seen const& string, long long start, std::size_t count)
{
    auto const byteAt = [&string](long long at) {
        bool const inside = at >= 0 && at < static_cast<long long>(string.size);
        return inside ? unsigned{string.bytes[at]} : 0U;
    };
    std::u16string own;
    auto at = static_cast<long long>(string.textAt) + 2 * start;
    for (std::size_t i = 0; i < count; ++i, at += 2) {
        own += static_cast<char16_t>(byteAt(at) | byteAt(at + 1) << 8U);
    }
    return own;
}

template <typename S>
std::u16string ownUnits(S const& string, long long start, std::size_t count)
{
    return ownUnits(guarded::seen(string), start, count);
}

/// The units in use, zeros inside included.
inline std::u16string textOf(Seen const& string)
{
    auto const length = static_cast<std::size_t>(guarded::lengthOf(string));
    return ownUnits(string, 0, std::min(length, string.capacity + 1));
}
template <typename S>
std::u16string textOf(S const& string)
{
    return images16::textOf(guarded::seen(string));
}

/// The text of any image where it stands, for arguments that point into the receiver.
template <typename S>
Unit const* textAt(S const& string)
{
    return string.text;
}

/// The whole image that is expected of an S: `text` at the start of the text area, `rest` in every
/// text byte behind it, `spare` in the spare word. The terminator is part of `text` or of `rest`.
template <typename S>
Bytes imageOf(std::size_t length, Text text, unsigned char rest, unsigned char spare)
{
    return guarded::imageBytes<S>(length, storedBytes(text), rest, spare);
}

/// Length, units and terminator are those of the given text.
inline testing::AssertionResult holds(Seen const& string, Text text)
{
    int const length = guarded::lengthOf(string);
    auto const wrong = [&](std::string const& what) {
        return testing::AssertionFailure()
               << what << ", length " << length << ", text \"" << shown(images16::textOf(string))
               << "\" instead of \"" << shown(text) << '"';
    };
    if (length != static_cast<int>(text.size())) {
        return wrong("length differs");
    }
    if (images16::textOf(string) != text) {
        return wrong("text differs");
    }
    if (ownUnits(string, static_cast<long long>(text.size()), 1) != std::u16string(1, u'\0')) {
        return wrong("no terminator");
    }
    return testing::AssertionSuccess();
}
template <typename S>
testing::AssertionResult holds(S const& string, Text text)
{
    return holds(guarded::seen(string), text);
}

/// The length, and the whole text area: `text` at its start and the byte `rest` in all that is
/// behind. The terminator is part of `text`. The spare word is not looked at.
inline testing::AssertionResult areaIs(Seen const& string, std::size_t length, Text text,
                                       unsigned char rest)
{
    if (guarded::lengthOf(string) != static_cast<int>(length)) {
        return testing::AssertionFailure()
               << "length is " << guarded::lengthOf(string) << " instead of " << length
               << ", text \"" << shown(images16::textOf(string)) << '"';
    }
    std::u16string expected(text);
    expected.resize(string.capacity + 1, static_cast<char16_t>(rest * 0x0101));
    auto const area = ownUnits(string, 0, string.capacity + 1);
    for (std::size_t i = 0; i <= string.capacity; ++i) {
        if (area[i] != expected[i]) {
            return testing::AssertionFailure()
                   << "text[" << i << "] is " << shown(area.substr(i, 1)) << " instead of "
                   << shown(expected.substr(i, 1)) << ", text \"" << shown(images16::textOf(string))
                   << '"';
        }
    }
    return testing::AssertionSuccess();
}
template <typename S>
testing::AssertionResult areaIs(S const& string, std::size_t length, Text text, unsigned char rest)
{
    return areaIs(guarded::seen(string), length, text, rest);
}

/// A receiver that was Laid on stale bytes now has this length and begins with these units, the
/// terminator among them, while all else is what it was: the stale units behind, the spare word
/// and the guard bytes around.
inline testing::AssertionResult became(Seen const& receiver, testing::AssertionResult const& guards,
                                       std::size_t length, Text text)
{
    auto const area = areaIs(receiver, length, text, staleByte);
    if (!area) {
        return area;
    }
    unsigned char const* const spare = receiver.bytes + receiver.spareAt;
    if (spare[0] != staleByte || spare[1] != staleByte) {
        return testing::AssertionFailure() << "the spare word was written";
    }
    return guards;
}
template <typename S>
testing::AssertionResult became(Laid<S>& receiver, std::size_t length, Text text)
{
    return became(guarded::seen(*receiver), receiver.guardsStand(), length, text);
}

/// Case folding written down a second time: of all units only ASCII letters change.
constexpr char16_t upperOf(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}
constexpr char16_t lowerOf(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

inline std::u16string upperOf(Text text)
{
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        unit = upperOf(unit);
    }
    return folded;
}

/// A byte as the unit that it becomes by its sign.
constexpr char16_t signExtended(unsigned char byte)
{
    return static_cast<char16_t>(byte < 0x80 ? byte : 0xFF00 + byte);
}
/// A text of bytes below 0x80 as units, where both ways give the same.
inline std::u16string widened(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// `count` letters a to z, over and over: a text of any length in which a shift shows.
inline std::u16string letters(std::size_t count)
{
    return widened(guarded::letters(count));
}

} // namespace images16
