// Environment variables as 8-bit text, the system's error text as 16-bit text.

#include "qv/support/qvProcess.h"
#include "qv/support/qvSystem.h"
#include "tests/support/allocationCount.h"
#include "tests/support/paths.h"
#include "tests/support/units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

namespace {

// What strerror_r answers while it is set.
char const* scriptedErrorText = nullptr;

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" int __real___xpg_strerror_r(int code, char* buffer, std::size_t size);
extern "C" int __wrap___xpg_strerror_r(int code, char* buffer, std::size_t size);

extern "C" int __wrap___xpg_strerror_r(int code, char* buffer, std::size_t size)
{
    if (scriptedErrorText == nullptr)
        return __real___xpg_strerror_r(code, buffer, size);
    std::strncpy(buffer, scriptedErrorText, size - 1);
    buffer[size - 1] = '\0';
    return 0;
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

using qvTest::path8;
using qvTest::shown;
using qvTest::textOf;

static_assert(std::is_same_v<decltype(&qvGetEnvironmentVariable8),
                             _qvString8_allSize<250> (*)(_qvString8_allSize<250> const&)>);
static_assert(std::is_same_v<decltype(&qvGetEnvironmentVariable8_long),
                             _qvString8_allSize<5000> (*)(_qvString8_allSize<250> const&)>);
static_assert(std::is_same_v<decltype(&qvLastOSError), _qvString<500> (*)(int)>);

constexpr char variable[] = "QV_TEST_VARIABLE";

// A variable of the process for as long as it lives.
class Variable
{
public:
    explicit Variable(std::string const& value) { setenv(variable, value.c_str(), 1); }
    ~Variable() { unsetenv(variable); }
    Variable(Variable const&) = delete;
    Variable& operator=(Variable const&) = delete;
};

template <int N>
bool zeroBehind(_qvString8_allSize<N> const& string)
{
    return std::all_of(string.text + string.length, string.text + N + 1,
                       [](char character) { return character == '\0'; });
}

// Both forms must give the value, cut at their capacities, on an object of zeros.
void expectValue(std::string const& name, std::string const& value)
{
    std::size_t const before = qvTest::allocationCount();
    _qvString8_allSize<250> const shortForm = qvGetEnvironmentVariable8(path8(name));
    _qvString8_allSize<5000> const longForm = qvGetEnvironmentVariable8_long(path8(name));
    std::size_t const afterwards = qvTest::allocationCount();
    // Each call is given a name from a string of its own, which does not allocate either.
    EXPECT_EQ(afterwards, before);
    EXPECT_EQ(textOf(shortForm), value.substr(0, 250));
    EXPECT_EQ(textOf(longForm), value.substr(0, 5000));
    EXPECT_TRUE(zeroBehind(shortForm));
    EXPECT_TRUE(zeroBehind(longForm));
}

TEST(QvGetEnvironmentVariable, GivesTheValue)
{
    for (char const* const value : {"x", "/usr/bin:/bin", "with blanks and = signs", "\xE4\xFF"}) {
        Variable const set(value);
        expectValue(variable, value);
    }
}

TEST(QvGetEnvironmentVariable, GivesAnEmptyTextForUnsetAndEmptyOnes)
{
    expectValue(variable, "");
    expectValue("", "");
    Variable const set("");
    expectValue(variable, "");
}

TEST(QvGetEnvironmentVariable, TakesTheNameToItsZero)
{
    using namespace std::string_literals;
    Variable const set("value");
    expectValue("QV_TEST_VARIABLE\0tail"s, "value");
    expectValue("QV_TEST_VARIABL", "");
    expectValue("qv_test_variable", "");
}

TEST(QvGetEnvironmentVariable, FindsANameOf250Characters)
{
    std::string const name(250, 'Q');
    setenv(name.c_str(), "long name", 1);
    expectValue(name, "long name");
    unsetenv(name.c_str());
}

TEST(QvGetEnvironmentVariable, CutsTheValueAtTheCapacity)
{
    std::string value(6000, 'v');
    for (std::size_t i = 0; i < value.size(); ++i)
        value[i] = static_cast<char>('a' + i % 26);
    for (std::size_t const length : {249U, 250U, 251U, 4999U, 5000U, 5001U, 6000U}) {
        Variable const set(value.substr(0, length));
        expectValue(variable, value.substr(0, length));
    }
}

// Like every text that comes by its address, a value counts modulo 65536.
TEST(QvGetEnvironmentVariable, MeasuresTheValueModulo65536)
{
    for (std::size_t const rest : {0U, 1U, 5U, 300U}) {
        Variable const set(std::string(65536 + rest, 'v'));
        expectValue(variable, std::string(rest, 'v'));
    }
}

TEST(QvLastOSError, WidensTheSystemsText)
{
    struct Row
    {
        int code;
        char const* text;
    };
    for (Row const row : {
             Row{0, "No Error."},
             Row{ENOENT, "No such file or directory"},
             Row{EACCES, "Permission denied"},
             // The system refuses these, so they show as numbers.
             Row{99999, "Error 99999."},
             Row{-2, "Error -2."},
         }) {
        std::size_t const before = qvTest::allocationCount();
        _qvString<500> const text = qvLastOSError(row.code);
        EXPECT_EQ(qvTest::allocationCount(), before);
        EXPECT_EQ(shown(text), row.text);
        EXPECT_TRUE(qvTest::zeroBehindText(text)) << row.text;
    }
}

TEST(QvLastOSError, TakesMinusOneForTheCurrentError)
{
    errno = ENOENT;
    EXPECT_EQ(shown(qvLastOSError(-1)), "No such file or directory");
    errno = 0;
    EXPECT_EQ(shown(qvLastOSError(-1)), "No Error.");
}

TEST(QvLastOSError, TakesEachByteAsUnsigned)
{
    scriptedErrorText = "Ger\xE4t\nbelegt\r\n\x7F\x80\xFF";
    _qvString<500> const text = qvLastOSError(5);
    scriptedErrorText = nullptr;
    EXPECT_EQ(shown(text), "Ger<00E4>t belegt  <007F><0080><00FF>");
    EXPECT_TRUE(qvTest::zeroBehindText(text));
}

TEST(QvLastOSError, TakesTheWholeText)
{
    std::string const longText(400, 'e');
    scriptedErrorText = longText.c_str();
    _qvString8_allSize<250> const text8 = qvLastOSError8(5);
    _qvString<500> const text = qvLastOSError(5);
    scriptedErrorText = nullptr;
    EXPECT_EQ(shown(text), std::string(249, 'e'));
    EXPECT_EQ(shown(text), textOf(text8));
}

} // namespace
