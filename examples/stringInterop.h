#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

#include <charconv>
#include <concepts>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#if __has_include(<format>)
#include <format>
#endif

/// How the fixed strings meet the texts of the C++ library. Zero bytes are part of a text on both
/// sides; what is longer than the capacity is cut at the end.
namespace interop {

/// A view of the text. It shows what the string holds later, too, and ends with it. A length above
/// N, which a conversion to bytes can leave, counts as N.
template <int N>
std::string_view view(_qvString8_allSize<N> const& string)
{
    return {string.asChar(), string.length < N ? string.length : std::size_t{N}};
}

// The view of a temporary string would outlive it.
template <int N>
std::string_view view(_qvString8_allSize<N> const&& string) = delete;

/// Takes a text, which may be a view of the string itself. False when it was cut.
template <int N>
bool assign(_qvString8_allSize<N>& string, std::string_view text)
{
    std::string_view const kept = text.substr(0, N);
    if (kept.empty())
        string.clear(); // an empty view may be null
    else
        string.fromChar(kept.data(), static_cast<int>(kept.size()));
    return kept.size() == text.size();
}

/// The units as a text of their own. There is no view of them: `unsigned short` and `char16_t` are
/// different types, and one must not be read as the other in place.
template <int N>
std::u16string toU16(_qvString<N> const& string)
{
    std::u16string text(string.length < N ? string.length : std::size_t{N}, u'\0');
    std::memcpy(text.data(), string.text, text.size() * sizeof(char16_t));
    return text;
}

/// Takes units as they are, surrogates included. False when they were cut.
template <int N>
bool assign(_qvString<N>& string, std::u16string_view text)
{
    std::u16string_view const kept = text.substr(0, N);
    unsigned short units[std::size_t{N}] = {};
    if (!kept.empty())
        std::memcpy(units, kept.data(), kept.size() * sizeof(char16_t));
    string = _qvString<N>(units, static_cast<int>(kept.size()));
    return kept.size() == text.size();
}

/// \name What `formatted` puts in
/// @{

template <int N>
void put(_qvString8_allSize<N>& string, std::string_view text)
{
    string.add(text.data(), static_cast<unsigned>(text.size()));
}

template <int N, int M>
void put(_qvString8_allSize<N>& string, _qvString8_allSize<M> const& text)
{
    put(string, view(text));
}

template <int N>
void put(_qvString8_allSize<N>& string, char const* text)
{
    put(string, std::string_view(text));
}

template <int N>
void put(_qvString8_allSize<N>& string, char character)
{
    string += character;
}

template <int N>
void put(_qvString8_allSize<N>& string, bool value)
{
    put(string, value ? "true" : "false");
}

/// Integers in decimal, floating numbers as shortly as they read back the same.
template <int N, typename Number>
requires std::integral<Number> || std::floating_point<Number>
void put(_qvString8_allSize<N>& string, Number number)
{
    char digits[64];
    auto const end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    put(string, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

/// @}

/// A text with one `{}` for each of the values, which is checked when it is compiled.
template <typename... Values>
struct Pattern
{
    consteval Pattern(char const* pattern) : text(pattern)
    {
        std::size_t fields = 0;
        for (auto at = text.find("{}"); at != text.npos; at = text.find("{}", at + 2))
            ++fields;
        if (fields != sizeof...(Values))
            throw "as many {} as values";
    }

    std::string_view text;
};

/// A new string: the pattern with each `{}` replaced by its value.
template <int N, typename... Values>
_qvString8_allSize<N> formatted(Pattern<std::type_identity_t<Values>...> pattern,
                                Values const&... values)
{
    _qvString8_allSize<N> string;
    std::string_view rest = pattern.text;
    [[maybe_unused]] auto const putNext = [&](auto const& value) {
        auto const field = rest.find("{}");
        put(string, rest.substr(0, field));
        put(string, value);
        rest.remove_prefix(field + 2);
    };
    (putNext(values), ...);
    put(string, rest);
    return string;
}

} // namespace interop

/// Where the C++ library has `std::format`, it takes the 8-bit strings as it takes other texts.
#ifdef __cpp_lib_format
template <int N>
struct std::formatter<_qvString8_allSize<N>> : std::formatter<std::string_view>
{
    auto format(_qvString8_allSize<N> const& string, auto& context) const
    {
        return std::formatter<std::string_view>::format(interop::view(string), context);
    }
};
#endif
