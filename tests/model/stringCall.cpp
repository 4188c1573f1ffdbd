#include "tests/model/stringCall.h"

#include "tests/model/stringRows.h"

namespace qvTest {

namespace {

using Made = std::unique_ptr<StringCall>;
using Make = Made (*)(std::size_t place, std::size_t receiver);

struct Makers
{
    template <class R>
    static constexpr Make of()
    {
        return make<typename R::Call>;
    }

    template <class Call>
    static Made make(std::size_t place, std::size_t receiver)
    {
        return Made(new Call(place, receiver));
    }
};

constexpr auto makers = StringRows::table<Images::all, Make, Makers>();

// Members that empty a string are many, so the codes without a member fill it again.
std::size_t placeFor(unsigned char choice, bool is8)
{
    unsigned const images = is8 ? Images::both8 : Images::both16;
    if (choice < StringRows::count && (StringRows::images[choice] & images) != 0)
        return choice;
    return is8 || choice % 2 == 0 ? StringRows::placeOf<rows::assignText>()
                                  : StringRows::placeOf<rows::assignUnitText>();
}

// Two argument strings fit into the byte of the receiver; of more each has its own.
void readAll(std::vector<Parameter*> const& parameters, Reading& reading)
{
    auto const isString = [](Parameter const* each) { return each->turn == Turn::string; };
    if (std::count_if(parameters.begin(), parameters.end(), isString) > 2)
        for (std::size_t& other : reading.others)
            other = reading.input.below(stringCount);
    for (Turn const turn :
         {Turn::string, Turn::number, Turn::single, Turn::flag, Turn::out, Turn::wide, Turn::text})
        for (Parameter* const each : parameters)
            if (each->turn == turn)
                each->read(reading);
}

} // namespace

Made makeCall(std::size_t place, std::size_t receiver)
{
    return makers[place](place, receiver);
}

Made readCall(Reading&& reading)
{
    std::size_t const place = placeFor(reading.input.byte(), reading.unitSize() == 1);
    unsigned char const objects = reading.input.byte();
    reading.receiver = objects % stringCount;
    reading.others = {objects / stringCount % stringCount,
                      objects / (stringCount * stringCount) % stringCount};
    Made call = makeCall(place, reading.receiver);
    readAll(call->parameters, reading);
    return call;
}

std::string describeCall(StringCall const& call)
{
    std::string told = StringRows::names[call.place];
    told += " on string " + std::to_string(call.receiver);
    for (Parameter const* const each : call.parameters)
        told += ", " + each->told();
    return told;
}

std::optional<long long> sideOf(StringCall const& call)
{
    for (Parameter const* const each : call.parameters)
        if (auto const side = each->side())
            return side;
    return std::nullopt;
}

} // namespace qvTest
