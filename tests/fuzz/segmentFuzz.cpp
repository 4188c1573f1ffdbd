#include "tests/endToEnd/clientRecord.h"
#include "tests/fuzz/stagedTool.h"
#include "tests/model/byteReader.h"
#include "tests/model/commandWords.h"
#include "tests/model/senderModel.h"
#include "tests/model/senderScene.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

namespace {

using qvTest::ByteReader;
using qvTest::SenderScene;

constexpr std::size_t prefix = endToEnd::prefixSize;
constexpr std::size_t clientSegmentSize = prefix + endToEnd::clientRecordSize;

// Places in the segment.
constexpr std::size_t recordMarker = prefix + endToEnd::recordMarkerPlace;
constexpr std::size_t stateMarker = prefix + endToEnd::stateMarkerPlace;
constexpr std::size_t stateFlag = prefix + endToEnd::stateFlagPlace;
constexpr std::size_t messageCount = prefix + endToEnd::messageCountPlace;

// A segment of gigabytes stands in with its beginning, in which all of the queue lies.
constexpr std::uint64_t mostMemory = 32768;

std::string readWord(ByteReader& input)
{
    std::size_t const choice = input.below(24);
    if (choice > qvTest::commands.size())
        return input.text(250, false);
    std::string word = choice == qvTest::commands.size() ? std::string("EventFrameDone")
                                                         : qvTest::commands[choice].word;
    std::size_t const capitals = input.below(4); // none, all, every second or every third letter
    for (std::size_t i = 0; capitals != 0 && i < word.size(); i += capitals)
        word[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(word[i])));
    return std::string(input.below(3), '-') + word;
}

std::string readNumber(ByteReader& input)
{
    switch (input.below(3)) {
    case 0:
        return std::to_string(input.wideNumber());
    case 1: { // around where the low 16 bits are 0
        long long const offset = static_cast<int>(input.below(3)) - 1;
        return std::to_string(65536LL * input.byte() + offset);
    }
    default:
        return input.text(250, false);
    }
}

void readArguments(ByteReader& input, SenderScene& scene)
{
    std::size_t const count = input.below(8);
    if (count == 7)
        return; // not even the program's name
    scene.arguments.emplace_back("qvNodeDispatch");
    if (count == 6)
        return;
    scene.arguments.push_back(readWord(input));
    if (count >= 2)
        scene.arguments.push_back(readNumber(input));
    if (count == 5)
        scene.arguments.emplace_back("ignored");
}

int readErrno(ByteReader& input)
{
    static constexpr int common[] = {ENOENT, EINVAL, EACCES, EIDRM, 0, -1};
    std::size_t const choice = input.below(8);
    return choice < std::size(common) ? common[choice] : static_cast<int>(input.word());
}

// What the system says about errors. A message becomes a format, so a percent sign comes only as
// the pair that prints one, and so early in the text that no cut takes the pair apart.
void readSystemText(ByteReader& input, SenderScene& scene)
{
    static constexpr char const* oddities[] = {"", "\n", "\r\n", "%%", "%%\n%%"};
    scene.systemKnowsErrors = input.below(8) != 0;
    scene.systemText = input.text(250, false);
    std::erase(scene.systemText, '%');
    std::size_t const place = std::min(input.below(100), scene.systemText.size());
    scene.systemText.insert(place, oddities[input.below(std::size(oddities))]);
}

void readRefusals(ByteReader& input, SenderScene& scene)
{
    SenderScene::Refusal* const calls[] = {
        &scene.lookUp,          &scene.mapping,       &scene.sizeQuery, &scene.unmapping,
        &scene.lookUpOnLeaving, &scene.attachedQuery, &scene.removal};
    unsigned const refused = input.byte();
    for (std::size_t i = 0; i < std::size(calls); ++i)
        if ((refused >> i & 1U) != 0)
            *calls[i] = readErrno(input);
    scene.mappedAtNull = (refused >> std::size(calls)) != 0;
    if (refused != 0)
        readSystemText(input, scene);
    scene.attachedToldOnLeaving = input.below(3);
}

std::uint64_t readSize(ByteReader& input)
{
    switch (input.below(8)) {
    case 0:
        return clientSegmentSize - 1;
    case 1:
        return clientSegmentSize + input.byte();
    case 2:
        return 1U + input.byte();
    case 3:
        return 1U + std::uint64_t{input.word()};
    case 4: // around the end of signed sizes
        return 0x80000000U + input.below(32) - 16U;
    case 5:
        return (std::uint64_t{1U + input.byte()} << 32) + clientSegmentSize;
    default:
        return clientSegmentSize;
    }
}

// A field that is right, or wrong by one bit, or anything.
template <typename Number>
Number readField(ByteReader& input, Number right)
{
    switch (input.below(4)) {
    case 0:
        return static_cast<Number>(right ^ 1U << input.below(8 * sizeof right));
    case 1:
        return static_cast<Number>(input.word());
    default:
        return right;
    }
}

unsigned char readCount(ByteReader& input)
{
    static constexpr unsigned char telling[] = {0, 29, 30, 128, 255};
    std::size_t const choice = input.below(8);
    return choice < std::size(telling) ? telling[choice] : input.byte();
}

template <typename Number>
void put(SenderScene& scene, std::size_t place, Number value)
{
    if (place + sizeof value <= scene.segment.size())
        std::memcpy(&scene.segment[place], &value, sizeof value);
}

void readSegment(ByteReader& input, SenderScene& scene)
{
    scene.sizeTold = readSize(input);
    scene.segment.resize(std::min(scene.sizeTold, mostMemory));
    unsigned char fill = input.byte();
    for (unsigned char& byte : scene.segment)
        byte = fill += 7;

    put(scene, recordMarker, readField(input, endToEnd::rightRecordMarker));
    put(scene, stateMarker, readField(input, endToEnd::rightStateMarker));
    put(scene, stateFlag, readField(input, endToEnd::rightStateFlag));
    put(scene, messageCount, readCount(input));
    put(scene, 0, input.flag() ? input.byte() : static_cast<unsigned char>(0));
}

// The neighbours write mostly to the lock byte and to what the tool reads under it.
void readIntrusions(ByteReader& input, SenderScene& scene)
{
    static constexpr std::size_t places[] = {0,           0,         0,           recordMarker,
                                             stateMarker, stateFlag, messageCount};
    for (std::size_t left = input.below(8); left != 0; --left) {
        std::size_t const step = input.below(36);
        std::size_t const choice = input.below(8);
        std::size_t const place =
            choice < std::size(places) ? places[choice] : input.word() % clientSegmentSize;
        scene.intrusions.push_back({step, place, input.byte()});
    }
}

SenderScene readScene(ByteReader input)
{
    SenderScene scene;
    readArguments(input, scene);
    readRefusals(input, scene);
    readSegment(input, scene);
    readIntrusions(input, scene);
    scene.onTerminal = input.flag();
    return scene;
}

void expectSame(std::string const& given, std::string const& expected, char const* what)
{
    if (given != expected) {
        std::fprintf(stderr, "%s:\n%s\ninstead of:\n%s\n", what, given.c_str(), expected.c_str());
        std::abort();
    }
}

std::string joined(std::vector<std::string> const& lines)
{
    std::string text;
    for (std::string const& line : lines)
        text += line + '\n';
    return text;
}

// The bytes are as many as the scene has on both sides.
std::string firstDifference(std::vector<unsigned char> const& bytes,
                            std::vector<unsigned char> const& others)
{
    auto const place = std::mismatch(bytes.begin(), bytes.end(), others.begin()).first;
    if (place == bytes.end())
        return "none";
    return "byte " + std::to_string(place - bytes.begin()) + " is " + std::to_string(*place);
}

} // namespace

// The input is a scene: arguments, refused calls, a segment, other writers. The tool runs in it.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    SenderScene const scene = readScene(ByteReader(data, size));
    qvTest::SenderRun const expected = qvTest::SenderModel(scene).play();
    qvTest::SenderRun const given = qvTest::runTool(scene);
    expectSame(joined(given.steps), joined(expected.steps), "steps");
    expectSame(given.output, expected.output, "output");
    expectSame(firstDifference(given.segment, expected.segment), "none", "segment left behind");
    return 0;
}
