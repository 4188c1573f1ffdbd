/// The string list beside std::vector<std::string>, and float2Str beside snprintf. The list is
/// simple by decision: one reallocation per append, linear search.

#include "bench/measure.h"
#include "qv/support/qvStringList.h"
#include "qv/support/qvText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace {

/// Node names in an order that sorting has to change.
std::vector<std::string> namesOf(int count)
{
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
        names.push_back("render" + std::to_string(i * 7919 % 10007) + ".farm.local");
    return names;
}

std::vector<_qvString<500>> elementsOf(std::vector<std::string> const& names)
{
    std::vector<_qvString<500>> elements;
    for (std::string const& name : names)
        elements.emplace_back(name.c_str());
    return elements;
}

void fill(_qvStringList& list, std::vector<_qvString<500>> const& elements)
{
    for (_qvString<500> const& element : elements)
        list.append(element, false, true);
}

void measureList(int count)
{
    std::string const size = std::to_string(count);
    std::vector<std::string> const names = namesOf(count);
    std::vector<_qvString<500>> const elements = elementsOf(names);

    measure("listAppend/names/" + size + "/ours", [elements] {
        _qvStringList list;
        fill(list, elements);
        return list.count;
    });
    measure("listAppend/names/" + size + "/vector", [names] {
        std::vector<std::string> list;
        for (std::string const& name : names)
            list.push_back(name);
        return list.size();
    });

    auto const filled = std::make_shared<_qvStringList>();
    fill(*filled, elements);
    measure("listFind/last/" + size + "/ours",
            [filled, wanted = elements.back()] { return filled->find(wanted, true); });
    measure("listFind/last/" + size + "/vector", [names] {
        return std::find(names.begin(), names.end(), names.back()) - names.begin();
    });

    measure("listSort/names/" + size + "/ours", [elements] {
        _qvStringList list;
        fill(list, elements);
        list.sort(false);
        return list.count;
    });
    measure("listSort/names/" + size + "/vector", [names] {
        std::vector<std::string> list = names;
        std::stable_sort(list.begin(), list.end());
        return list.size();
    });
}

/// The sort beside the standard one, of numbers of elements by the same comparison.
void measureSort(int count)
{
    std::string const size = std::to_string(count);
    std::vector<_qvString<500>> const elements = elementsOf(namesOf(count));
    measure("listSort/names/" + size + "/stable_sort", [elements] {
        std::vector<_qvString<500>> list;
        for (_qvString<500> const& element : elements)
            list.push_back(element);
        std::vector<int> order(list.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [&list](int a, int b) {
            return list[static_cast<std::size_t>(a)].compare(list[static_cast<std::size_t>(b)]) < 0;
        });
        return order.front();
    });
}

void measureFloats()
{
    static constexpr std::array<float, 4> values = {3.14159F, -1204.5F, 0.001F, 1234567.9F};
    measure("floatToText/decimals/3/ours", [turn = 0u]() mutable {
        return float2Str(values[++turn % values.size()], 3, '.').length;
    });
    measure("floatToText/decimals/3/snprintf", [turn = 0u]() mutable {
        std::array<char, 64> text;
        return std::snprintf(text.data(), text.size(), "%.3f",
                             static_cast<double>(values[++turn % values.size()]));
    });
}

[[maybe_unused]] bool const registered = [] {
    for (int const count : {10, 100, 1000, 4000}) {
        measureList(count);
        measureSort(count);
    }
    measureFloats();
    return true;
}();

} // namespace
