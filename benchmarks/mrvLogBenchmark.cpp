// benchmarks/mrvLogBenchmark.cpp
// Our log beside spdlog: calls that the threshold filters out, calls to a logger that drops or merely formats
// the line, and 100000 lines to a file. Goal: a call that is filtered out costs at most 2 ns.
//   plain    a constant text of 40 characters
//   format   "frame <i> agent <j> speed <x>" with two integers and a number with three decimals
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/system/log/mrvFileLogger.h"
#include "mrvCore/system/log/mrvLogLayout.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <cstdio>
#include <iomanip>
#include <sstream>
#include <thread>

#ifdef MRV_HAS_SPDLOG
#    include <spdlog/sinks/basic_file_sink.h>
#    include <spdlog/sinks/null_sink.h>
#    include <spdlog/sinks/ostream_sink.h>
#    include <spdlog/spdlog.h>
#endif

using namespace mrvBenchmark;
using mrv::Log;

// The statement of a log stands in its function; it is not called.
#define MRV_SITE __attribute__((always_inline))

namespace {

constexpr const char* text = "the character was loaded with no rigging";
constexpr const char* fileName = "mrvLogBenchmark.txt";
constexpr int callCount = 1000;
constexpr int lineCount = 100000;

/// Drops everything.
class NullLogger : public mrv::ILogger
{
public:
    void trace(Log::Module, Log::Severity, const char*, const char*, int, const char*) override {}
};

/// Builds the whole text of a file's line and counts it.
class CountingLogger : public mrv::ILogger
{
public:
    void trace(Log::Module, Log::Severity severity, const char* message, const char* file, int line,
               const char* function) override
    {
        _line.str(std::string());
        mrv::internal::writeSite(_line, file, line, function);
        _line << mrv::internal::getSeverityName(severity) << ": " << message << '\n';
        byteCount += _line.tellp();
    }

    std::streamoff byteCount = 0;

private:
    std::ostringstream _line;
};

void logFormat(int frame, int agent)
{
    MRV_LOG(SDK, LOG_INFO,
            "frame " << frame << " agent " << agent << " speed " << std::fixed << std::setprecision(3)
                     << frame * 0.001);
}

/// The log with one logger and one threshold, for the length of a benchmark.
template <class Logger>
class LogInUse
{
public:
    explicit LogInUse(Log::Severity threshold)
    {
        mrv::allocateLog();
        mrv::getLog()->setSeverity(Log::SDK, threshold);
        _logger = new Logger;
    }
    ~LogInUse()
    {
        delete _logger;
        mrv::deallocateLog();
    }

private:
    Logger* _logger;
};

template <class Logger>
void addCalls(const std::string& name, Log::Severity threshold)
{
    const auto addCase = [&](const char* kind, auto call) {
        add("log/mrvCore/" + name + "_" + kind, [=](State& state) {
            const LogInUse<Logger> log(threshold);
            for (auto _ : state)
                for (int i = 0; i < callCount; ++i)
                {
                    call(i);
                    benchmark::ClobberMemory();
                }
            perItem(state, callCount, "ns/call");
        });
    };
    addCase("plain", [](int) MRV_SITE { MRV_LOG(SDK, LOG_INFO, text); });
    addCase("format", [](int i) MRV_SITE { logFormat(i, i & 63); });
    addCase("limited",
            [](int) MRV_SITE { MRV_LOG_LIMITED(SDK, LOG_INFO, text); }); // its first six are lost in the rest
}

/// Times `write(thread)` on each of the threads, up to the end of `close()`.
template <class Open, class Write, class Close>
void addFile(const std::string& peer, int threadCount, Open open, Write write, Close close)
{
    const char* threads = threadCount == 1 ? "_thread" : "_threads";
    add("log/" + peer + "/file_" + std::to_string(threadCount) + threads, [=](State& state) {
        for (auto _ : state)
        {
            state.PauseTiming();
            auto sink = open();
            state.ResumeTiming();
            const auto work = [&](int thread) {
                for (int i = 0; i < lineCount / threadCount; ++i)
                    write(sink, i, thread);
            };
            std::vector<std::thread> others;
            for (int thread = 1; thread < threadCount; ++thread)
                others.emplace_back(work, thread);
            work(0);
            for (std::thread& other : others)
                other.join();
            close(sink);
        }
        std::remove(fileName);
        perItem(state, lineCount, "ns/line");
    })->UseRealTime();
}

void addOurFile(int threadCount)
{
    addFile(
        "mrvCore", threadCount,
        [] {
            mrv::allocateLog();
            return new mrv::FileLogger(fileName, mrv::FileLogger::TRUNC, mrv::FileLogger::NO_FLUSH);
        },
        [](mrv::FileLogger*, int i, int thread) { logFormat(i, thread); },
        [](mrv::FileLogger* logger) {
            delete logger;
            mrv::deallocateLog();
        });
}

#ifdef MRV_HAS_SPDLOG

using Sink = std::shared_ptr<spdlog::sinks::sink>;

std::shared_ptr<spdlog::logger> makeSpdlog(Sink sink, spdlog::level::level_enum threshold)
{
    auto logger = std::make_shared<spdlog::logger>("peer", std::move(sink));
    logger->set_level(threshold);
    logger->flush_on(spdlog::level::off);
    return logger;
}

/// Builds the whole line and counts it.
class SpdlogCountingSink : public spdlog::sinks::base_sink<spdlog::details::null_mutex>
{
public:
    size_t byteCount = 0;

private:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        _line.clear();
        formatter_->format(message, _line);
        byteCount += _line.size();
    }
    void flush_() override {}

    spdlog::memory_buf_t _line;
};

void addSpdlogCalls(const std::string& name, spdlog::level::level_enum threshold, Sink sink)
{
    const auto addCase = [&](const char* kind, auto call) {
        add("log/spdlog/" + name + "_" + kind, [=](State& state) {
            const auto logger = makeSpdlog(sink, threshold);
            for (auto _ : state)
                for (int i = 0; i < callCount; ++i)
                {
                    call(*logger, i);
                    benchmark::ClobberMemory();
                }
            perItem(state, callCount, "ns/call");
        });
    };
    addCase("plain", [](spdlog::logger& logger, int) { logger.info(text); });
    addCase("format", [](spdlog::logger& logger, int i) {
        logger.info("frame {} agent {} speed {:.3f}", i, i & 63, i * 0.001);
    });
}

void addSpdlogFile(int threadCount)
{
    addFile(
        "spdlog", threadCount,
        [] {
            return makeSpdlog(std::make_shared<spdlog::sinks::basic_file_sink_mt>(fileName, true),
                              spdlog::level::info);
        },
        [](std::shared_ptr<spdlog::logger>& logger, int i, int thread) {
            logger->info("frame {} agent {} speed {:.3f}", i, thread, i * 0.001);
        },
        [](std::shared_ptr<spdlog::logger>& logger) { logger->flush(); });
}

void addSpdlog()
{
    addSpdlogCalls("filtered", spdlog::level::warn, std::make_shared<spdlog::sinks::null_sink_mt>());
    addSpdlogCalls("null_sink_mt", spdlog::level::info, std::make_shared<spdlog::sinks::null_sink_mt>());
    addSpdlogCalls("formatted_line", spdlog::level::info, std::make_shared<SpdlogCountingSink>());
    addSpdlogFile(1);
    addSpdlogFile(2);
}

#else

void addSpdlog()
{
    std::fprintf(stderr, "spdlog is not there: only our own log is measured\n");
}

#endif

} // namespace

int main(int argc, char** argv)
{
    addCalls<NullLogger>("filtered", Log::LOG_WARNING);
    addCalls<NullLogger>("null_sink_mt", Log::LOG_INFO);
    addCalls<CountingLogger>("formatted_line", Log::LOG_INFO);
    addOurFile(1);
    addOurFile(2);
    addSpdlog();
    return run(argc, argv);
}
