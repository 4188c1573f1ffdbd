#include "tests/proof/figures.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <iostream>
#include <vector>

namespace proof {

namespace {

struct Figure
{
    std::string key;
    long value;
};

// Callers keep references into it.
std::deque<Figure> figures;
std::vector<std::string> arguments;

} // namespace

long& figure(std::string const& key)
{
    for (Figure& each : figures)
        if (each.key == key)
            return each.value;
    return figures.emplace_back(Figure{key, 0}).value;
}

unsigned argument(std::size_t place, unsigned otherwise)
{
    return place < arguments.size()
               ? static_cast<unsigned>(std::strtoul(arguments[place].c_str(), nullptr, 0))
               : otherwise;
}

} // namespace proof

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    proof::arguments.assign(argv, argv + argc);
    int const failed = RUN_ALL_TESTS();

    std::string const program = argv[0];
    std::cout << "proof: " << program.substr(program.rfind('/') + 1);
    for (proof::Figure const& each : proof::figures)
        std::cout << ' ' << each.key << '=' << each.value;
    std::cout << std::endl;
    return failed;
}
