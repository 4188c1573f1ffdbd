// The system's words for a step that it refuses, as the tool says them. They are those of the C
// library that the tool is linked with, and docs/cookbook.md names the ones that differ.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"
#include "tests/layout/documentTable.h"
#include "tests/segment/manualPageErrors.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <sys/syscall.h>

using namespace endToEnd;

namespace {

struct Words
{
    std::string musl;
    std::string glibc;
};

// By the name of the error.
std::map<std::string, Words> const& documentedWords()
{
    static auto const words = [] {
        auto const tables =
            documents::tablesHeaded(documents::readDocument(QV_DOCS_DIR "/cookbook.md"),
                                    {"Error", "Linked with musl", "Linked with glibc"});
        std::map<std::string, Words> found;
        for (auto const& table : tables)
            for (auto const& row : table.rows)
                found[row.at(0)] = {row.at(1), row.at(2)};
        return found;
    }();
    return words;
}

std::string expectedWords(ManualPageError const& error)
{
    auto const found = documentedWords().find(strerrorname_np(error.number));
    if (found == documentedWords().end())
        return error.words;
    EXPECT_EQ(found->second.glibc, error.words);
    return std::string(QV_TOOL_LIBC) == "musl" ? found->second.musl : error.words;
}

template <std::size_t count>
void expectWords(int call, std::string const& step, ManualPageError const (&errors)[count])
{
    for (ManualPageError const& error : errors) {
        SCOPED_TRACE(step + ": " + error.words);
        if (call == SYS_shmget && (error.number == ENOENT || error.number == EINVAL))
            continue; // these have words of their own
        Mailbox const mailbox;
        ClientHolder client(mailbox);
        RunOptions options;
        options.failing = {call, error.number};
        expectOutput(runTool({"abort"}, options),
                     attachFailedOutput(step + ": " + expectedWords(error)));
        EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    }
}

} // namespace

TEST(SystemError, IsSaidInTheWordsOfTheDocument)
{
    expectWords(SYS_shmget, "shmget", shmgetErrors);
    expectWords(SYS_shmat, "attach (shmat)", shmatErrors);
    expectWords(SYS_shmctl, "size query failed (shmctl)", shmctlErrors);
}

// Each row is of an error that these calls give, and of words that differ.
TEST(SystemError, DocumentNamesNoOther)
{
    std::set<std::string> given;
    for (ManualPageError const& error : shmgetErrors)
        given.insert(strerrorname_np(error.number));
    for (ManualPageError const& error : shmatErrors)
        given.insert(strerrorname_np(error.number));
    for (ManualPageError const& error : shmctlErrors)
        given.insert(strerrorname_np(error.number));
    EXPECT_FALSE(documentedWords().empty());
    for (auto const& [name, words] : documentedWords()) {
        EXPECT_EQ(given.count(name), 1U) << name;
        EXPECT_NE(words.musl, words.glibc);
    }
}

// Some C libraries have words for these too, the same for all. They are not said.
TEST(SystemError, NumberWithoutWordsIsSaidAsANumber)
{
    for (int const number : {41, 58, 134, 4000}) {
        SCOPED_TRACE(number);
        RunOptions options;
        options.failing = {SYS_shmget, number};
        expectOutput(runTool({"abort"}, options),
                     attachFailedOutput("shmget: Error " + std::to_string(number) + "."));
    }
}
