// tests/system/thread/mrvThreadTest.cpp
#include "mrvCore/system/thread/mrvThread.h"

#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "mrvCore/system/thread/mrvAtomic.h"
#include "mrvCore/system/thread/mrvTaskBase.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace mrv {
namespace {

constexpr size_t stackSize = 0x100000;

void storeOwnId(void* target)
{
    *static_cast<pthread_t*>(target) = pthread_self();
}

TEST(Threads, aDefinitionRunsAgainOnceItIsJoined)
{
    threaddef_t threadDef;
    for (int round = 0; round < 3; ++round)
    {
        pthread_t runner = 0;
        ASSERT_TRUE(createThread(threadDef, storeOwnId, &runner, stackSize + size_t(round)));
        const uint64_t id = convertThreadId(threadDef._threadId);
        EXPECT_NE(id, 0u);
        EXPECT_EQ(threadDef._arg, &runner);
        EXPECT_EQ(threadDef._stackSize, stackSize + size_t(round));

        ASSERT_TRUE(joinThread(threadDef));
        EXPECT_EQ(runner, id);
        EXPECT_NE(runner, pthread_self());
        EXPECT_EQ(threadDef._arg, nullptr);
        EXPECT_EQ(convertThreadId(threadDef._threadId), 0u);
        EXPECT_FALSE(joinThread(threadDef)) << "there is nothing left to wait for";
    }
}

void storeStackSize(void* target)
{
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_getattr_np(pthread_self(), &attributes), 0);
    pthread_attr_getstacksize(&attributes, static_cast<size_t*>(target));
    pthread_attr_destroy(&attributes);
}

size_t runWithStackSize(size_t size)
{
    threaddef_t threadDef;
    size_t actual = 0;
    EXPECT_TRUE(createThread(threadDef, storeStackSize, &actual, size));
    EXPECT_TRUE(joinThread(threadDef));
    return actual;
}

TEST(Threads, checkTheStackSizeButKeepTheDefault)
{
    EXPECT_EQ(runWithStackSize(0x100000), runWithStackSize(0x400000));

    threaddef_t threadDef;
    pthread_t runner = 0;
    EXPECT_FALSE(createThread(threadDef, storeOwnId, &runner, 1)) << "below what a stack needs";
    EXPECT_FALSE(joinThread(threadDef));
    EXPECT_EQ(runner, 0u) << "nothing ran";
}

/// Runs until it is told to stop.
class Turning : public TaskBase
{
public:
    explicit Turning(size_t size) : _size(size) { atomicStoreRelaxed(_state, 0); }

    void runTask() override
    {
        atomicFetchOrRelaxed(_state, running);
        while ((atomicLoadAcquire(_state) & stopped) == 0)
            sleepCurrentThread(1);
        atomicFetchAndRelaxed(_state, ~running);
    }
    void requestStopTask() override { atomicFetchOrRelaxed(_state, stopped); }
    bool isRunningTask() override { return (atomicLoadAcquire(_state) & running) != 0; }
    size_t getRequiredStackSize() override { return _size != 0 ? _size : TaskBase::getRequiredStackSize(); }

private:
    static constexpr int running = 1;
    static constexpr int stopped = 2;

    size_t _size;
    atomic32_t _state;
};

TEST(Tasks, runBetweenStartAndStopOnTheStackSizeTheyName)
{
    Turning task(0);
    threaddef_t threadDef;
    ASSERT_TRUE(startTask(threadDef, &task));
    EXPECT_EQ(threadDef._stackSize, TaskBase::s_defaultStackSizeInBytes);
    while (!task.isRunningTask())
        yieldCurrentThread();
    EXPECT_TRUE(stopTask(threadDef, &task));
    EXPECT_FALSE(task.isRunningTask());

    Turning tooSmall(1);
    EXPECT_FALSE(startTask(threadDef, &tooSmall));
}

void keepText(const char* text, void* target)
{
    *static_cast<std::string*>(target) += text;
}

TEST(Threads, aThreadThatTheSystemRefusesIsLogged)
{
    std::string logged;
    allocateLog();
    {
        CallbackLogger logger;
        logger.registerCallback(keepText, &logged);
        pthread_attr_t usual;
        ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
        pthread_attr_t endless = usual;
        ASSERT_EQ(pthread_attr_setstacksize(&endless, size_t(1) << 60), 0);
        ASSERT_EQ(pthread_setattr_default_np(&endless), 0);

        threaddef_t threadDef;
        pthread_t runner = 0;
        EXPECT_FALSE(createThread(threadDef, storeOwnId, &runner, stackSize));
        EXPECT_EQ(threadDef._arg, &runner) << "the definition stays taken";
        EXPECT_EQ(convertThreadId(threadDef._threadId), 0u);

        EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
        pthread_attr_destroy(&usual);
    }
    deallocateLog();
    EXPECT_EQ(logged, "Maravo [ERROR] - pthread_create return code: " + std::to_string(EAGAIN) + "\n");
}

TEST(Threads, thereIsAtLeastOneProcessor)
{
    EXPECT_GE(getSupportedConcurrentThreadCount(), 1);
}

} // namespace
} // namespace mrv
