#pragma once

/// What the tests of the 8-bit strings share that run on the current image and on both older ones.

#include "tests/strings/guarded.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace images8 {

using guarded::ImageName;

/// All three templates at the capacities that matter: the smallest, neighbours of a limit, the
/// tool's own, the largest.
using AllImages = testing::Types<
    _qvString8_allSize<6>, _qvString8_allSize<7>, _qvString8_allSize<8>, _qvString8_allSize<14>,
    _qvString8_allSize<15>, _qvString8_allSize<250>, _qvString8_allSize<5000>,
    _qvString8_evenSize_old<6>, _qvString8_evenSize_old<8>, _qvString8_evenSize_old<14>,
    _qvString8_evenSize_old<250>, _qvString8_evenSize_old<5000>, _qvString8_UnevenSize_old<7>,
    _qvString8_UnevenSize_old<15>, _qvString8_UnevenSize_old<25>, _qvString8_UnevenSize_old<125>>;

template <typename S>
inline constexpr std::size_t capacity = guarded::ImageOf<S>::capacity;

/// The capacity as the members take their counts.
template <typename S>
inline constexpr int intCapacity = static_cast<int>(capacity<S>);

/// A null text that no overload for another pointer can claim.
inline constexpr char const* nullText = nullptr;

/// A string between guard bytes that holds `text`; behind the terminator lie stale bytes, and the
/// spare bytes of the image hold the same value.
template <typename S>
class Laid : public guarded::Guarded<S>
{
public:
    explicit Laid(std::string_view text, unsigned char rest = guarded::staleByte)
    {
        this->lay(text, rest);
    }

    /// Puts bytes behind the terminator, which is where old text stays.
    Laid& stale(std::size_t index, std::string_view bytes)
    {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            this->layText(index + i, static_cast<unsigned char>(bytes[i]));
        }
        return *this;
    }
};

/// An argument that holds `text`, zeros inside included.
template <typename S>
S stringOf(std::string_view text)
{
    Laid<S> laid(text, 0);
    return *laid;
}

template <typename S>
bool fits(std::string_view text)
{
    return text.size() <= capacity<S>;
}

/// What is left of a text that has to go into an S.
template <typename S>
std::string cut(std::string_view text)
{
    return std::string(text.substr(0, capacity<S>));
}

/// A text without a terminator, alone in its block: a sanitizer sees every read behind it.
inline std::vector<char> unterminated(std::string_view text)
{
    return {text.begin(), text.end()};
}

/// The address at which the text of any image stands, for arguments that point into the receiver.
template <typename S>
char const* textAt(S const& string)
{
    return reinterpret_cast<char const*>(&string) + guarded::ImageOf<S>::textAt;
}

/// The length, and the whole text area: `text` at its start and `rest` in every byte behind. The
/// terminator is part of `text`. Spare bytes are not looked at.
inline testing::AssertionResult areaIs(guarded::Seen const& string, std::size_t length,
                                       std::string_view text, unsigned char rest)
{
    if (guarded::lengthOf(string) != static_cast<int>(length)) {
        return testing::AssertionFailure()
               << "length is " << guarded::lengthOf(string) << " instead of " << length
               << ", text \"" << guarded::textOf(string) << '"';
    }
    for (std::size_t i = 0; i <= string.capacity; ++i) {
        int const expected = i < text.size() ? static_cast<unsigned char>(text[i]) : rest;
        if (guarded::textByte(string, i) != expected) {
            return testing::AssertionFailure()
                   << "text[" << i << "] is " << guarded::textByte(string, i) << " instead of "
                   << expected << ", text \"" << guarded::textOf(string) << '"';
        }
    }
    return testing::AssertionSuccess();
}
template <typename S>
testing::AssertionResult areaIs(S const& string, std::size_t length, std::string_view text,
                                unsigned char rest)
{
    return areaIs(guarded::seen(string), length, text, rest);
}

/// A receiver that was Laid on stale bytes now has this length and begins with these bytes, the
/// terminator among them, while all else is what it was: the stale bytes behind, the spare bytes
/// of the image and the guard bytes around it.
inline testing::AssertionResult became(guarded::Seen const& receiver,
                                       testing::AssertionResult const& guards, std::size_t length,
                                       std::string_view text)
{
    auto const area = areaIs(receiver, length, text, guarded::staleByte);
    if (!area) {
        return area;
    }
    for (std::size_t i = 0; i < receiver.spareSize; ++i) {
        if (receiver.bytes[receiver.spareAt + i] != guarded::staleByte) {
            return testing::AssertionFailure() << "the spare byte was written";
        }
    }
    return guards;
}
template <typename S>
testing::AssertionResult became(Laid<S>& receiver, std::size_t length, std::string_view text)
{
    return became(guarded::seen(*receiver), receiver.guardsStand(), length, text);
}

/// The bytes of an object as text positions see them, in the order of its image: positions below 0
/// and behind the text reach the other fields, and what lies outside of the object reads as zero.
inline std::string ownBytes(guarded::Seen const& string, long long start, std::size_t count)
{
    std::string own(count, '\0');
    for (std::size_t i = 0; i < count; ++i) {
        auto const at = static_cast<long long>(string.textAt) + start + static_cast<long long>(i);
        if (at >= 0 && at < static_cast<long long>(string.size)) {
            own[i] = static_cast<char>(string.bytes[at]);
        }
    }
    return own;
}
template <typename S>
std::string ownBytes(S const& string, long long start, std::size_t count)
{
    return ownBytes(guarded::seen(string), start, count);
}

/// Case folding written down a second time: only ASCII letters change.
constexpr unsigned char upperOf(unsigned char byte)
{
    return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 32) : byte;
}
constexpr unsigned char lowerOf(unsigned char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}

inline std::string upperOf(std::string_view text)
{
    std::string folded(text);
    for (char& byte : folded) {
        byte = static_cast<char>(upperOf(static_cast<unsigned char>(byte)));
    }
    return folded;
}

/// -1, 0 or 1: of a memory comparison only the sign is defined.
constexpr int signOf(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace images8
