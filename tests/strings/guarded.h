#pragma once

/// Helpers for the tests of the 8-bit strings: an object between guard bytes, and ways to look at
/// its memory image that ask none of its own members.

#include "tests/strings/images.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace guarded {

using Bytes = std::vector<unsigned char>;

/// Before and behind every object; nothing may ever change it.
inline constexpr unsigned char guardByte = 0xA5;
/// Fills the storage before an object is constructed on it, so that kept bytes show.
inline constexpr unsigned char staleByte = 0xAA;

/// An object of the string class S inside storage that was filled with staleByte before the
/// constructor ran, with Room guard bytes on each side. Any constructor arguments go through.
template <typename S, std::size_t Room = 64>
class Guarded
{
public:
    template <typename... Arguments>
    explicit Guarded(Arguments&&... arguments)
    {
        storage.fill(guardByte);
        std::memset(storage.data() + Room, staleByte, sizeof(S));
        place = ::new (storage.data() + Room) S(std::forward<Arguments>(arguments)...);
    }
    Guarded(Guarded const&) = delete;
    Guarded& operator=(Guarded const&) = delete;

    S& object() { return *place; }
    S& operator*() { return *place; }
    S* operator->() { return place; }

    /// The whole object, spare bytes included.
    Bytes bytes() const { return {begin(), begin() + sizeof(S)}; }

    /// The guard bytes behind the object, for the few writes that are laid down to pass its end.
    Bytes behind() const { return {begin() + sizeof(S), storage.data() + storage.size()}; }

    /// True while all guard bytes are what they were.
    testing::AssertionResult guardsStand() const
    {
        for (std::size_t i = 0; i < storage.size(); ++i) {
            bool const inside = i >= Room && i < Room + sizeof(S);
            if (!inside && storage[i] != guardByte) {
                return testing::AssertionFailure()
                       << "byte " << static_cast<long>(i) - static_cast<long>(Room)
                       << " relative to an object of " << sizeof(S) << " bytes is now "
                       << static_cast<int>(storage[i]);
            }
        }
        return testing::AssertionSuccess();
    }

    /// Lays the given text, its length and its terminator into the object without asking any member
    /// of it; every other byte, spare ones included, becomes `rest`.
    Guarded& lay(std::string_view text, unsigned char rest = staleByte)
    {
        std::memset(begin(), rest, sizeof(S));
        std::memcpy(begin() + ImageOf<S>::textAt, text.data(), text.size());
        begin()[ImageOf<S>::textAt + text.size()] = 0;
        return layLength(text.size());
    }

    /// Sets the length field alone, also to what no member would leave there.
    Guarded& layLength(std::size_t length)
    {
        auto const field = static_cast<std::uint16_t>(length);
        std::memcpy(begin() + ImageOf<S>::lengthAt, &field, sizeof field);
        return *this;
    }

    /// Sets one byte of the text area, whatever the length says.
    Guarded& layText(std::size_t index, unsigned char byte)
    {
        begin()[ImageOf<S>::textAt + index] = byte;
        return *this;
    }

private:
    unsigned char* begin() { return storage.data() + Room; }
    unsigned char const* begin() const { return storage.data() + Room; }

    static_assert(Room % 16 == 0, "the object has to stay aligned behind its front guard");
    alignas(16) std::array<unsigned char, Room + sizeof(S) + Room> storage;
    S* place;
};

/// All bytes of an object.
template <typename S>
Bytes bytesOf(S const& string)
{
    auto const* first = reinterpret_cast<unsigned char const*>(&string);
    return {first, first + sizeof(S)};
}

/// The length field, read from its place in the image.
template <typename S>
int lengthOf(S const& string)
{
    std::uint16_t length = 0;
    std::memcpy(&length, reinterpret_cast<unsigned char const*>(&string) + ImageOf<S>::lengthAt,
                sizeof length);
    return length;
}

/// One byte of the text area, also behind the length.
template <typename S>
int textByte(S const& string, std::size_t index)
{
    return reinterpret_cast<unsigned char const*>(&string)[ImageOf<S>::textAt + index];
}

/// The characters in use, zeros inside included. A length above the capacity is cut at the end of
/// the text area, so that a failing test cannot read foreign memory.
template <typename S>
std::string textOf(S const& string)
{
    auto const* text = reinterpret_cast<char const*>(&string) + ImageOf<S>::textAt;
    std::size_t const length = static_cast<std::size_t>(lengthOf(string));
    return {text, std::min(length, ImageOf<S>::capacity + 1)};
}

/// The whole image that is expected of an S: `text` lies at the start of the text area, `rest` in
/// every text byte behind it, `spare` in the spare bytes. The terminator is part of `text` or of
/// `rest`: nothing is added.
template <typename S>
Bytes imageBytes(std::size_t length, std::string_view text, unsigned char rest, unsigned char spare)
{
    using Image = ImageOf<S>;
    Bytes image(Image::size, rest);
    for (std::size_t i = 0; i < Image::spareSize; ++i) {
        image[Image::spareAt + i] = spare;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        image[Image::textAt + i] = static_cast<unsigned char>(text[i]);
    }
    image[Image::lengthAt] = static_cast<unsigned char>(length & 0xFFU);
    image[Image::lengthAt + 1] = static_cast<unsigned char>(length >> 8U);
    return image;
}

/// Length, characters and terminator are those of the given text.
template <typename S>
testing::AssertionResult holds(S const& string, std::string_view text)
{
    int const length = lengthOf(string);
    if (length != static_cast<int>(text.size())) {
        return testing::AssertionFailure() << "length is " << length << " instead of "
                                           << text.size() << ", text \"" << textOf(string) << '"';
    }
    if (textOf(string) != text) {
        return testing::AssertionFailure()
               << "text is \"" << textOf(string) << "\" instead of \"" << text << '"';
    }
    if (textByte(string, text.size()) != 0) {
        return testing::AssertionFailure()
               << "terminator is " << textByte(string, text.size()) << " instead of 0";
    }
    return testing::AssertionSuccess();
}

/// `count` letters a to z, over and over: a text of any length in which a shift shows.
inline std::string letters(std::size_t count)
{
    std::string text(count, 'a');
    for (std::size_t i = 0; i < count; ++i) {
        text[i] = static_cast<char>('a' + i % 26);
    }
    return text;
}

/// Capacities that matter: the smallest, odd ones and even ones, the tool's own, the largest.
template <template <int> class S>
using MainCapacities = testing::Types<S<6>, S<7>, S<8>, S<14>, S<15>, S<250>, S<5000>>;

/// Every capacity of the current 8-bit string.
template <template <int> class S>
using AllCapacities = testing::Types<S<6>, S<7>, S<8>, S<10>, S<12>, S<14>, S<15>, S<20>, S<25>,
                                     S<29>, S<30>, S<40>, S<50>, S<75>, S<100>, S<125>, S<150>,
                                     S<200>, S<250>, S<500>, S<1000>, S<2000>, S<3000>, S<5000>>;

using MainStrings8 = MainCapacities<_qvString8_allSize>;
using AllStrings8 = AllCapacities<_qvString8_allSize>;

} // namespace guarded
