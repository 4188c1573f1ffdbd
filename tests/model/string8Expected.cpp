#include "tests/model/string8Expected.h"

#include <cstdio>

namespace qvTest {

namespace {

ExpectedOutcome none()
{
    return {};
}

ExpectedOutcome value(long long v)
{
    ExpectedOutcome outcome;
    outcome.value = v;
    return outcome;
}

ExpectedOutcome order(String8Model::Order result)
{
    ExpectedOutcome outcome = value(result.value);
    outcome.signOnly = !result.exact;
    return outcome;
}

ExpectedOutcome text(String8Model result)
{
    ExpectedOutcome outcome;
    outcome.text = std::move(result);
    return outcome;
}

// A member that returns its receiver, by reference or by value.
ExpectedOutcome self(String8Model const& receiver)
{
    ExpectedOutcome outcome = text(receiver);
    outcome.value = 1;
    return outcome;
}

template <class Result>
ExpectedOutcome parsed(String8Call const& call, Result const& parse)
{
    bool ok = false;
    ExpectedOutcome outcome = value(parse(call.withOut ? &ok : nullptr));
    if (call.withOut)
        outcome.side = ok;
    return outcome;
}

ExpectedOutcome firstOf(String8Call const& call, String8Models const& models,
                        std::size_t patternCount)
{
    std::vector<String8Model const*> patterns;
    for (std::size_t i = 0; i < patternCount; ++i)
        patterns.push_back(&models[call.arguments[i]]);
    int which = 0;
    ExpectedOutcome outcome = value(models[call.receiver].indexOfFirstOcc(patterns, which));
    if (call.withOut)
        outcome.side = which;
    return outcome;
}

// The value in hex with zeros in front to `digits` places; the formatter sees it promoted to int.
std::string hex(int digits, int promoted)
{
    char formatted[24];
    std::snprintf(formatted, sizeof formatted, "%0*X", digits, static_cast<unsigned>(promoted));
    return formatted;
}

ExpectedOutcome runCore(String8Call const& call, String8Models& models, bool& known)
{
    String8Model& s = models[call.receiver];
    String8Model const& o = models[call.arguments[0]];
    String8Image const evenOld = evenOldImage(s.capacity());
    String8Image const unevenOld = unevenOldImage(s.capacity());
    std::string stored;
    String8Model::Text const t = call.textFor(models, stored);
    switch (call.operation) {
    case Operation::constructEmpty:
        return s.construct(), none();
    case Operation::constructText:
        return s.construct(t), none();
    case Operation::constructCounted:
        return s.constructCounted(call.characters, call.a), none();
    case Operation::constructUnits: {
        std::vector<unsigned short> const units = call.units();
        return s.constructUnits(call.flag ? nullptr : &units), none();
    }
    case Operation::constructView:
        return s.constructView(o.used()), none();
    case Operation::constructOtherView:
        return s.constructView(call.characters), none();
    case Operation::constructCopy:
        return s = o, none();
    case Operation::constructEvenOld:
        return s.constructLegacy(legacySource(evenOld, call)), none();
    case Operation::constructUnevenOld:
        return s.constructLegacy(legacySource(unevenOld, call)), none();
    case Operation::createCharString:
        return text(s.createCharString(call.c, call.a));
    case Operation::assignObject:
        return s.assign(o), none();
    case Operation::assignText:
        return s.assign(t), none();
    case Operation::assignChar:
        return s.assignChar(call.c), none();
    case Operation::assignString:
        return s.assignString(call.characters), none();
    case Operation::assignView:
        return s.assignView(o.used()), none();
    case Operation::assignOtherView:
        return s.assignView(call.characters), none();
    case Operation::assignEvenOld:
        return s.assignLegacy(legacySource(evenOld, call)), none();
    case Operation::assignUnevenOld:
        return s.assignLegacy(legacySource(unevenOld, call)), none();
    case Operation::fromChar:
        return s.fromChar(t, call.a), none();
    case Operation::clear:
        return s.clear(), none();
    case Operation::clearUnused:
        return s.clearUnused(), none();
    case Operation::calcLength:
        return s.calcLength(), none();
    case Operation::setLength:
        return s.setLength(static_cast<short>(call.a)), none();
    case Operation::isEmpty:
        return value(s.length() == 0);
    case Operation::hasData:
        return value(s.length() != 0);
    case Operation::textPointers:
        return value(1);
    case Operation::writeText:
        return s.putText(static_cast<std::size_t>(call.a), static_cast<unsigned char>(call.c)),
               none();
    case Operation::addText:
        return s.add(t), none();
    case Operation::addCounted:
        return s.add(t, static_cast<unsigned int>(call.a)), none();
    case Operation::addObject:
        return s.add(o), none();
    case Operation::appendText:
        return s.append(t), none();
    case Operation::appendObject:
        return s.append(o), none();
    case Operation::appendChar:
        return s.appendChar(call.c), none();
    case Operation::appendUnit:
        return s.appendUnit(static_cast<unsigned short>(call.a)), none();
    case Operation::plusChar:
        return text(s.plusChar(call.c));
    case Operation::plusObject:
    case Operation::combinedObject:
        return text(s.plus(o));
    case Operation::combinedText:
        return text(s.combined(t));
    case Operation::isEqualObject:
        return value(s.isEqual(o));
    case Operation::startsWithText:
        return value(s.startsWith(t));
    case Operation::removeRange:
        return s.removeRange(call.a, call.b), none();
    default:
        known = false;
        return none();
    }
}

ExpectedOutcome runComparison(String8Call const& call, String8Models const& models, bool& known)
{
    String8Model const& s = models[call.receiver];
    String8Model const& o = models[call.arguments[0]];
    std::string stored;
    String8Model::Text const t = call.textFor(models, stored);
    switch (call.operation) {
    case Operation::equalObject:
    case Operation::isEqualSameCase:
        return value(s.equals(o));
    case Operation::unequalObject:
        return value(!s.equals(o));
    case Operation::equalText:
        return value(s.equals(t));
    case Operation::unequalText:
        return value(!s.equals(t));
    case Operation::equalEvenOld:
        return value(s.equalsLegacy(legacySource(evenOldImage(s.capacity()), call)));
    case Operation::equalUnevenOld:
        return value(s.equalsLegacy(legacySource(unevenOldImage(s.capacity()), call)));
    case Operation::isEqualCounted:
        return value(s.isEqual(call.characters, call.a));
    case Operation::isEqualSameCaseCounted:
        return value(s.isEqualSameCase(call.characters, call.a));
    case Operation::isEqualUpperCaseInput:
        return value(s.isEqualUpperCaseInput(o));
    case Operation::isEqualLowerCaseInput:
        return value(s.isEqualLowerCaseInput(o));
    case Operation::compare:
        return order(s.compare(o));
    case Operation::compareSameCase:
        return order(s.compareSameCase(o));
    case Operation::less:
        return value(s.less(o));
    case Operation::greater:
        return value(s.greater(o));
    case Operation::startsWithChar:
        return value(s.startsWithChar(call.c));
    case Operation::endsWithChar:
        return value(s.endsWithChar(call.c));
    case Operation::startsWithCounted:
        return value(s.startsWith(t, call.a));
    case Operation::startsWithObject:
        return value(s.startsWith(o));
    case Operation::startsWithCaseSenText:
        return value(s.startsWithCaseSen(t));
    case Operation::startsWithCaseSenObject:
        return value(s.startsWithCaseSen(o));
    case Operation::endsWithText:
        return value(s.endsWith(t));
    case Operation::endsWithGated:
        return value(s.endsWith(call.characters, call.a));
    case Operation::endsWithObject:
        return value(s.endsWith(o));
    default:
        known = false;
        return none();
    }
}

ExpectedOutcome runSearch(String8Call const& call, String8Models const& models, bool& known)
{
    String8Model const& s = models[call.receiver];
    String8Model const& o = models[call.arguments[0]];
    std::string stored;
    String8Model::Text const t = call.textFor(models, stored);
    switch (call.operation) {
    case Operation::indexOfObject:
        return value(s.indexOf(o, call.a));
    case Operation::indexOfCaseSenObject:
        return value(s.indexOfCaseSen(o, call.a));
    case Operation::indexOfChar:
        return value(s.indexOfChar(call.c, call.a));
    case Operation::indexOfCaseSenChar:
        return value(s.indexOfCaseSenChar(call.c, call.a));
    case Operation::indexOfUnit:
        return value(s.indexOfUnit(call.unit(), call.a));
    case Operation::lastIndexOfChar:
    case Operation::lastIndexOfUnit:
        return value(s.lastIndexOf(call.c, call.a));
    case Operation::indexOfFirstOfTwo:
        return firstOf(call, models, 2);
    case Operation::indexOfFirstOfSix:
        return firstOf(call, models, 6);
    case Operation::count:
        return value(s.count(call.c));
    case Operation::countCaseSen:
        return value(s.countCaseSen(call.c));
    case Operation::containsChar:
        return value(s.containsChar(call.c));
    case Operation::containsText:
        return value(s.contains(t));
    case Operation::containsObject:
        return value(s.contains(o));
    case Operation::containsCaseSenText:
        return value(s.containsCaseSen(t));
    case Operation::containsCaseSenObject:
        return value(s.containsCaseSen(o));
    case Operation::containsCaseSenCounted:
        return value(s.containsCaseSen(call.characters, call.a));
    case Operation::containsUpperCaseText:
        return value(s.containsUpperCaseInput(t));
    case Operation::containsUpperCaseObject:
        return value(s.containsUpperCaseInput(o));
    default:
        known = false;
        return none();
    }
}

ExpectedOutcome runEditing(String8Call const& call, String8Models& models, bool& known)
{
    String8Model& s = models[call.receiver];
    String8Model const& o = models[call.arguments[0]];
    String8Model const& second = models[call.arguments[1]];
    std::string stored;
    String8Model::Text const t = call.textFor(models, stored);
    switch (call.operation) {
    case Operation::replaceObject:
        return s.replace(o, second), self(s);
    case Operation::replaceCaseSen:
        return s.replaceCaseSen(o, second), self(s);
    case Operation::replaceChar:
        return s.replaceChar(call.c, call.d), none();
    case Operation::removeObject:
        return s.remove(o), self(s);
    case Operation::removeCaseSens:
        return s.removeCaseSens(o), self(s);
    case Operation::removeChar:
        return text(s.removeChar(call.c));
    case Operation::insert:
        return s.insert(call.a, o), none();
    case Operation::trim:
        return s.trim(), none();
    case Operation::makeUpper:
        return s.makeUpper(), none();
    case Operation::makeLower:
        return s.makeLower(), none();
    case Operation::addSpacing:
        return s.addSpacing(t, call.a), none();
    case Operation::addSpacingC:
        return s.addSpacingC(t, call.a), none();
    case Operation::leftCount:
        return text(s.left(call.a));
    case Operation::mid:
        return text(s.mid(call.a, call.b));
    case Operation::leftChar:
        return text(s.leftChar(call.c, call.flag));
    case Operation::leftNCut:
        return text(s.leftNCut(call.c, call.flag));
    default:
        known = false;
        return none();
    }
}

ExpectedOutcome runNumbers(String8Call const& call, String8Models& models)
{
    String8Model& s = models[call.receiver];
    long long const v = call.wide;
    auto const minWidth = static_cast<unsigned char>(call.a);
    switch (call.operation) {
    case Operation::addNrInt:
        return s.addNumber(std::to_string(static_cast<int>(v))), none();
    case Operation::addNrLong:
        return s.addNumber(std::to_string(v)), none();
    case Operation::addNrUnsigned:
        return s.addNumber(std::to_string(static_cast<unsigned long long>(v))), none();
    case Operation::addNrIntWidth:
        return s.addNumber(std::to_string(static_cast<int>(v)), minWidth), none();
    case Operation::addNrLongWidth:
        return s.addNumber(std::to_string(v), minWidth), none();
    case Operation::fromNr:
        return text(s.fromNr(v));
    case Operation::addNrSpacing:
        return s.addNrSpacing(v, static_cast<signed char>(call.a)), none();
    case Operation::addHexSignedChar:
        return s.addHex(hex(2, static_cast<signed char>(v)), true), none();
    case Operation::addHexUnsignedChar:
        return s.addHex(hex(2, static_cast<unsigned char>(v)), true), none();
    case Operation::addHexShort:
        return s.addHex(hex(4, static_cast<short>(v)), false), none();
    case Operation::addHexUnsignedShort:
        return s.addHex(hex(4, static_cast<unsigned short>(v)), false), none();
    case Operation::addHexInt:
    case Operation::addHexUnsignedInt:
        return s.addHex(hex(8, static_cast<int>(v)), false), none();
    case Operation::toInt:
        return parsed(call, [&](bool* ok) { return s.toInt(ok); });
    case Operation::toInt64:
        return parsed(call, [&](bool* ok) { return s.toInt64(ok); });
    case Operation::toIntFromHex:
        return parsed(
            call, [&](bool* ok) { return s.toIntFromHex(call.a, call.flag, call.secondFlag, ok); });
    default:
        return none();
    }
}

} // namespace

ExpectedOutcome runOnModels(String8Call const& call, String8Models& models)
{
    bool known = true;
    ExpectedOutcome outcome = runCore(call, models, known);
    if (known)
        return outcome;
    known = true;
    outcome = runComparison(call, models, known);
    if (known)
        return outcome;
    known = true;
    outcome = runSearch(call, models, known);
    if (known)
        return outcome;
    known = true;
    outcome = runEditing(call, models, known);
    return known ? outcome : runNumbers(call, models);
}

} // namespace qvTest
