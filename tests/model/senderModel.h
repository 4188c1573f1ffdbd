#pragma once

#include "tests/endToEnd/clientRecord.h"
#include "tests/endToEnd/toolText.h"
#include "tests/model/commandWords.h"
#include "tests/model/directoryModel.h"
#include "tests/model/senderScene.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

namespace qvTest {

// The tool's run once more, in terms of std::string and a vector of bytes.
class SenderModel
{
public:
    explicit SenderModel(SenderScene const& theScene) : scene(theScene)
    {
        run.segment = scene.segment;
    }

    SenderRun play()
    {
        if (scene.arguments.size() < 2)
            print(endToEnd::usageOutput);
        else if (std::optional<Message> const message = readMessage())
            send(*message);
        else
            print(endToEnd::unknownOutput(shown));
        step("write");
        return std::move(run);
    }

private:
    struct Message
    {
        unsigned char type;
        std::uint16_t value;
    };

    static constexpr std::size_t capacity = 250;
    static constexpr std::size_t prefix = endToEnd::prefixSize;
    static constexpr std::int32_t recordSize = endToEnd::clientRecordSize;

    // The word and the number.

    static bool sameWord(std::string const& one, std::string const& other)
    {
        return std::equal(
            one.begin(), one.end(), other.begin(), other.end(),
            [](unsigned char a, unsigned char b) { return std::toupper(a) == std::toupper(b); });
    }

    std::optional<Message> readMessage()
    {
        shown = assigned(scene.arguments[1]);
        std::string word = shown;
        if (word.starts_with('-'))
            word.erase(0, 1);
        // Of a lone dash only the length goes; its byte stays to be shown.
        if (!word.empty())
            shown = word;

        for (Command const& command : commands)
            if (sameWord(word, command.word))
                return Message{command.type, command.value};
        if (!sameWord(word, "EventFrameDone"))
            return std::nullopt;
        if (scene.arguments.size() >= 3)
            shown = assigned(scene.arguments[2]);
        // What no long can hold is up to the C library.
        auto const value = static_cast<std::uint16_t>(std::strtol(shown.c_str(), nullptr, 10));
        if (value == 0)
            return std::nullopt;
        return Message{5, value};
    }

    // The segment.

    void send(Message const& message)
    {
        if (scene.onTerminal)
            step("write"); // the banner
        if (attach())
            deliver(message);
        else
            fail("++++ Unable to attach shared memory! ");
        leave();
    }

    bool attach()
    {
        keyed = true;
        step("shmget(0x4EFCFF, 0, 0x1B0)");
        if (scene.lookUp) {
            if (*scene.lookUp == ENOENT)
                error = "Shared Memory does not exist.";
            else if (*scene.lookUp == EINVAL)
                error = "Shared Memory already exist, but size does not match.";
            else
                error = systemError("shmget", *scene.lookUp);
            leave();
            return false;
        }
        step("shmat(7, null, 0)");
        if (scene.mapping) {
            error = systemError("attach (shmat)", *scene.mapping);
            return false;
        }
        mapped = !scene.mappedAtNull;
        step("shmctl(7, IPC_STAT)");
        if (scene.sizeQuery) {
            error = systemError("size query failed (shmctl)", *scene.sizeQuery);
            return false;
        }
        return true;
    }

    void leave()
    {
        if (mapped) {
            step("shmdt(base)");
            mapped = false;
            outOfReach = !scene.unmapping;
        }
        if (!keyed)
            return;
        keyed = false;
        step("shmget(0x4EFCFF, 0, 0x124)");
        std::string const id = scene.lookUpOnLeaving ? "-1" : "8";
        step("shmctl(" + id + ", IPC_STAT)");
        if (scene.attachedQuery) {
            if (*scene.attachedQuery != EINVAL)
                error = systemError("shmdt", *scene.attachedQuery);
            return;
        }
        if (scene.attachedToldOnLeaving != 0)
            return;
        step("shmctl(" + id + ", IPC_RMID)");
        if (scene.removal && *scene.removal != EINVAL)
            error = systemError("shmctl", *scene.removal);
    }

    // Takes the byte when it reads 0, at the latest after 25 sleeps.
    bool lock()
    {
        for (int sleeps = 0; run.segment[0] != 0; ++sleeps) {
            if (sleeps == 25)
                return false;
            step("usleep(100000)");
        }
        run.segment[0] = 1;
        return true;
    }

    // The record.

    template <typename Number>
    Number field(std::size_t offset) const
    {
        Number number;
        std::memcpy(&number, &run.segment[prefix + offset], sizeof number);
        return number;
    }

    // Sizes are signed and 32 bits wide, and wrap.
    std::int32_t sizeOfRecord() const
    {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(scene.sizeTold - prefix));
    }

    void deliver(Message const& message)
    {
        if (sizeOfRecord() < recordSize) {
            print(endToEnd::wrongSizeOutput(std::to_string(sizeOfRecord())));
        } else if (!mapped) {
            error = "Not attached.";
            fail("++++ Unable to access shared memory data! ");
        } else if (!lock()) {
            error = "lock: unable to get lock";
            fail("++++ Unable to lock shared memory data! ");
        } else {
            enqueue(message);
            run.segment[0] = 0;
        }
    }

    void enqueue(Message const& message)
    {
        auto const recordMarker = field<std::int32_t>(0);
        auto const stateMarker = field<std::uint16_t>(928);
        auto const stateFlag = field<std::uint16_t>(930);
        auto const count = field<std::uint8_t>(2001);
        if (recordMarker != 517 || stateMarker != 3077 || stateFlag == 0) {
            print(endToEnd::wrongFormatOutput(std::to_string(recordMarker),
                                              std::to_string(stateMarker),
                                              std::to_string(stateFlag)));
        } else if (count > 29) {
            print(endToEnd::queueFullOutput);
        } else {
            std::size_t const number = count + 1U;
            unsigned char* const record = &run.segment[prefix];
            record[2001] = static_cast<unsigned char>(number);
            record[2001 + number] = 2;
            record[2031 + number] = message.type;
            std::memcpy(record + 2060 + 2 * number, &message.value, sizeof message.value);
            print(endToEnd::storedOutput);
        }
    }

    // The words.

    std::string systemWords(int code) const
    {
        if (code == 0)
            return "No Error.";
        // The system writes into 250 bytes, its final zero included.
        bool const fits = scene.systemText.size() < capacity;
        if (!scene.systemKnowsErrors || !fits || scene.systemText.empty())
            return "Error " + std::to_string(code) + ".";
        std::string words = scene.systemText;
        std::replace(words.begin(), words.end(), '\n', ' ');
        std::replace(words.begin(), words.end(), '\r', ' ');
        return words;
    }

    std::string systemError(std::string const& word, int code) const
    {
        return (word + ": " + systemWords(code)).substr(0, capacity);
    }

    // A message is printed as a format, so two percent signs are one.
    void fail(std::string const& what)
    {
        std::string message = (what + error + "\n").substr(0, capacity);
        for (std::size_t at = 0; (at = message.find("%%", at)) != std::string::npos; ++at)
            message.erase(at, 1);
        print(endToEnd::banner + endToEnd::versionText + message);
    }

    // Written at the end of the run, whatever is found between.
    void print(std::string const& wholeOutput) { run.output = wholeOutput; }

    void step(std::string const& called)
    {
        run.steps.push_back(called);
        if (!outOfReach)
            scene.intrude(run.steps.size() - 1, run.segment);
    }

    SenderScene const& scene;
    SenderRun run;
    std::string shown; // the word or the number, for an unknown command
    std::string error;
    bool keyed = false;
    bool mapped = false;
    bool outOfReach = false; // unmapped: what others write is not seen any more
};

} // namespace qvTest
