#include "tests/model/string8Call.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace qvTest {

namespace {

std::string flipCase(std::string s)
{
    for (char& c : s)
        c = upper(c) == c ? lower(c) : upper(c);
    return s;
}

// A part of a text that is in use, in one case or another: what makes searches find something.
std::string slice(ByteReader& input, String8Model const& source)
{
    std::string const characters = source.used();
    if (characters.empty())
        return {};
    std::size_t const from = input.below(std::min<std::size_t>(characters.size(), 255));
    unsigned char const choice = input.byte();
    bool const toTheEnd = (choice & 15) == 15;
    std::string const part = characters.substr(from, toTheEnd ? characters.size() : choice & 15);
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
std::string extended(ByteReader& input, String8Model const& source)
{
    unsigned char const choice = input.byte();
    return source.used() + std::string(choice < 16 ? 65536u : choice % 8u, 'y');
}

char characterFor(ByteReader& input, String8Model const& receiver)
{
    unsigned char const choice = input.byte();
    if (choice < 128 || receiver.length() == 0)
        return input.character();
    return static_cast<char>(receiver.textAt(choice % receiver.length()));
}

void readTerminatedText(ByteReader& input, String8Models const& models, bool mayBeStored,
                        String8Call& call)
{
    unsigned char const choice = input.byte();
    std::size_t const from = choice % stringCount;
    if (choice >= 250)
        call.isNull = true;
    else if (choice >= 235 && mayBeStored && models[from].hasStoredZero())
        call.ownTextOf = static_cast<int>(from);
    else if (choice >= 220)
        call.characters = extended(input, models[from]);
    else if (choice >= 160)
        call.characters = slice(input, models[from]);
    else
        call.characters = input.text(models[0].capacity(), false);
    call.characters = call.characters.substr(0, call.characters.find('\0'));
    call.buffer = std::make_unique<char[]>(call.characters.size() + 1);
    std::copy(call.characters.begin(), call.characters.end(), call.buffer.get());
}

// Exactly as many bytes as the count inside the capacity says, so that a sanitizer sees one read
// too many; for all other counts, as many as the capacity lets in.
void readCountedText(ByteReader& input, String8Models const& models, bool mayBeNull,
                     String8Call& call)
{
    std::size_t const capacity = models[0].capacity();
    unsigned char const choice = input.byte();
    if (mayBeNull && choice >= 245) {
        call.isNull = true;
        return;
    }
    call.characters =
        choice >= 160 ? slice(input, models[choice % stringCount]) : input.text(capacity, true);
    bool const inside = call.a >= 0 && static_cast<std::size_t>(call.a) <= capacity;
    std::size_t const size = inside ? static_cast<std::size_t>(call.a) : capacity;
    if (call.characters.empty())
        call.characters = "q";
    for (std::size_t i = 0; call.characters.size() < size; ++i)
        call.characters += call.characters[i];
    call.characters.resize(size);
    call.buffer.reset(new char[size]);
    std::copy(call.characters.begin(), call.characters.end(), call.buffer.get());
}

Operation operationFor(unsigned char choice)
{
    // Members that empty a string are many, so the spare codes fill it again.
    return choice < operationCount ? static_cast<Operation>(choice) : Operation::assignText;
}

} // namespace

String8Call String8Call::read(ByteReader& input, String8Models const& models)
{
    String8Call call;
    call.operation = operationFor(input.byte());
    unsigned const takes = infoOf(call.operation).takes;
    unsigned char const objects = input.byte();
    call.receiver = objects % stringCount;
    call.arguments[0] = objects / stringCount % stringCount;
    call.arguments[1] = objects / (stringCount * stringCount) % stringCount;
    if ((takes & Takes::sixStrings) != 0)
        for (std::size_t& argument : call.arguments)
            argument = input.below(stringCount);

    String8Model const& receiver = models[call.receiver];
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
        call.c = characterFor(input, receiver);
    if ((takes & Takes::secondCharacter) != 0)
        call.d = characterFor(input, receiver);
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
    return call;
}

String8Model::Text String8Call::textFor(String8Models const& models, std::string& stored) const
{
    if (isNull)
        return nullptr;
    if (ownTextOf == noString)
        return &characters;
    stored = models[static_cast<std::size_t>(ownTextOf)].storedText();
    return &stored;
}

// The characters as units with a high byte that no conversion may look at. From 1024 units on no
// terminator follows, since nothing behind is read.
std::vector<unsigned short> String8Call::units() const
{
    constexpr std::size_t readAtMost = 1024;
    std::vector<unsigned short> made;
    for (std::size_t i = 0; i < characters.size() && i < readAtMost; ++i)
        made.push_back(static_cast<unsigned short>(static_cast<unsigned char>(characters[i]) |
                                                   static_cast<unsigned>(a & 0xFF) << 8));
    if (made.size() < readAtMost)
        made.push_back(0);
    return std::vector<unsigned short>(made.begin(), made.end());
}

unsigned short String8Call::unit() const
{
    return static_cast<unsigned short>(static_cast<unsigned char>(c) | (flag ? 0x4100u : 0u));
}

std::string String8Call::describe() const
{
    OperationInfo const& info = infoOf(operation);
    std::string told = std::string(info.name) + " on string " + std::to_string(receiver);
    auto const tell = [&](unsigned takes, std::string const& what) {
        if ((info.takes & takes) == takes)
            told += ", " + what;
    };
    auto const code = [](char shown) {
        return std::to_string(static_cast<int>(static_cast<unsigned char>(shown)));
    };
    tell(Takes::anotherString, "argument string " + std::to_string(arguments[0]));
    tell(Takes::twoStrings, "second string " + std::to_string(arguments[1]));
    if ((info.takes & Takes::sixStrings) != 0) {
        told += ", strings";
        for (std::size_t const argument : arguments)
            told += ' ' + std::to_string(argument);
    }
    tell(Takes::number, "a = " + std::to_string(a));
    tell(Takes::secondNumber, "b = " + std::to_string(b));
    tell(Takes::character, "c = " + code(c));
    tell(Takes::secondCharacter, "d = " + code(d));
    tell(Takes::flag, flag ? "flag" : "no flag");
    tell(Takes::secondFlag, secondFlag ? "second flag" : "no second flag");
    tell(Takes::out, withOut ? "with out-parameter" : "null out-parameter");
    tell(Takes::wide, "value " + std::to_string(wide));
    if ((info.takes & (Takes::text | Takes::counted | Takes::plainText)) == 0)
        return told;
    if (isNull)
        return told + ", null text";
    if (ownTextOf != noString)
        return told + ", text stored in string " + std::to_string(ownTextOf);
    told += ", text of " + std::to_string(characters.size()) + ":";
    for (std::size_t i = 0; i < characters.size() && i < 80; ++i) {
        char shown[8];
        bool const printable = characters[i] > ' ' && characters[i] <= '~';
        std::snprintf(shown, sizeof shown, printable ? " %c" : " %02X",
                      static_cast<unsigned char>(characters[i]));
        told += shown;
    }
    return told;
}

String8Model legacySource(String8Image const& image, String8Call const& call)
{
    String8Model made(image, 0);
    made.putBytes(call.characters);
    std::size_t const room = image.capacity + 1;
    made.putLength(static_cast<unsigned int>(call.a) % room);
    return made;
}

namespace {

// A pattern shorter than the receiver has to be looked for at a position inside.
bool searchIsWithin(String8Call const& call, String8Models const& models)
{
    long long const pattern = static_cast<long long>(models[call.arguments[0]].length());
    long long const receiver = static_cast<long long>(models[call.receiver].length());
    return call.a >= 0 || pattern == 0 || pattern == receiver || pattern + call.a > receiver;
}

bool midIsWithin(Reach reach, String8Call const& call, String8Model const& receiver)
{
    if (reach == Reach::laidDown)
        return call.a >= 0;
    long long const n = static_cast<long long>(receiver.capacity());
    return call.a >= 0 && call.b >= 0 && call.a + std::min<long long>(call.b, n) <= n + 1;
}

bool removeIsWithin(Reach reach, String8Call const& call, String8Model const& receiver)
{
    long long const end = static_cast<long long>(call.a) + call.b;
    if (reach == Reach::contract)
        return call.a >= 0 && call.b >= 0 && end <= static_cast<long long>(receiver.length());
    if (call.a < 0 || end < 0 || end > INT_MAX)
        return false;
    String8Model trial = receiver;
    trial.removeRange(call.a, call.b);
    return !trial.leftObject();
}

bool addSpacingIsWithin(Reach reach, String8Call const& call, String8Model const& receiver)
{
    long long const width = call.a < 0 ? -static_cast<long long>(call.a) : call.a;
    long long const current = static_cast<long long>(receiver.length());
    long long const capacity = static_cast<long long>(receiver.capacity());
    if (current + width <= capacity)
        return true;
    // Text behind blanks that have already run over the length field has no place laid down.
    bool const textLast = call.a < 0 && !call.isNull && !call.characters.empty();
    if (reach == Reach::contract || textLast)
        return false;
    String8Model trial = receiver;
    std::string stored;
    trial.addSpacing(call.isNull ? nullptr : &call.characters, call.a);
    return !trial.leftObject();
}

bool endsWithGateIsWithin(String8Call const& call, String8Model const& receiver)
{
    if (call.isNull)
        return false;
    bool const opensGate = call.a != 0 && receiver.lengthFits(static_cast<unsigned int>(call.a));
    return !opensGate || call.characters.size() % 65536 <= receiver.length();
}

} // namespace

bool isWithin(Reach reach, String8Call const& call, String8Models const& models)
{
    String8Model const& receiver = models[call.receiver];
    switch (call.operation) {
    case Operation::constructCopy:
    case Operation::constructView:
        return call.receiver != call.arguments[0];
    case Operation::constructOtherView:
        return call.characters.size() <= receiver.capacity();
    case Operation::assignOtherView:
        return call.characters.size() <= otherViewCapacity;
    case Operation::addCounted:
        return call.a >= 0;
    case Operation::indexOfObject:
    case Operation::indexOfCaseSenObject:
        return searchIsWithin(call, models);
    case Operation::mid:
        return midIsWithin(reach, call, receiver);
    case Operation::removeRange:
        return removeIsWithin(reach, call, receiver);
    case Operation::insert:
    case Operation::leftCount:
        return reach == Reach::laidDown || call.a >= 0;
    case Operation::addSpacing:
        return addSpacingIsWithin(reach, call, receiver);
    case Operation::endsWithGated:
        return endsWithGateIsWithin(call, receiver);
    case Operation::toInt:
    case Operation::toInt64:
        return receiver.hasStoredZero();
    case Operation::toIntFromHex:
        return call.a / 4 >= 0 || !call.secondFlag;
    default:
        return true;
    }
}

} // namespace qvTest
