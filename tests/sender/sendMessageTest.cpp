// How a failed attach is told to scripts, beside the tool's text. The system's answers are staged:
// no machine gives all of these on demand.
#include "sender/sendMessage.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <sys/shm.h>
#include <vector>

namespace {

int lookUpError = 0;
int mappingError = 0;

int answer(int error)
{
    errno = error;
    return error == 0 ? 7 : -1;
}

} // namespace

extern "C" {
int __wrap_shmget(key_t, std::size_t, int)
{
    return answer(lookUpError);
}

void* __wrap_shmat(int, void const*, int)
{
    errno = mappingError;
    return reinterpret_cast<void*>(-1);
}

int __wrap_shmctl(int, int, shmid_ds*)
{
    return answer(EINVAL); // gone
}
}

using Kind = Outcome::Kind;

TEST(SendMessageTest, tellsWhyItCouldNotAttach)
{
    struct Row
    {
        int lookUp;
        int mapping;
        Kind kind;
        std::string reason;
    };
    for (Row const& row : std::vector<Row>{
             {ENOENT, 0, Kind::noSegment, "Shared Memory does not exist."},
             {EIO, 0, Kind::attachFailed, "shmget: Input/output error"},
             {EACCES, 0, Kind::noRight, "shmget: Permission denied"},
             {EINVAL, 0, Kind::attachFailed,
              "Shared Memory already exist, but size does not match."},
             {ENOMEM, 0, Kind::attachFailed, "shmget: Cannot allocate memory"},
             {0, EIO, Kind::attachFailed, "attach (shmat): Input/output error"},
             {0, EACCES, Kind::noRight, "attach (shmat): Permission denied"},
         }) {
        SCOPED_TRACE(row.reason);
        lookUpError = row.lookUp;
        mappingError = row.mapping;
        OutputText text;
        auto const outcome =
            sendMessage({ClientMessageType::command, 1}, qvSegment::DeferredSignals(), text);
        ASSERT_TRUE(outcome);
        EXPECT_EQ(outcome->kind, row.kind);
        EXPECT_STREQ(outcome->reason.asChar(), row.reason.c_str());
        EXPECT_EQ(text.pending(),
                  " 8.3.05++++ Unable to attach shared memory! " + row.reason + "\n");
    }
}
