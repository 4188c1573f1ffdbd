#pragma once

#include "tests/model/stringCompare.h"
#include "tests/model/stringExecute.h"
#include "tests/model/stringExpected.h"
#include "tests/model/stringRun.h"

#include <cstdio>
#include <string>
#include <vector>

namespace qvTest {

// What the driver has to know of a class: its place among the images, capacity, layout and model.
template <class C>
struct StringTraits;

// Reads calls off the input, runs each on real objects and on models, and compares everything it
// gives back and every byte of every object and of the guards around it.
template <class C>
class StringDriver
{
    using Model = typename StringTraits<C>::Model;

public:
    static constexpr std::size_t capacity = StringTraits<C>::capacity;
    static constexpr StringImage image = StringTraits<C>::image;
    static_assert(sizeof(C) == image.size && alignof(C) == 2);

    explicit StringDriver(DriverOptions const& theOptions) : options(theOptions) {}

    // Empty when all agreed, else the first call that did not, told at length.
    std::string run(unsigned char const* data, std::size_t size)
    {
        ByteReader input(data, size);
        for (std::size_t i = 0; i < stringCount; ++i) {
            unsigned char const seed = input.byte();
            objects.emplace_back(seed);
            models.emplace_back(image, seed);
            models.back().construct();
        }
        while (!input.atEnd()) {
            StringCall const call = StringCall::read(input, models);
            if ((options.sharedBy & ~infoOf(call.operation).images) != 0)
                continue;
            if (!isWithin(options.reach, call, models))
                continue;
            std::string const difference = step(call);
            if (!difference.empty())
                return difference;
            bringBackInside(models[call.receiver], objects[call.receiver]);
        }
        return {};
    }

private:
    std::string step(StringCall const& call)
    {
        if (options.announce) {
            std::puts(call.describe().c_str());
            std::fflush(stdout);
        }
        std::optional<Outcome> const actual = StringExecution<C, capacity>(call, objects).run();
        if (!actual)
            return {};
        if (options.counts != nullptr)
            ++(*options.counts)[static_cast<std::size_t>(call.operation)];
        StringModels<Model> const before = models;
        ExpectedOutcome<Model> const expected = runOnModels(call, models);
        std::string difference = describeDifference(expected, *actual);
        for (std::size_t i = 0; i < stringCount; ++i) {
            difference +=
                describeDifference("string " + std::to_string(i), models[i], objects[i].bytes());
            if (!objects[i].guardsIntact())
                difference += "string " + std::to_string(i) + ": guard bytes overwritten\n";
        }
        if (options.trace != nullptr)
            options.trace->push_back(describeResult(call, expected, models));
        return difference.empty() ? std::string() : describeCall(call, before) + difference;
    }

    // Blanks may run a little over the text area, which stays inside the object but leaves a length
    // that no other member has to cope with.
    static void bringBackInside(Model& model, GuardedObject<C>& object)
    {
        if (model.length() <= capacity)
            return;
        model.construct();
        object.construct();
    }

    DriverOptions options;
    GuardedStrings<C> objects;
    StringModels<Model> models;
};

template <class C>
constexpr StringRun runOf(char const* name)
{
    return {name, StringTraits<C>::capacity, StringTraits<C>::place,
            [](DriverOptions const& options, unsigned char const* data, std::size_t size) {
                return StringDriver<C>(options).run(data, size);
            }};
}

} // namespace qvTest
