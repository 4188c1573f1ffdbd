#pragma once

// Definitions of stringCompare.h, for the files that instantiate it.
#include "tests/model/stringCompare.h"

#include <algorithm>
#include <cstdio>

namespace qvTest {

// Large strings show only the part around the place that matters.
inline constexpr std::size_t shownAtMost = 64;

inline int sign(long long v)
{
    return v < 0 ? -1 : v > 0 ? 1 : 0;
}

inline std::string shown(std::optional<long long> const& v)
{
    return v ? std::to_string(*v) : "nothing";
}

inline std::string dump(unsigned char const* bytes, std::size_t size, std::size_t around)
{
    std::size_t const from = around < shownAtMost / 2 ? 0 : around - shownAtMost / 2;
    std::string told = from == 0 ? "" : "(from byte " + std::to_string(from) + ")";
    for (std::size_t i = from; i < std::min(size, from + shownAtMost); ++i) {
        char hex[8];
        std::snprintf(hex, sizeof hex, " %02X", bytes[i]);
        told += hex;
    }
    return told;
}

inline std::string dump(std::optional<Bytes> const& bytes)
{
    return bytes ? dump(bytes->data(), bytes->size(), 0) : " nothing";
}

template <class Unit>
std::string storedBytes(std::basic_string<Unit> const& units)
{
    return std::string(reinterpret_cast<char const*>(units.data()), units.size() * sizeof(Unit));
}

template <class Unit>
bool agrees(StringModel<Unit> const& expected, std::size_t at, unsigned char actual)
{
    return !expected.isDetermined(at) || expected.bytes()[at] == actual;
}

template <class Unit>
std::string describeDifference(std::string const& what, StringModel<Unit> const& expected,
                               unsigned char const* actual)
{
    std::size_t const size = expected.bytes().size();
    // Nearly always, and much faster than looking at each byte. What isn't determined may never
    // have been written.
    if (expected.fullyDetermined() &&
        std::equal(expected.bytes().begin(), expected.bytes().end(), actual))
        return {};
    std::size_t at = 0;
    while (at < size && agrees(expected, at, actual[at]))
        ++at;
    if (at == size)
        return {};
    return what + " differs at byte " + std::to_string(at) + " of " + std::to_string(size) +
           "\n  expected " + dump(expected.bytes().data(), size, at) + "\n  actual   " +
           dump(actual, size, at) + "\n";
}

template <class Model>
std::string describeDifference(ExpectedOutcome<Model> const& expected, Outcome const& actual)
{
    bool sameValue = expected.value == actual.value;
    if (expected.signOnly && expected.value && actual.value)
        sameValue = sign(*expected.value) == sign(*actual.value);
    std::string told;
    if (!sameValue)
        told +=
            "value: expected " + shown(expected.value) + ", actual " + shown(actual.value) + "\n";
    if (expected.side != actual.side)
        told += "out-parameter: expected " + shown(expected.side) + ", actual " +
                shown(actual.side) + "\n";
    if (expected.text.has_value() != actual.text.has_value())
        told += "a string is given back by one side only\n";
    else if (expected.text && expected.text->bytes().size() != actual.text->size())
        told += "the string given back has another size\n";
    else if (expected.text)
        told += describeDifference("the string given back", *expected.text, actual.text->data());
    if (!actual.isReceiver)
        told += "the reference given back is not to the receiver\n";
    if (expected.narrow != actual.narrow)
        told += "8-bit text: expected" + dump(expected.narrow) + ", actual" + dump(actual.narrow) +
                "\n";
    return told;
}

template <class Model>
std::string describeCall(StringCall const& call, StringModels<Model> const& before)
{
    std::string told =
        "capacity " + std::to_string(before[0].capacity()) + ": " + describeCall(call) + "\n";
    for (std::size_t i = 0; i < before.size(); ++i)
        told += "string " + std::to_string(i) + " before, length " +
                std::to_string(before[i].length()) + ":" +
                dump(before[i].bytes().data(), before[i].bytes().size(), 0) + "\n";
    return told;
}

template <class Model>
std::string describeResult(StringCall const& call, ExpectedOutcome<Model> const& outcome,
                           StringModels<Model> const& models)
{
    std::optional<long long> value = outcome.value;
    if (value && outcome.signOnly)
        value = sign(*value);
    std::string told =
        describeCall(call) + ": value " + shown(value) + ", out " + shown(outcome.side);
    if (outcome.text)
        told += ", text " + storedBytes(outcome.text->used());
    if (outcome.narrow)
        told += ", bytes " + std::string(outcome.narrow->begin(), outcome.narrow->end());
    for (Model const& model : models)
        told += "\n  " + storedBytes(model.used());
    return told;
}

} // namespace qvTest
