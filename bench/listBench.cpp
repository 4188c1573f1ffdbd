/// The string list beside std::vector<std::string>. The list is simple by decision: one
/// reallocation per append, linear search.

#include "bench/measure.h"
#include "qv/support/qvStringList.h"

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

/// What no other element holds.
_qvString<500> partOf(_qvString<500> const& element)
{
    return element.left('.', true);
}

/// Copies, and what is done in front of all other elements.
void measureListEdits(std::string const& size, std::shared_ptr<_qvStringList> const& filled,
                      std::vector<std::string> const& names)
{
    measure("listCopy/names/" + size + "/ours", [filled] {
        _qvStringList list;
        list.copyFrom(*filled);
        return list.count;
    });
    measure("listCopy/names/" + size + "/vector",
            [names] { return std::vector<std::string>(names).size(); });

    // A turn leaves the list as it was.
    auto const edited = std::make_shared<_qvStringList>();
    edited->copyFrom(*filled);
    measure("listInsert/first/" + size + "/ours", [edited, text = _qvString<500>("first")] {
        edited->insert(0, text);
        edited->removeAt(0);
        return edited->count;
    });
    measure("listInsert/first/" + size + "/vector",
            [list = names, text = std::string("first")]() mutable {
                list.insert(list.begin(), text);
                list.erase(list.begin());
                return list.size();
            });

    measure("listText/last/" + size + "/ours",
            [filled] { return filled->atAsChar(filled->count - 1); });
    measure("listText/last/" + size + "/vector", [names, text = std::array<char, 500>()]() mutable {
        return std::snprintf(text.data(), text.size(), "%s", names.back().c_str());
    });
    // Cut at 1000 characters, so after some 38 of these names.
    measure("listLine/names/" + size + "/ours", [filled] { return filled->asString8(); });
    measure("listLine/names/" + size + "/vector", [names] {
        std::string line;
        for (std::string const& name : names) {
            line += '\'';
            line += name;
            line += "' ";
            if (line.size() >= 1000)
                break;
        }
        return line;
    });
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
    measure("listFindPart/last/" + size + "/ours",
            [filled, part = partOf(elements.back())] { return filled->findContains(part, true); });
    measure("listFindPart/last/" + size + "/vector",
            [names, part = std::string(partOf(elements.back()).to_qvString8_250().asChar())] {
                return std::find_if(names.begin(), names.end(),
                                    [&part](std::string const& name) {
                                        return name.find(part) != std::string::npos;
                                    }) -
                       names.begin();
            });

    measureListEdits(size, filled, names);

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

[[maybe_unused]] bool const registered = [] {
    for (int const count : {10, 100, 1000, 4000}) {
        measureList(count);
        measureSort(count);
    }
    return true;
}();

} // namespace
