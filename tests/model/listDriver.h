#pragma once

#include "qv/support/qvStringList.h"
#include "tests/model/byteReader.h"
#include "tests/model/listModel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qvTest {

// The heap under the lists, where a program has it under control.
class ListHeap
{
public:
    virtual ~ListHeap() = default;
    virtual void failNext() = 0;
    virtual void cancelFailure() = 0;
    virtual std::vector<std::string> takeCalls() = 0;
};

// Reads calls off the input, runs each on two real lists and on models of them, and compares
// results, fields, all determined bytes of the blocks, and the calls to the heap.
class ListDriver
{
public:
    explicit ListDriver(ListHeap* theHeap) : heap(theHeap) {}

    // Empty when all agreed, else the first call that did not.
    std::string run(unsigned char const* data, std::size_t size)
    {
        ByteReader input(data, size);
        while (!input.atEnd()) {
            Pair& pair = pairs[input.below(pairs.size())];
            Pair const& other = pairs[&pair == &pairs[0] ? 1 : 0];
            std::string const called = step(input, pair, other);
            if (!wrongResult.empty())
                return called + ": " + wrongResult;
            if (!sameHeapCalls(pair.model))
                return called + ": heap calls differ";
            for (Pair const& each : pairs)
                if (std::string const difference = differenceIn(each); !difference.empty())
                    return called + ": " + difference;
        }
        return finish();
    }

private:
    struct Pair
    {
        std::unique_ptr<_qvStringList> list = std::make_unique<_qvStringList>();
        ListModel model;
    };

    using Text = _qvString<500>;

    std::string step(ByteReader& input, Pair& pair, Pair const& other)
    {
        _qvStringList& list = *pair.list;
        ListModel& model = pair.model;
        bool const flag = input.flag();
        bool const caseSensitive = input.flag();
        int const index = input.number(model.count, model.count);
        bool const hasSlot = model.block && !model.block->empty();
        switch (input.below(20)) {
        case 0:
        case 1:
        case 2: {
            ListText const text = readText(input);
            list.append(real(text), flag, caseSensitive);
            model.append(text, flag, caseSensitive, false);
            return "append";
        }
        case 3:
        case 4: {
            ListText const text = readText(input);
            list.insert(index, real(text));
            model.insert(index, text, false);
            return "insert";
        }
        case 5:
            if (hasSlot) {
                list.append(list.at(index), flag, caseSensitive);
                model.append(model.at(index), flag, caseSensitive, false);
            }
            return "append of its own element";
        case 6:
            if (hasSlot) {
                int const from = input.number(model.count, model.count);
                list.insert(index, list.at(from));
                model.insert(index, model.at(from), false);
            }
            return "insert of its own element";
        case 7:
        case 8:
            list.removeAt(index);
            model.removeAt(index);
            return "removeAt";
        case 9: {
            ListText const text = readNeedle(input, model);
            expect(list.find(real(text), caseSensitive), model.find(text, caseSensitive));
            return "find";
        }
        case 10: {
            ListText const text = readNeedle(input, model);
            expect(list.findContains(real(text), caseSensitive),
                   model.findContains(text, caseSensitive));
            return "findContains";
        }
        case 11:
            if (hasSlot)
                expect(&list.at(index) - list.items,
                       static_cast<std::ptrdiff_t>(model.slotOf(index)));
            return "at";
        case 12:
            if (hasSlot) {
                std::string const text = model.atAsChar(index);
                expect(list.atAsChar(index) == list.charBuffer, true);
                expect(std::string(list.charBuffer, text.size()), text);
            }
            return "atAsChar";
        case 13:
        case 14:
            list.sort(flag);
            model.sort(flag, false);
            return "sort";
        case 15:
            list.copyFrom(*other.list);
            model.copyFrom(other.model, false);
            return "copyFrom";
        case 16: {
            _qvString8_allSize<1000> const line = list.asString8();
            expect(std::string(line.text, std::min<std::size_t>(line.length, 1000)),
                   model.asString8());
            expect(line.text[std::min<std::size_t>(line.length, 1000)], '\0');
            return "asString8";
        }
        case 17:
            if (input.below(4) == 0) {
                list.init();
                model.init();
            }
            return "init";
        case 18:
            if (model.has(index))
                editElement(list, model, static_cast<std::size_t>(index), flag);
            return "edit";
        default:
            if (heap != nullptr && input.below(3) == 0)
                failToAllocate(input, pair, other, index);
            return "failing allocation";
        }
    }

    // Callers reach elements through `items`: marks a reserved word, or empties the text as some
    // members of the strings do, without clearing it.
    static void editElement(_qvStringList& list, ListModel& model, std::size_t slot, bool mark)
    {
        if (mark) {
            auto const word = static_cast<std::uint16_t>(0x7700 + slot);
            list.items[slot].reserved = word;
            (*model.block)[slot].reserved = word;
        } else {
            list.items[slot].length = 0;
            (*model.block)[slot].text.length = 0;
        }
    }

    void failToAllocate(ByteReader& input, Pair& pair, Pair const& other, int index)
    {
        ListText const text = readText(input);
        bool const descending = input.flag();
        heap->failNext();
        switch (input.below(4)) {
        case 0:
            pair.list->sort(descending);
            pair.model.sort(descending, true);
            break;
        case 1:
            pair.list->append(real(text), true, true);
            pair.model.append(text, true, true, true);
            break;
        case 2:
            pair.list->insert(index, real(text));
            pair.model.insert(index, text, true);
            break;
        default:
            // With elements to copy, it would end the process.
            if (other.model.count == 0) {
                pair.list->copyFrom(*other.list);
                pair.model.copyFrom(other.model, true);
            }
        }
        heap->cancelFailure();
    }

    // Short texts of few letters, so that doubles and hits happen; now and then a long one, wide
    // units, or old units behind the terminator.
    static ListText readText(ByteReader& input)
    {
        std::string const bytes = input.text(ListText::capacity, true);
        unsigned char const style = input.byte();
        ListText text;
        text.length = static_cast<std::uint16_t>(std::min(bytes.size(), ListText::capacity));
        for (std::size_t i = 0; i < text.length; ++i) {
            unsigned const byte = static_cast<unsigned char>(bytes[i]);
            bool const wide = (style & 3) == 3 && i % 3 == 1;
            text.units[i] = static_cast<std::uint16_t>(wide ? byte | (style & 0x30U) << 4 : byte);
        }
        if ((style & 0xC0) == 0xC0)
            for (std::size_t i = text.length + 1U; i < ListText::capacity; ++i)
                text.units[i] = static_cast<std::uint16_t>(0x4100 + style);
        return text;
    }

    // Half of the time a piece of an element, since a foreign text is seldom found.
    static ListText readNeedle(ByteReader& input, ListModel const& model)
    {
        if (model.count == 0 || input.flag())
            return readText(input);
        ListText const& element = model.at(static_cast<int>(input.byte()) % model.count);
        std::size_t const start = input.below(element.length + 1U);
        std::size_t const length = input.below(element.length - start + 1U);
        ListText needle;
        needle.length = static_cast<std::uint16_t>(length);
        std::copy_n(element.units.begin() + static_cast<std::ptrdiff_t>(start), length,
                    needle.units.begin());
        if (input.flag())
            std::transform(needle.begin(), needle.end(), needle.units.begin(), [](unsigned unit) {
                return static_cast<std::uint16_t>(foldedUnit(unit));
            });
        return needle;
    }

    static Text real(ListText const& text)
    {
        Text string;
        string.length = text.length;
        // Must not find its way into a list.
        string.reserved = 0x1234;
        std::memcpy(string.text, text.units.data(), sizeof string.text);
        return string;
    }

    template <class Value>
    void expect(Value const& given, Value const& expected)
    {
        if (!(given == expected))
            wrongResult = "wrong result";
    }

    std::string differenceIn(Pair const& pair)
    {
        _qvStringList const& list = *pair.list;
        ListModel const& model = pair.model;
        if (list.count != model.count)
            return "count is " + std::to_string(list.count) + " instead of " +
                   std::to_string(model.count);
        if ((list.items == nullptr) == model.block.has_value())
            return list.items == nullptr ? "no block" : "a block too many";
        if (std::memcmp(list.charBuffer, model.charBuffer.data(), sizeof list.charBuffer) != 0)
            return "charBuffer differs";
        for (std::size_t i = 0; model.block && i < model.block->size(); ++i) {
            ListModel::Slot const& slot = (*model.block)[i];
            Text const& text = list.items[i];
            bool const same =
                text.length == slot.text.length &&
                std::memcmp(text.text, slot.text.units.data(), sizeof text.text) == 0 &&
                (!slot.reserved || text.reserved == *slot.reserved);
            if (!same)
                return "slot " + std::to_string(i) + " differs";
        }
        return {};
    }

    // Empties both lists: by then every block must have been given back.
    std::string finish()
    {
        for (Pair& pair : pairs) {
            pair.list.reset();
            pair.model.release();
            if (!sameHeapCalls(pair.model))
                return "destructor: heap calls differ";
        }
        return {};
    }

    bool sameHeapCalls(ListModel& model)
    {
        std::vector<std::string> const expected = std::exchange(model.heapCalls, {});
        return heap == nullptr || heap->takeCalls() == expected;
    }

    std::array<Pair, 2> pairs;
    ListHeap* heap;
    std::string wrongResult;
};

} // namespace qvTest
