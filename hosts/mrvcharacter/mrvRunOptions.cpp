// hosts/mrvcharacter/mrvRunOptions.cpp
#include "hosts/mrvcharacter/mrvRunOptions.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"

#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/log/mrvCallbackLogger.h"
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

#include <CLI/CLI.hpp>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include <arpa/inet.h>

namespace mrvcharacter {

namespace {

using namespace std::chrono_literals;

// A command may be over soon: the sending thread looks at its buffer often, and an idle one after ten times
// as long.
constexpr uint32_t wakeMilliseconds = 2;
constexpr auto flushTime = 100ms;
constexpr auto connectTime = 2s;

bool areEventsSent = false;

struct Server
{
    std::string address;
    unsigned short port = 0;
};

/// False for anything but a dotted IPv4 address (or "localhost") and a port.
bool parseServer(const std::string& text, Server& server)
{
    const size_t colon = text.find(':');
    if (colon == std::string::npos)
        return false;
    server.address = text.substr(0, colon);
    if (server.address == "localhost")
        server.address = "127.0.0.1";
    const std::string port = text.substr(colon + 1);
    in_addr ignored;
    const bool isNumber =
        !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber || inet_pton(AF_INET, server.address.c_str(), &ignored) != 1)
        return false;
    const int number = std::stoi(port);
    server.port = static_cast<unsigned short>(number);
    return number > 0 && number <= 65535;
}

std::string checkServer(const std::string& text)
{
    Server ignored;
    return parseServer(text, ignored) ? "" : text + " is no address of the form 127.0.0.1:9999";
}

/// Starts to send. The first events would be lost if they came before the connection.
void connect(const std::string& text)
{
    Server server;
    parseServer(text, server);
    std::atomic<bool> isConnected(false);
    mrv::CallbackLogger logger;
    logger.registerCallback(
        [](const char* message, void* flag) {
            if (std::string(message).find("Connected on") != std::string::npos)
                *static_cast<std::atomic<bool>*>(flag) = true;
        },
        &isConnected);
    mrv::PerfAnalysisManager* const manager = mrv::getPerfAnalysisManagerSingleton();
    manager->setWakeIntervals(wakeMilliseconds);
    manager->setServer(server.address.c_str(), server.port);
    const auto end = std::chrono::steady_clock::now() + connectTime;
    while (!isConnected && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(1ms);
    areEventsSent = isConnected;
    if (!isConnected)
        reportError(text, "no event server answers, events are not sent");
}

void setThreadCount(int count)
{
    const LogMessages messages;
    mrv::getMultiThreadProcessor()->updateThreadCount(count);
    for (const std::string& message : messages.get())
        reportError("--threads", message);
}

} // namespace

void addThreadsOption(CLI::App& command)
{
    command
        .add_option_function<int>("--threads", setThreadCount,
                                  "How many threads load files; by default one per processor")
        ->check(CLI::Range(1, 1024));
}

void addEventsOption(CLI::App& command)
{
    command
        .add_option_function<std::string>(
            "--events", connect, "HOST:PORT of a server, as \"listen\" is one, for performance events")
        ->check(CLI::Validator(checkServer, ""));
}

void flushEvents()
{
    if (areEventsSent)
        std::this_thread::sleep_for(flushTime);
}

} // namespace mrvcharacter
