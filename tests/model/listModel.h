#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The list of strings once more, as plain as can be: texts in a std::vector, searched and sorted by
// the algorithms of the library. Beside the elements it keeps the memory behind them as far as it
// shows: stale slots, reserved words as far as they are determined, the calls to the heap.
namespace qvTest {

struct ListText
{
    static constexpr std::size_t capacity = 500;

    std::uint16_t length = 0;
    std::array<std::uint16_t, capacity + 1> units{};

    auto begin() const { return units.begin(); }
    auto end() const { return units.begin() + length; }
};

inline unsigned foldedUnit(unsigned unit)
{
    return unit >= 'a' && unit <= 'z' ? unit - 'a' + 'A' : unit;
}

inline bool sameFolded(unsigned left, unsigned right)
{
    return foldedUnit(left) == foldedUnit(right);
}

inline bool sameText(ListText const& left, ListText const& right, bool caseSensitive)
{
    if (!caseSensitive)
        return std::equal(left.begin(), left.end(), right.begin(), right.end(), sameFolded);
    // The first unit counts even if it is no part of the text any more.
    return left.units[0] == right.units[0] &&
           std::equal(left.begin(), left.end(), right.begin(), right.end());
}

inline bool holdsText(ListText const& text, ListText const& needle, bool caseSensitive)
{
    if (needle.length == 0)
        return false;
    auto const found =
        caseSensitive
            ? std::search(text.begin(), text.end(), needle.begin(), needle.end())
            : std::search(text.begin(), text.end(), needle.begin(), needle.end(), sameFolded);
    return found != text.end();
}

// Folded, by the bytes in memory.
inline bool standsBefore(ListText const& left, ListText const& right)
{
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](unsigned a, unsigned b) {
                                            unsigned const foldedA = foldedUnit(a);
                                            unsigned const foldedB = foldedUnit(b);
                                            return std::pair(foldedA & 0xFF, foldedA >> 8) <
                                                   std::pair(foldedB & 0xFF, foldedB >> 8);
                                        });
}

class ListModel
{
public:
    struct Slot
    {
        ListText text;
        // Empty while it is undetermined.
        std::optional<std::uint16_t> reserved;
    };

    // All slots of the block, those behind the count too; no value while there is no block.
    std::optional<std::vector<Slot>> block;
    int count = 0;
    std::array<char, 500> charBuffer{};
    std::vector<std::string> heapCalls;

    bool has(int index) const { return index >= 0 && index < count; }
    std::size_t slotOf(int index) const { return has(index) ? static_cast<std::size_t>(index) : 0; }
    ListText const& at(int index) const { return (*block)[slotOf(index)].text; }

    void init()
    {
        release();
        count = 0;
        charBuffer.fill(0);
    }

    void release()
    {
        if (block)
            heapCalls.emplace_back("free");
        block.reset();
    }

    // With `fails` set, the heap gives nothing.
    void append(ListText text, bool unique, bool caseSensitive, bool fails)
    {
        if (unique && find(text, caseSensitive) >= 0)
            return;
        if (!grow(fails))
            return;
        ++count;
        block->back().text = text;
    }

    void insert(int index, ListText text, bool fails)
    {
        if (index < 0)
            return;
        int const place = std::min(index, count);
        append(text, false, true, fails);
        if (!block)
            return;
        std::vector<ListText> texts = allTexts();
        texts.pop_back();
        texts.insert(texts.begin() + place, text);
        take(texts);
    }

    void removeAt(int index)
    {
        if (!has(index))
            return;
        std::vector<ListText> texts = allTexts();
        // The last slot keeps what it held.
        texts.erase(texts.begin() + index);
        take(texts);
        --count;
    }

    int find(ListText const& text, bool caseSensitive) const
    {
        return firstWhere(
            [&](ListText const& element) { return sameText(element, text, caseSensitive); });
    }

    int findContains(ListText const& text, bool caseSensitive) const
    {
        return firstWhere(
            [&](ListText const& element) { return holdsText(element, text, caseSensitive); });
    }

    std::string atAsChar(int index)
    {
        ListText const& text = at(index);
        std::size_t const length = std::min<std::size_t>(text.length, 499);
        for (std::size_t i = 0; i < length; ++i)
            charBuffer[i] = narrowed(text.units[i]);
        charBuffer[length] = '\0';
        return {charBuffer.data(), length};
    }

    // Its help is two numbers an element; without them it gives the same.
    void sort(bool descending, bool fails)
    {
        if (count > 1) {
            heapCalls.push_back("calloc(" + std::to_string(2 * count) + ", 4)");
            if (!fails)
                heapCalls.emplace_back("free");
        }
        std::vector<ListText> texts = allTexts();
        std::stable_sort(texts.begin(), texts.end(), [&](ListText const& a, ListText const& b) {
            return descending ? standsBefore(b, a) : standsBefore(a, b);
        });
        take(texts);
    }

    void copyFrom(ListModel const& other, bool fails)
    {
        release();
        count = other.count;
        heapCalls.push_back("calloc(" + std::to_string(count) + ", 1006)");
        if (fails)
            return;
        block.emplace();
        for (int i = 0; i < count; ++i)
            block->push_back((*other.block)[static_cast<std::size_t>(i)]);
    }

    std::string asString8() const
    {
        std::string line;
        auto const add = [&line](std::string const& piece) {
            line += piece.substr(0, 1000 - line.size());
        };
        for (ListText const& text : allTexts()) {
            std::string piece;
            for (std::size_t i = 0; text.units[i] != 0; ++i)
                piece += narrowed(text.units[i]);
            add("'");
            add(piece);
            add("' ");
        }
        return line;
    }

private:
    static char narrowed(std::uint16_t unit)
    {
        return static_cast<char>(static_cast<unsigned char>(unit & 0xFF));
    }

    // Makes the block one slot longer than the count; what it loses of longer ones is gone.
    bool grow(bool fails)
    {
        auto const slots = static_cast<std::size_t>(count) + 1;
        if (!block)
            heapCalls.push_back("calloc(" + std::to_string(slots) + ", 1006)");
        else
            heapCalls.push_back("realloc(" + std::to_string(slots * 1006) + ")");
        if (fails) {
            release();
            count = 0;
            return false;
        }
        if (!block)
            block.emplace().resize(slots, Slot{{}, std::uint16_t{0}});
        else
            block->resize(slots);
        return true;
    }

    template <class Condition>
    int firstWhere(Condition const& condition) const
    {
        std::vector<ListText> const texts = allTexts();
        auto const found = std::find_if(texts.begin(), texts.end(), condition);
        return found == texts.end() ? -1 : static_cast<int>(found - texts.begin());
    }

    std::vector<ListText> allTexts() const
    {
        std::vector<ListText> texts;
        for (int i = 0; i < count; ++i)
            texts.push_back((*block)[static_cast<std::size_t>(i)].text);
        return texts;
    }

    // Lays texts into the slots from the first on. Reserved words stay with the slots.
    void take(std::vector<ListText> const& texts)
    {
        for (std::size_t i = 0; i < texts.size(); ++i)
            (*block)[i].text = texts[i];
    }
};

} // namespace qvTest
