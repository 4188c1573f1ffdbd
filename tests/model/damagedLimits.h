#pragma once

#include "tests/model/stringRows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

// What a call on damaged strings has to keep so that it stays inside its objects.
namespace qvTest {

// Whether this is one of the few members that trust the lengths they meet: views are copied
// without a cut, as older images are, and two members write where the length says.
template <class C>
bool isTrusting(std::size_t place)
{
    constexpr std::array trusting{
        StringRows::placeOf<rows::constructView>(), StringRows::placeOf<rows::appendWideUnit>(),
        StringRows::placeOf<rows::addSpacing>(), StringRows::placeOf<rows::addSpacingUnits>()};
    return std::find(trusting.begin(), trusting.end(), place) != trusting.end() ||
           (isWide<C> && place == StringRows::placeOf<rows::assignView>());
}

// Whether the other arguments are ones that the member takes.
template <class C>
bool staysInside(StringCall const& call, GuardedStrings<C>& objects)
{
    auto const is = [&](auto... places) { return ((call.place == places) || ...); };
    auto const& parameters = call.parameters;
    if (is(StringRows::placeOf<rows::constructCopy>(), StringRows::placeOf<rows::constructView>()))
        return static_cast<Object const*>(parameters[0])->index != call.receiver;
    if (is(StringRows::placeOf<rows::constructOtherView>()) ||
        (isWide<C> && is(StringRows::placeOf<rows::assignOtherView>())))
        return static_cast<PlainText const*>(parameters[0])->characters.size() <=
               CapacityOf<C>::value;
    if (is(StringRows::placeOf<rows::addSpacing>(), StringRows::placeOf<rows::addSpacingUnits>())) {
        long long const width = static_cast<AnyNumber const*>(parameters[1])->value;
        return objects[call.receiver].get().length + std::abs(width) <= CapacityOf<C>::value;
    }
    return true;
}

} // namespace qvTest
