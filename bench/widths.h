#pragma once

#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

#include <algorithm>
#include <string>
#include <strings.h>

/// Both widths of the current strings, for rows that both of them have: the string, its standard
/// peer, and what a user has at hand for texts in any case.

struct Width8
{
    template <int N>
    using String = _qvString8_allSize<N>;
    using Peer = std::string;

    static constexpr char const* mark = ""; ///< Behind the name of an operation.
    static constexpr char const* peerName = "std::string";
    static constexpr char const* foldedComparison = "strncasecmp";
    static constexpr char const* foldedSearch = "strcasestr";

    static Peer peer(std::string const& text) { return text; }

    static bool equalFolded(Peer const& a, Peer const& b)
    {
        return a.size() == b.size() && strncasecmp(a.c_str(), b.c_str(), b.size()) == 0;
    }

    static bool startsFolded(Peer const& text, std::size_t at, Peer const& pattern)
    {
        return strncasecmp(text.c_str() + at, pattern.c_str(), pattern.size()) == 0;
    }

    static bool lessFolded(Peer const& a, Peer const& b)
    {
        return strcasecmp(a.c_str(), b.c_str()) < 0;
    }

    static std::size_t findFolded(Peer const& text, Peer const& pattern, std::size_t from)
    {
        char const* const found = strcasestr(text.c_str() + from, pattern.c_str());
        return found == nullptr ? Peer::npos : static_cast<std::size_t>(found - text.c_str());
    }
};

struct Width16
{
    template <int N>
    using String = _qvString<N>;
    using Peer = std::u16string;

    static constexpr char const* mark = "16";
    static constexpr char const* peerName = "std::u16string";
    static constexpr char const* foldedComparison = "plainLoop";
    static constexpr char const* foldedSearch = "plainLoop";

    static Peer peer(std::string const& text) { return wide(text); }

    static bool equalFolded(Peer const& a, Peer const& b)
    {
        return a.size() == b.size() && startsFolded(a, 0, b);
    }

    static bool startsFolded(Peer const& text, std::size_t at, Peer const& pattern)
    {
        return std::equal(pattern.begin(), pattern.end(), text.data() + at,
                          equalIgnoringCase<char16_t>);
    }

    static bool lessFolded(Peer const& a, Peer const& b)
    {
        return std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(),
            [](char16_t one, char16_t other) { return upperUnit(one) < upperUnit(other); });
    }

    static std::size_t findFolded(Peer const& text, Peer const& pattern, std::size_t from)
    {
        auto const found = std::search(text.data() + from, text.data() + text.size(),
                                       pattern.begin(), pattern.end(), equalIgnoringCase<char16_t>);
        auto const at = static_cast<std::size_t>(found - text.data());
        return at == text.size() ? Peer::npos : at;
    }
};

/// The name of a row.
template <typename Width, int N>
std::string named(std::string const& operation, std::string const& what, std::string const& who)
{
    return operation + Width::mark + "/" + what + "/" + std::to_string(N) + "/" + who;
}

/// Calls `rows.operator()<Width, N>()` for all that is measured.
template <typename Rows>
bool forBothWidths(Rows rows)
{
    rows.template operator()<Width8, 25>();
    rows.template operator()<Width8, 250>();
    rows.template operator()<Width8, 5000>();
    rows.template operator()<Width16, 25>();
    rows.template operator()<Width16, 250>();
    rows.template operator()<Width16, 2500>();
    return true;
}
