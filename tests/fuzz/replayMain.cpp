#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size);

namespace {

std::vector<std::string> inputsIn(std::string const& directory)
{
    std::vector<std::string> inputs;
    DIR* const entries = opendir(directory.c_str());
    if (entries == nullptr)
        return inputs;
    while (dirent const* const entry = readdir(entries))
        if (entry->d_name[0] != '.')
            inputs.push_back(directory + "/" + entry->d_name);
    closedir(entries);
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

std::string contentOf(std::string const& input)
{
    std::ifstream file(input, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

} // namespace

// Runs a fuzz target over all inputs of the directories named, for compilers without a fuzzer. A
// directory without inputs is a corpus that got lost, so it fails.
int main(int argc, char** argv)
{
    std::size_t replayed = 0;
    for (int i = 1; i < argc; ++i) {
        std::vector<std::string> const inputs = inputsIn(argv[i]);
        if (inputs.empty()) {
            std::fprintf(stderr, "%s: no inputs\n", argv[i]);
            return 1;
        }
        for (std::string const& input : inputs) {
            // Named beforehand, since a failing target ends the process.
            std::printf("%s\n", input.c_str());
            std::fflush(stdout);
            std::string const content = contentOf(input);
            LLVMFuzzerTestOneInput(reinterpret_cast<unsigned char const*>(content.data()),
                                   content.size());
        }
        replayed += inputs.size();
    }
    if (replayed == 0) {
        std::fprintf(stderr, "usage: %s directory...\n", argv[0]);
        return 1;
    }
    std::printf("%zu inputs\n", replayed);
    return 0;
}
