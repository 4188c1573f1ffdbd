#pragma once

/// Helpers for the tests of the 8-bit strings: an object between guard bytes, and ways to look at
/// its memory image that ask none of its own members.

#include "tests/strings/images.h"

#include <gtest/gtest.h>

#include <algorithm>
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

/// An object's bytes and the places of its fields. What looks at any object is written over these
/// and compiled once, not once for each class.
struct Seen
{
    unsigned char const* bytes;
    std::size_t size;
    std::size_t capacity;
    std::size_t lengthAt;
    std::size_t textAt;
    std::size_t spareAt;
    std::size_t spareSize;
};

template <typename S>
Seen seen(S const& string)
{
    using Image = ImageOf<S>;
    return {reinterpret_cast<unsigned char const*>(&string),
            sizeof(S),
            Image::capacity,
            Image::lengthAt,
            Image::textAt,
            Image::spareAt,
            Image::spareSize};
}

/// True while all bytes before and behind the object are guardByte, `room` on either side.
inline testing::AssertionResult guardsStand(unsigned char const* storage, std::size_t room,
                                            std::size_t objectSize)
{
    for (std::size_t i = 0; i < room + objectSize + room; ++i) {
        bool const inside = i >= room && i < room + objectSize;
        if (!inside && storage[i] != guardByte) {
            return testing::AssertionFailure()
                   << "byte " << static_cast<long>(i) - static_cast<long>(room)
                   << " relative to an object of " << objectSize << " bytes is now "
                   << static_cast<int>(storage[i]);
        }
    }
    return testing::AssertionSuccess();
}

/// An object of the string class S inside storage that was filled with staleByte before the
/// constructor ran, with Room guard bytes on each side. Any constructor arguments go through.
template <typename S, std::size_t Room = 64>
class Guarded
{
public:
    template <typename... Arguments>
    explicit Guarded(Arguments&&... arguments)
    {
        std::memset(storage, guardByte, sizeof storage);
        std::memset(begin(), staleByte, sizeof(S));
        place = ::new (begin()) S(std::forward<Arguments>(arguments)...);
    }
    Guarded(Guarded const&) = delete;
    Guarded& operator=(Guarded const&) = delete;

    S& object() { return *place; }
    S& operator*() { return *place; }
    S* operator->() { return place; }

    /// The whole object, spare bytes included.
    Bytes bytes() const { return {begin(), begin() + sizeof(S)}; }

    /// The guard bytes behind the object, for the few writes that are laid down to pass its end.
    Bytes behind() const { return {begin() + sizeof(S), storage + sizeof storage}; }

    /// True while all guard bytes are what they were.
    testing::AssertionResult guardsStand() const
    {
        return guarded::guardsStand(storage, Room, sizeof(S));
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
    unsigned char* begin() { return storage + Room; }
    unsigned char const* begin() const { return storage + Room; }

    static_assert(Room % 16 == 0, "the object has to stay aligned behind its front guard");
    alignas(16) unsigned char storage[Room + sizeof(S) + Room];
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
inline int lengthOf(Seen const& string)
{
    std::uint16_t length = 0;
    std::memcpy(&length, string.bytes + string.lengthAt, sizeof length);
    return length;
}
template <typename S>
int lengthOf(S const& string)
{
    return lengthOf(seen(string));
}

/// One byte of the text area, also behind the length.
inline int textByte(Seen const& string, std::size_t index)
{
    return string.bytes[string.textAt + index];
}
template <typename S>
int textByte(S const& string, std::size_t index)
{
    return textByte(seen(string), index);
}

/// The characters in use, zeros inside included. A length above the capacity is cut at the end of
/// the text area, so that a failing test cannot read foreign memory.
inline std::string textOf(Seen const& string)
{
    auto const* text = reinterpret_cast<char const*>(string.bytes) + string.textAt;
    std::size_t const length = static_cast<std::size_t>(lengthOf(string));
    return {text, std::min(length, string.capacity + 1)};
}
template <typename S>
std::string textOf(S const& string)
{
    return textOf(seen(string));
}

/// The whole image that is expected of an S: `text` lies at the start of the text area, `rest` in
/// every text byte behind it, `spare` in the spare bytes. The terminator is part of `text` or of
/// `rest`: nothing is added. Of `fields` only the places are looked at.
inline Bytes imageBytes(Seen const& fields, std::size_t length, std::string_view text,
                        unsigned char rest, unsigned char spare)
{
    Bytes image(fields.size, rest);
    for (std::size_t i = 0; i < fields.spareSize; ++i) {
        image[fields.spareAt + i] = spare;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        image[fields.textAt + i] = static_cast<unsigned char>(text[i]);
    }
    image[fields.lengthAt] = static_cast<unsigned char>(length & 0xFFU);
    image[fields.lengthAt + 1] = static_cast<unsigned char>(length >> 8U);
    return image;
}
template <typename S>
Bytes imageBytes(std::size_t length, std::string_view text, unsigned char rest, unsigned char spare)
{
    using Image = ImageOf<S>;
    return imageBytes({nullptr, Image::size, Image::capacity, Image::lengthAt, Image::textAt,
                       Image::spareAt, Image::spareSize},
                      length, text, rest, spare);
}

/// Length, characters and terminator are those of the given text.
inline testing::AssertionResult holds(Seen const& string, std::string_view text)
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
template <typename S>
testing::AssertionResult holds(S const& string, std::string_view text)
{
    return holds(seen(string), text);
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
