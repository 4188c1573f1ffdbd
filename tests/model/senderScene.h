#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvTest {

// The surroundings of one run of the tool: its arguments, the system's answers, the bytes of the
// segment, and the bytes that others write there meanwhile. The model and the tool itself run in
// the same scene.
struct SenderScene
{
    // The errno of a call that the system refuses; nothing for one that it grants.
    using Refusal = std::optional<int>;

    // One byte that another process writes while the tool is in its step of this number.
    struct Intrusion
    {
        std::size_t step;
        std::size_t place;
        unsigned char value;
    };

    // The ids that shmget gives when the segment is looked up, and when it is left.
    static constexpr int foundId = 7;
    static constexpr int leftId = 8;

    std::vector<std::string> arguments; // the program's name included; may be empty
    std::vector<unsigned char> segment;
    std::uint64_t sizeTold = 0;
    unsigned long attachedToldOnLeaving = 0;
    bool mappedAtNull = false;
    bool onTerminal = false; // standard output is one

    Refusal lookUp; // in the order of the calls
    Refusal mapping;
    Refusal sizeQuery;
    Refusal unmapping;
    Refusal lookUpOnLeaving;
    Refusal attachedQuery;
    Refusal removal;

    bool systemKnowsErrors = true;
    std::string systemText; // the system's words for an error
    std::vector<Intrusion> intrusions;

    void intrude(std::size_t step, std::span<unsigned char> bytes) const
    {
        for (Intrusion const& each : intrusions)
            if (each.step == step && each.place < bytes.size())
                bytes[each.place] = each.value;
    }
};

// What the run leaves behind. A step is a system call; how much a write writes is not told.
struct SenderRun
{
    std::string output;
    std::vector<std::string> steps;
    std::vector<unsigned char> segment;
};

} // namespace qvTest
