#pragma once

// Part of stringCall.h: a call in words, for messages.
#include "tests/model/stringCall.h"

#include <cstdio>
#include <type_traits>

namespace qvTest {

inline std::string hexCode(unsigned value)
{
    char shown[8];
    std::snprintf(shown, sizeof shown, "%02X", value & 0xFFFF);
    return shown;
}

template <class Unit>
std::string toldText(std::basic_string<Unit> const& characters)
{
    std::string told = ", text of " + std::to_string(characters.size()) + ":";
    for (std::size_t i = 0; i < characters.size() && i < 80; ++i) {
        unsigned const code = static_cast<std::make_unsigned_t<Unit>>(characters[i]);
        bool const printable = characters[i] > ' ' && characters[i] <= '~';
        told += ' ';
        told += printable ? std::string(1, static_cast<char>(code)) : hexCode(code);
    }
    return told;
}

inline std::string StringCall::describe() const
{
    OperationInfo const& info = infoOf(operation);
    std::string told = std::string(info.name) + " on string " + std::to_string(receiver);
    auto const tell = [&](unsigned takes, std::string const& what) {
        if ((info.takes & takes) == takes)
            told += ", " + what;
    };
    auto const code = [](char shown, char16_t shownUnit) {
        return hexCode(static_cast<unsigned char>(shown)) + " or " + hexCode(shownUnit);
    };
    tell(Takes::anotherString, "argument string " + std::to_string(arguments[0]));
    tell(Takes::twoStrings, "second string " + std::to_string(arguments[1]));
    if ((info.takes & Takes::sixStrings) != 0) {
        told += ", strings";
        for (std::size_t const argument : arguments)
            told += ' ' + std::to_string(argument);
    }
    tell(Takes::number, "a = " + std::to_string(a));
    tell(Takes::secondNumber, "b = " + std::to_string(b));
    tell(Takes::character, "c = " + code(c, unit));
    tell(Takes::secondCharacter, "d = " + code(d, secondUnit));
    tell(Takes::flag, flag ? "flag" : "no flag");
    tell(Takes::secondFlag, secondFlag ? "second flag" : "no second flag");
    tell(Takes::out, withOut ? "with out-parameter" : "null out-parameter");
    tell(Takes::wide, "value " + std::to_string(wide));
    unsigned const texts =
        Takes::text | Takes::counted | Takes::plainText | Takes::units | Takes::countedUnits;
    if ((info.takes & texts) == 0)
        return told;
    if (isNull)
        return told + ", null text";
    if (ownTextOf != noString)
        return told + ", text stored in string " + std::to_string(ownTextOf);
    return told + (unitText.empty() ? toldText(characters) : toldText(unitText));
}

} // namespace qvTest
