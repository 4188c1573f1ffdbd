#pragma once

// Definitions of stringCall.h, for the files that instantiate them: calls on models.
#include "tests/model/stringCall.h"
#include "tests/model/stringLimits.h"
#include "tests/model/stringRows.h"

namespace qvTest {

template <class Model>
using ModelCall = void (*)(StringCall const&, StringModels<Model>&, ExpectedOutcome<Model>&);

template <class Model>
struct ModelCalls
{
    template <class R>
    static constexpr ModelCall<Model> of()
    {
        return runOf<R>(static_cast<typename R::Call*>(nullptr));
    }

private:
    template <class R, class... Slots>
    static constexpr ModelCall<Model> runOf(CallWith<Slots...>*)
    {
        return run<R, Slots...>;
    }

    template <class R, class... Slots>
    static void run(StringCall const& call, StringModels<Model>& models,
                    ExpectedOutcome<Model>& outcome)
    {
        [[maybe_unused]] auto const& with = static_cast<CallWith<Slots...> const&>(call);
        Model& s = models[call.receiver];
        if constexpr (std::is_void_v<decltype(R::onModel(
                          s, static_cast<Slots const&>(with).parameter.given(models)...))>)
            R::onModel(s, static_cast<Slots const&>(with).parameter.given(models)...);
        else
            keep(outcome, s,
                 R::onModel(s, static_cast<Slots const&>(with).parameter.given(models)...));
    }
};

template <class Model>
using ModelLimit = bool (*)(Scene<Model> const&, StringCall const&);

template <class Model>
struct ModelLimits
{
    template <class R>
    static constexpr ModelLimit<Model> of()
    {
        if constexpr (requires { Limit<R>::isNone; })
            return nullptr;
        else
            return allowsOf<R>(static_cast<typename R::Call*>(nullptr));
    }

private:
    template <class R, class... Slots>
    static constexpr ModelLimit<Model> allowsOf(CallWith<Slots...>*)
    {
        return allows<R, Slots...>;
    }

    template <class R, class... Slots>
    static bool allows(Scene<Model> const& scene, StringCall const& call)
    {
        auto const& with = static_cast<CallWith<Slots...> const&>(call);
        return Limit<R>::allows(scene, static_cast<Slots const&>(with).parameter...);
    }
};

template <class Model>
constexpr unsigned imagesOf = sizeof(typename Model::UnitType) == 1 ? both8 : both16;

template <class Model>
bool isWithin(Reach reach, StringCall const& call, StringModels<Model> const& models)
{
    static constexpr auto limits =
        StringRows::table<imagesOf<Model>, ModelLimit<Model>, ModelLimits<Model>>();
    return limits[call.place] == nullptr ||
           limits[call.place](Scene<Model>{reach, models, call.receiver}, call);
}

template <class Model>
ExpectedOutcome<Model> runOnModels(StringCall const& call, StringModels<Model>& models)
{
    static constexpr auto runs =
        StringRows::table<imagesOf<Model>, ModelCall<Model>, ModelCalls<Model>>();
    ExpectedOutcome<Model> outcome;
    runs[call.place](call, models, outcome);
    outcome.side = sideOf(call);
    return outcome;
}

} // namespace qvTest
