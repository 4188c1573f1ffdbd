#pragma once

namespace qvStrings {

/// One of the 52 ASCII letters, whatever the locale of the program.
template <typename Unit>
constexpr bool isLetter(Unit unit)
{
    auto const lower = unit | ('a' ^ 'A');
    return lower >= 'a' && lower <= 'z';
}

/// The upper fold of one unit: ASCII a to z become A to Z, every other value stays, whatever the
/// locale of the program. Written without a branch, so that loops over it vectorise.
template <typename Unit>
constexpr Unit foldUpper(Unit unit)
{
    bool const isLower = unit >= 'a' && unit <= 'z';
    return static_cast<Unit>(unit ^ (isLower << 5));
}

/// The lower fold of one unit: ASCII A to Z become a to z, every other value stays.
template <typename Unit>
constexpr Unit foldLower(Unit unit)
{
    bool const isUpper = unit >= 'A' && unit <= 'Z';
    return static_cast<Unit>(unit ^ (isUpper << 5));
}

} // namespace qvStrings
