// Runs a program as a process of its own and keeps all it printed, on either stream.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace endToEnd {

enum class StandardOutput
{
    captured,          // a file, read back whole
    terminal,          // a terminal, read back whole
    stoppedTerminal,   // a terminal whose user has pressed ^S: it takes nothing until it goes on
    closed,            // no descriptor 1 at all
    fullDevice,        // every write fails with "no space left"
    pipeWithoutReader, // every write fails, and raises SIGPIPE
    fullPipe,          // every write blocks until finish() reads, and then is read back whole
};

// A system call that fails each time, with this number of an error.
struct FailingCall
{
    int call = -1; // SYS_shmget, say; none
    int error = 0; // up to 4095
};

struct RunOptions
{
    StandardOutput output = StandardOutput::captured;
    int ignoredSignal = 0; // as nohup does with SIGHUP
    int blockedSignal = 0;

    // Root may enter every segment; without this right the mode bits count for root as well.
    bool withoutSegmentPrivilege = false;

    // Sent when the program asks to unmap its segment. The program runs traced until then.
    int signalOnLeaving = 0;

    FailingCall failing;
};

struct RunResult
{
    int status = -1;       // exit status, -1 if the process didn't end by itself
    int endedBySignal = 0; // 0 if it ended by itself
    double seconds = 0;
    std::string output;
    std::string errors;
};

class Process
{
public:
    Process(std::string const& program, std::vector<std::string> const& arguments,
            RunOptions const& options = {});

    // For a program that is to be started with no name of its own either.
    static Process withEmptyArgumentVector(std::string const& program);

    Process(Process&& other) noexcept;
    Process(Process const&) = delete;
    Process& operator=(Process const&) = delete;
    Process& operator=(Process&&) = delete;
    ~Process(); // a process that is still running is killed: no test leaves one behind

    void signal(int number) const;
    bool hasEnded();
    // True once after each stop by a signal.
    bool hasStopped() const;
    std::string outputSoFar(); // of a file or a terminal
    bool waitForOutput(std::string const& text, double seconds);
    void stopTerminal() const { controlTerminal(true); }
    void continueTerminal() const { controlTerminal(false); }

    // Waits for the end. A process that hangs is killed, and the test fails.
    RunResult finish();

private:
    Process() = default;
    void start(std::string const& program, std::vector<std::string> const& argumentVector,
               RunOptions const& options);
    void recordEnd(int waitStatus);
    void controlTerminal(bool stops) const;

    pid_t process = -1;
    int outputFile = -1;
    int errorFile = -1;
    int terminal = -1;
    int pipeEnd = -1;
    double startedAt = 0;
    RunResult result;
};

// The built tool, and the client that is shipped as an example.
Process startTool(std::vector<std::string> const& arguments, RunOptions const& options = {});
RunResult runTool(std::vector<std::string> const& arguments, RunOptions const& options = {});
Process startStandInClient(int messages, int seconds);

// Every end of the tool that isn't a signal: status 0, nothing on standard error, this text.
void expectOutput(RunResult const& run, std::string const& wholeOutput);

double secondsNow();
void nap(double seconds);

} // namespace endToEnd
