#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <sys/shm.h>
#include <unistd.h>
#include <utility>

// The linker's --wrap fixes these names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __real_shmget(key_t key, size_t size, int flags);
void* __real_shmat(int id, void const* address, int flags);
int __real_shmdt(void const* address);
int __real_shmctl(int id, int command, shmid_ds* buffer);
int __real_usleep(useconds_t microseconds);
int __real___xpg_strerror_r(int code, char* buffer, size_t size);

int __wrap_shmget(key_t key, size_t size, int flags);
void* __wrap_shmat(int id, void const* address, int flags);
int __wrap_shmdt(void const* address);
int __wrap_shmctl(int id, int command, shmid_ds* buffer);
int __wrap_usleep(useconds_t microseconds);
int __wrap___xpg_strerror_r(int code, char* buffer, size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

enum class Call
{
    Shmget,
    Shmat,
    Shmdt,
    Stat,
    Remove
};

struct Answer
{
    Call call{};
    int result = 0;
    int error = 0;
    void* address = nullptr;
    std::size_t segmentSize = 0;
    unsigned long attachCount = 0;
};

struct Stage
{
    std::deque<Answer> answers;
    Calls calls;
    void* mapped = nullptr;
    int sleeps = 0;
    int sleepError = 0;
    std::function<void(int)> sleeping;
    std::function<void()> unmapping;
    bool watching = true;
};

// A success leaves errno undefined, so it gets a value no test expects to meet.
constexpr int errnoAfterSuccess = E2BIG;

Stage* stage = nullptr;

void note(std::string line)
{
    if (stage->watching) {
        stage->calls.push_back(std::move(line));
    }
}

// The next answer, if it belongs to this call; a failing one otherwise.
Answer nextAnswer(Call call)
{
    Answer refused;
    refused.call = call;
    refused.result = -1;
    refused.error = EINVAL;
    if (!stage->watching) {
        return refused;
    }
    if (stage->answers.empty() || stage->answers.front().call != call) {
        ADD_FAILURE() << "unexpected call: " << stage->calls.back();
        return refused;
    }
    Answer answer = stage->answers.front();
    stage->answers.pop_front();
    return answer;
}

int finish(Answer const& answer)
{
    errno = answer.error;
    return answer.result;
}

std::string hexText(unsigned value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", value);
    return text;
}

void addAnswer(Call call, int result, int error)
{
    Answer answer;
    answer.call = call;
    answer.result = result;
    answer.error = error;
    stage->answers.push_back(answer);
}

struct SystemText
{
    int result = 0;
    std::string text;
    Calls calls;
};

SystemText* systemText = nullptr;

} // namespace

SystemCallScript::SystemCallScript()
{
    stage = new Stage;
}

SystemCallScript::~SystemCallScript()
{
    delete stage;
    stage = nullptr;
}

SystemCallScript& SystemCallScript::shmgetGives(int id)
{
    addAnswer(Call::Shmget, id, errnoAfterSuccess);
    return *this;
}

SystemCallScript& SystemCallScript::shmgetFails(int error)
{
    addAnswer(Call::Shmget, -1, error);
    return *this;
}

SystemCallScript& SystemCallScript::shmatGives(void* address)
{
    addAnswer(Call::Shmat, 0, errnoAfterSuccess);
    stage->answers.back().address = address;
    return *this;
}

SystemCallScript& SystemCallScript::shmatFails(int error)
{
    addAnswer(Call::Shmat, -1, error);
    return *this;
}

SystemCallScript& SystemCallScript::shmdtGives()
{
    addAnswer(Call::Shmdt, 0, errnoAfterSuccess);
    return *this;
}

SystemCallScript& SystemCallScript::shmdtFails(int error)
{
    addAnswer(Call::Shmdt, -1, error);
    return *this;
}

SystemCallScript& SystemCallScript::statGives(std::size_t segmentSize, unsigned long attachCount)
{
    addAnswer(Call::Stat, 0, errnoAfterSuccess);
    stage->answers.back().segmentSize = segmentSize;
    stage->answers.back().attachCount = attachCount;
    return *this;
}

SystemCallScript& SystemCallScript::statFails(int error)
{
    addAnswer(Call::Stat, -1, error);
    return *this;
}

SystemCallScript& SystemCallScript::removeGives()
{
    addAnswer(Call::Remove, 0, errnoAfterSuccess);
    return *this;
}

SystemCallScript& SystemCallScript::removeFails(int error)
{
    addAnswer(Call::Remove, -1, error);
    return *this;
}

void SystemCallScript::whileSleeping(std::function<void(int)> hook)
{
    stage->sleeping = std::move(hook);
}

void SystemCallScript::sleepsFail(int error)
{
    stage->sleepError = error;
}

void SystemCallScript::whenUnmapping(std::function<void()> hook)
{
    stage->unmapping = std::move(hook);
}

Calls SystemCallScript::takeCalls()
{
    return std::exchange(stage->calls, {});
}

void SystemCallScript::expectAllAnswersUsed() const
{
    EXPECT_EQ(stage->answers.size(), 0U) << "calls that never came";
}

void SystemCallScript::stopWatching()
{
    stage->watching = false;
    stage->sleeping = nullptr;
    stage->unmapping = nullptr;
}

SystemTextScript::SystemTextScript(int result, std::string text)
{
    systemText = new SystemText{result, std::move(text), {}};
}

SystemTextScript::~SystemTextScript()
{
    delete systemText;
    systemText = nullptr;
}

Calls SystemTextScript::takeCalls()
{
    return std::exchange(systemText->calls, {});
}

// NOLINTBEGIN(bugprone-reserved-identifier)
int __wrap_shmget(key_t key, size_t size, int flags)
{
    if (stage == nullptr) {
        return __real_shmget(key, size, flags);
    }
    // The size is shown signed, so a sign-extended negative one is told apart from 2 GiB.
    note("shmget(" + hexText(static_cast<unsigned>(key)) + ", " +
         std::to_string(static_cast<std::int64_t>(size)) + ", " +
         hexText(static_cast<unsigned>(flags)) + ")");
    return finish(nextAnswer(Call::Shmget));
}

void* __wrap_shmat(int id, void const* address, int flags)
{
    if (stage == nullptr) {
        return __real_shmat(id, address, flags);
    }
    note("shmat(" + std::to_string(id) + ", " + (address == nullptr ? "null" : "address") + ", " +
         std::to_string(flags) + ")");
    Answer const answer = nextAnswer(Call::Shmat);
    if (finish(answer) < 0) {
        return reinterpret_cast<void*>(std::intptr_t{-1});
    }
    stage->mapped = answer.address;
    return answer.address;
}

int __wrap_shmdt(void const* address)
{
    if (stage == nullptr) {
        return __real_shmdt(address);
    }
    note(address != nullptr && address == stage->mapped ? "shmdt(base)" : "shmdt(elsewhere)");
    if (stage->unmapping) {
        stage->unmapping();
    }
    return finish(nextAnswer(Call::Shmdt));
}

int __wrap_shmctl(int id, int command, shmid_ds* buffer)
{
    if (stage == nullptr) {
        return __real_shmctl(id, command, buffer);
    }
    bool const removal = command == IPC_RMID;
    std::string const word = removal               ? "IPC_RMID"
                             : command == IPC_STAT ? "IPC_STAT"
                                                   : std::to_string(command);
    note("shmctl(" + std::to_string(id) + ", " + word + ")");
    Answer const answer = nextAnswer(removal ? Call::Remove : Call::Stat);
    if (!removal) {
        if (buffer == nullptr) {
            ADD_FAILURE() << "status query without a buffer";
            return finish(answer);
        }
        std::memset(buffer, 0, sizeof *buffer);
        buffer->shm_segsz = answer.segmentSize;
        buffer->shm_nattch = answer.attachCount;
    }
    return finish(answer);
}

int __wrap_usleep(useconds_t microseconds)
{
    if (stage == nullptr) {
        return __real_usleep(microseconds);
    }
    note("usleep(" + std::to_string(microseconds) + ")");
    ++stage->sleeps;
    if (stage->sleeping) {
        stage->sleeping(stage->sleeps);
    }
    errno = stage->sleepError;
    return stage->sleepError == 0 ? 0 : -1;
}

int __wrap___xpg_strerror_r(int code, char* buffer, size_t size)
{
    if (systemText == nullptr) {
        return __real___xpg_strerror_r(code, buffer, size);
    }
    systemText->calls.push_back("strerror_r(" + std::to_string(code) + ", " + std::to_string(size) +
                                ")");
    std::size_t const room = size == 0 ? 0 : size - 1;
    std::size_t const count = systemText->text.size() < room ? systemText->text.size() : room;
    std::memcpy(buffer, systemText->text.data(), count);
    buffer[count] = '\0';
    return systemText->result;
}
// NOLINTEND(bugprone-reserved-identifier)
