#pragma once

#include "tests/model/stringCall.h"
#include "tests/model/stringCompare.h"
#include "tests/model/stringDriver.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <vector>

// A world so small that a driver can go over all of it: each call of the rows with each receiver
// and each argument there is.
namespace qvTest {

struct SmallWorldSize
{
    std::size_t longestText = 4;
    // With all units of 16 bits, beside those whose high byte is 0 or a sign.
    bool isWhole = true;
};

// One image at one capacity. `walk` makes all calls of one row, which it counts, and gives the
// first that differs from the model, or an empty text.
struct SmallWorldRun
{
    char const* name;
    std::size_t capacity;
    unsigned image;
    std::string (*walk)(std::size_t place, SmallWorldSize const& size, long& calls);
};

// Two letters in both cases, zero, and a byte from 0x80 up: as a unit, what a byte becomes.
inline constexpr char smallBytes[] = {'a', 'A', 'b', 'B', '\0', '\xE4'};
inline constexpr char16_t smallUnits[] = {u'a', u'A', u'b', u'B', u'\0', u'\xFFE4'};

// All texts of these units in the order of their lengths.
inline std::vector<GivenText> smallTexts(std::size_t longest)
{
    std::vector<GivenText> texts(1);
    std::size_t first = 0;
    for (std::size_t length = 1; length <= longest; ++length) {
        std::size_t const end = texts.size();
        for (; first < end; ++first)
            for (std::size_t i = 0; i < std::size(smallBytes); ++i) {
                GivenText text = texts[first];
                text.bytes += smallBytes[i];
                text.units += smallUnits[i];
                texts.push_back(std::move(text));
            }
    }
    return texts;
}

// How many of them are no longer than that.
constexpr std::size_t smallTextsUpTo(std::size_t longest)
{
    std::size_t count = 1;
    for (std::size_t length = 0; length < longest; ++length)
        count = count * std::size(smallBytes) + 1;
    return count;
}

inline constexpr long long smallNumbersToShow[] = {0,
                                                   1,
                                                   9,
                                                   10,
                                                   99,
                                                   100,
                                                   127,
                                                   128,
                                                   255,
                                                   256,
                                                   4095,
                                                   9999,
                                                   32767,
                                                   32768,
                                                   65535,
                                                   65536,
                                                   1234567,
                                                   INT_MAX,
                                                   -1,
                                                   -9,
                                                   -10,
                                                   -128,
                                                   -129,
                                                   -32768,
                                                   -32769,
                                                   -1234567,
                                                   INT_MIN,
                                                   INT_MAX + 1LL,
                                                   INT_MIN - 1LL,
                                                   LLONG_MAX,
                                                   LLONG_MIN};

template <class C>
class SmallWorld
{
    using Model = typename StringTraits<C>::Model;
    static constexpr StringImage image = StringTraits<C>::image;
    static constexpr bool is8 = sizeof(typename Model::UnitType) == 1;

public:
    static std::string walk(std::size_t place, SmallWorldSize const& size, long& calls)
    {
        if (objectCalls[place].call == nullptr)
            return {};
        return SmallWorld(place, size, calls).walkArguments(0);
    }

private:
    static constexpr auto objectCalls =
        StringRows::table<StringTraits<C>::place, typename ObjectCalls<C>::Entry, ObjectCalls<C>>();
    static constexpr unsigned char stale = 0xA5;
    // The units that are a byte widened, in either way.
    static constexpr std::size_t usualUnits = is8 ? 256 : 512;

    // One argument and how many values it goes over: a text of the world by its place, behind which
    // the receiver itself comes.
    struct Argument
    {
        Parameter* parameter;
        std::size_t values;
        std::size_t string = 0; // that holds it
        bool isAnyUnit = false;
    };

    SmallWorld(std::size_t place, SmallWorldSize const& theSize, long& calls)
        : size(theSize),
          texts(smallTexts(size.longestText)),
          call(makeCall(place, 0)),
          made(calls)
    {
        for (GivenText& text : texts) {
            text.capacity = image.capacity;
            text.unitSize = is8 ? 1 : 2;
            states.push_back(stringOf(text));
        }
        for (std::size_t i = 0; i < stringCount; ++i) {
            objects.emplace_back(stale);
            models.push_back(states[0]);
            layString(i, 0);
        }
        // A number may be the count of a text, so it comes ahead of it.
        for (Turn const turn : {Turn::number, Turn::string, Turn::single, Turn::flag, Turn::out,
                                Turn::wide, Turn::text})
            for (Parameter* const each : call->parameters)
                if (each->turn == turn)
                    addArgument(each);
    }

    static Model stringOf(GivenText const& text)
    {
        Model made(image, stale);
        made.putLength(text.units.size());
        for (std::size_t i = 0; i <= image.capacity; ++i)
            made.putText(i, static_cast<typename Model::UnitType>('a'));
        for (std::size_t i = 0; i <= text.units.size(); ++i)
            if constexpr (is8)
                made.putText(i, text.bytes.c_str()[i]);
            else
                made.putText(i, text.units.c_str()[i]);
        return made;
    }

    std::size_t stringArguments() const
    {
        return static_cast<std::size_t>(
            std::count_if(call->parameters.begin(), call->parameters.end(),
                          [](Parameter const* each) { return each->turn == Turn::string; }));
    }

    void addArgument(Parameter* parameter)
    {
        std::size_t values = 2;
        bool isAnyUnit = false;
        std::size_t string = 0;
        switch (parameter->turn) {
        case Turn::number:
            isAnyUnit = call->place == StringRows::placeOf<rows::appendWideUnit>();
            values = image.capacity + 5;
            break;
        case Turn::string:
            // Two texts are short ones, and of six every second is the same.
            string = strings % 2 + 1;
            values = strings >= 2            ? 1
                     : stringArguments() > 1 ? smallTextsUpTo(size.longestText / 2) + 1
                                             : texts.size() + 1;
            ++strings;
            break;
        case Turn::single:
            isAnyUnit = std::none_of(arguments.begin(), arguments.end(),
                                     [](Argument const& each) { return each.isAnyUnit; });
            values = std::size(smallUnits);
            break;
        case Turn::wide:
            values = std::size(smallNumbersToShow);
            break;
        case Turn::text:
            values = texts.size();
            break;
        case Turn::flag:
        case Turn::out:
            break;
        }
        if (isAnyUnit)
            values = is8 && parameter->turn == Turn::single ? 256 : size.isWhole ? 65536 : 512;
        arguments.push_back({parameter, values, string, isAnyUnit});
    }

    // The usual units come first.
    static unsigned unitAt(std::size_t i)
    {
        if (i < 256)
            return static_cast<unsigned>(i);
        return static_cast<unsigned>(i < 512 ? 0xFF00 + (i - 256) : 0x0100 + (i - 512));
    }

    // False for a value that says the same as another, or that the call does not take.
    bool give(Argument const& argument, std::size_t i)
    {
        Parameter& parameter = *argument.parameter;
        switch (parameter.turn) {
        case Turn::number: {
            auto& number = static_cast<AnyNumber&>(parameter);
            number.value =
                static_cast<int>(argument.isAnyUnit ? unitAt(i) : static_cast<unsigned>(i) - 2);
            count = number.value;
            return dynamic_cast<Place*>(&parameter) == nullptr ||
                   static_cast<std::size_t>(count) <= image.capacity;
        }
        case Turn::string:
            if (argument.values == 1)
                static_cast<Object&>(parameter).index = argument.string;
            else {
                bool const isReceiver = i + 1 == argument.values;
                static_cast<Object&>(parameter).index = isReceiver ? 0 : argument.string;
                if (!isReceiver)
                    layString(argument.string, i);
            }
            return true;
        case Turn::single: {
            auto& single = static_cast<Single&>(parameter);
            single.unit =
                static_cast<unsigned short>(argument.isAnyUnit ? unitAt(i) : smallUnits[i]);
            single.c = static_cast<char>(single.unit & 0xFF);
            if (dynamic_cast<WidenedUnit*>(&parameter) != nullptr)
                single.unit = static_cast<unsigned short>(single.unit | (i % 2 == 0 ? 0x4100 : 0));
            return true;
        }
        case Turn::flag:
            static_cast<Flag&>(parameter).value = i == 0;
            return true;
        case Turn::out:
            static_cast<AnyOut&>(parameter).isThere = i == 0;
            return true;
        case Turn::wide:
            static_cast<AnyWide&>(parameter).value = smallNumbersToShow[i];
            return true;
        case Turn::text:
            return giveText(parameter, texts[i]);
        }
        return false;
    }

    // Of a counted text as many units are there as are read.
    bool giveText(Parameter& parameter, GivenText& text)
    {
        auto const longest = static_cast<int>(size.longestText);
        int const length = count < 0 || count > longest ? longest : count;
        if (parameter.isCounted() && static_cast<int>(text.units.size()) != length)
            return false;
        text.count = count;
        parameter.hold(text);
        return true;
    }

    std::string walkArguments(std::size_t at)
    {
        if (at == arguments.size())
            return walkReceivers();
        for (std::size_t i = 0; i < arguments[at].values; ++i) {
            if (arguments[at].isAnyUnit)
                unit = i;
            if (!give(arguments[at], i))
                continue;
            if (std::string difference = walkArguments(at + 1); !difference.empty())
                return difference;
        }
        return {};
    }

    std::string walkReceivers()
    {
        std::size_t receivers = texts.size();
        if (StringRows::areConstructors[call->place])
            receivers = 1; // all that is there already is stale
        else if (unit >= usualUnits)
            receivers = smallTextsUpTo(1);
        for (std::size_t i = 0; i < receivers; ++i) {
            layString(0, i);
            if (isWithin(Reach::laidDown, *call, models) && !agrees())
                return describeDifference(i);
        }
        return {};
    }

    void layString(std::size_t string, std::size_t text)
    {
        models[string] = states[text];
        objects[string].lay(models[string].bytes().data());
    }

    // Whether the call leaves the same as the model.
    bool agrees()
    {
        ++made;
        expected = runOnModels(*call, models);
        actual = Outcome();
        objectCalls[call->place].call(*call, objects, actual, objectCalls[call->place].member);
        actual.side = sideOf(*call);
        bool const isPlain = !expected.text && !actual.text && !expected.narrow && !actual.narrow;
        bool const isSame = expected.value == actual.value && expected.side == actual.side;
        if ((!isPlain || !isSame || !actual.isReceiver) &&
            !qvTest::describeDifference(expected, actual).empty())
            return false;
        for (std::size_t i = 0; i < stringCount; ++i) {
            bool const isEqual =
                std::memcmp(models[i].bytes().data(), objects[i].bytes(), image.size) == 0;
            if (!isEqual && !qvTest::describeDifference("", models[i], objects[i].bytes()).empty())
                return false;
            if (!objects[i].guardsIntact())
                return false;
        }
        return true;
    }

    std::string describeDifference(std::size_t receiver)
    {
        std::string told = qvTest::describeDifference(expected, actual);
        StringModels<Model> before = models;
        before[0] = states[receiver];
        for (std::size_t i = 0; i < stringCount; ++i) {
            told += qvTest::describeDifference("string " + std::to_string(i), models[i],
                                               objects[i].bytes());
            if (!objects[i].guardsIntact())
                told += "string " + std::to_string(i) + ": guard bytes overwritten\n";
        }
        return describeCall(*call, before) + told;
    }

    SmallWorldSize size;
    std::vector<GivenText> texts;
    std::vector<Model> states; // a string of each text, stale behind it
    std::unique_ptr<StringCall> call;
    std::vector<Argument> arguments;
    std::size_t strings = 0; // that are arguments
    std::size_t unit = 0;    // the place of the one that is any
    int count = 0;
    long& made;

    GuardedStrings<C> objects;
    StringModels<Model> models;
    ExpectedOutcome<Model> expected;
    Outcome actual;
};

template <class C>
constexpr SmallWorldRun smallWorldOf(char const* name)
{
    return {name, StringTraits<C>::capacity, StringTraits<C>::place, SmallWorld<C>::walk};
}

std::span<SmallWorldRun const> smallWorlds8();
std::span<SmallWorldRun const> smallWorlds16();

} // namespace qvTest
