// qvLastOSError8: the system's sentence on one line, and a text of our own where it has none.

#include "qv/strings/qvString8.h"
#include "qv/support/qvSystem.h"
#include "tests/segment/systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>

namespace {

using Text250 = _qvString8_allSize<250>;
static_assert(std::is_same_v<decltype(&qvLastOSError8), Text250 (*)(int)>);

std::string lastOSError(int code)
{
    Text250 const text = qvLastOSError8(code);
    EXPECT_LE(text.length, 250);
    EXPECT_EQ(text.text[text.length], '\0');
    return std::string(&text.text[0], text.length);
}

TEST(QvLastOSError8, WordsTheCodes)
{
    struct Row
    {
        int code;
        char const* text;
    };
    Row const rows[] = {
        {0, "No Error."},
        {EPERM, "Operation not permitted"},
        {ENOENT, "No such file or directory"},
        {ENOMEM, "Cannot allocate memory"},
        {EACCES, "Permission denied"},
        {EEXIST, "File exists"},
        {EINVAL, "Invalid argument"},
        {ENOSPC, "No space left on device"},
        // The two gaps in the system's list, the first number behind it, and numbers far off:
        // the system refuses them, and its wording for that is not used.
        {41, "Error 41."},
        {58, "Error 58."},
        {134, "Error 134."},
        {4000, "Error 4000."},
        {INT_MAX, "Error 2147483647."},
        {-2, "Error -2."},
        {-7, "Error -7."},
        {INT_MIN, "Error -2147483648."},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.code);
        errno = EBUSY;
        EXPECT_EQ(lastOSError(row.code), row.text);
    }
}

TEST(QvLastOSError8, MinusOneMeansErrno)
{
    struct Row
    {
        int error;
        char const* text;
    };
    Row const rows[] = {
        {0, "No Error."},
        {ENOENT, "No such file or directory"},
        {EACCES, "Permission denied"},
        {41, "Error 41."},
        {4000, "Error 4000."},
        {-1, "Error -1."},
        {-7, "Error -7."},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.error);
        errno = row.error;
        EXPECT_EQ(lastOSError(-1), row.text);
    }
}

TEST(QvLastOSError8, GivesTheSystemsOwnTextForEveryCodeItKnows)
{
    for (int code = 1; code <= 133; ++code) {
        if (code == 41 || code == 58) {
            continue;
        }
        SCOPED_TRACE(code);
        EXPECT_EQ(lastOSError(code), std::strerror(code));
    }
}

TEST(QvLastOSError8, OffersTheWholeCapacityAndKeepsALongText)
{
    SystemTextScript system(0, std::string(400, 'x'));
    EXPECT_EQ(lastOSError(7), std::string(249, 'x'));
    EXPECT_EQ(system.takeCalls(), (Calls{"strerror_r(7, 250)"}));
}

TEST(QvLastOSError8, AsksNothingForZero)
{
    SystemTextScript system(0, "not this");
    EXPECT_EQ(lastOSError(0), "No Error.");
    errno = 0;
    EXPECT_EQ(lastOSError(-1), "No Error.");
    EXPECT_EQ(system.takeCalls(), Calls{});
}

TEST(QvLastOSError8, AsksForErrnoItselfInPlaceOfMinusOne)
{
    SystemTextScript system(0, "some text");
    errno = 5;
    EXPECT_EQ(lastOSError(-1), "some text");
    EXPECT_EQ(system.takeCalls(), (Calls{"strerror_r(5, 250)"}));
}

TEST(QvLastOSError8, DropsWhatARefusalLeftBehind)
{
    for (int const refusal : {EINVAL, ERANGE, -1}) {
        SCOPED_TRACE(refusal);
        SystemTextScript system(refusal, "half a sentence about 77, and then some more of it");
        Text250 const text = qvLastOSError8(77);
        EXPECT_EQ(text.length, 9);
        EXPECT_STREQ(&text.text[0], "Error 77.");
        EXPECT_EQ(text.text[20], '\0');
    }
}

// The result starts as a cleared string, whatever lay in its place.
TEST(QvLastOSError8, ZeroesTheTextBehindTheSentence)
{
    for (int const code : {0, ENOENT, 4000}) {
        SCOPED_TRACE(code);
        alignas(Text250) unsigned char storage[sizeof(Text250)];
        std::memset(storage, 0xAA, sizeof storage);
        auto* const text = ::new (storage) Text250(qvLastOSError8(code));
        for (std::size_t i = text->length; i <= 250; ++i) {
            EXPECT_EQ(text->text[i], '\0') << "character " << i;
        }
    }
}

TEST(QvLastOSError8, ReplacesAnEmptySentence)
{
    SystemTextScript system(0, "");
    EXPECT_EQ(lastOSError(77), "Error 77.");
}

TEST(QvLastOSError8, PutsTheTextOnOneLine)
{
    struct Row
    {
        char const* given;
        char const* text;
    };
    Row const rows[] = {
        {"one\ntwo", "one two"},
        {"one\rtwo", "one two"},
        {"one\r\ntwo", "one  two"},
        {"\none\n\ntwo\n", " one  two "},
        {"one\r\r\ntwo\r", "one   two "},
        {"\n", " "},
        {"\r", " "},
        {"a\tb", "a\tb"},
    };
    for (Row const& row : rows) {
        SystemTextScript system(0, row.given);
        EXPECT_EQ(lastOSError(77), row.text);
    }
}

} // namespace
