// tests/system/progress/mrvPerfAnalysisManagerTest.cpp
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

#include "mrvCore/system/log/mrvILogger.h"
#include "mrvCore/system/progress/mrvPerfAnalysisSocketConnectionThread.h"
#include "mrvCore/system/progress/mrvScopedPerfAnalysis.h"
#include "mrvCore/system/progress/mrvTCPSocket.h"
#include "tests/support/mrvCommaLocale.h"
#include "tests/system/progress/mrvTestProfiler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <malloc.h>

namespace mrv {
namespace {

using Manager = PerfAnalysisManager;
using Event = Manager::Event;
using Unit = Manager::EventUnit;

std::string textOf(const Event& event)
{
    std::stringstream stream;
    event.toJsonString(stream);
    return stream.str();
}

Event makeEvent(const char* name, Time timeID = 0)
{
    return Event(Manager::EventType::PERF, name, timeID, 7, 1.5, Unit::MILLISECOND, 0);
}

/// Ten megabytes, which is more than a connection takes that is not read.
void addFlood(Manager& manager)
{
    const std::string name(10000, 'x');
    for (int i = 0; i < 1000; ++i)
        manager.addEvent(makeEvent(name.c_str()));
}

struct TextCase
{
    const char* name;
    Event event;
    const char* head; ///< in front of the thread
    const char* tail; ///< behind the date
};

const TextCase textCases[] = {
    { "usual", makeEvent("frame", 12.5), "{\"type\":0",
      ",\"name\":\"frame\",\"timeID\":12.5,\"integerID\":7,\"value\":1.5,\"unit\":1,\"flag\":0}" },
    { "extremes",
      Event(Manager::EventType::FRAMEDATA_HANDLING, "", std::numeric_limits<double>::infinity(), UINT32_MAX,
            -std::numeric_limits<double>::max(), Unit::END, -32768),
      "{\"type\":2",
      ",\"name\":\"\",\"timeID\":inf,\"integerID\":4294967295,\"value\":-1.79769e+308,\"unit\":8,"
      "\"flag\":-32768}" },
    { "sixDigits",
      Event(Manager::EventType::MEMORY_USAGE, "m", 1234567.0, 1234567, 0.000012345678, Unit::BYTE, 1),
      "{\"type\":1",
      ",\"name\":\"m\",\"timeID\":1.23457e+06,\"integerID\":1234567,\"value\":1.23457e-05,\"unit\":4,"
      "\"flag\":1}" },
    { "nameAsItIs", makeEvent("a \"b\"\\\n"), "{\"type\":0",
      ",\"name\":\"a \"b\"\\\n\",\"timeID\":0,\"integerID\":7,\"value\":1.5,\"unit\":1,\"flag\":0}" },
};

class EventTexts : public testing::TestWithParam<TextCase>
{};

TEST_P(EventTexts, areTheSameInEveryLocale)
{
    const CommaLocale locale;
    const TextCase& row = GetParam();
    std::ostringstream expected;
    expected.imbue(std::locale::classic());
    expected << row.head << ",\"threadID\":" << pthread_self() << ",\"date\":" << row.event._date << row.tail;
    EXPECT_EQ(textOf(row.event), expected.str());
}

INSTANTIATE_TEST_SUITE_P(Table, EventTexts, testing::ValuesIn(textCases),
                         [](const auto& row) { return std::string(row.param.name); });

/// Counts what is logged by any thread.
class LogCounter : public ILogger
{
public:
    void trace(Log::Module, Log::Severity severity, const char* message, const char*, int,
               const char*) override
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        ++_counts[std::to_string(severity) + message];
    }
    int count(Log::Severity severity, const std::string& message)
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        return _counts[std::to_string(severity) + message];
    }

private:
    std::mutex _mutex;
    std::map<std::string, int> _counts;
};

class PerfStream : public testing::Test
{
protected:
    PerfStream()
    {
        allocateLog();
        getLog()->setSeverity(Log::SDK, Log::LOG_DEBUG);
        _logger = std::make_unique<LogCounter>();
        Singleton<Manager>::create();
        manager().setWakeIntervals(1);
    }
    ~PerfStream() override
    {
        Singleton<Manager>::destroy();
        _logger.reset();
        deallocateLog();
    }

    static Manager& manager() { return *getPerfAnalysisManagerSingleton(); }
    static void setServer(const TestProfiler& server) { manager().setServer("127.0.0.1", server.getPort()); }
    void connect()
    {
        _server.listen();
        setServer(_server);
        ASSERT_TRUE(_server.accept());
    }
    int countLost()
    {
        return _logger->count(Log::LOG_WARNING, "Connection to performance profiler server lost");
    }
    int countRefused(const TestProfiler& server)
    {
        return _logger->count(Log::LOG_DEBUG, "No performance profiler server listening on 127.0.0.1 port " +
                                                  std::to_string(server.getPort()));
    }
    void waitForTwoRefusals(const TestProfiler& server) // the second began after the call
    {
        const int before = countRefused(server);
        while (countRefused(server) < before + 2)
            sleepCurrentThread(1);
    }

    std::unique_ptr<LogCounter> _logger;
    TestProfiler _server;
};

constexpr const char* keepAlive = "{ }";

std::string withoutKeepAlives(std::string text)
{
    for (size_t at; (at = text.find(keepAlive)) != std::string::npos;)
        text.erase(at, 3);
    return text;
}

TEST_F(PerfStream, sendsTheObjectsOneBehindTheOther)
{
    connect();
    std::string expected;
    for (const char* name : { "first", "a \"quoted\" one", "last" })
    {
        const Event event = makeEvent(name, 3);
        expected += textOf(event);
        manager().addEvent(event);
    }
    EXPECT_EQ(withoutKeepAlives(_server.receive("\"last\"")), expected);
    EXPECT_EQ(_logger->count(Log::LOG_INFO, "Connected on performance profiler server 127.0.0.1 port " +
                                                std::to_string(_server.getPort())),
              1);
}

TEST_F(PerfStream, takesTheEventsOfAllThreads)
{
    constexpr int threadCount = 4;
    constexpr int eventCount = 500;
    connect();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([] {
            for (int i = 0; i < eventCount; ++i)
                manager().addEvent(makeEvent("one", i));
        });
    for (std::thread& thread : threads)
        thread.join();
    manager().addEvent(makeEvent("end"));
    const std::string text = withoutKeepAlives(_server.receive("\"end\""));
    EXPECT_EQ(std::count(text.begin(), text.end(), '{'), threadCount * eventCount + 1);
}

TEST_F(PerfStream, connectsAgainAfterALossWhileIdleWithoutAWord)
{
    _server.listen();
    setServer(_server);
    for (const auto loseConnection : { &TestProfiler::close, &TestProfiler::reset })
    {
        ASSERT_TRUE(_server.accept());
        _server.receive("{ }{ }{ }");
        (_server.*loseConnection)();
    }
    ASSERT_TRUE(_server.accept());
    manager().addEvent(makeEvent("again"));
    _server.receive("\"again\"");
    EXPECT_EQ(countLost(), 0);
}

TEST_F(PerfStream, tellsOfALossWhileSendingAndDropsTheRest)
{
    connect();
    addFlood(manager());
    manager().addEvent(makeEvent("rest"));
    _server.receive("\"type\"");
    _server.reset();
    ASSERT_TRUE(_server.accept());
    EXPECT_GE(countLost(), 1);
    manager().addEvent(makeEvent("again"));
    _server.receive("\"again\"");
}

TEST_F(PerfStream, goesOverToAnotherServerInOperation)
{
    TestProfiler other;
    _server.listen();
    other.listen();
    setServer(_server);
    ASSERT_TRUE(_server.accept());
    manager().addEvent(makeEvent("one"));
    _server.receive("\"one\"");
    setServer(other);
    EXPECT_TRUE(_server.isLeft());
    ASSERT_TRUE(other.accept());
    manager().addEvent(makeEvent("two"));
    other.receive("\"two\"");
}

TEST_F(PerfStream, keepsNothingWithoutAServer)
{
    setServer(_server);
    const std::string name(10000, 'x');
    const size_t before = mallinfo2().uordblks;
    for (int round = 0; round < 5; ++round)
    {
        for (int i = 0; i < 1000; ++i)
            manager().addEvent(makeEvent(name.c_str()));
        waitForTwoRefusals(_server);
        EXPECT_LT(mallinfo2().uordblks, before + 5000000) << "half of what one round adds";
        manager().setWakeIntervals(0);
    }
    _server.listen();
    ASSERT_TRUE(_server.accept());
    manager().addEvent(makeEvent("late"));
    EXPECT_EQ(_server.receive("\"late\"").find(name), std::string::npos);
}

TEST_F(PerfStream, scopesMarkTheirTwoEnds)
{
    connect();
    {
        const ScopedPerfAnalysis outer("outer", 2.5, 4);
        ScopedPerfAnalysis inner("inner", 0, 0);
        inner.end();
    }
    manager().addEvent(makeEvent("behind"));
    std::istringstream text(withoutKeepAlives(_server.receive("\"behind\"")));
    std::string marks;
    for (std::string object; std::getline(text, object, '}');)
        marks += object.substr(object.find("\"name\"")) + "\n";
    EXPECT_EQ(marks.substr(0, marks.find("\"name\":\"behind\"")),
              "\"name\":\"outer\",\"timeID\":2.5,\"integerID\":4,\"value\":0,\"unit\":8,\"flag\":0\n"
              "\"name\":\"inner\",\"timeID\":0,\"integerID\":0,\"value\":0,\"unit\":8,\"flag\":0\n"
              "\"name\":\"inner\",\"timeID\":0,\"integerID\":0,\"value\":0,\"unit\":8,\"flag\":1\n"
              "\"name\":\"outer\",\"timeID\":2.5,\"integerID\":4,\"value\":0,\"unit\":8,\"flag\":1\n");
}

TEST(ScopedPerfAnalyses, doNothingWithoutTheLibrary)
{
    Singleton<Manager>::create();
    {
        const ScopedPerfAnalysis outlives("scope", 0, 0);
        Singleton<Manager>::destroy();
    }
    EXPECT_EQ(getPerfAnalysisManagerSingleton(), nullptr);
}

TEST_F(PerfStream, aRefusedThreadCostsTheEventsOnly)
{
    pthread_attr_t usual;
    ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
    pthread_attr_t endless = usual;
    ASSERT_EQ(pthread_attr_setstacksize(&endless, size_t(1) << 60), 0);
    ASSERT_EQ(pthread_setattr_default_np(&endless), 0);
    manager().addEvent(makeEvent("nobody takes it"));
    EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
    pthread_attr_destroy(&usual);
    EXPECT_FALSE(manager().isLoadingThreadActive());

    connect();
    manager().addEvent(makeEvent("now"));
    EXPECT_EQ(_server.receive("\"now\"").find("nobody"), std::string::npos);
}

/// What the sending thread waits for when it is told to stop.
struct StopCase
{
    const char* name;
    void (*prepare)(TestProfiler& server, std::vector<int>& others);
    void (*operate)(TestProfiler& server, Manager& manager);
};

const auto prepareNothing = [](TestProfiler&, std::vector<int>&) {};
const auto operateNothing = [](TestProfiler&, Manager&) {};

const StopCase stopCases[] = {
    { "noServer", prepareNothing, operateNothing }, // the pause is five seconds
    { "idleServer", [](TestProfiler& server, std::vector<int>&) { server.listen(); },
      [](TestProfiler& server, Manager&) { EXPECT_TRUE(server.accept()); } },
    { "serverThatReadsNothing", [](TestProfiler& server, std::vector<int>&) { server.listen(); },
      [](TestProfiler& server, Manager& manager) {
          EXPECT_TRUE(server.accept());
          addFlood(manager);
          server.receive("\"type\"");
      } },
    { "serverThatAcceptsNobody",
      [](TestProfiler& server, std::vector<int>& others) {
          server.listen(0); // these fill its queue, and the next one waits for minutes
          for (int i = 0; i < 2; ++i)
          {
              others.push_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
              const sockaddr_in address = TestProfiler::makeAddress(server.getPort());
              connect(others.back(), reinterpret_cast<const sockaddr*>(&address), sizeof(address));
          }
      },
      operateNothing },
};

class PerfStops : public testing::TestWithParam<StopCase>
{};

TEST_P(PerfStops, doNotWaitForTheServer)
{
    TestProfiler server;
    std::vector<int> others;
    Manager manager;
    GetParam().prepare(server, others);
    manager.setServer("127.0.0.1", server.getPort());
    GetParam().operate(server, manager);
    sleepCurrentThread(50); // the thread comes to where it waits
    const auto start = std::chrono::steady_clock::now();
    manager.finish();
    EXPECT_LT(std::chrono::steady_clock::now() - start,
              std::chrono::milliseconds(1500)); // what it leaves lasts longer
    for (int other : others)
        close(other);
}

INSTANTIATE_TEST_SUITE_P(Table, PerfStops, testing::ValuesIn(stopCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TCPSockets, giveUpAServerThatTakesNothing)
{
    TestProfiler server;
    EXPECT_EQ(openTCPSocket("no address", server.getPort()), 0);
    server.listen();
    const int socket = openTCPSocket("127.0.0.1", server.getPort());
    ASSERT_GT(socket, 0);
    EXPECT_EQ(sendTCPMessage(socket, "hello"), 5);
    EXPECT_EQ(sendTCPMessage(socket, std::string(32 << 20, 'x').c_str()), -1);
    closeTCPSocket(socket);
}

TEST(PerfAnalysisThreadsDeathTest, aMissingManagerIsFatal)
{
    EXPECT_EXIT(PerfAnalysisSocketConnectionThread::startRoutine(nullptr), testing::KilledBySignal(SIGTRAP),
                "perfMgr != NULL");
}

} // namespace
} // namespace mrv
