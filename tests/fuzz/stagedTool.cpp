#include "tests/fuzz/stagedTool.h"

#include "sender/sendMessage.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <sys/shm.h>
#include <unistd.h>
#include <utility>
#include <vector>

// The tool's main, compiled under another name.
int toolMain(int argc, char** argv);

namespace qvTest {
namespace {

class Stage
{
public:
    explicit Stage(SenderScene const& theScene)
        : scene(theScene),
          memory(new unsigned char[scene.segment.size()])
    {
        std::copy(scene.segment.begin(), scene.segment.end(), memory.get());
    }

    void step(std::string const& called)
    {
        run.steps.push_back(called);
        if (memory)
            scene.intrude(run.steps.size() - 1, bytes());
    }

    void* map()
    {
        mapped = !scene.mappedAtNull;
        return mapped ? memory.get() : nullptr;
    }

    bool isBase(void const* address) const { return mapped && address == memory.get(); }

    void unmap()
    {
        run.segment.assign(memory.get(), memory.get() + scene.segment.size());
        memory.reset();
        mapped = false;
    }

    void write(std::string_view text)
    {
        run.output += text;
        step("write");
    }

    SenderRun finish()
    {
        if (memory)
            unmap();
        return std::move(run);
    }

    SenderScene const& scene;

private:
    std::span<unsigned char> bytes() { return {memory.get(), scene.segment.size()}; }

    SenderRun run;
    std::unique_ptr<unsigned char[]> memory;
    bool mapped = false;
};

Stage* stage = nullptr;

ssize_t writeOnStage(void*, char const* data, std::size_t size)
{
    stage->write({data, size});
    return static_cast<ssize_t>(size);
}

// Leads standard output onto the stage, write by write as the tool asks for it.
class OutputOnStage
{
public:
    OutputOnStage() : usual(stdout)
    {
        cookie_io_functions_t functions{};
        functions.write = writeOnStage;
        stdout = fopencookie(nullptr, "w", functions);
    }

    ~OutputOnStage() { std::fclose(std::exchange(stdout, usual)); }

    OutputOnStage(OutputOnStage const&) = delete;
    OutputOnStage& operator=(OutputOnStage const&) = delete;

private:
    std::FILE* usual;
};

// A granted call leaves errno undefined, so it gets a value that no message is to show.
int answer(SenderScene::Refusal const& refusal, int granted)
{
    errno = refusal.value_or(E2BIG);
    return refusal ? -1 : granted;
}

std::string hexText(int value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned>(value));
    return text;
}

} // namespace

SenderRun runTool(SenderScene const& scene)
{
    std::vector<std::string> arguments = scene.arguments;
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    Stage thisStage(scene);
    stage = &thisStage;
    {
        OutputOnStage const output;
        if (toolMain(static_cast<int>(arguments.size()), pointers.data()) != 0)
            thisStage.step("a status that is not 0");
    }
    stage = nullptr;
    return thisStage.finish();
}

std::optional<Outcome> sendInScene(SenderScene const& scene, ClientMessage const& message)
{
    Stage thisStage(scene);
    stage = &thisStage;
    std::optional<Outcome> outcome;
    {
        OutputOnStage const output;
        OutputText text;
        qvSegment::DeferredSignals const untilTold;
        outcome = sendMessage(message, untilTold, text);
    }
    stage = nullptr;
    return outcome;
}

} // namespace qvTest

using qvTest::stage;

// The linker's --wrap fixes these names. Nobody but the tool makes these calls, except that test
// programs ask for their own terminal.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __wrap_shmget(key_t key, std::size_t size, int flags);
void* __wrap_shmat(int id, void const* address, int flags);
int __wrap_shmdt(void const* address);
int __wrap_shmctl(int id, int command, shmid_ds* buffer);
int __wrap_usleep(useconds_t microseconds);
int __real_isatty(int file);
int __wrap_isatty(int file);
int __wrap___xpg_strerror_r(int code, char* buffer, std::size_t size);

int __wrap_shmget(key_t key, std::size_t size, int flags)
{
    stage->step("shmget(" + qvTest::hexText(key) + ", " + std::to_string(size) + ", " +
                qvTest::hexText(flags) + ")");
    bool const leaving = flags == 0444;
    return leaving ? qvTest::answer(stage->scene.lookUpOnLeaving, qvTest::SenderScene::leftId)
                   : qvTest::answer(stage->scene.lookUp, qvTest::SenderScene::foundId);
}

void* __wrap_shmat(int id, void const* address, int flags)
{
    stage->step("shmat(" + std::to_string(id) + ", " + (address == nullptr ? "null" : "address") +
                ", " + std::to_string(flags) + ")");
    if (qvTest::answer(stage->scene.mapping, 0) == -1)
        return reinterpret_cast<void*>(std::intptr_t{-1});
    return stage->map();
}

int __wrap_shmdt(void const* address)
{
    bool const ours = stage->isBase(address);
    stage->step(ours ? "shmdt(base)" : "shmdt(elsewhere)");
    int const result = qvTest::answer(stage->scene.unmapping, 0);
    if (ours && result == 0)
        stage->unmap();
    return result;
}

int __wrap_shmctl(int id, int command, shmid_ds* buffer)
{
    std::string const name = command == IPC_STAT   ? "IPC_STAT"
                             : command == IPC_RMID ? "IPC_RMID"
                                                   : std::to_string(command);
    stage->step("shmctl(" + std::to_string(id) + ", " + name + ")");
    if (command != IPC_STAT)
        return qvTest::answer(stage->scene.removal, 0);

    // Also where the query is refused: whoever reads it all the same sees nobody attached.
    std::memset(buffer, 0, sizeof *buffer);
    bool const forSize = id == qvTest::SenderScene::foundId;
    int const result =
        qvTest::answer(forSize ? stage->scene.sizeQuery : stage->scene.attachedQuery, 0);
    if (result == 0) {
        buffer->shm_segsz = stage->scene.sizeTold;
        buffer->shm_nattch = forSize ? 1 : stage->scene.attachedToldOnLeaving;
    }
    return result;
}

int __wrap_usleep(useconds_t microseconds)
{
    stage->step("usleep(" + std::to_string(microseconds) + ")");
    return 0;
}

int __wrap_isatty(int file)
{
    if (stage == nullptr)
        return __real_isatty(file);
    if (file == STDOUT_FILENO && stage->scene.onTerminal)
        return 1;
    errno = ENOTTY;
    return 0;
}

int __wrap___xpg_strerror_r(int, char* buffer, std::size_t size)
{
    std::string const& text = stage->scene.systemText;
    std::size_t const length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    if (!stage->scene.systemKnowsErrors)
        return EINVAL;
    return length < text.size() ? ERANGE : 0;
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
