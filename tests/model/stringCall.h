#pragma once

#include "tests/model/stringArguments.h"
#include "tests/model/stringOutcome.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qvTest {

// How far from the ordinary use a call may go.
enum class Reach
{
    // All results that are laid down, so long as every write stays inside the object.
    laidDown,
    // What callers may do, where all images give the same texts.
    contract,
};

// One call with its arguments.
class StringCall
{
public:
    StringCall(std::size_t thePlace, std::size_t theReceiver)
        : place(thePlace),
          receiver(theReceiver)
    {}
    virtual ~StringCall() = default;

    std::size_t const place; // among the rows
    std::size_t const receiver;
    std::vector<Parameter*> parameters;
};

// A call whose arguments are still to be given.
std::unique_ptr<StringCall> makeCall(std::size_t place, std::size_t receiver);

// Takes the next call off the input.
std::unique_ptr<StringCall> readCall(Reading&& reading);

// The call in words.
std::string describeCall(StringCall const& call);

// What the call left in its out-parameter.
std::optional<long long> sideOf(StringCall const& call);

// Each width defines these for the calls that it has.
template <class Model>
bool isWithin(Reach reach, StringCall const& call, StringModels<Model> const& models);
template <class Model>
ExpectedOutcome<Model> runOnModels(StringCall const& call, StringModels<Model>& models);

// One argument: the place in the row tells those of one kind apart.
template <std::size_t, class P>
struct Slot
{
    P parameter;
};

// The arguments side by side, as the rows list them. A tuple takes the compiler three times as
// long.
template <class... Slots>
class CallWith final : public StringCall, public Slots...
{
public:
    CallWith(std::size_t thePlace, std::size_t theReceiver) : StringCall(thePlace, theReceiver)
    {
        parameters = {&static_cast<Slots&>(*this).parameter...};
    }
};

} // namespace qvTest
