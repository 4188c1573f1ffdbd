#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

#include <cstddef>
#include <cstring>
#include <functional>
#include <ostream>
#include <string_view>
#include <type_traits>
#include <version>

#ifdef __cpp_lib_format
#include <format>
#endif
#if __has_include(<fmt/format.h>)
#include <fmt/format.h>
#endif

/// @file
/// The fixed strings beside the C++ library: views of their text, `<<`, GoogleTest's output,
/// `std::hash`, `std::format` and fmt, and the way in and out of a record. Optional: no other
/// header includes this one. It works with all five templates, also with older images without
/// members.
///
/// All functions use length and text alone; zero units are part of a text. A length above the
/// capacity N, which only a damaged record or a conversion between widths leaves, counts as N.
/// Bytes of the 8-bit strings stay as they are, without an encoding. Where the units of a 16-bit
/// string become characters, they are read as UTF-16 and written as UTF-8.
namespace qvInterop {

/// \name The five templates
/// @{

/// The capacity of an 8-bit string class; 0 for any other type.
template <typename>
inline constexpr int capacity8 = 0;
/// @cond
template <int N>
inline constexpr int capacity8<_qvString8_allSize<N>> = N;
template <int N>
inline constexpr int capacity8<_qvString8_evenSize_old<N>> = N;
template <int N>
inline constexpr int capacity8<_qvString8_UnevenSize_old<N>> = N;
/// @endcond

/// The capacity of a 16-bit string class; 0 for any other type.
template <typename>
inline constexpr int capacity16 = 0;
/// @cond
template <int N>
inline constexpr int capacity16<_qvString<N>> = N;
template <int N>
inline constexpr int capacity16<_qvString_old<N>> = N;
/// @endcond

/// The capacity of any of the string classes; 0 for any other type.
template <typename String>
inline constexpr int capacityOf = capacity8<String> + capacity16<String>;

/// One of the three 8-bit string classes.
template <typename String>
concept String8 = capacity8<String>
!= 0;
/// One of the two 16-bit string classes.
template <typename String>
concept String16 = capacity16<String>
!= 0;
/// One of the five string classes.
template <typename String>
concept FixedString = String8<String> || String16<String>;

/// @}
/// \name Text out
/// @{

/// @return Units in use, at most N, whatever the length says.
/// @param string Any fixed string.
template <FixedString String>
std::size_t size(String const& string)
{
    constexpr unsigned capacity = capacityOf<String>;
    return string.length < capacity ? string.length : capacity;
}

/// A view of the text. It keeps the length that the string has now, shows later changes of the
/// units, and is valid as long as the string.
/// @param string The string; no temporary, which would end before its view.
/// @return The view.
template <String8 String>
std::string_view view(String const& string)
{
    return {string.text, size(string)};
}
template <String8 String>
std::string_view view(String const&& string) = delete;

/// The units of a 16-bit string as `char16_t`. It is a copy: `unsigned short` and `char16_t` are
/// different types, and a compiler may take a view of one as the other for memory that nobody
/// writes. Allocates nothing.
/// @tparam N The capacity of the string.
template <int N>
class U16Text
{
public:
    /// Copies the units.
    /// @param string The string, whose capacity is N.
    template <String16 String>
    requires(capacity16<String> == N) explicit U16Text(String const& string) : size_(size(string))
    {
        std::memcpy(text_, string.text, size_ * sizeof text_[0]);
    }

    /// @return A view of this copy, which must not be a temporary.
    operator std::u16string_view() const& { return {text_, size_}; }
    operator std::u16string_view() const&& = delete;

private:
    char16_t text_[std::size_t{N}];
    std::size_t size_;
};
/// @cond
template <String16 String>
U16Text(String const&) -> U16Text<capacity16<String>>;
/// @endcond

/// The units of a 16-bit string as UTF-8, for functions that print characters. Half of a surrogate
/// pair becomes U+FFFD. Allocates nothing.
/// @tparam N The capacity of the string.
template <int N>
class Utf8Text
{
public:
    /// Encodes the units.
    /// @param string The string, whose capacity is N.
    template <String16 String>
    requires(capacity16<String> == N) explicit Utf8Text(String const& string)
    {
        for (std::size_t i = 0; i < size(string); ++i) {
            char32_t const unit = string.text[i];
            bool const isPair =
                unit >> 10 == 0x36 && i + 1 < size(string) && string.text[i + 1] >> 10 == 0x37;
            if (isPair)
                put(0x10000 + ((unit & 0x3FF) << 10) + (string.text[++i] & 0x3FFu));
            else
                put(unit >> 11 == 0x1B ? 0xFFFD : unit);
        }
    }

    /// @return A view of these bytes, which must not be a temporary's.
    operator std::string_view() const& { return {text_, size_}; }
    operator std::string_view() const&& = delete;

private:
    void put(char32_t point)
    {
        if (point < 0x80)
            return putByte(point);
        if (point < 0x800) {
            putByte(0xC0 | point >> 6);
        } else {
            if (point < 0x10000) {
                putByte(0xE0 | point >> 12);
            } else {
                putByte(0xF0 | point >> 18);
                putByte(0x80 | (point >> 12 & 0x3F));
            }
            putByte(0x80 | (point >> 6 & 0x3F));
        }
        putByte(0x80 | (point & 0x3F));
    }

    void putByte(char32_t byte) { text_[size_++] = static_cast<char>(byte); }

    char text_[3 * std::size_t{N}]; // a pair of units is four bytes
    std::size_t size_ = 0;
};
/// @cond
template <String16 String>
Utf8Text(String const&) -> Utf8Text<capacity16<String>>;
/// @endcond

/// The text of a string for functions that print characters.
/// @param string The string; an 8-bit one is only viewed.
/// @return The bytes of an 8-bit string, the UTF-8 of a 16-bit one; it converts to a view.
template <String8 String>
std::string_view printable(String const& string)
{
    return view(string);
}
/// The same of a 16-bit string.
/// @param string The string.
/// @return The UTF-8 of the string; it converts to a view.
template <String16 String>
Utf8Text<capacity16<String>> printable(String const& string)
{
    return Utf8Text(string);
}

/// @}
/// \name Text in
/// @{

/// Takes the first N characters of a text, zero bytes included. Terminator; units behind it stay.
/// @param string Where the text goes.
/// @param text It may be a view of the string itself.
/// @return False when the text was cut.
template <String8 String>
bool assign(String& string, std::string_view text)
{
    std::string_view const kept = text.substr(0, capacity8<String>);
    if (!kept.empty()) // an empty view may be null
        std::memmove(string.text, kept.data(), kept.size());
    string.text[kept.size()] = 0;
    string.length = static_cast<unsigned short>(kept.size());
    return kept.size() == text.size();
}

/// Takes the first N units of a text as they are, zero units and surrogates included. Terminator;
/// units behind it stay.
/// @param string Where the text goes.
/// @param text The units.
/// @return False when the text was cut.
template <String16 String>
bool assign(String& string, std::u16string_view text)
{
    std::u16string_view const kept = text.substr(0, capacity16<String>);
    if (!kept.empty()) // an empty view may be null
        std::memcpy(string.text, kept.data(), kept.size() * sizeof kept[0]);
    string.text[kept.size()] = 0;
    string.length = static_cast<unsigned short>(kept.size());
    return kept.size() == text.size();
}

/// @}
/// \name In and out of a record
/// An object is its memory image: it may be part of a record, and a block copy of it is a copy of
/// the string. Yet `std::is_trivially_copyable` is false, since an assignment copies length and
/// text only and leaves the spare bytes of the image as they were. So `std::bit_cast` refuses the
/// strings, and compilers warn of a plain `std::memcpy` into one; use these two instead.
/// @{

/// Makes a string from an image. All bytes are taken as they are, spare ones too, but for a damaged
/// length: above N it becomes N, with the terminator behind the text.
/// @tparam String The class whose image it is.
/// @param image As many bytes as `String` has, at any alignment.
/// @return The string.
template <FixedString String>
String loadImage(void const* image)
{
    String string;
    std::memcpy(static_cast<void*>(&string), image, sizeof string);
    if (string.length > size(string)) {
        string.length = static_cast<unsigned short>(size(string));
        string.text[size(string)] = 0;
    }
    return string;
}

/// Writes the image of a string, spare bytes and text behind the terminator included. Call
/// `clearUnused()` first where records are compared as blocks.
/// @param string The string.
/// @param[out] image Room for as many bytes as the string has, at any alignment.
template <FixedString String>
void storeImage(String const& string, void* image)
{
    std::memcpy(image, static_cast<void const*>(&string), sizeof string);
}

/// @}

/// Prints the text for GoogleTest: in quotes, units that are not printable ASCII in hexadecimal,
/// and a length above N behind it.
/// @param string The string.
/// @param stream Where to.
template <FixedString String>
void print(String const& string, std::ostream& stream)
{
    constexpr char digits[] = "0123456789ABCDEF";
    stream << (String16<String> ? "u\"" : "\"");
    for (std::size_t i = 0; i < size(string); ++i) {
        unsigned const unit =
            static_cast<std::make_unsigned_t<std::remove_cvref_t<decltype(string.text[0])>>>(
                string.text[i]);
        if (unit == '"' || unit == '\\')
            stream << '\\';
        if (unit >= ' ' && unit < 0x7F) {
            stream << static_cast<char>(unit);
            continue;
        }
        stream << "\\x";
        for (int shift = String16<String> ? 12 : 4; shift >= 0; shift -= 4)
            stream << digits[unit >> shift & 0xF];
    }
    stream << '"';
    if (string.length > size(string))
        stream << " (length " << string.length << " of " << capacityOf<String> << ')';
}

} // namespace qvInterop

// Argument-dependent lookup finds these through the base classes of the strings.
namespace qvStrings {

/// Writes the text, with the width and fill of the stream.
/// @param stream Where to.
/// @param string The string.
/// @return The stream.
template <qvInterop::FixedString String>
std::ostream& operator<<(std::ostream& stream, String const& string)
{
    auto const text = qvInterop::printable(string);
    return stream << std::string_view(text);
}

/// GoogleTest calls it to show a string in a failure.
/// @param string The string.
/// @param stream Where to.
template <qvInterop::FixedString String>
// NOLINTNEXTLINE(readability-identifier-naming): GoogleTest's name
void PrintTo(String const& string, std::ostream* stream)
{
    qvInterop::print(string, *stream);
}

} // namespace qvStrings

/// @cond
/// The hash of the text, so a string can be the key of an unordered container. `operator==` is
/// finer in one place: two empty strings with different stale first units are unequal, so keep keys
/// that are empty by `clear()`.
template <qvInterop::FixedString String>
struct std::hash<String>
{
    std::size_t operator()(String const& string) const noexcept
    {
        auto const* const bytes = reinterpret_cast<char const*>(string.text);
        std::size_t const count = qvInterop::size(string) * sizeof string.text[0];
        return std::hash<std::string_view>{}(std::string_view(bytes, count));
    }
};
/// @endcond

#ifdef __cpp_lib_format
/// `std::format` takes a string as it takes a `std::string_view`.
template <qvInterop::FixedString String>
struct std::formatter<String> : std::formatter<std::string_view>
{
    /// Writes the text as the format asks.
    /// @param string The string.
    /// @param context Where to.
    /// @return The place behind the text.
    auto format(String const& string, auto& context) const
    {
        auto const text = qvInterop::printable(string);
        return std::formatter<std::string_view>::format(std::string_view(text), context);
    }
};
#endif

#if __has_include(<fmt/format.h>)
/// fmt takes a string as it takes a `std::string_view`.
template <qvInterop::FixedString String>
struct fmt::formatter<String> : fmt::formatter<std::string_view>
{
    /// Writes the text as the format asks.
    /// @param string The string.
    /// @param context Where to.
    /// @return The place behind the text.
    auto format(String const& string, auto& context) const
    {
        auto const text = qvInterop::printable(string);
        return fmt::formatter<std::string_view>::format(std::string_view(text), context);
    }
};
#endif
