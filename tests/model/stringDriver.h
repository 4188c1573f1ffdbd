#pragma once

#include "tests/model/damage.h"
#include "tests/model/damagedLimits.h"
#include "tests/model/stringCall.h"
#include "tests/model/stringCompare.h"
#include "tests/model/stringRun.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
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
            take(outcome, s, [&]() -> decltype(auto) {
                return (s.*member)(static_cast<Slots const&>(with).parameter.given(objects)...);
            });
    }

    template <class R, class... Slots>
    static void callStatic(StringCall const& call, GuardedStrings<C>& objects, Outcome& outcome,
                           AnyMember)
    {
        auto const& with = static_cast<CallWith<Slots...> const&>(call);
        take(outcome, objects[call.receiver].get(), [&] {
            return R::template member<C>()(
                static_cast<Slots const&>(with).parameter.given(objects)...);
        });
    }

    // A string given back is made where the outcome says.
    template <class Call>
    static void take(Outcome& outcome, C const& s, Call const& call)
    {
        using Given = decltype(call());
        if constexpr (std::is_class_v<Given> && std::is_trivially_destructible_v<Given>)
            keep(outcome, s, std::move(*new (outcome.placeOf(sizeof(Given))) Given(call())));
        else
            keep(outcome, s, call());
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

// Runs one call on objects whose bytes may be anything, the length included, each with a page
// without access to one side. Nothing is compared: the call has to come back.
template <class C>
class DamagedStrings
{
    static constexpr StringImage image = StringTraits<C>::image;
    static constexpr std::size_t unitSize = sizeof(UnitOf<C>);

public:
    static bool call(std::size_t place, Damage& damage)
    {
        if (objectCalls[place].call == nullptr)
            return false;
        static GuardedPages const pages[stringCount]{
            GuardedPages(image.size), GuardedPages(image.size), GuardedPages(image.size)};
        GuardedStrings<C> objects;
        for (GuardedPages const& each : pages)
            objects.emplace_back(damage.layString(each, image, unitSize, isTrusting<C>(place)));
        auto made = anyCall(place, damage, objects);
        while (!staysInside<C>(*made, objects))
            made = anyCall(place, damage, objects);
        Outcome outcome;
        outcome.placeFor = damage.below(2) == 0 ? ahead : behind;
        objectCalls[place].call(*made, objects, outcome, objectCalls[place].member);
        return true;
    }

private:
    static constexpr auto objectCalls =
        StringRows::table<StringTraits<C>::place, typename ObjectCalls<C>::Entry, ObjectCalls<C>>();

    class DamagedReading final : public Reading
    {
    public:
        DamagedReading(ByteReader& theInput, GuardedStrings<C>& theObjects)
            : Reading(theInput),
              objects(theObjects)
        {}

        std::size_t capacity() const override { return image.capacity; }
        std::size_t length(std::size_t string) const override
        {
            return std::min<std::size_t>(objects[string].get().length, image.capacity);
        }
        std::u16string used(std::size_t string) const override
        {
            auto const* const text = objects[string].get().text;
            std::u16string made;
            for (std::size_t i = 0; i < length(string); ++i)
                made += static_cast<std::make_unsigned_t<UnitOf<C>>>(text[i]);
            return made;
        }
        bool hasStoredZero(std::size_t string) const override
        {
            auto const& text = objects[string].get().text;
            return std::find(std::begin(text), std::end(text), UnitOf<C>{0}) != std::end(text);
        }
        std::size_t unitSize() const override { return sizeof(UnitOf<C>); }

    private:
        GuardedStrings<C>& objects;
    };

    static std::unique_ptr<StringCall> anyCall(std::size_t place, Damage& damage,
                                               GuardedStrings<C>& objects)
    {
        unsigned char input[320];
        damage.fill(input, sizeof input);
        input[0] = static_cast<unsigned char>(place);
        ByteReader reader(input, sizeof input);
        return readCall(DamagedReading(reader, objects));
    }

    static GuardedPages const& results()
    {
        static GuardedPages const pages(std::max(image.size, sizeof(_qvString8_allSize<500>)));
        return pages;
    }
    static unsigned char* ahead(std::size_t size) { return results().place(size, false); }
    static unsigned char* behind(std::size_t size) { return results().place(size, true); }
};

template <class C>
constexpr StringRun runOf(char const* name)
{
    return {name, StringTraits<C>::capacity, StringTraits<C>::place,
            [](DriverOptions const& options, unsigned char const* data, std::size_t size) {
                return StringDriver<C>(options).run(data, size);
            },
            DamagedStrings<C>::call};
}

} // namespace qvTest
