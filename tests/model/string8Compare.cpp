#include "tests/model/string8Compare.h"

#include <algorithm>
#include <cstdio>

namespace qvTest {

namespace {

// Large strings show only the part around the place that matters.
constexpr std::size_t shownAtMost = 64;

int sign(long long v)
{
    return v < 0 ? -1 : v > 0 ? 1 : 0;
}

std::string shown(std::optional<long long> const& v)
{
    return v ? std::to_string(*v) : "nothing";
}

std::string dump(unsigned char const* bytes, std::size_t size, std::size_t around)
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

bool agrees(String8Model const& expected, std::size_t at, unsigned char actual)
{
    return !expected.isDetermined(at) || expected.bytes()[at] == actual;
}

} // namespace

std::string describeDifference(std::string const& what, String8Model const& expected,
                               unsigned char const* actual)
{
    std::size_t const size = expected.bytes().size();
    if (std::equal(expected.bytes().begin(), expected.bytes().end(), actual))
        return {}; // nearly always, and much faster than looking at each byte
    std::size_t at = 0;
    while (at < size && agrees(expected, at, actual[at]))
        ++at;
    if (at == size)
        return {};
    return what + " differs at byte " + std::to_string(at) + " of " + std::to_string(size) +
           "\n  expected " + dump(expected.bytes().data(), size, at) + "\n  actual   " +
           dump(actual, size, at) + "\n";
}

std::string describeDifference(ExpectedOutcome const& expected, Outcome const& actual)
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
    return told;
}

std::string describeCall(String8Call const& call, String8Models const& before)
{
    std::string told =
        "capacity " + std::to_string(before[0].capacity()) + ": " + call.describe() + "\n";
    for (std::size_t i = 0; i < before.size(); ++i)
        told += "string " + std::to_string(i) + " before, length " +
                std::to_string(before[i].length()) + ":" +
                dump(before[i].bytes().data(), before[i].bytes().size(), 0) + "\n";
    return told;
}

std::string describeResult(String8Call const& call, ExpectedOutcome const& outcome,
                           String8Models const& models)
{
    std::optional<long long> value = outcome.value;
    if (value && outcome.signOnly)
        value = sign(*value);
    std::string told = call.describe() + ": value " + shown(value) + ", out " + shown(outcome.side);
    if (outcome.text)
        told += ", text " + outcome.text->used();
    for (String8Model const& model : models)
        told += "\n  " + model.used();
    return told;
}

} // namespace qvTest
