/// The generator and the text, process and system helpers beside what the standard library, the C
/// library or the system has for the same job.

#include "bench/measure.h"
#include "bench/texts.h"
#include "qv/support/qvProcess.h"
#include "qv/support/qvRand.h"
#include "qv/support/qvSystem.h"
#include "qv/support/qvText.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <unistd.h>

namespace {

void numbersToText()
{
    static constexpr std::array<float, 4> floats = {3.14159F, -1204.5F, 0.001F, 1234567.9F};
    measure("floatToText/decimals/3/ours", [turn = 0u]() mutable {
        return float2Str(floats[++turn % floats.size()], 3, '.').length;
    });
    measure("floatToText/decimals/3/snprintf", [turn = 0u]() mutable {
        std::array<char, 64> text;
        return std::snprintf(text.data(), text.size(), "%.3f",
                             static_cast<double>(floats[++turn % floats.size()]));
    });

    static constexpr std::array<int, 4> integers = {7, -314159, 2147483647, 1204};
    measure("intToText/decimal/25/ours",
            [turn = 0u]() mutable { return int2Str(integers[++turn % integers.size()]).length; });
    measure("intToText/decimal/25/to_string", [turn = 0u]() mutable {
        return std::to_string(integers[++turn % integers.size()]).size();
    });

    measure("boolToText/word/500/ours",
            [turn = 0u]() mutable { return bool2str((++turn & 2) != 0, true); });
    measure("boolToText/word/500/memset", [turn = 0u]() mutable {
        std::array<char, sizeof(_qvString<500>)> text;
        std::memset(text.data(), 0, text.size());
        std::strcpy(text.data(), (++turn & 2) != 0 ? "true" : "false");
        return text;
    });
}

/// The standard generator makes the very same steps.
void randomNumbers()
{
    measure("random/step/1/ours", [seed = 7u]() mutable { return qvRand(seed); });
    measure("random/step/1/minstd_rand0", [generator = std::minstd_rand0(7)]() mutable {
        return static_cast<float>(generator()) * 0x1p-31F;
    });

    for (unsigned const size : {25u, 250u, 5000u}) {
        std::string const text = commonText(size);
        std::string const at = "randomSeed/block/" + std::to_string(size) + "/";
        measure(at + "ours", [text] {
            return qvRandCalc(reinterpret_cast<unsigned char const*>(text.data()),
                              static_cast<unsigned>(text.size()));
        });
        measure(at + "plainLoop", [text] {
            unsigned sum = 0;
            for (unsigned i = 0; i < text.size(); ++i)
                sum += static_cast<unsigned char>(text[i]) * i;
            std::minstd_rand0 generator(sum);
            generator.discard(1);
            return generator();
        });
    }

    measure("randomText/letters/20/ours",
            [seed = 7u]() mutable { return qvRandString20(++seed, 1); });
    measure("randomText/letters/20/minstd_rand0", [seed = 7u]() mutable {
        std::minstd_rand0 generator(++seed);
        std::string text;
        for (int i = 0; i < 20; ++i)
            text += qvLetters[generator() % (sizeof qvLetters - 1)];
        return text;
    });
}

std::string directoryOf(std::string const& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

void process()
{
    measure("applicationPath/argument/250/ours",
            [name = std::string("./qvBench")]() mutable { return qvApplicationPath(name.data()); });
    measure("applicationPath/argument/250/readlink", [] {
        std::array<char, 251> path;
        auto const size = readlink("/proc/self/exe", path.data(), path.size());
        return directoryOf(std::string(path.data(), size < 0 ? 0 : static_cast<std::size_t>(size)));
    });

    std::string const path = "/mnt/farm/show_07/shot_0430/render/beauty_v003.exr";
    measure("directoryName/path/250/ours",
            [p = _qvString8_allSize<250>(path.c_str())] { return qvGetDirName_local(p); });
    measure("directoryName/path/250/std::string", [path] { return directoryOf(path); });

    _qvString8_allSize<250> const variable("PATH");
    measure("environment/PATH/250/ours",
            [variable] { return qvGetEnvironmentVariable8(variable); });
    measure("environment/PATH/5000/ours",
            [variable] { return qvGetEnvironmentVariable8_long(variable); });
    for (char const* size : {"250", "5000"})
        measure(std::string("environment/PATH/") + size + "/getenv", [] {
            char const* const value = std::getenv("PATH");
            return std::string(value == nullptr ? "" : value);
        });
}

void errorText()
{
    measure("errorText/ENOENT/250/ours", [] { return qvLastOSError8(ENOENT); });
    measure("errorText/ENOENT/250/strerror_r", [] {
        std::array<char, 250> text;
        return std::string(strerror_r(ENOENT, text.data(), text.size()));
    });
    measure("errorText16/ENOENT/500/ours", [] { return qvLastOSError(ENOENT); });
    measure("errorText16/ENOENT/500/strerror_r", [] {
        std::array<char, 250> text;
        return wide(strerror_r(ENOENT, text.data(), text.size()));
    });
}

[[maybe_unused]] bool const registered =
    (numbersToText(), randomNumbers(), process(), errorText(), true);

} // namespace
