#pragma once

#include "tests/model/stringCall.h"
#include "tests/model/stringCompare.h"
#include "tests/model/stringRun.h"

#include <cstdio>
#include <string>
#include <vector>

namespace qvTest {

// What the driver has to know of a class: its place among the images, capacity, layout and model.
template <class C>
struct StringTraits;

// How each row is called on objects of class C. Rows of one signature share one function, which is
// given the member: the compiler takes longest over the number of functions.
template <class C>
struct ObjectCalls
{
    using AnyMember = void const*; // to the member pointer
    struct Entry
    {
        void (*call)(StringCall const&, GuardedStrings<C>&, Outcome&, AnyMember) = nullptr;
        AnyMember member = nullptr;
    };

    template <class R>
    static constexpr Entry of()
    {
        return entryOf<R>(static_cast<typename R::Call*>(nullptr));
    }

private:
    template <class R, class... Slots>
    static constexpr Entry entryOf(CallWith<Slots...>*)
    {
        if constexpr (std::is_base_of_v<Constructor, R>)
            return {construct<Slots...>};
        else if constexpr (std::is_base_of_v<OwnCall, R>)
            return {callOwn<R, Slots...>};
        else if constexpr (!std::is_member_pointer_v<decltype(R::template member<C>())>)
            return {callStatic<R, Slots...>};
        else
            return {callMember<decltype(R::template member<C>()), Slots...>, &memberOf<R>};
    }

    template <class R>
    static constexpr decltype(R::template member<C>()) memberOf = R::template member<C>();

    template <class Member, class... Slots>
    static void callMember(StringCall const& call, [[maybe_unused]] GuardedStrings<C>& objects,
                           [[maybe_unused]] Outcome& outcome, AnyMember any)
    {
        [[maybe_unused]] auto const& with = static_cast<CallWith<Slots...> const&>(call);
        Member const member = *static_cast<Member const*>(any);
        C& s = objects[call.receiver].get();
        if constexpr (std::is_void_v<decltype((s.*member)(
                          static_cast<Slots const&>(with).parameter.given(objects)...))>)
            (s.*member)(static_cast<Slots const&>(with).parameter.given(objects)...);
        else
            keep(outcome, s,
                 (s.*member)(static_cast<Slots const&>(with).parameter.given(objects)...));
    }

    template <class R, class... Slots>
    static void callStatic(StringCall const& call, GuardedStrings<C>& objects, Outcome& outcome,
                           AnyMember)
    {
        auto const& with = static_cast<CallWith<Slots...> const&>(call);
        keep(outcome, objects[call.receiver].get(),
             R::template member<C>()(static_cast<Slots const&>(with).parameter.given(objects)...));
    }

    template <class... Slots>
    static void construct(StringCall const& call, GuardedStrings<C>& objects, Outcome&, AnyMember)
    {
        [[maybe_unused]] auto const& with = static_cast<CallWith<Slots...> const&>(call);
        objects[call.receiver].construct(
            static_cast<typename decltype(Slots::parameter)::template As<C>>(
                static_cast<Slots const&>(with).parameter.given(objects))...);
    }

    template <class R, class... Slots>
    static void callOwn(StringCall const& call, [[maybe_unused]] GuardedStrings<C>& objects,
                        [[maybe_unused]] Outcome& outcome, AnyMember)
    {
        [[maybe_unused]] auto const& with = static_cast<CallWith<Slots...> const&>(call);
        C& s = objects[call.receiver].get();
        if constexpr (std::is_void_v<decltype(R::onObject(
                          s, static_cast<Slots const&>(with).parameter.given(objects)...))>)
            R::onObject(s, static_cast<Slots const&>(with).parameter.given(objects)...);
        else
            keep(outcome, s,
                 R::onObject(s, static_cast<Slots const&>(with).parameter.given(objects)...));
    }
};

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
            auto const call = readCall(ReadingOf<Model>(input, models));
            std::size_t const place = call->place;
            if ((options.sharedBy & ~StringRows::images[place]) != 0)
                continue;
            if (objectCalls[place].call == nullptr || !isWithin(options.reach, *call, models))
                continue;
            std::string const difference = step(*call);
            if (!difference.empty())
                return difference;
            bringBackInside(models[call->receiver], objects[call->receiver]);
        }
        return {};
    }

private:
    static constexpr auto objectCalls =
        StringRows::table<StringTraits<C>::place, typename ObjectCalls<C>::Entry, ObjectCalls<C>>();

    std::string step(StringCall const& call)
    {
        if (options.announce) {
            std::puts(describeCall(call).c_str());
            std::fflush(stdout);
        }
        if (options.counts != nullptr)
            ++(*options.counts)[call.place];
        StringModels<Model> const before = models;
        ExpectedOutcome<Model> const expected = runOnModels(call, models);
        Outcome actual;
        objectCalls[call.place].call(call, objects, actual, objectCalls[call.place].member);
        actual.side = sideOf(call);
        std::string difference = describeDifference(expected, actual);
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
