#include "tests/model/stringExpectedShared.h"

namespace qvTest {

template <>
ModelExecution<String16Model>::Result ModelExecution<String16Model>::ofThisWidth()
{
    long long const v = call.wide;
    auto const olderSource = [&] {
        return legacySource<String16Model>(old16Image(s.capacity()), call);
    };
    switch (call.operation) {
    case Operation::writeSpare:
        return s.putSpare(call.unit), nothingBack();
    case Operation::constructChar:
        return s.constructChar(call.c), nothingBack();
    case Operation::constructUnitText:
        return s.constructUnitText(u), nothingBack();
    case Operation::constructUnitsCounted:
        return s.constructUnitsCounted(call.unitText, call.a), nothingBack();
    case Operation::constructView8:
        return s.constructView8(call.flag ? nullptr : &call.characters), nothingBack();
    case Operation::constructOld:
    case Operation::assignOld:
        return s.constructLegacy(olderSource()), nothingBack();
    case Operation::assignUnitText:
        return s.assignUnitText(u), nothingBack();
    case Operation::addUnits:
        return s.addUnits(u, static_cast<unsigned int>(call.a)), nothingBack();
    case Operation::appendUnit:
        return s.appendUnit(call.unit), nothingBack();
    case Operation::appendUnitText:
        return s.appendUnitText(u), nothingBack();
    case Operation::toString8Of250:
    case Operation::convertedTo250:
        return givesNarrow(s.toString8(250));
    case Operation::toString8Of500:
    case Operation::convertedTo500:
        return givesNarrow(s.toString8(500));
    case Operation::toChar: {
        auto const size = static_cast<unsigned short>(call.a);
        std::vector<unsigned char> buffer(size == 0 ? s.length() + 1 : size, 0xAA);
        s.toChar(buffer, size);
        return givesNarrow(buffer);
    }
    case Operation::equalUnitText:
        return gives(s.equalsUnitText(u));
    case Operation::isEqualUnits:
        return gives(s.isEqualUnits(call.unitText, call.a));
    case Operation::isEqualSameCaseUnits:
        return gives(s.isEqualSameCaseUnits(call.unitText, call.a));
    case Operation::indexOfText:
        return gives(s.indexOfText(t));
    case Operation::startsWithUnit:
        return gives(s.startsWithUnit(call.unit));
    case Operation::endsWithUnit:
        return gives(s.endsWithUnit(call.unit));
    case Operation::replaceUnit:
        return s.replaceUnit(call.unit, call.secondUnit), givesSelf();
    case Operation::addSpacingUnits:
        return s.addSpacingUnits(u, call.a), nothingBack();
    case Operation::addNrUnsignedInt:
        return s.addNumber(std::to_string(static_cast<unsigned int>(v))), nothingBack();
    case Operation::addNrUnsignedChar:
        return s.addNumber(std::to_string(static_cast<unsigned char>(v))), nothingBack();
    default:
        return std::nullopt;
    }
}

template <>
ExpectedOutcome<String16Model> runOnModels(StringCall const& call, String16Models& models)
{
    return ModelExecution<String16Model>(call, models).run();
}

} // namespace qvTest
