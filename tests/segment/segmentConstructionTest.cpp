// What the constructor forms: the names, the defaults of the fields, and, seen through the first
// shmget, the key that a name leads to.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace {

static_assert(std::is_constructible_v<qvSharedMemory, Text250 const&>);
// It owns its mapping.
static_assert(!std::is_copy_constructible_v<qvSharedMemory>);
static_assert(!std::is_copy_assignable_v<qvSharedMemory>);
static_assert(
    std::is_same_v<decltype(&qvSharedMemory::create), bool (qvSharedMemory::*)(int, bool, bool)>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::attach), bool (qvSharedMemory::*)()>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::detach), bool (qvSharedMemory::*)()>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::clearAll), void (qvSharedMemory::*)()>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::size), int (qvSharedMemory::*)() const>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::lock), bool (qvSharedMemory::*)()>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::unlock), bool (qvSharedMemory::*)()>);
static_assert(
    std::is_same_v<decltype(&qvSharedMemory::setError), void (qvSharedMemory::*)(Text250)>);
static_assert(std::is_same_v<decltype(&qvSharedMemory::clearError), void (qvSharedMemory::*)()>);
static_assert(std::is_same_v<decltype(std::declval<qvSharedMemory&>().error()), int>);
static_assert(std::is_same_v<decltype(std::declval<qvSharedMemory&>().errorString()), Text250>);

class SegmentConstruction : public ScriptedSegment
{
protected:
    // The key that an attach asks for.
    int keyAskedFor(qvSharedMemory& object)
    {
        script.shmgetGives(7).shmatFails(ENOMEM);
        EXPECT_FALSE(object.attach());
        EXPECT_EQ(script.takeCalls().size(), 2U);
        int const key = object.key;
        // Back to Idle, so that the object asks anew next time.
        script.shmgetGives(7).statGives(64, 1);
        EXPECT_TRUE(object.detach());
        script.takeCalls();
        return key;
    }
};

TEST_F(SegmentConstruction, GivesEveryFieldItsDefaultAndCallsNothing)
{
    EXPECT_EQ(textOf(memory.name), "QV_qvClientSharedMemory_1234567");
    EXPECT_EQ(textOf(memory.globalName), "Global\\QV_qvClientSharedMemory_1234567");
    expectNoError(memory);
    EXPECT_FALSE(memory.locked);
    EXPECT_FALSE(memory.attached);
    EXPECT_EQ(plainAddress(memory.base), nullptr);
    EXPECT_EQ(memory.totalSize, -1);
    EXPECT_EQ(memory.modeWord, 1);
    EXPECT_EQ(memory.key, 0);
    EXPECT_EQ(memory.size(), -9);
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentConstruction, FieldsHaveTheirTypesAndOrder)
{
    static_assert(std::is_same_v<decltype(memory.name), Text250>);
    static_assert(std::is_same_v<decltype(memory.globalName), Text250>);
    static_assert(std::is_same_v<decltype(memory.errorText), Text250>);
    static_assert(sizeof memory.errorCode == 4 && std::is_signed_v<decltype(memory.errorCode)>);
    static_assert(std::is_same_v<decltype(memory.locked), bool>);
    static_assert(std::is_same_v<decltype(memory.attached), bool>);
    static_assert(sizeof memory.totalSize == 4 && std::is_signed_v<decltype(memory.totalSize)>);
    static_assert(sizeof memory.modeWord == 2 && std::is_unsigned_v<decltype(memory.modeWord)>);
    static_assert(sizeof memory.key == 4 && std::is_signed_v<decltype(memory.key)>);
    static_assert(sizeof *memory.lockByte == 1);
    static_assert(!std::is_polymorphic_v<qvSharedMemory>);
    static_assert(std::is_standard_layout_v<qvSharedMemory>);

    std::size_t const offsets[] = {
        offsetof(qvSharedMemory, name),      offsetof(qvSharedMemory, globalName),
        offsetof(qvSharedMemory, errorText), offsetof(qvSharedMemory, errorCode),
        offsetof(qvSharedMemory, locked),    offsetof(qvSharedMemory, attached),
        offsetof(qvSharedMemory, base),      offsetof(qvSharedMemory, lockByte),
        offsetof(qvSharedMemory, totalSize), offsetof(qvSharedMemory, modeWord),
        offsetof(qvSharedMemory, key),
    };
    EXPECT_EQ(offsets[0], 0U);
    for (std::size_t i = 1; i < std::size(offsets); ++i) {
        EXPECT_LT(offsets[i - 1], offsets[i]) << "field " << i;
    }
}

TEST_F(SegmentConstruction, CutsTheNamesAtTheirCapacity)
{
    struct Row
    {
        std::size_t given;   // characters of the given name
        std::size_t arrived; // how many of them stand in `name`
        char const* suffix;  // what is left of the suffix behind them
    };
    Row const rows[] = {
        {0, 0, "_1234567"},    {1, 1, "_1234567"},   {238, 238, "_1234567"}, {239, 239, "_1234567"},
        {240, 240, "_123456"}, {241, 241, "_12345"}, {242, 242, "_1234"},    {243, 243, "_123"},
        {244, 244, "_12"},     {245, 245, "_1"},     {246, 246, "_"},        {247, 247, ""},
        {248, 247, ""},        {249, 247, ""},       {250, 247, ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.given);
        qvSharedMemory const object{Text250(std::string(row.given, 'a').c_str())};
        std::string const name = "QV_" + std::string(row.arrived, 'a') + row.suffix;
        EXPECT_EQ(textOf(object.name), name);
        EXPECT_EQ(object.name.text[object.name.length], '\0');
        // Seven characters of "Global\" leave 243 for the name.
        EXPECT_EQ(textOf(object.globalName), "Global\\" + name.substr(0, 243));
        EXPECT_EQ(object.globalName.text[object.globalName.length], '\0');
    }
}

// A zero byte in the given name is a character like any other.
TEST_F(SegmentConstruction, TakesTheGivenNameByItsLength)
{
    Text250 given;
    given.fromChar("a\0b", 3);
    qvSharedMemory const object{given};
    EXPECT_EQ(textOf(object.name), std::string("QV_a\0b_1234567", 14));
    EXPECT_EQ(textOf(object.globalName), std::string("Global\\QV_a\0b_1234567", 21));
}

// The names are formed in cleared strings, whatever lay in the storage.
TEST_F(SegmentConstruction, ZeroesTheTextBehindTheNames)
{
    alignas(qvSharedMemory) unsigned char storage[sizeof(qvSharedMemory)];
    std::memset(storage, untouched, sizeof storage);
    auto* const object = ::new (storage) qvSharedMemory(Text250("stage"));
    for (Text250 const* const name : {&object->name, &object->globalName}) {
        for (std::size_t i = name->length; i <= 250; ++i) {
            EXPECT_EQ(name->text[i], '\0') << "character " << i;
        }
    }
    object->~qvSharedMemory();
}

TEST_F(SegmentConstruction, KeyIsTheLowBytesOfTheChecksumOfTheName)
{
    struct Row
    {
        std::string given;
        int key;
    };
    Row const rows[] = {
        {"qvClientSharedMemory", 5176575},
        {"", 0x3F9C2B},
        {"stage", 0xF8325B},
        {"other", 0x5CEC7A},
        {"\xE9\xFF\x80", 0x3C630F},
        {std::string(239, 'a'), 0xC173C6},
        {std::string(240, 'a'), 0xC46FF4},
        {std::string(246, 'a'), 0x6F66C9},
        // No character behind the 247th takes part.
        {std::string(247, 'a'), 0x0E7B62},
        {std::string(247, 'a') + "bcd", 0x0E7B62},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.given);
        qvSharedMemory object{Text250(row.given.c_str())};
        EXPECT_EQ(keyAskedFor(object), row.key);
    }
}

TEST_F(SegmentConstruction, KeyIsComputedAnewFromNameAlone)
{
    EXPECT_EQ(keyAskedFor(memory), clientKey);
    memory.globalName = "Global\\something else";
    EXPECT_EQ(keyAskedFor(memory), clientKey);
    memory.name = "QV_stage_1234567";
    EXPECT_EQ(keyAskedFor(memory), 0xF8325B);
    EXPECT_EQ(textOf(memory.globalName), "Global\\something else");

    script.shmgetFails(EEXIST);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0xF8325B, 24, 0x7B6)"}));
    EXPECT_EQ(memory.key, 0xF8325B);
}

TEST_F(SegmentConstruction, StoredLengthCountsTheNameBytes)
{
    // A zero byte inside counts like any other, for the stored length says where the name ends.
    memory.name.fromChar("QV_a\0b", 6);
    EXPECT_EQ(keyAskedFor(memory), 0x84FE0D);
}

} // namespace
