#include "tests/model/stringExpectedShared.h"

#include <cstdio>

namespace qvTest {

namespace {

// The value in hex with zeros in front to `digits` places; the formatter sees it promoted to int.
std::string hex(int digits, int promoted)
{
    char formatted[24];
    std::snprintf(formatted, sizeof formatted, "%0*X", digits, static_cast<unsigned>(promoted));
    return formatted;
}

} // namespace

template <>
ModelExecution<String8Model>::Result ModelExecution<String8Model>::ofThisWidth()
{
    long long const v = call.wide;
    auto const olderSource = [&](String8Image const& image) {
        return legacySource<String8Model>(image, call);
    };
    switch (call.operation) {
    case Operation::constructUnits: {
        std::vector<unsigned short> const units = call.widenedCharacters();
        return s.constructUnits(call.flag ? nullptr : &units), nothingBack();
    }
    case Operation::constructEvenOld:
        return s.constructLegacy(olderSource(evenOldImage(s.capacity()))), nothingBack();
    case Operation::constructUnevenOld:
        return s.constructLegacy(olderSource(unevenOldImage(s.capacity()))), nothingBack();
    case Operation::assignEvenOld:
        return s.assignLegacy(olderSource(evenOldImage(s.capacity()))), nothingBack();
    case Operation::assignUnevenOld:
        return s.assignLegacy(olderSource(unevenOldImage(s.capacity()))), nothingBack();
    case Operation::fromChar:
        return s.fromChar(t, call.a), nothingBack();
    case Operation::addCounted:
        return s.add(t, static_cast<unsigned int>(call.a)), nothingBack();
    case Operation::appendWideUnit:
        return s.appendWideUnit(static_cast<unsigned short>(call.a)), nothingBack();
    case Operation::equalEvenOld:
        return gives(s.equalsLegacy(olderSource(evenOldImage(s.capacity()))));
    case Operation::equalUnevenOld:
        return gives(s.equalsLegacy(olderSource(unevenOldImage(s.capacity()))));
    case Operation::isEqualSameCaseCounted:
        return gives(s.isEqualSameCaseUnits(call.characters, call.a));
    case Operation::indexOfWideUnit:
        return gives(s.indexOfWideUnit(call.widenedCharacter(), call.a));
    case Operation::lastIndexOfWideUnit:
        return gives(s.lastIndexOfUnit(call.c, call.a));
    case Operation::replaceUnit:
        return s.replaceUnit(call.c, call.d), nothingBack();
    case Operation::addSpacing:
        return s.addSpacing(t, call.a), nothingBack();
    case Operation::addNrIntWidth:
        return s.addNumber(std::to_string(static_cast<int>(v)), static_cast<unsigned char>(call.a)),
               nothingBack();
    case Operation::addHexSignedChar:
        return s.addHex(hex(2, static_cast<signed char>(v)), true), nothingBack();
    case Operation::addHexUnsignedChar:
        return s.addHex(hex(2, static_cast<unsigned char>(v)), true), nothingBack();
    case Operation::addHexShort:
        return s.addHex(hex(4, static_cast<short>(v)), false), nothingBack();
    case Operation::addHexUnsignedShort:
        return s.addHex(hex(4, static_cast<unsigned short>(v)), false), nothingBack();
    case Operation::addHexInt:
    case Operation::addHexUnsignedInt:
        return s.addHex(hex(8, static_cast<int>(v)), false), nothingBack();
    case Operation::toInt64:
        return parsed([&](bool* ok) { return s.toInt64(ok); });
    case Operation::toIntFromHex:
        return parsed(
            [&](bool* ok) { return s.toIntFromHex(call.a, call.flag, call.secondFlag, ok); });
    default:
        return std::nullopt;
    }
}

template <>
ExpectedOutcome<String8Model> runOnModels(StringCall const& call, String8Models& models)
{
    return ModelExecution<String8Model>(call, models).run();
}

} // namespace qvTest
