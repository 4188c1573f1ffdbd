#pragma once

// Runs a call on models, as stringExecute.h does on objects. For the files that define
// runOnModels: what both widths have is here, each width adds its own.
#include "tests/model/stringExpected.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qvTest {

template <class Model>
class ModelExecution
{
    using Unit = typename Model::UnitType;
    using Outcome = ExpectedOutcome<Model>;
    using Result = std::optional<Outcome>; // none: not a call of this group

public:
    ModelExecution(StringCall const& theCall, StringModels<Model>& theModels)
        : call(theCall),
          models(theModels),
          s(models[call.receiver]),
          o(models[call.arguments[0]]),
          second(models[call.arguments[1]]),
          t(call.textFor(models, storedText))
    {
        if constexpr (sizeof(Unit) == 2)
            u = call.unitsFor(models, storedUnits);
    }

    Outcome run()
    {
        Result result;
        for (auto const group :
             {&ModelExecution::ofThisWidth, &ModelExecution::core, &ModelExecution::comparison,
              &ModelExecution::search, &ModelExecution::editing, &ModelExecution::numbers}) {
            result = (this->*group)();
            if (result)
                break;
        }
        return result.value_or(Outcome{});
    }

private:
    Result ofThisWidth();
    Result core();
    Result comparison();
    Result search();
    Result editing();
    Result numbers();

    Unit single() const { return call.single<Unit>(); }
    Unit secondSingle() const { return call.secondSingle<Unit>(); }

    static Outcome nothingBack() { return {}; }

    static Outcome gives(long long v)
    {
        Outcome outcome;
        outcome.value = v;
        return outcome;
    }

    static Outcome givesOrder(typename Model::Order result)
    {
        Outcome outcome = gives(result.value);
        outcome.signOnly = !result.exact;
        return outcome;
    }

    static Outcome givesText(StringModel<Unit> result)
    {
        Outcome outcome;
        outcome.text = std::move(result);
        return outcome;
    }

    static Outcome givesNarrow(std::vector<unsigned char> bytes)
    {
        Outcome outcome;
        outcome.narrow = std::move(bytes);
        return outcome;
    }

    // A member that returns its receiver, by reference or by value.
    Outcome givesSelf() const
    {
        Outcome outcome = givesText(s);
        outcome.value = 1;
        return outcome;
    }

    template <class Parse>
    Outcome parsed(Parse const& parse) const
    {
        bool ok = false;
        Outcome outcome = gives(parse(call.withOut ? &ok : nullptr));
        if (call.withOut)
            outcome.side = ok;
        return outcome;
    }

    Outcome firstOf(std::size_t patternCount) const
    {
        std::vector<StringModel<Unit> const*> patterns;
        for (std::size_t i = 0; i < patternCount; ++i)
            patterns.push_back(&models[call.arguments[i]]);
        int which = 0;
        Outcome outcome = gives(s.indexOfFirstOcc(patterns, which));
        if (call.withOut)
            outcome.side = which;
        return outcome;
    }

    StringCall const& call;
    StringModels<Model>& models;
    Model& s;
    Model const& o;
    Model const& second;
    std::string storedText;
    std::u16string storedUnits;
    std::string const* t = nullptr;
    std::u16string const* u = nullptr;
};

template <class Model>
typename ModelExecution<Model>::Result ModelExecution<Model>::core()
{
    switch (call.operation) {
    case Operation::constructEmpty:
        return s.construct(), nothingBack();
    case Operation::constructText:
        return s.construct(t), nothingBack();
    case Operation::constructCounted:
        return s.constructCounted(call.characters, call.a), nothingBack();
    case Operation::constructView:
        return s.constructView(o.used()), nothingBack();
    case Operation::constructOtherView:
        return s.constructView(call.plain<Unit>()), nothingBack();
    case Operation::constructCopy:
        return s = o, nothingBack();
    case Operation::createCharString:
        return givesText(s.createCharString(single(), call.a));
    case Operation::assignObject:
        return s.assign(o), nothingBack();
    case Operation::assignText:
        return s.assign(t), nothingBack();
    case Operation::assignUnit:
        return s.assignUnit(single()), nothingBack();
    case Operation::assignString:
        return s.assignString(call.characters), nothingBack();
    case Operation::assignView:
        return s.assignView(o.used()), nothingBack();
    case Operation::assignOtherView:
        return s.assignView(call.plain<Unit>()), nothingBack();
    case Operation::clear:
        return s.clear(), nothingBack();
    case Operation::clearUnused:
        return s.clearUnused(), nothingBack();
    case Operation::calcLength:
        return s.calcLength(), nothingBack();
    case Operation::setLength:
        return s.setLength(static_cast<short>(call.a)), nothingBack();
    case Operation::isEmpty:
        return gives(s.length() == 0);
    case Operation::hasData:
        return gives(s.length() != 0);
    case Operation::textPointers:
        return gives(1);
    case Operation::writeText:
        return s.putText(static_cast<std::size_t>(call.a), single()), nothingBack();
    case Operation::addText:
        return s.add(t), nothingBack();
    case Operation::addObject:
        return s.add(o), nothingBack();
    case Operation::appendText:
        return s.append(t), nothingBack();
    case Operation::appendObject:
        return s.append(o), nothingBack();
    case Operation::appendChar:
        return s.appendChar(call.c), nothingBack();
    case Operation::plusChar:
        return givesText(s.plusChar(call.c));
    case Operation::plusObject:
    case Operation::combinedObject:
        return givesText(s.plus(o));
    case Operation::combinedText:
        return givesText(s.combined(t));
    case Operation::isEqualObject:
        return gives(s.isEqual(o));
    case Operation::startsWithText:
        return gives(s.startsWith(t));
    case Operation::removeRange:
        return s.removeRange(call.a, call.b), nothingBack();
    default:
        return std::nullopt;
    }
}

template <class Model>
typename ModelExecution<Model>::Result ModelExecution<Model>::comparison()
{
    switch (call.operation) {
    case Operation::equalObject:
    case Operation::isEqualSameCase:
        return gives(s.equals(o));
    case Operation::unequalObject:
        return gives(!s.equals(o));
    case Operation::equalText:
        return gives(s.equals(t));
    case Operation::unequalText:
        return gives(s.unequal(t));
    case Operation::isEqualCounted:
        return gives(s.isEqual(call.characters, call.a));
    case Operation::isEqualUpperCaseInput:
        return gives(s.isEqualUpperCaseInput(o));
    case Operation::isEqualLowerCaseInput:
        return gives(s.isEqualLowerCaseInput(o));
    case Operation::compare:
        return givesOrder(s.compare(o));
    case Operation::compareSameCase:
        return givesOrder(s.compareSameCase(o));
    case Operation::less:
        return gives(s.less(o));
    case Operation::greater:
        return gives(s.greater(o));
    case Operation::startsWithChar:
        return gives(s.startsWithChar(call.c));
    case Operation::endsWithChar:
        return gives(s.endsWithChar(call.c));
    case Operation::startsWithCounted:
        return gives(s.startsWith(t, call.a));
    case Operation::startsWithObject:
        return gives(s.startsWith(o));
    case Operation::startsWithCaseSenText:
        return gives(s.startsWithCaseSen(t));
    case Operation::startsWithCaseSenObject:
        return gives(s.startsWithCaseSen(o));
    case Operation::endsWithText:
        return gives(s.endsWith(t));
    case Operation::endsWithGated:
        return gives(s.endsWith(t, call.a));
    case Operation::endsWithObject:
        return gives(s.endsWith(o));
    default:
        return std::nullopt;
    }
}

template <class Model>
typename ModelExecution<Model>::Result ModelExecution<Model>::search()
{
    switch (call.operation) {
    case Operation::indexOfObject:
        return gives(s.indexOf(o, call.a));
    case Operation::indexOfCaseSenObject:
        return gives(s.indexOfCaseSen(o, call.a));
    case Operation::indexOfUnit:
        return gives(s.indexOfUnit(single(), call.a));
    case Operation::indexOfCaseSenUnit:
        return gives(s.indexOfCaseSenUnit(single(), call.a));
    case Operation::lastIndexOfUnit:
        return gives(s.lastIndexOfUnit(single(), call.a));
    case Operation::indexOfFirstOfTwo:
        return firstOf(2);
    case Operation::indexOfFirstOfSix:
        return firstOf(6);
    case Operation::count:
        return gives(s.count(call.c));
    case Operation::countCaseSen:
        return gives(s.countCaseSen(call.c));
    case Operation::containsChar:
        return gives(s.containsChar(call.c));
    case Operation::containsText:
        return gives(s.contains(t));
    case Operation::containsObject:
        return gives(s.contains(o));
    case Operation::containsCaseSenText:
        return gives(s.containsCaseSen(t));
    case Operation::containsCaseSenObject:
        return gives(s.containsCaseSen(o));
    case Operation::containsCaseSenCounted:
        return gives(s.containsCaseSen(t, call.a));
    case Operation::containsUpperCaseText:
        return gives(s.containsUpperCaseInput(t));
    case Operation::containsUpperCaseObject:
        return gives(s.containsUpperCaseInput(o));
    default:
        return std::nullopt;
    }
}

template <class Model>
typename ModelExecution<Model>::Result ModelExecution<Model>::editing()
{
    switch (call.operation) {
    case Operation::replaceObject:
        return s.replace(o, second), givesSelf();
    case Operation::replaceCaseSen:
        return s.replaceCaseSen(o, second), givesSelf();
    case Operation::removeObject:
        return s.remove(o), givesSelf();
    case Operation::removeCaseSens:
        return s.removeCaseSens(o), givesSelf();
    case Operation::removeUnit:
        return givesText(s.removeUnit(single()));
    case Operation::insert:
        return s.insert(call.a, o), nothingBack();
    case Operation::trim:
        return s.trim(), nothingBack();
    case Operation::makeUpper:
        return s.makeUpper(), nothingBack();
    case Operation::makeLower:
        return s.makeLower(), nothingBack();
    case Operation::addSpacingC:
        return s.addSpacingC(t, call.a), nothingBack();
    case Operation::leftCount:
        return givesText(s.left(call.a));
    case Operation::mid:
        return givesText(s.mid(call.a, call.b));
    case Operation::leftUnit:
        return givesText(s.leftUnit(single(), call.flag));
    case Operation::leftNCut:
        return givesText(s.leftNCut(single(), call.flag));
    default:
        return std::nullopt;
    }
}

template <class Model>
typename ModelExecution<Model>::Result ModelExecution<Model>::numbers()
{
    switch (call.operation) {
    case Operation::addNrInt:
        return s.addNumber(std::to_string(static_cast<int>(call.wide))), nothingBack();
    case Operation::addNrLong:
        return s.addNumber(std::to_string(call.wide)), nothingBack();
    case Operation::addNrUnsigned:
        return s.addNumber(std::to_string(static_cast<unsigned long long>(call.wide))),
               nothingBack();
    case Operation::addNrLongWidth:
        return s.addNumber(std::to_string(call.wide), static_cast<unsigned char>(call.a)),
               nothingBack();
    case Operation::fromNr:
        return givesText(s.fromNr(call.wide));
    case Operation::addNrSpacing:
        return s.addNrSpacing(call.wide, static_cast<signed char>(call.a)), nothingBack();
    case Operation::toInt:
        return parsed([&](bool* ok) { return s.toInt(ok); });
    default:
        return std::nullopt;
    }
}

} // namespace qvTest
