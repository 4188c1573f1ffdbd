#pragma once

// Definitions of stringCall.h, for the files that instantiate it: reading calls.
#include "tests/model/stringCall.h"
#include "tests/model/stringModel.h"

#include <algorithm>

namespace qvTest {

template <class Unit>
std::basic_string<Unit> flipCase(std::basic_string<Unit> s)
{
    for (Unit& c : s)
        c = upper(c) == c ? lower(c) : upper(c);
    return s;
}

// A part of a text that is in use, in one case or another: what makes searches find something.
template <class Unit>
std::basic_string<Unit> slice(ByteReader& input, std::basic_string<Unit> const& characters)
{
    if (characters.empty())
        return {};
    std::size_t const from = input.below(std::min<std::size_t>(characters.size(), 255));
    unsigned char const choice = input.byte();
    bool const toTheEnd = (choice & 15) == 15;
    auto const part = characters.substr(from, toTheEnd ? characters.size() : choice & 15);
    switch (choice >> 4 & 3) {
    case 1:
        return flipCase(part);
    case 2:
        return upper(part);
    case 3:
        return lower(part);
    default:
        return part;
    }
}

// A text that starts as a string does and goes on behind its end, at times so far that its length
// comes out the same again in 16 bits.
template <class Unit>
std::basic_string<Unit> extended(ByteReader& input, std::basic_string<Unit> const& characters)
{
    unsigned char const choice = input.byte();
    return characters + std::basic_string<Unit>(choice < 16 ? 65536u : choice % 8u, Unit{'y'});
}

// A text of the same length that differs in one place: what a comparison has to look at all of the
// text for.
template <class Unit>
std::basic_string<Unit> changed(ByteReader& input, std::basic_string<Unit> characters)
{
    if (!characters.empty())
        characters[input.byte() % characters.size()] = Unit{'#'};
    return characters;
}

// A byte as a unit: widened in either way, moved into another page, or in the high byte, where a
// search by low bytes or by sums of units takes it for another.
inline char16_t widened(char c, unsigned style)
{
    unsigned const byte = static_cast<unsigned char>(c);
    switch (style) {
    case 3:
        return static_cast<char16_t>(byte >= 0x80 ? 0xFF00 | byte : byte);
    case 4:
        return static_cast<char16_t>(0x0100 | byte);
    case 5:
        return static_cast<char16_t>(byte << 8);
    case 6:
        return static_cast<char16_t>(0xFF00 | byte);
    case 7:
        return static_cast<char16_t>(byte << 8 | 'a');
    default:
        return static_cast<char16_t>(byte);
    }
}

inline std::u16string widened(ByteReader& input, std::string const& s)
{
    unsigned const style = input.byte() % 10u;
    bool const mixed = style >= 8;
    std::u16string made;
    made.reserve(s.size());
    for (char const c : s)
        made += widened(c, mixed ? static_cast<unsigned char>(c) % 3u + 2u : style);
    return made;
}

// The text in use as a byte text can hold it.
template <class Model>
std::string bytesInUse(Model const& model)
{
    std::string bytes;
    for (auto const unit : model.used())
        bytes += static_cast<char>(unit & 0xFF);
    return bytes;
}

template <class Model>
void readSingle(ByteReader& input, Model const& receiver, char& c, char16_t& unit)
{
    unsigned char const choice = input.byte();
    if (choice < 128 || receiver.length() == 0) {
        c = input.character();
        unit = widened(c, choice & 7u);
        return;
    }
    unit = static_cast<char16_t>(receiver.textAt(choice % receiver.length()));
    c = static_cast<char>(unit & 0xFF);
}

template <class Model>
void readTerminatedText(ByteReader& input, StringModels<Model> const& models, bool mayBeStored,
                        StringCall& call)
{
    unsigned char const choice = input.byte();
    std::size_t const from = choice % stringCount;
    // Only an 8-bit string stores its text in bytes.
    bool const isStored = sizeof(typename Model::UnitType) == 1 && mayBeStored;
    if (choice >= 250)
        call.isNull = true;
    else if (choice >= 235 && isStored && models[from].hasStoredZero())
        call.ownTextOf = static_cast<int>(from);
    else if (choice >= 220)
        call.characters = extended(input, bytesInUse(models[from]));
    else if (choice >= 160)
        call.characters = slice(input, bytesInUse(models[from]));
    else
        call.characters = input.text(models[0].capacity(), false);
    call.characters = call.characters.substr(0, call.characters.find('\0'));
    call.buffer = std::make_unique<char[]>(call.characters.size() + 1);
    std::copy(call.characters.begin(), call.characters.end(), call.buffer.get());
}

template <class Model>
void readTerminatedUnits(ByteReader& input, StringModels<Model> const& models, bool mayBeStored,
                         StringCall& call)
{
    // From here on no terminator is looked for, so none is given.
    constexpr std::size_t readAtMost = 1024;
    unsigned char const choice = input.byte();
    std::size_t const from = choice % stringCount;
    if (choice >= 250)
        call.isNull = true;
    else if (choice >= 235 && mayBeStored && models[from].hasStoredZero())
        call.ownTextOf = static_cast<int>(from);
    else if (choice >= 220)
        call.unitText = extended(input, models[from].used());
    else if (choice >= 160)
        call.unitText = slice(input, models[from].used());
    else if (choice >= 145)
        call.unitText = changed(input, models[from].used());
    else
        call.unitText = widened(input, input.text(models[0].capacity(), false));
    call.unitText = call.unitText.substr(0, call.unitText.find(u'\0'));
    std::size_t const size = std::min(call.unitText.size() + 1, readAtMost);
    call.unitBuffer = std::make_unique<unsigned short[]>(size);
    std::copy_n(call.unitText.begin(), std::min(call.unitText.size(), size), call.unitBuffer.get());
}

// Exactly as many units as the count inside the capacity says, so that a sanitizer sees one read
// too many; for all other counts, as many as the capacity lets in.
template <class Unit>
void fillUpTo(std::size_t capacity, int count, std::basic_string<Unit>& counted)
{
    bool const inside = count >= 0 && static_cast<std::size_t>(count) <= capacity;
    std::size_t const size = inside ? static_cast<std::size_t>(count) : capacity;
    if (counted.empty())
        counted = Unit{'q'};
    for (std::size_t i = 0; counted.size() < size; ++i)
        counted += counted[i];
    counted.resize(size);
}

template <class Model>
void readCountedText(ByteReader& input, StringModels<Model> const& models, bool mayBeNull,
                     StringCall& call)
{
    std::size_t const capacity = models[0].capacity();
    unsigned char const choice = input.byte();
    if (mayBeNull && choice >= 245) {
        call.isNull = true;
        return;
    }
    call.characters = choice >= 160 ? slice(input, bytesInUse(models[choice % stringCount]))
                                    : input.text(capacity, true);
    fillUpTo(capacity, call.a, call.characters);
    call.buffer.reset(new char[call.characters.size()]);
    std::copy(call.characters.begin(), call.characters.end(), call.buffer.get());
}

template <class Model>
void readCountedUnits(ByteReader& input, StringModels<Model> const& models, bool mayBeNull,
                      StringCall& call)
{
    std::size_t const capacity = models[0].capacity();
    unsigned char const choice = input.byte();
    if (mayBeNull && choice >= 245) {
        call.isNull = true;
        return;
    }
    call.unitText = choice >= 160 ? slice(input, models[choice % stringCount].used())
                                  : widened(input, input.text(capacity, true));
    fillUpTo(capacity, call.a, call.unitText);
    call.unitBuffer.reset(new unsigned short[call.unitText.size()]);
    std::copy(call.unitText.begin(), call.unitText.end(), call.unitBuffer.get());
}

// Members that empty a string are many, so the codes without a member fill it again.
template <class Unit>
Operation operationFor(unsigned char choice)
{
    bool const is8 = sizeof(Unit) == 1;
    unsigned const images = is8 ? Images::both8 : Images::both16;
    if (choice < operationCount && (operationInfos[choice].images & images) != 0)
        return static_cast<Operation>(choice);
    return is8 || choice % 2 == 0 ? Operation::assignText : Operation::assignUnitText;
}

template <class Model>
StringCall StringCall::read(ByteReader& input, StringModels<Model> const& models)
{
    using Unit = typename Model::UnitType;
    StringCall call;
    call.operation = operationFor<Unit>(input.byte());
    unsigned const takes = infoOf(call.operation).takes;
    unsigned char const objects = input.byte();
    call.receiver = objects % stringCount;
    call.arguments[0] = objects / stringCount % stringCount;
    call.arguments[1] = objects / (stringCount * stringCount) % stringCount;
    if ((takes & Takes::sixStrings) != 0)
        for (std::size_t& argument : call.arguments)
            argument = input.below(stringCount);

    Model const& receiver = models[call.receiver];
    int const length = static_cast<int>(receiver.length());
    int const capacity = static_cast<int>(receiver.capacity());
    if ((takes & Takes::number) != 0)
        call.a = input.number(length, capacity);
    // Every place of the text is worth writing to, above all the last one.
    if (call.operation == Operation::writeText)
        call.a = std::clamp(call.a, 0, capacity);
    if ((takes & Takes::secondNumber) != 0)
        call.b = input.number(length, capacity);
    if ((takes & Takes::character) != 0)
        readSingle(input, receiver, call.c, call.unit);
    if ((takes & Takes::secondCharacter) != 0)
        readSingle(input, receiver, call.d, call.secondUnit);
    if ((takes & Takes::flag) != 0)
        call.flag = input.flag();
    if ((takes & Takes::secondFlag) != 0)
        call.secondFlag = input.flag();
    if ((takes & Takes::out) != 0)
        call.withOut = input.byte() < 192;
    if ((takes & Takes::wide) != 0)
        call.wide = input.wideNumber();
    if ((takes & Takes::text) != 0)
        readTerminatedText(input, models, (takes & Takes::ownText) == Takes::ownText, call);
    if ((takes & Takes::counted) != 0)
        readCountedText(input, models, (takes & Takes::countedOrNull) == Takes::countedOrNull,
                        call);
    if ((takes & Takes::plainText) != 0)
        call.characters = input.text(receiver.capacity(), true);
    if constexpr (sizeof(Unit) == 2) {
        if ((takes & Takes::plainText) != 0)
            call.unitText = widened(input, call.characters);
        if ((takes & Takes::units) != 0)
            readTerminatedUnits(input, models, (takes & Takes::ownUnits) == Takes::ownUnits, call);
        if ((takes & Takes::countedUnits) != 0)
            readCountedUnits(input, models,
                             (takes & Takes::countedUnitsOrNull) == Takes::countedUnitsOrNull,
                             call);
    }
    return call;
}

template <class Model>
std::string const* StringCall::textFor(StringModels<Model> const& models, std::string& stored) const
{
    if (isNull)
        return nullptr;
    if constexpr (sizeof(typename Model::UnitType) == 1)
        if (ownTextOf != noString) {
            stored = models[static_cast<std::size_t>(ownTextOf)].storedText();
            return &stored;
        }
    return &characters;
}

template <class Model>
std::u16string const* StringCall::unitsFor(StringModels<Model> const& models,
                                           std::u16string& stored) const
{
    if (isNull)
        return nullptr;
    if (ownTextOf == noString)
        return &unitText;
    stored = models[static_cast<std::size_t>(ownTextOf)].storedText();
    return &stored;
}

} // namespace qvTest
