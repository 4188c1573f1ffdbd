#pragma once

#include "tests/model/byteReader.h"
#include "tests/model/stringImage.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace qvTest {

// What a call takes beside its receiver. A call reads from the input only what it takes.
enum Takes : unsigned
{
    nothing = 0,
    anotherString = 1,  // one string argument, the receiver itself included
    twoStrings = 1 | 2, // two of them
    sixStrings = 4,     // six of them
    text = 8,           // a zero-terminated byte text, null included
    ownText = 8 | 16,   // the same; it may be the stored text of a string itself
    counted = 32,       // a byte text by count, which the number is, as long as it will be read
    countedOrNull = 32 | 64,
    number = 128,
    secondNumber = 256,
    character = 512, // one character or unit
    secondCharacter = 1024,
    flag = 2048,
    secondFlag = 4096,
    wide = 8192,
    out = 16384,       // an out-parameter, null included
    plainText = 32768, // a text that is no pointer, zeros included
    units = 65536,     // a zero-terminated text of units, null included
    ownUnits = 65536 | 131072,
    countedUnits = 262144,
    countedUnitsOrNull = 262144 | 524288,
};

// The images: current and older ones of each width.
enum Images : unsigned
{
    c8 = 1,
    o8 = 2,
    c16 = 4,
    o16 = 8,
    both8 = c8 | o8,
    both16 = c16 | o16,
    current = c8 | c16,
    all = both8 | both16,
};

// The calls of the driver: name, what it takes, and which images have the member. A name ending on
// Unit means a char for the 8-bit strings, a unit for the 16-bit ones; one ending on Char means a
// char for both. The corpora name calls by their place, so new ones go to the end.
// clang-format off
#define QV_STRING_CALLS(CALL)                                  \
    CALL(constructEmpty, nothing, all)                         \
    CALL(constructText, text, all)                             \
    CALL(constructCounted, number | counted, all)              \
    CALL(constructUnits, plainText | number | flag, c8)        \
    CALL(constructView, anotherString, current)                \
    CALL(constructOtherView, plainText, current)               \
    CALL(constructCopy, anotherString, all)                    \
    CALL(constructEvenOld, plainText | number, c8)             \
    CALL(constructUnevenOld, plainText | number, c8)           \
    CALL(createCharString, character | number, all)            \
    CALL(assignObject, anotherString, all)                     \
    CALL(assignText, ownText, all)                             \
    CALL(assignUnit, character, all)                           \
    CALL(assignString, plainText, current)                     \
    CALL(assignView, anotherString, current)                   \
    CALL(assignOtherView, plainText, current)                  \
    CALL(assignEvenOld, plainText | number, c8)                \
    CALL(assignUnevenOld, plainText | number, c8)              \
    CALL(fromChar, number | countedOrNull, c8)                 \
    CALL(clear, nothing, all)                                  \
    CALL(clearUnused, nothing, all)                            \
    CALL(calcLength, nothing, all)                             \
    CALL(setLength, number, all)                               \
    CALL(isEmpty, nothing, all)                                \
    CALL(hasData, nothing, all)                                \
    CALL(textPointers, nothing, current)                       \
    CALL(writeText, number | character, all)                   \
    CALL(addText, ownText, all)                                \
    CALL(addCounted, number | countedOrNull, both8)            \
    CALL(addObject, anotherString, all)                        \
    CALL(appendText, ownText, all)                             \
    CALL(appendObject, anotherString, all)                     \
    CALL(appendChar, character, all)                           \
    CALL(appendWideUnit, number, c8)                           \
    CALL(plusChar, character, all)                             \
    CALL(plusObject, anotherString, all)                       \
    CALL(combinedText, ownText, all)                           \
    CALL(combinedObject, anotherString, all)                   \
    CALL(isEqualObject, anotherString, all)                    \
    CALL(startsWithText, ownText, all)                         \
    CALL(removeRange, number | secondNumber, all)              \
    CALL(equalObject, anotherString, all)                      \
    CALL(unequalObject, anotherString, all)                    \
    CALL(equalText, ownText, all)                              \
    CALL(unequalText, ownText, current)                        \
    CALL(equalEvenOld, plainText | number, c8)                 \
    CALL(equalUnevenOld, plainText | number, c8)               \
    CALL(isEqualCounted, number | counted, all)                \
    CALL(isEqualSameCase, anotherString, all)                  \
    CALL(isEqualSameCaseCounted, number | counted, both8)      \
    CALL(isEqualUpperCaseInput, anotherString, all)            \
    CALL(isEqualLowerCaseInput, anotherString, all)            \
    CALL(compare, anotherString, all)                          \
    CALL(compareSameCase, anotherString, all)                  \
    CALL(less, anotherString, all)                             \
    CALL(greater, anotherString, all)                          \
    CALL(indexOfObject, anotherString | number, all)           \
    CALL(indexOfCaseSenObject, anotherString | number, all)    \
    CALL(indexOfUnit, character | number, all)                 \
    CALL(indexOfCaseSenUnit, character | number, all)          \
    CALL(indexOfWideUnit, character | number | flag, c8)       \
    CALL(lastIndexOfUnit, character | number, all)             \
    CALL(lastIndexOfWideUnit, character | number | flag, c8)   \
    CALL(indexOfFirstOfTwo, twoStrings | out, all)             \
    CALL(indexOfFirstOfSix, sixStrings | out, all)             \
    CALL(count, character, all)                                \
    CALL(countCaseSen, character, all)                         \
    CALL(containsChar, character, all)                         \
    CALL(containsText, ownText, all)                           \
    CALL(containsObject, anotherString, all)                   \
    CALL(containsCaseSenText, ownText, all)                    \
    CALL(containsCaseSenObject, anotherString, all)            \
    CALL(containsCaseSenCounted, number | counted, all)        \
    CALL(containsUpperCaseText, ownText, all)                  \
    CALL(containsUpperCaseObject, anotherString, all)          \
    CALL(startsWithChar, character, both8 | o16)               \
    CALL(endsWithChar, character, all)                         \
    CALL(startsWithCounted, number | countedOrNull, all)       \
    CALL(startsWithObject, anotherString, all)                 \
    CALL(startsWithCaseSenText, ownText, all)                  \
    CALL(startsWithCaseSenObject, anotherString, all)          \
    CALL(endsWithText, ownText, all)                           \
    CALL(endsWithGated, number | text, all)                    \
    CALL(endsWithObject, anotherString, all)                   \
    CALL(replaceObject, twoStrings, all)                       \
    CALL(replaceCaseSen, twoStrings, all)                      \
    CALL(replaceUnit, character | secondCharacter, all)        \
    CALL(removeObject, anotherString, all)                     \
    CALL(removeCaseSens, anotherString, all)                   \
    CALL(removeUnit, character, all)                           \
    CALL(insert, anotherString | number, all)                  \
    CALL(trim, nothing, all)                                   \
    CALL(makeUpper, nothing, all)                              \
    CALL(makeLower, nothing, all)                              \
    CALL(addSpacing, text | number, both8)                     \
    CALL(addSpacingC, text | number, all)                      \
    CALL(leftCount, number, all)                               \
    CALL(mid, number | secondNumber, all)                      \
    CALL(leftUnit, character | flag, all)                      \
    CALL(leftNCut, character | flag, all)                      \
    CALL(addNrInt, wide, current)                              \
    CALL(addNrLong, wide, c8 | both16)                         \
    CALL(addNrUnsigned, wide, current)                         \
    CALL(addNrIntWidth, wide | number, c8)                     \
    CALL(addNrLongWidth, wide | number, c8 | both16)           \
    CALL(fromNr, wide, c8 | both16)                            \
    CALL(addNrSpacing, wide | number, all)                     \
    CALL(addHexSignedChar, wide, c8)                           \
    CALL(addHexUnsignedChar, wide, c8)                         \
    CALL(addHexShort, wide, c8)                                \
    CALL(addHexUnsignedShort, wide, c8)                        \
    CALL(addHexInt, wide, c8)                                  \
    CALL(addHexUnsignedInt, wide, c8)                          \
    CALL(toInt, out, c8 | both16)                              \
    CALL(toInt64, out, c8)                                     \
    CALL(toIntFromHex, number | flag | secondFlag | out, c8)   \
    CALL(constructChar, character, both16)                     \
    CALL(constructUnitText, units, both16)                     \
    CALL(constructUnitsCounted, number | countedUnits, both16) \
    CALL(constructView8, plainText | flag, c16)                \
    CALL(constructOld, plainText | number, c16)                \
    CALL(assignUnitText, ownUnits, both16)                     \
    CALL(assignOld, plainText | number, c16)                   \
    CALL(addUnits, number | countedUnitsOrNull, both16)        \
    CALL(appendUnit, character, both16)                        \
    CALL(appendUnitText, ownUnits, both16)                     \
    CALL(toString8Of250, nothing, both16)                      \
    CALL(toString8Of500, nothing, both16)                      \
    CALL(convertedTo250, nothing, both16)                      \
    CALL(convertedTo500, nothing, both16)                      \
    CALL(toChar, number, both16)                               \
    CALL(equalUnitText, ownUnits, both16)                      \
    CALL(isEqualUnits, number | countedUnits, both16)          \
    CALL(isEqualSameCaseUnits, number | countedUnits, both16)  \
    CALL(indexOfText, text, both16)                            \
    CALL(startsWithUnit, character, both16)                    \
    CALL(endsWithUnit, character, both16)                      \
    CALL(addSpacingUnits, units | number, both16)              \
    CALL(addNrUnsignedInt, wide, c16)                          \
    CALL(addNrUnsignedChar, wide, c16)                         \
    CALL(writeSpare, character, both16)
// clang-format on

enum class Operation : unsigned char
{
#define QV_CALL_NAME(name, takes, images) name,
    QV_STRING_CALLS(QV_CALL_NAME)
#undef QV_CALL_NAME
};

struct OperationInfo
{
    char const* name;
    unsigned takes;
    unsigned images;
};

inline constexpr OperationInfo operationInfos[] = {
#define QV_CALL_INFO(name, takes, images) {#name, takes, images},
    QV_STRING_CALLS(QV_CALL_INFO)
#undef QV_CALL_INFO
};

inline constexpr std::size_t operationCount = std::size(operationInfos);

constexpr OperationInfo const& infoOf(Operation operation)
{
    return operationInfos[static_cast<std::size_t>(operation)];
}

// All calls work on the same few strings, so that arguments are often each other or the receiver.
inline constexpr std::size_t stringCount = 3;

template <class Model>
using StringModels = std::vector<Model>;

struct StringCall
{
    static constexpr int noString = -1;

    Operation operation = Operation::clear;
    std::size_t receiver = 0;
    std::array<std::size_t, 6> arguments{};
    std::string characters;
    std::u16string unitText;
    bool isNull = false;
    int ownTextOf = noString; // the text argument is the stored text of this string
    int a = 0;
    int b = 0;
    char c = 0;
    char d = 0;
    char16_t unit = 0;
    char16_t secondUnit = 0;
    bool flag = false;
    bool secondFlag = false;
    bool withOut = false;
    long long wide = 0;
    // The text as a callee gets it: for a count with nothing to spare, else terminated.
    std::unique_ptr<char[]> buffer;
    std::unique_ptr<unsigned short[]> unitBuffer;

    // Takes the next call off the input; numbers and texts lean on the strings as they are now.
    template <class Model>
    static StringCall read(ByteReader& input, StringModels<Model> const& models);

    // The text arguments as a model takes them; `stored` gives room for a text that lies in a
    // string.
    template <class Model>
    std::string const* textFor(StringModels<Model> const& models, std::string& stored) const;
    template <class Model>
    std::u16string const* unitsFor(StringModels<Model> const& models, std::u16string& stored) const;

    // The first or second character and the plain text in the units of a string.
    template <class Unit>
    Unit single() const
    {
        if constexpr (sizeof(Unit) == 1)
            return static_cast<Unit>(c);
        else
            return static_cast<Unit>(unit);
    }
    template <class Unit>
    Unit secondSingle() const
    {
        if constexpr (sizeof(Unit) == 1)
            return static_cast<Unit>(d);
        else
            return static_cast<Unit>(secondUnit);
    }
    template <class Unit>
    auto const& plain() const
    {
        if constexpr (sizeof(Unit) == 1)
            return characters;
        else
            return unitText;
    }

    // For the 8-bit members that take units: the characters, or the one, with a high byte that
    // they have to drop.
    std::vector<unsigned short> widenedCharacters() const;
    unsigned short widenedCharacter() const;

    std::string describe() const;
};

// From 1024 units on no terminator follows, since nothing behind is read.
inline std::vector<unsigned short> StringCall::widenedCharacters() const
{
    constexpr std::size_t readAtMost = 1024;
    std::vector<unsigned short> made;
    for (std::size_t i = 0; i < characters.size() && i < readAtMost; ++i)
        made.push_back(static_cast<unsigned short>(static_cast<unsigned char>(characters[i]) |
                                                   static_cast<unsigned>(a & 0xFF) << 8));
    if (made.size() < readAtMost)
        made.push_back(0);
    made.shrink_to_fit(); // a sanitizer shall see the first read behind it
    return made;
}

inline unsigned short StringCall::widenedCharacter() const
{
    return static_cast<unsigned short>(static_cast<unsigned char>(c) | (flag ? 0x4100u : 0u));
}

// How far from the ordinary use a call may go.
enum class Reach
{
    // All results that are laid down, so long as every write stays inside the object.
    laidDown,
    // What callers may do, where all images give the same texts.
    contract,
};

template <class Model>
bool isWithin(Reach reach, StringCall const& call, StringModels<Model> const& models);

// The capacity of the string behind a view of another capacity.
template <class Unit>
inline constexpr std::size_t otherViewCapacity = sizeof(Unit) == 1 ? 5000 : 2500;

// An older image filled for a conversion: stale bytes all over, the length inside the capacity.
template <class Model>
Model legacySource(StringImage const& image, StringCall const& call)
{
    Model made(image, 0);
    made.putBytes(call.characters);
    std::size_t const room = image.capacity + 1;
    made.putLength(static_cast<unsigned int>(call.a) % room);
    return made;
}

} // namespace qvTest

#include "tests/model/stringCallTold.h"
