#pragma once

#include "tests/model/stringCall.h"
#include "tests/model/stringRows.h"

#include <climits>

// Which calls are worth running: those whose result is laid down and that stay inside the object,
// or, inside the contract, those that all images answer alike.
namespace qvTest {

template <class Model>
struct Scene
{
    Reach reach;
    StringModels<Model> const& models;
    std::size_t receiver;

    static constexpr bool is8 = sizeof(typename Model::UnitType) == 1;
    Model const& self() const { return models[receiver]; }
    bool isContract() const { return reach == Reach::contract; }
    long long length() const { return static_cast<long long>(self().length()); }
    long long capacity() const { return static_cast<long long>(self().capacity()); }
};

template <class R>
struct Limit
{
    static constexpr bool isNone = true;
};

template <>
struct Limit<rows::constructCopy>
{
    static bool allows(auto const& scene, auto const& other)
    {
        return scene.receiver != other.index;
    }
};
template <>
struct Limit<rows::constructView> : Limit<rows::constructCopy>
{};

// The constructor does not clip, nor does the assignment to a string of units.
template <>
struct Limit<rows::constructOtherView>
{
    template <class Model>
    static bool allows(Scene<Model> const& scene, PlainText const& text)
    {
        return text.in<typename Model::UnitType>().size() <= scene.self().capacity();
    }
};
template <>
struct Limit<rows::assignOtherView>
{
    template <class Model>
    static bool allows(Scene<Model> const& scene, PlainText const& text)
    {
        if (scene.is8)
            return text.characters.size() <= otherViewCapacity<char>;
        return Limit<rows::constructOtherView>::allows(scene, text);
    }
};

// A pattern shorter than the receiver has to be looked for at a position inside.
template <>
struct Limit<rows::indexOfObject>
{
    static bool allows(auto const& scene, Object const& other, Number<int> const& start)
    {
        long long const pattern = static_cast<long long>(scene.models[other.index].length());
        return start.value >= 0 || pattern == 0 || pattern == scene.length() ||
               pattern + start.value > scene.length();
    }
};
template <>
struct Limit<rows::indexOfCaseSenObject> : Limit<rows::indexOfObject>
{};

template <>
struct Limit<rows::mid>
{
    static bool allows(auto const& scene, auto const& start, auto const& count)
    {
        if (!scene.isContract())
            return start.value >= 0;
        long long const n = scene.capacity();
        return start.value >= 0 && count.value >= 0 &&
               start.value + std::min<long long>(count.value, n) <= n + 1;
    }
};

template <>
struct Limit<rows::removeRange>
{
    static bool allows(auto const& scene, auto const& start, auto const& count)
    {
        long long const end = static_cast<long long>(start.value) + count.value;
        if (scene.isContract())
            return start.value >= 0 && count.value >= 0 && end <= scene.length();
        if (start.value < 0 || end < 0 || end > INT_MAX)
            return false;
        auto trial = scene.self();
        trial.removeRange(start.value, count.value);
        return !trial.leftObject();
    }
};

template <>
struct Limit<rows::leftCount>
{
    static bool allows(auto const& scene, Number<int> const& n)
    {
        return !scene.isContract() || n.value >= 0;
    }
};

template <>
struct Limit<rows::insert>
{
    static bool allows(auto const& scene, auto const& position, Object const&)
    {
        return (scene.is8 && !scene.isContract()) || position.value >= 0;
    }
};

// A count below 0 is a huge one to `add`.
template <>
struct Limit<rows::addCounted>
{
    static bool allows(auto const&, auto const&, auto const& count) { return count.value >= 0; }
};
template <>
struct Limit<rows::addUnits> : Limit<rows::addCounted>
{};
template <>
struct Limit<rows::startsWithCounted>
{
    static bool allows(auto const& scene, auto const&, Number<int> const& count)
    {
        return scene.is8 || count.value >= 0;
    }
};

// An open gate compares all of the text, which has to end inside the receiver.
template <>
struct Limit<rows::endsWithGated>
{
    static bool allows(auto const& scene, Text const& text, Number<int> const& gate)
    {
        if (scene.is8 ? text.isNull : gate.value < 0)
            return false;
        bool const isOpen =
            scene.is8
                ? gate.value != 0 && scene.self().lengthFits(static_cast<unsigned>(gate.value))
                : !text.isNull && gate.value != 0 && gate.value <= scene.length();
        return !isOpen || static_cast<long long>(text.characters.size() % 65536) <= scene.length();
    }
};

// Blanks may run over the text, but text behind blanks that have already run over the length field
// has no place laid down.
template <class Model, class Given, class Pad>
bool fieldIsWithin(Scene<Model> const& scene, Given const& text, int width, Pad const& pad)
{
    long long const columns = width < 0 ? -static_cast<long long>(width) : width;
    if (scene.length() + columns <= scene.capacity())
        return true;
    bool const textLast = width < 0 && !text.isNull && !text.characters.empty();
    if (scene.isContract() || textLast)
        return false;
    Model trial = scene.self();
    pad(trial, text.given(scene.models));
    return !trial.leftObject();
}
template <>
struct Limit<rows::addSpacing>
{
    static bool allows(auto const& scene, Text const& text, auto const& width)
    {
        return fieldIsWithin(scene, text, width.value, [&](auto& trial, auto const* given) {
            trial.addSpacing(given, width.value);
        });
    }
};
template <>
struct Limit<rows::addSpacingUnits>
{
    static bool allows(auto const& scene, Units const& text, auto const& width)
    {
        return fieldIsWithin(scene, text, width.value, [&](auto& trial, auto const* given) {
            trial.addSpacingUnits(given, width.value);
        });
    }
};

// Text in its own place may be stored again or appended, as long as it ends where the new text
// begins; behind an emptied string old units run on.
template <>
struct Limit<rows::assignUnitText>
{
    static bool allows(auto const& scene, OwnUnits const& text)
    {
        return text.storedIn != static_cast<int>(scene.receiver) ||
               static_cast<long long>(scene.self().storedText().size()) <= scene.length();
    }
};
template <>
struct Limit<rows::appendUnitText> : Limit<rows::assignUnitText>
{};

// The 8-bit strings convert their stored text, which has to end.
template <>
struct Limit<rows::toInt>
{
    static bool allows(auto const& scene, Out<bool> const&)
    {
        return !scene.is8 || scene.self().hasStoredZero();
    }
};
template <>
struct Limit<rows::toInt64> : Limit<rows::toInt>
{};

} // namespace qvTest
