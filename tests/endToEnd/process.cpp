#include "tests/endToEnd/process.h"

#include "tests/setUpFailure.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <iterator>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace endToEnd {

using qvTest::failSetUp;

namespace {

double const hangSeconds = 30;
char const fillByte = '\0'; // in no text of the tool's

int checked(int result, char const* what)
{
    if (result < 0)
        failSetUp(std::string(what) + ": " + std::strerror(errno));
    return result;
}

// A file without a name takes any amount of text with nobody reading meanwhile, so many processes
// can run at once and be looked at afterwards.
int namelessFile()
{
    return checked(memfd_create("output", MFD_CLOEXEC), "memfd_create");
}

std::string contentOf(int file)
{
    std::string content;
    char block[4096];
    ssize_t count;
    while ((count = pread(file, block, sizeof block, static_cast<off_t>(content.size()))) > 0)
        content.append(block, static_cast<std::size_t>(count));
    return content;
}

// A pipe or a terminal: the end is where nothing more comes, for as long as we care to wait, or no
// writer is left. A program that hangs is left to whoever waits for it.
std::string readToEnd(int file, int milliseconds = 5000)
{
    std::string content;
    char block[4096];
    ssize_t count;
    pollfd waiting{file, POLLIN, 0};
    while (poll(&waiting, 1, milliseconds) > 0 && (count = read(file, block, sizeof block)) > 0)
        content.append(block, static_cast<std::size_t>(count));
    return content;
}

// A terminal hands on what is written as it stands only when it is told to.
int openTerminal(int& ownEnd)
{
    ownEnd = checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
    checked(grantpt(ownEnd), "grantpt");
    checked(unlockpt(ownEnd), "unlockpt");
    int const programEnd = checked(open(ptsname(ownEnd), O_RDWR | O_NOCTTY | O_CLOEXEC), "ptsname");
    termios settings{};
    checked(tcgetattr(programEnd, &settings), "tcgetattr");
    cfmakeraw(&settings);
    checked(tcsetattr(programEnd, TCSANOW, &settings), "tcsetattr");
    return programEnd;
}

int openPipeWithoutReader()
{
    int ends[2];
    checked(pipe2(ends, O_CLOEXEC), "pipe2");
    close(ends[0]);
    return ends[1];
}

// Filled to the brim by us, so not one byte of the program's goes in.
int openFullPipe(int& ownEnd)
{
    int ends[2];
    checked(pipe2(ends, O_CLOEXEC | O_NONBLOCK), "pipe2");
    ownEnd = ends[0];
    while (write(ends[1], &fillByte, 1) == 1)
        ;
    checked(fcntl(ends[0], F_SETFL, 0), "fcntl");
    checked(fcntl(ends[1], F_SETFL, 0), "fcntl");
    return ends[1];
}

// What a test program was started with must not show in the programs it starts.
void restoreSignals(RunOptions const& options)
{
    for (int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
        ::signal(number, SIG_DFL);
    if (options.ignoredSignal != 0)
        ::signal(options.ignoredSignal, SIG_IGN);
    sigset_t blocked;
    sigemptyset(&blocked);
    if (options.blockedSignal != 0)
        sigaddset(&blocked, options.blockedSignal);
    sigprocmask(SIG_SETMASK, &blocked, nullptr);
    rlimit const noCoreFile{0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);
}

// The end of a process that was to become a program. None of the test's own is run in it.
[[noreturn]] void endUnstarted(std::string const& what)
{
    std::string const complaint = what + ": " + std::strerror(errno) + "\n";
    [[maybe_unused]] ssize_t const written =
        write(STDERR_FILENO, complaint.data(), complaint.size());
    _exit(127);
}

// The system answers the call instead of making it, in this process and whatever it becomes.
void letFail(FailingCall const& failing)
{
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(failing.call), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(failing.error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    sock_fprog const filter{std::size(steps), steps};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        endUnstarted("seccomp");
}

bool isAtSystemCall(pid_t process, unsigned long number)
{
    __ptrace_syscall_info info{};
    ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof info, &info);
    return info.op == PTRACE_SYSCALL_INFO_ENTRY && info.entry.nr == number;
}

// The process has asked to be traced ahead of its exec, where it stops for the first time.
void signalAtUnmapping(pid_t process, int number)
{
    int status = 0;
    checked(waitpid(process, &status, 0), "waitpid");
    ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (WIFSTOPPED(status) && !isAtSystemCall(process, SYS_shmdt)) {
        ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
        checked(waitpid(process, &status, 0), "waitpid");
    }
    if (!WIFSTOPPED(status))
        failSetUp("the program ended without leaving a segment");
    kill(process, number);
    ptrace(PTRACE_DETACH, process, nullptr, nullptr);
}

} // namespace

double secondsNow()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void nap(double seconds)
{
    timespec rest{};
    rest.tv_sec = static_cast<time_t>(seconds);
    rest.tv_nsec = static_cast<long>((seconds - static_cast<double>(rest.tv_sec)) * 1e9);
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR)
        ;
}

Process::Process(std::string const& program, std::vector<std::string> const& arguments,
                 RunOptions const& options)
{
    std::vector<std::string> argumentVector{program};
    argumentVector.insert(argumentVector.end(), arguments.begin(), arguments.end());
    start(program, argumentVector, options);
}

Process Process::withEmptyArgumentVector(std::string const& program)
{
    Process run;
    run.start(program, {}, {});
    return run;
}

Process::Process(Process&& other) noexcept
    : process(std::exchange(other.process, -1)),
      outputFile(std::exchange(other.outputFile, -1)),
      errorFile(std::exchange(other.errorFile, -1)),
      terminal(std::exchange(other.terminal, -1)),
      pipeEnd(std::exchange(other.pipeEnd, -1)),
      startedAt(other.startedAt),
      result(std::move(other.result))
{}

Process::~Process()
{
    if (process > 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    for (int file : {outputFile, errorFile, terminal, pipeEnd})
        if (file >= 0)
            close(file);
}

void Process::start(std::string const& program, std::vector<std::string> const& argumentVector,
                    RunOptions const& options)
{
    std::vector<char*> pointers;
    pointers.reserve(argumentVector.size() + 1);
    for (std::string const& argument : argumentVector)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);

    errorFile = namelessFile();
    int programOutput = -1;
    switch (options.output) {
    case StandardOutput::captured:
        outputFile = namelessFile();
        programOutput = checked(fcntl(outputFile, F_DUPFD_CLOEXEC, 3), "dup");
        break;
    case StandardOutput::terminal:
        programOutput = openTerminal(terminal);
        break;
    case StandardOutput::stoppedTerminal:
        programOutput = openTerminal(terminal);
        checked(tcflow(programOutput, TCOOFF), "tcflow");
        break;
    case StandardOutput::fullDevice:
        programOutput = checked(open("/dev/full", O_WRONLY | O_CLOEXEC), "/dev/full");
        break;
    case StandardOutput::pipeWithoutReader:
        programOutput = openPipeWithoutReader();
        break;
    case StandardOutput::fullPipe:
        programOutput = openFullPipe(pipeEnd);
        break;
    case StandardOutput::closed:
        break;
    }

    startedAt = secondsNow();
    process = checked(fork(), "fork");
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // also where a set-up fails, and no destructor runs
        restoreSignals(options);
        // Refused where the right isn't held in the first place, which is as good.
        if (options.withoutSegmentPrivilege)
            prctl(PR_CAPBSET_DROP, CAP_IPC_OWNER, 0, 0, 0);
        if (programOutput >= 0)
            dup2(programOutput, STDOUT_FILENO);
        else
            close(STDOUT_FILENO);
        dup2(errorFile, STDERR_FILENO);
        if (options.signalOnLeaving != 0)
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        if (options.failing.call >= 0)
            letFail(options.failing);
        execv(program.c_str(), pointers.data());
        endUnstarted("unable to start " + program);
    }
    if (programOutput >= 0)
        close(programOutput);
    if (options.signalOnLeaving != 0)
        signalAtUnmapping(process, options.signalOnLeaving);
}

void Process::signal(int number) const
{
    // Id -1 would be every process there is.
    if (process > 0)
        kill(process, number);
}

void Process::recordEnd(int waitStatus)
{
    result.seconds = secondsNow() - startedAt;
    process = -1;
    if (WIFEXITED(waitStatus))
        result.status = WEXITSTATUS(waitStatus);
    else
        result.endedBySignal = WTERMSIG(waitStatus);
}

bool Process::hasStopped() const
{
    siginfo_t stop{};
    return waitid(P_PID, static_cast<id_t>(process), &stop, WSTOPPED | WNOHANG) == 0 &&
           stop.si_pid == process;
}

bool Process::hasEnded()
{
    int waitStatus = 0;
    if (process > 0 && waitpid(process, &waitStatus, WNOHANG) == process)
        recordEnd(waitStatus);
    return process < 0;
}

std::string Process::outputSoFar()
{
    if (outputFile >= 0)
        return contentOf(outputFile);
    if (terminal >= 0)
        result.output += readToEnd(terminal, 0);
    return result.output;
}

void Process::controlTerminal(bool stops) const
{
    int const programEnd = checked(open(ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC), "open");
    checked(tcflow(programEnd, stops ? TCOOFF : TCOON), "tcflow");
    close(programEnd);
}

bool Process::waitForOutput(std::string const& text, double seconds)
{
    double const limit = secondsNow() + seconds;
    while (outputSoFar().find(text) == std::string::npos) {
        if (hasEnded() || secondsNow() > limit)
            return outputSoFar().find(text) != std::string::npos;
        nap(0.001);
    }
    return true;
}

RunResult Process::finish()
{
    // A program that still has to write into a full pipe can't end before it is read.
    if (pipeEnd >= 0) {
        result.output = readToEnd(pipeEnd);
        std::erase(result.output, fillByte);
    }
    while (!hasEnded()) {
        if (secondsNow() - startedAt > hangSeconds) {
            ADD_FAILURE() << "the process hung and was killed";
            kill(process, SIGKILL);
            int waitStatus = 0;
            waitpid(process, &waitStatus, 0);
            recordEnd(waitStatus);
            break;
        }
        nap(0.0002);
    }
    if (terminal >= 0)
        result.output += readToEnd(terminal);
    else if (outputFile >= 0)
        result.output = outputSoFar();
    result.errors = contentOf(errorFile);
    return result;
}

Process startTool(std::vector<std::string> const& arguments, RunOptions const& options)
{
    return Process(QV_TOOL_PATH, arguments, options);
}

RunResult runTool(std::vector<std::string> const& arguments, RunOptions const& options)
{
    return startTool(arguments, options).finish();
}

Process startStandInClient(int messages, int seconds)
{
    return Process(QV_STAND_IN_CLIENT_PATH,
                   {"--messages", std::to_string(messages), "--seconds", std::to_string(seconds)});
}

void expectOutput(RunResult const& run, std::string const& wholeOutput)
{
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.endedBySignal, 0);
    EXPECT_EQ(run.output, wholeOutput);
    EXPECT_EQ(run.errors, "");
}

} // namespace endToEnd
