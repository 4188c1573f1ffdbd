#include "tests/model/string16Call.h"

#include "tests/model/stringCallReach.h"
#include "tests/model/stringCallRead.h"

namespace qvTest {

namespace {

// Text in its own place may be stored again or appended, as long as it ends where the new text
// begins; behind an emptied string old units run on.
bool ownUnitsAreWithin(StringCall const& call, String16Models const& models)
{
    if (call.ownTextOf != static_cast<int>(call.receiver))
        return true;
    String16Model const& receiver = models[call.receiver];
    return receiver.storedText().size() <= receiver.length();
}

// An open gate compares all of the text, which has to end inside the receiver.
bool endsWithGateIsWithin(StringCall const& call, String16Model const& receiver)
{
    if (call.a < 0)
        return false;
    bool const isOpen =
        !call.isNull && call.a != 0 && static_cast<std::size_t>(call.a) <= receiver.length();
    return !isOpen || call.characters.size() % 65536 <= receiver.length();
}

} // namespace

template <>
bool isWithin(Reach reach, StringCall const& call, String16Models const& models)
{
    String16Model const& receiver = models[call.receiver];
    switch (call.operation) {
    // Neither way in from a view clips.
    case Operation::constructOtherView:
    case Operation::assignOtherView:
        return call.unitText.size() <= receiver.capacity();
    case Operation::addUnits:
    case Operation::insert:
    case Operation::startsWithCounted:
        return call.a >= 0;
    case Operation::addSpacingUnits:
        return addSpacingIsWithin(reach, call, receiver, [&](String16Model& trial) {
            trial.addSpacingUnits(call.isNull ? nullptr : &call.unitText, call.a);
        });
    case Operation::endsWithGated:
        return endsWithGateIsWithin(call, receiver);
    case Operation::assignUnitText:
    case Operation::appendUnitText:
        return ownUnitsAreWithin(call, models);
    default:
        return isWithinEither(reach, call, models);
    }
}

template StringCall StringCall::read(ByteReader&, String16Models const&);
template std::string const* StringCall::textFor(String16Models const&, std::string&) const;
template std::u16string const* StringCall::unitsFor(String16Models const&, std::u16string&) const;

} // namespace qvTest
