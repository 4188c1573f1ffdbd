#pragma once

// Definitions of stringCall.h, for the files that instantiate it: which calls are worth running.
#include "tests/model/stringCall.h"

#include <algorithm>
#include <climits>

namespace qvTest {

// A pattern shorter than the receiver has to be looked for at a position inside.
template <class Model>
bool searchIsWithin(StringCall const& call, StringModels<Model> const& models)
{
    long long const pattern = static_cast<long long>(models[call.arguments[0]].length());
    long long const receiver = static_cast<long long>(models[call.receiver].length());
    return call.a >= 0 || pattern == 0 || pattern == receiver || pattern + call.a > receiver;
}

template <class Model>
bool midIsWithin(Reach reach, StringCall const& call, Model const& receiver)
{
    if (reach == Reach::laidDown)
        return call.a >= 0;
    long long const n = static_cast<long long>(receiver.capacity());
    return call.a >= 0 && call.b >= 0 && call.a + std::min<long long>(call.b, n) <= n + 1;
}

template <class Model>
bool removeIsWithin(Reach reach, StringCall const& call, Model const& receiver)
{
    long long const end = static_cast<long long>(call.a) + call.b;
    if (reach == Reach::contract)
        return call.a >= 0 && call.b >= 0 && end <= static_cast<long long>(receiver.length());
    if (call.a < 0 || end < 0 || end > INT_MAX)
        return false;
    Model trial = receiver;
    trial.removeRange(call.a, call.b);
    return !trial.leftObject();
}

// `pad` runs the member on a model.
template <class Model, class Pad>
bool addSpacingIsWithin(Reach reach, StringCall const& call, Model const& receiver, Pad const& pad)
{
    long long const width = call.a < 0 ? -static_cast<long long>(call.a) : call.a;
    long long const current = static_cast<long long>(receiver.length());
    long long const capacity = static_cast<long long>(receiver.capacity());
    if (current + width <= capacity)
        return true;
    // Text behind blanks that have already run over the length field has no place laid down.
    bool const isEmpty = call.characters.empty() && call.unitText.empty();
    bool const textLast = call.a < 0 && !call.isNull && !isEmpty;
    if (reach == Reach::contract || textLast)
        return false;
    Model trial = receiver;
    pad(trial);
    return !trial.leftObject();
}

// The rules that hold for both widths; each width adds its own.
template <class Model>
bool isWithinEither(Reach reach, StringCall const& call, StringModels<Model> const& models)
{
    Model const& receiver = models[call.receiver];
    switch (call.operation) {
    case Operation::constructCopy:
    case Operation::constructView:
        return call.receiver != call.arguments[0];
    case Operation::indexOfObject:
    case Operation::indexOfCaseSenObject:
        return searchIsWithin(call, models);
    case Operation::mid:
        return midIsWithin(reach, call, receiver);
    case Operation::removeRange:
        return removeIsWithin(reach, call, receiver);
    case Operation::leftCount:
        return reach == Reach::laidDown || call.a >= 0;
    default:
        return true;
    }
}

} // namespace qvTest
