#include "qv/support/core/applicationPath.h"
#include "qv/support/qvProcess.h"
#include "tests/model/directoryModel.h"
#include "tests/support/currentDirectory.h"
#include "tests/support/paths.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

void expectSame(std::string const& given, std::string const& expected, char const* what)
{
    if (given != expected) {
        std::fprintf(stderr, "%s: \"%s\" instead of \"%s\"\n", what, given.c_str(),
                     expected.c_str());
        std::abort();
    }
}

// The next line of the input.
std::string takeLine(std::string& input)
{
    std::size_t const end = std::min(input.find('\n'), input.size());
    std::string line = input.substr(0, end);
    input.erase(0, end + 1);
    return line;
}

} // namespace

// Three lines: the program's first argument ("-" for none), the current directory, the platform's
// answer. The first one serves as a path for its own directory as well.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    std::string input(data, data + size);
    std::string const first = takeLine(input);
    std::string const current = takeLine(input);
    std::string const last = takeLine(input);

    std::string const path = first.substr(0, qvTest::pathCapacity);
    expectSame(qvTest::textOf(qvGetDirName_local(qvTest::path8(path))), qvTest::directoryOf(path),
               "directory");

    std::optional<std::string> argument;
    if (first != "-")
        argument = first.substr(0, first.find('\0'));
    std::string const currentDirectory = current.substr(0, current.find('\0'));
    std::u16string const answer = qvTest::widened(last.substr(0, qvTest::pathCapacity));

    qvTest::CurrentDirectory const directory(currentDirectory);
    qvTest::Path out = qvTest::path8("old text");
    bool const found = qvSupport::applicationPathFrom(qvTest::answer16(answer),
                                                      argument ? argument->c_str() : nullptr, out);
    // The system gives no path that does not fit its buffer.
    bool const fits = currentDirectory.size() < qvTest::pathCapacity;
    std::string const expected =
        qvTest::programDirectory(answer, argument, fits ? currentDirectory : std::string());
    expectSame(qvTest::textOf(out), expected, "program's directory");
    expectSame(found ? "true" : "false", expected.empty() ? "false" : "true", "result");
    return 0;
}
