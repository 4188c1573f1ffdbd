#include "tests/model/string8Call.h"

#include "tests/model/stringCallReach.h"
#include "tests/model/stringCallRead.h"

namespace qvTest {

namespace {

bool endsWithGateIsWithin(StringCall const& call, String8Model const& receiver)
{
    if (call.isNull)
        return false;
    bool const opensGate = call.a != 0 && receiver.lengthFits(static_cast<unsigned int>(call.a));
    return !opensGate || call.characters.size() % 65536 <= receiver.length();
}

} // namespace

template <>
bool isWithin(Reach reach, StringCall const& call, String8Models const& models)
{
    String8Model const& receiver = models[call.receiver];
    switch (call.operation) {
    case Operation::constructOtherView:
        return call.characters.size() <= receiver.capacity();
    case Operation::assignOtherView:
        return call.characters.size() <= otherViewCapacity<char>;
    case Operation::addCounted:
        return call.a >= 0;
    case Operation::insert:
        return reach == Reach::laidDown || call.a >= 0;
    case Operation::addSpacing:
        return addSpacingIsWithin(reach, call, receiver, [&](String8Model& trial) {
            trial.addSpacing(call.isNull ? nullptr : &call.characters, call.a);
        });
    case Operation::endsWithGated:
        return endsWithGateIsWithin(call, receiver);
    case Operation::toInt:
    case Operation::toInt64:
        return receiver.hasStoredZero();
    case Operation::toIntFromHex:
        return true;
    default:
        return isWithinEither(reach, call, models);
    }
}

template StringCall StringCall::read(ByteReader&, String8Models const&);
template std::string const* StringCall::textFor(String8Models const&, std::string&) const;

} // namespace qvTest
