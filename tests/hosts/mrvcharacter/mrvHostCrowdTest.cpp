// tests/hosts/mrvcharacter/mrvHostCrowdTest.cpp
// The choice of assets for a crowd, and the events that runs send to each other.
#include "tests/hosts/mrvcharacter/mrvHostProgram.h"

#include <algorithm>
#include <chrono>
#include <sstream>
#include <thread>

#include <netinet/in.h>
#include <sys/socket.h>

namespace mrv {

namespace {

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(Host, chooseGivesTheSameSharesForEverySeed)
{
    const auto chooseWith = [](const char* seed, const char* count = "900") {
        return runWell({ "choose", samples + "courier.mvc", "--count", count, "--seed", seed });
    };
    const HostRun first = chooseWith("1"), again = chooseWith("1"), other = chooseWith("2");
    EXPECT_EQ(first.out, again.out);
    EXPECT_NE(first.out, other.out);
    EXPECT_EQ(first.err, other.err); // the counts follow from the weights alone
    EXPECT_EQ(splitLines(first.out).size() - 1, 3 * 900u);
}

/// Waits for the server that is about to listen.
int connectTo(const std::string& port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(std::stoi(port)));
    for (int i = 0; i < 500; ++i)
    {
        const int connection = socket(AF_INET, SOCK_STREAM, 0);
        if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0)
            return connection;
        close(connection);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return -1;
}

/// Runs the event server while `send` has its port, and gives what it printed.
template <class Send>
HostRun listenWhile(Send send)
{
    // A port that was free just now.
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    EXPECT_EQ(bind(probe, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size), 0);
    close(probe);

    HostRun run;
    const std::string port = std::to_string(ntohs(address.sin_port));
    std::thread server([&] { run = runHost({ "listen", "--once", "--port", port }); });
    const int connection = connectTo(port);
    EXPECT_GE(connection, 0);
    send(connection, port); // the server ends with the connection
    close(connection);
    server.join();
    EXPECT_EQ(run.exitCode, 0);
    return run;
}

TEST(Host, listenPrintsWhatAnotherRunSends)
{
    const HostRun run = listenWhile([](int, const std::string& port) {
        runWell({ "info", "--events", "127.0.0.1:" + port, samples + "hound.mvc", samples + "courier.mvc" });
    });
    for (const char* span : { "\thound\n", "\tcourier\n", "\tloadCharacters\n" })
        EXPECT_NE(run.out.find(span), std::string::npos) << run.out;
}

std::string makeEvent(const std::string& name, const char* date, const char* rest)
{
    return "{\"type\":0,\"threadID\":7,\"date\":" + std::string(date) + ",\"name\":\"" + name +
           "\",\"timeID\":1.5e+06,\"integerID\":3," + rest + "}";
}

const char* const begin = "\"value\":0,\"unit\":8,\"flag\":0";
const char* const end = "\"value\":0,\"unit\":8,\"flag\":1";

void sendAll(int connection, const std::string& text, size_t pieceSize)
{
    for (size_t sent = 0; sent < text.size(); sent += pieceSize)
    {
        const size_t count = std::min(pieceSize, text.size() - sent);
        EXPECT_EQ(send(connection, text.data() + sent, count, MSG_NOSIGNAL), ssize_t(count));
    }
}

TEST(Host, listenPassesOverWhatIsNoEvent)
{
    const std::string stream =
        "{ }}x{ }" + makeEvent("a\"}{", "1000000", begin) + "{\"type\":0,\"flag\":0}{ }" +
        makeEvent("b\n", "5", "\"value\":-2.5,\"unit\":4,\"flag\":-1") + makeEvent("a\"}{", "3500000", end) +
        makeEvent("never begun", "9", end) + std::string(200000, '{') +
        makeEvent("c", "5", "\"value\":3,\"unit\":7,\"flag\":0") + "{\"type\":";
    const HostRun run =
        listenWhile([&](int connection, const std::string&) { sendAll(connection, stream, 7); });
    EXPECT_EQ(run.out, "counter         -2.5 B\tb?\n"
                       "span           2.500 ms\ta\"}{\n"
                       "counter            3 \tc\n");
}

TEST(Host, listenKeepsSendersApartAndWaitsForNone)
{
    const HostRun run = listenWhile([](int connection, const std::string& port) {
        sendAll(connection, makeEvent("slow", "1000000", begin), 64);
        const int stalled = connectTo(port);
        sendAll(stalled, makeEvent("stalled", "0", begin) + "{\"type\":0,\"thr", 64);
        const int other = connectTo(port);
        // The same thread id as the others have: spans belong to their connection.
        sendAll(other, makeEvent("quick", "0", begin) + makeEvent("quick", "500000", end), 64);
        close(other);
        sendAll(connection, makeEvent("slow", "3000000", end), 64);
        close(stalled);
    });
    std::vector<std::string> lines = splitLines(run.out);
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, (std::vector<std::string>{ "span           0.500 ms\tquick",
                                                "span           2.000 ms\tslow" }));
}

} // namespace

} // namespace mrv
