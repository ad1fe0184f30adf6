// hosts/mrvcharacter/mrvListenCommand.cpp
#include "hosts/mrvcharacter/mrvListenCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvEventReader.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace mrvcharacter {

namespace {

constexpr size_t maximumConnections = 64;

volatile std::sig_atomic_t isStopped = 0;

void stop(int)
{
    isStopped = 1;
}

/// Ends a wait, so that the command is left in order.
void handleSignals()
{
    struct sigaction action = {};
    action.sa_handler = stop;
    for (const int signal : { SIGINT, SIGTERM })
        sigaction(signal, &action, nullptr);
}

/// A socket of this machine alone, 0 as the port for one that is free. Returns the descriptor, -1 with the
/// reason in errno; `port` becomes the one that it has.
int openListener(unsigned short& port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    socklen_t size = sizeof(address);
    const auto anyAddress = reinterpret_cast<sockaddr*>(&address);
    if (listener >= 0 && setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes)) == 0 &&
        bind(listener, anyAddress, size) == 0 && listen(listener, 8) == 0 &&
        getsockname(listener, anyAddress, &size) == 0)
    {
        port = ntohs(address.sin_port);
        return listener;
    }
    if (listener >= 0)
        close(listener);
    return -1;
}

class EventServer
{
public:
    explicit EventServer(int listener) { _sockets.push_back({ listener, POLLIN, 0 }); }
    ~EventServer()
    {
        for (const pollfd& entry : _sockets)
            close(entry.fd);
    }
    EventServer(const EventServer&) = delete;
    EventServer& operator=(const EventServer&) = delete;

    /// Prints until a signal comes, or, with `once`, until nobody is connected any more.
    void run(bool once)
    {
        while (isStopped == 0)
        {
            if (poll(_sockets.data(), _sockets.size(), -1) < 0)
                continue;
            for (size_t i = _sockets.size(); i-- > 1;)
                if (_sockets[i].revents != 0)
                    readFrom(i);
            if (_sockets[0].revents != 0)
                acceptOne();
            if (once && _hasServed && _sockets.size() == 1)
                return;
        }
    }

private:
    void acceptOne()
    {
        const int connection = accept4(_sockets[0].fd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0)
            return;
        if (_sockets.size() > maximumConnections)
        {
            close(connection);
            return;
        }
        std::cerr << "connected\n";
        _sockets.push_back({ connection, POLLIN, 0 });
        _readers.emplace_back();
        _hasServed = true;
    }

    void readFrom(size_t index)
    {
        char bytes[65536];
        const ssize_t count = recv(_sockets[index].fd, bytes, sizeof(bytes), 0);
        if (count > 0)
        {
            std::cout << _readers[index - 1].read(bytes, static_cast<size_t>(count)) << std::flush;
            return;
        }
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        std::cerr << "disconnected\n";
        close(_sockets[index].fd);
        _sockets.erase(_sockets.begin() + static_cast<std::ptrdiff_t>(index));
        _readers.erase(_readers.begin() + static_cast<std::ptrdiff_t>(index) - 1);
    }

    std::vector<pollfd> _sockets;      ///< the listener first
    std::vector<EventReader> _readers; ///< of the others
    bool _hasServed = false;
};

bool listenForEvents(unsigned short port, bool once)
{
    const int listener = openListener(port);
    if (listener < 0)
    {
        reportError("port " + std::to_string(port), std::strerror(errno));
        return false;
    }
    handleSignals();
    EventServer server(listener);
    std::cerr << "listening on 127.0.0.1:" << port << std::endl;
    server.run(once);
    return true;
}

} // namespace

void addListenCommand(CLI::App& app, int& exitCode)
{
    struct Options
    {
        unsigned short port = 9999;
        bool once = false;
    };
    CLI::App* command = app.add_subcommand("listen", "Prints the performance events that programs send");
    command->footer(
        "A line for each scope when it ends, with its duration, and for each measurement. Listens\n"
        "on this machine alone, until it is interrupted.");
    const auto options = std::make_shared<Options>();
    command->add_option("--port", options->port, "TCP port, 9999 by default; 0 for any that is free");
    command->add_flag("--once", options->once, "Ends when the last sender has left");
    command->callback(
        [options, &exitCode] { exitCode = listenForEvents(options->port, options->once) ? 0 : 1; });
}

} // namespace mrvcharacter
