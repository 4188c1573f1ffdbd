#pragma once

#include "tests/model/string8Compare.h"
#include "tests/model/string8Execute.h"
#include "tests/model/string8Expected.h"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace qvTest {

template <class C>
struct String8Traits;

template <int N>
struct String8Traits<_qvString8_allSize<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr String8Image image = currentImage(N);
};

#if QV_HAS_OLD_STRING8
template <int N>
struct String8Traits<_qvString8_evenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr String8Image image = evenOldImage(N);
};

template <int N>
struct String8Traits<_qvString8_UnevenSize_old<N>>
{
    static constexpr std::size_t capacity = N;
    static constexpr String8Image image = unevenOldImage(N);
};
#endif

using CallCounts = std::array<std::size_t, operationCount>;

struct DriverOptions
{
    Reach reach = Reach::laidDown;
    bool sharedMembersOnly = false; // leave out what only the current string has
    bool announce = false; // print each call before it runs, for a call that ends the process
    std::vector<std::string>* trace = nullptr;
    CallCounts* counts = nullptr;
};

// Reads calls off the input, runs each on real objects and on models, and compares everything it
// gives back and every byte of every object and of the guards around it.
template <class C>
class String8Driver
{
public:
    static constexpr std::size_t capacity = String8Traits<C>::capacity;
    static constexpr String8Image image = String8Traits<C>::image;
    static_assert(sizeof(C) == image.size && alignof(C) == 2);

    explicit String8Driver(DriverOptions const& theOptions) : options(theOptions) {}

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
            String8Call const call = String8Call::read(input, models);
            if (options.sharedMembersOnly && infoOf(call.operation).currentOnly)
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
    std::string step(String8Call const& call)
    {
        if (options.announce) {
            std::puts(call.describe().c_str());
            std::fflush(stdout);
        }
        std::optional<Outcome> const actual = String8Execution<C, capacity>(call, objects).run();
        if (!actual)
            return {};
        if (options.counts != nullptr)
            ++(*options.counts)[static_cast<std::size_t>(call.operation)];
        String8Models const before = models;
        ExpectedOutcome const expected = runOnModels(call, models);
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
    static void bringBackInside(String8Model& model, GuardedObject<C>& object)
    {
        if (model.length() <= capacity)
            return;
        model.construct();
        object.construct();
    }

    DriverOptions options;
    GuardedStrings<C> objects;
    String8Models models;
};

} // namespace qvTest
