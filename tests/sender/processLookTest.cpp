// What the system shows of processes. The test steps in where /proc is opened: a farm may hide the
// processes of other users.
#include "sender/processLook.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdarg>
#include <ctime>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool isProcHidden = false;

// A process that waits for its end, under a name of its own.
class Child
{
public:
    explicit Child(char const* name = "child") : pid_(fork())
    {
        if (pid_ == 0) {
            prctl(PR_SET_NAME, name);
            raise(SIGSTOP);
            for (;;)
                pause();
        }
        waitpid(pid_, nullptr, WUNTRACED); // it has its name
    }

    ~Child()
    {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }

    Child(Child const&) = delete;
    Child& operator=(Child const&) = delete;

    pid_t pid() const { return pid_; }

    void proceed() const
    {
        kill(pid_, SIGCONT);
        waitpid(pid_, nullptr, WCONTINUED);
    }

    // Dead, but not yet fetched by its parent.
    void end() const
    {
        kill(pid_, SIGKILL);
        siginfo_t info;
        waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOWAIT);
    }

private:
    pid_t pid_;
};

ProcessLook lookNow(pid_t pid)
{
    return lookAtProcess(pid, std::time(nullptr));
}

class ProcessLookTest : public testing::Test
{
protected:
    void TearDown() override { isProcHidden = false; }
};

} // namespace

extern "C" {

int __real_open(char const* path, int flags, ...);

int __wrap_open(char const* path, int flags, ...)
{
    std::va_list more;
    va_start(more, flags);
    auto const rights = (flags & O_CREAT) != 0 ? va_arg(more, unsigned) : 0U;
    va_end(more);
    return isProcHidden ? -1 : __real_open(path, flags, rights);
}
}

TEST_F(ProcessLookTest, tellsStatesApart)
{
    Child const child("render) Z 1 (");
    ProcessLook look = lookNow(child.pid());
    EXPECT_EQ(look.pid, child.pid());
    EXPECT_EQ(look.state, ProcessState::stopped);
    EXPECT_STREQ(look.command, "render) Z 1 (");

    child.proceed();
    EXPECT_EQ(lookNow(child.pid()).state, ProcessState::alive);

    child.end();
    look = lookNow(child.pid());
    EXPECT_EQ(look.state, ProcessState::dead);
    EXPECT_STREQ(look.command, "");
}

TEST_F(ProcessLookTest, laterProcessIsAnotherOne)
{
    Child const child;
    std::time_t const now = std::time(nullptr);
    EXPECT_EQ(lookAtProcess(child.pid(), now - 10).state, ProcessState::dead);
    EXPECT_STREQ(lookAtProcess(child.pid(), now - 10).command, "");
    EXPECT_EQ(lookAtProcess(child.pid(), now).state, ProcessState::stopped);
    EXPECT_EQ(lookAtProcess(child.pid(), now + 1000000).state, ProcessState::stopped);
}

TEST_F(ProcessLookTest, nameIsPrintable)
{
    Child const child("\x1B[2J\n\x7F\xC3\xA4\"");
    EXPECT_STREQ(lookNow(child.pid()).command, "?[2J????\"");
}

TEST_F(ProcessLookTest, hiddenIsNotDead)
{
    pid_t gone = 0;
    {
        Child const child;
        gone = child.pid();
        isProcHidden = true;
        EXPECT_EQ(lookNow(gone).state, ProcessState::unknown);
    }
    EXPECT_EQ(lookNow(gone).state, ProcessState::dead);
    isProcHidden = false;
    EXPECT_EQ(lookNow(gone).state, ProcessState::dead);
}

TEST_F(ProcessLookTest, processWithoutIdIsUnknown)
{
    for (pid_t const pid : {0, -1}) {
        EXPECT_EQ(lookNow(pid).pid, pid);
        EXPECT_EQ(lookNow(pid).state, ProcessState::unknown);
    }
}

TEST_F(ProcessLookTest, processUnderADebuggerIsStopped)
{
    Child const child;
    child.proceed();
    ASSERT_EQ(ptrace(PTRACE_ATTACH, child.pid(), nullptr, nullptr), 0);
    waitpid(child.pid(), nullptr, 0);
    EXPECT_EQ(lookNow(child.pid()).state, ProcessState::stopped);
    ptrace(PTRACE_DETACH, child.pid(), nullptr, nullptr);
}

TEST_F(ProcessLookTest, statesHaveWords)
{
    EXPECT_STREQ(processStateWord(ProcessState::unknown), "unknown");
    EXPECT_STREQ(processStateWord(ProcessState::alive), "alive");
    EXPECT_STREQ(processStateWord(ProcessState::stopped), "stopped");
    EXPECT_STREQ(processStateWord(ProcessState::dead), "dead");
}

TEST_F(ProcessLookTest, leavesNoFileOpen)
{
    auto const nextFile = [] {
        int const file = dup(STDIN_FILENO);
        close(file);
        return file;
    };
    int const before = nextFile();
    lookNow(getpid());
    EXPECT_EQ(nextFile(), before);
}
