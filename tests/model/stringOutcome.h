#pragma once

#include "tests/model/guardedObject.h"
#include "tests/model/stringModel.h"

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

// The results of a call: a number or truth, the value of the out-parameter, a string, the bytes of
// a conversion.
namespace qvTest {

using Bytes = std::vector<unsigned char>;

// By an object.
struct Outcome
{
    std::optional<long long> value;
    std::optional<long long> side;
    std::optional<Bytes> text;
    std::optional<Bytes> narrow;
    bool isReceiver = true; // of a reference given back

    // Where a string is made that is given back by value: at a place of the caller's choice, or
    // here.
    unsigned char* (*placeFor)(std::size_t size) = nullptr;
    Bytes made{};

    unsigned char* placeOf(std::size_t size)
    {
        if (placeFor != nullptr)
            return placeFor(size);
        made.resize(size);
        return made.data();
    }
};

// By a model. Where a member gives back its receiver, the rule gives back nothing.
template <class Model>
struct ExpectedOutcome
{
    std::optional<long long> value;
    bool signOnly = false; // of the value only the sign is laid down
    std::optional<long long> side;
    std::optional<StringModel<typename Model::UnitType>> text;
    std::optional<Bytes> narrow;
};

template <class C>
struct CapacityOf;

template <template <int> class S, int N>
struct CapacityOf<S<N>>
{
    static constexpr int value = N;
};

// A string of the other width is compared up to the end of its text: the byte behind an even
// capacity has no meaning.
template <class C, class Result>
void keep(Outcome& outcome, C const& receiver, Result&& result)
{
    using Given = std::remove_cvref_t<Result>;
    if constexpr (std::is_arithmetic_v<Given>)
        outcome.value = result;
    else if constexpr (std::is_same_v<Given, Bytes>)
        outcome.narrow = std::move(result);
    else if constexpr (std::is_lvalue_reference_v<Result>)
        outcome.isReceiver = static_cast<void const*>(&result) == &receiver;
    else {
        auto const* const first = reinterpret_cast<unsigned char const*>(&result);
        if constexpr (std::is_same_v<Given, C>)
            outcome.text.emplace(first, first + sizeof result);
        else
            outcome.narrow.emplace(first, first + 2 + CapacityOf<Given>::value + 1);
    }
}

template <class Model, class Result>
void keep(ExpectedOutcome<Model>& outcome, Model const&, Result&& result)
{
    using Given = std::remove_cvref_t<Result>;
    if constexpr (std::is_arithmetic_v<Given>)
        outcome.value = result;
    else if constexpr (std::is_same_v<Given, Bytes>)
        outcome.narrow = std::move(result);
    else if constexpr (std::is_same_v<Given, typename Model::Order>) {
        outcome.value = result.value;
        outcome.signOnly = !result.exact;
    } else if constexpr (!std::is_lvalue_reference_v<Result>)
        outcome.text = std::move(result);
}

} // namespace qvTest
