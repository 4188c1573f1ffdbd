#pragma once

#include "tests/model/byteReader.h"
#include "tests/model/string8Model.h"

#include <array>
#include <cstddef>
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
    text = 8,           // a zero-terminated text, null included
    ownText = 8 | 16,   // the same; it may be the stored text of a string itself
    counted = 32,       // a text by count, which the number is, exactly as long as it will be read
    countedOrNull = 32 | 64,
    number = 128,
    secondNumber = 256,
    character = 512,
    secondCharacter = 1024,
    flag = 2048,
    secondFlag = 4096,
    wide = 8192,
    out = 16384,       // an out-parameter, null included
    plainText = 32768, // a text that is no pointer, zeros included
};

// The calls of the driver: name, what it takes, and whether only the current string has the member.
// The corpus names calls by their place, so new ones go to the end.
// clang-format off
#define QV_STRING8_CALLS(CALL)                              \
    CALL(constructEmpty, nothing, false)                    \
    CALL(constructText, text, false)                        \
    CALL(constructCounted, number | counted, false)         \
    CALL(constructUnits, plainText | number | flag, true)   \
    CALL(constructView, anotherString, true)                \
    CALL(constructOtherView, plainText, true)               \
    CALL(constructCopy, anotherString, false)               \
    CALL(constructEvenOld, plainText | number, true)        \
    CALL(constructUnevenOld, plainText | number, true)      \
    CALL(createCharString, character | number, false)       \
    CALL(assignObject, anotherString, false)                \
    CALL(assignText, ownText, false)                        \
    CALL(assignChar, character, false)                      \
    CALL(assignString, plainText, true)                     \
    CALL(assignView, anotherString, true)                   \
    CALL(assignOtherView, plainText, true)                  \
    CALL(assignEvenOld, plainText | number, true)           \
    CALL(assignUnevenOld, plainText | number, true)         \
    CALL(fromChar, number | countedOrNull, true)            \
    CALL(clear, nothing, false)                             \
    CALL(clearUnused, nothing, false)                       \
    CALL(calcLength, nothing, false)                        \
    CALL(setLength, number, false)                          \
    CALL(isEmpty, nothing, false)                           \
    CALL(hasData, nothing, false)                           \
    CALL(textPointers, nothing, true)                       \
    CALL(writeText, number | character, false)              \
    CALL(addText, ownText, false)                           \
    CALL(addCounted, number | countedOrNull, false)         \
    CALL(addObject, anotherString, false)                   \
    CALL(appendText, ownText, false)                        \
    CALL(appendObject, anotherString, false)                \
    CALL(appendChar, character, false)                      \
    CALL(appendUnit, number, true)                          \
    CALL(plusChar, character, false)                        \
    CALL(plusObject, anotherString, false)                  \
    CALL(combinedText, ownText, false)                      \
    CALL(combinedObject, anotherString, false)              \
    CALL(isEqualObject, anotherString, false)               \
    CALL(startsWithText, ownText, false)                    \
    CALL(removeRange, number | secondNumber, false)         \
    CALL(equalObject, anotherString, false)                 \
    CALL(unequalObject, anotherString, false)               \
    CALL(equalText, ownText, false)                         \
    CALL(unequalText, ownText, true)                        \
    CALL(equalEvenOld, plainText | number, true)            \
    CALL(equalUnevenOld, plainText | number, true)          \
    CALL(isEqualCounted, number | counted, false)           \
    CALL(isEqualSameCase, anotherString, false)             \
    CALL(isEqualSameCaseCounted, number | counted, false)   \
    CALL(isEqualUpperCaseInput, anotherString, false)       \
    CALL(isEqualLowerCaseInput, anotherString, false)       \
    CALL(compare, anotherString, false)                     \
    CALL(compareSameCase, anotherString, false)             \
    CALL(less, anotherString, false)                        \
    CALL(greater, anotherString, false)                     \
    CALL(indexOfObject, anotherString | number, false)      \
    CALL(indexOfCaseSenObject, anotherString | number, false) \
    CALL(indexOfChar, character | number, false)            \
    CALL(indexOfCaseSenChar, character | number, false)     \
    CALL(indexOfUnit, character | number | flag, true)      \
    CALL(lastIndexOfChar, character | number, false)        \
    CALL(lastIndexOfUnit, character | number | flag, true)  \
    CALL(indexOfFirstOfTwo, twoStrings | out, false)        \
    CALL(indexOfFirstOfSix, sixStrings | out, false)        \
    CALL(count, character, false)                           \
    CALL(countCaseSen, character, false)                    \
    CALL(containsChar, character, false)                    \
    CALL(containsText, ownText, false)                      \
    CALL(containsObject, anotherString, false)              \
    CALL(containsCaseSenText, ownText, false)               \
    CALL(containsCaseSenObject, anotherString, false)       \
    CALL(containsCaseSenCounted, number | counted, false)   \
    CALL(containsUpperCaseText, ownText, false)             \
    CALL(containsUpperCaseObject, anotherString, false)     \
    CALL(startsWithChar, character, false)                  \
    CALL(endsWithChar, character, false)                    \
    CALL(startsWithCounted, number | countedOrNull, false)  \
    CALL(startsWithObject, anotherString, false)            \
    CALL(startsWithCaseSenText, ownText, false)             \
    CALL(startsWithCaseSenObject, anotherString, false)     \
    CALL(endsWithText, ownText, false)                      \
    CALL(endsWithGated, number | text, false)               \
    CALL(endsWithObject, anotherString, false)              \
    CALL(replaceObject, twoStrings, false)                  \
    CALL(replaceCaseSen, twoStrings, false)                 \
    CALL(replaceChar, character | secondCharacter, false)   \
    CALL(removeObject, anotherString, false)                \
    CALL(removeCaseSens, anotherString, false)              \
    CALL(removeChar, character, false)                      \
    CALL(insert, anotherString | number, false)             \
    CALL(trim, nothing, false)                              \
    CALL(makeUpper, nothing, false)                         \
    CALL(makeLower, nothing, false)                         \
    CALL(addSpacing, text | number, false)                  \
    CALL(addSpacingC, text | number, false)                 \
    CALL(leftCount, number, false)                          \
    CALL(mid, number | secondNumber, false)                 \
    CALL(leftChar, character | flag, false)                 \
    CALL(leftNCut, character | flag, false)                 \
    CALL(addNrInt, wide, true)                              \
    CALL(addNrLong, wide, true)                             \
    CALL(addNrUnsigned, wide, true)                         \
    CALL(addNrIntWidth, wide | number, true)                \
    CALL(addNrLongWidth, wide | number, true)               \
    CALL(fromNr, wide, true)                                \
    CALL(addNrSpacing, wide | number, false)                \
    CALL(addHexSignedChar, wide, true)                      \
    CALL(addHexUnsignedChar, wide, true)                    \
    CALL(addHexShort, wide, true)                           \
    CALL(addHexUnsignedShort, wide, true)                   \
    CALL(addHexInt, wide, true)                             \
    CALL(addHexUnsignedInt, wide, true)                     \
    CALL(toInt, out, true)                                  \
    CALL(toInt64, out, true)                                \
    CALL(toIntFromHex, number | flag | secondFlag | out, true)
// clang-format on

enum class Operation : unsigned char
{
#define QV_CALL_NAME(name, takes, currentOnly) name,
    QV_STRING8_CALLS(QV_CALL_NAME)
#undef QV_CALL_NAME
};

struct OperationInfo
{
    char const* name;
    unsigned takes;
    bool currentOnly;
};

inline constexpr OperationInfo operationInfos[] = {
#define QV_CALL_INFO(name, takes, currentOnly) {#name, takes, currentOnly},
    QV_STRING8_CALLS(QV_CALL_INFO)
#undef QV_CALL_INFO
};

inline constexpr std::size_t operationCount = std::size(operationInfos);

constexpr OperationInfo const& infoOf(Operation operation)
{
    return operationInfos[static_cast<std::size_t>(operation)];
}

// All calls work on the same few strings, so that arguments are often each other or the receiver.
inline constexpr std::size_t stringCount = 3;
using String8Models = std::vector<String8Model>;

// The capacity of the string behind a view of another capacity.
inline constexpr std::size_t otherViewCapacity = 5000;

struct String8Call
{
    static constexpr int noString = -1;

    Operation operation = Operation::clear;
    std::size_t receiver = 0;
    std::array<std::size_t, 6> arguments{};
    std::string characters;
    bool isNull = false;
    int ownTextOf = noString; // the text argument is the stored text of this string
    int a = 0;
    int b = 0;
    char c = 0;
    char d = 0;
    bool flag = false;
    bool secondFlag = false;
    bool withOut = false;
    long long wide = 0;
    // The characters as a callee gets them: for a count with no byte to spare, else terminated.
    std::unique_ptr<char[]> buffer;

    // Takes the next call off the input; numbers and texts lean on the strings as they are now.
    static String8Call read(ByteReader& input, String8Models const& models);

    // The text argument as the model takes it; `stored` gives room for a text that lies in a
    // string.
    String8Model::Text textFor(String8Models const& models, std::string& stored) const;
    std::vector<unsigned short> units() const;
    unsigned short unit() const;
    std::string describe() const;
};

// How far from the ordinary use a call may go.
enum class Reach
{
    // All results that are laid down, so long as every write stays inside the object.
    laidDown,
    // What callers may do, where all images give the same texts.
    contract,
};

bool isWithin(Reach reach, String8Call const& call, String8Models const& models);

// An older image filled for a conversion: stale bytes all over, the length inside the capacity.
String8Model legacySource(String8Image const& image, String8Call const& call);

} // namespace qvTest
