#pragma once

#include "tests/model/damage.h"
#include "tests/model/stringCall.h"
#include "tests/model/stringRows.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qvTest {

using CallCounts = std::array<std::size_t, StringRows::count>;

struct DriverOptions
{
    Reach reach = Reach::laidDown;
    unsigned sharedBy = 0; // leave out what one of these images has not
    bool announce = false; // print each call before it runs, for a call that ends the process
    std::vector<std::string>* trace = nullptr;
    CallCounts* counts = nullptr;
};

// One image at one capacity, and the way to drive it.
struct StringRun
{
    char const* name;
    std::size_t capacity;
    unsigned image;
    std::string (*run)(DriverOptions const& options, unsigned char const* data, std::size_t size);
    // Calls one row on damaged objects; false for a row that the image has not.
    bool (*callDamaged)(std::size_t place, Damage& damage);
};

} // namespace qvTest
