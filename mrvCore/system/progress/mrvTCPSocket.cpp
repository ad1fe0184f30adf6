// mrvCore/system/progress/mrvTCPSocket.cpp
// The client side of one TCP connection over IPv4.
#include "mrvCore/system/progress/mrvTCPSocket.h"

#include "mrvCore/system/log/mrvLogMacros.h"

#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace mrv {

namespace {

constexpr int noTimeLimit = -1;
constexpr int sendTimeLimit = 2000; // milliseconds; meanwhile events pile up

/// False when the time is over or the wait was interrupted. True says no more than that trying makes sense.
bool waitUntilWritable(int socket, int interruption, int milliseconds)
{
    pollfd waited[] = { { socket, POLLOUT, 0 }, { interruption, POLLIN, 0 } };
    int ready;
    do
        ready = poll(waited, 2, milliseconds);
    while (ready == -1 && errno == EINTR);
    return ready > 0 && waited[1].revents == 0;
}

bool connectSocket(int socket, const sockaddr_in& server, int interruption)
{
    if (connect(socket, reinterpret_cast<const sockaddr*>(&server), sizeof(server)) == 0)
        return true;
    int error = 0;
    socklen_t size = sizeof(error);
    return errno == EINPROGRESS && waitUntilWritable(socket, interruption, noTimeLimit) &&
           getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

} // namespace

int openTCPSocket(const char* address, unsigned short port, int interruption)
{
    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor <= 0) // 0 means not connected, also where the system gives that number away
    {
        MRV_LOG(SDK, LOG_DEBUG, "Socket creation error");
        if (descriptor == 0)
            closeTCPSocket(descriptor);
        return 0;
    }
    sockaddr_in server = {};
    server.sin_family = AF_INET;
    server.sin_port = htons(port);
    server.sin_addr.s_addr = inet_addr(address);
    if (!connectSocket(descriptor, server, interruption))
    {
        MRV_LOG(SDK, LOG_DEBUG,
                "No performance profiler server listening on " << address << " port " << port);
        closeTCPSocket(descriptor);
        return 0;
    }
    MRV_LOG(SDK, LOG_INFO, "Connected on performance profiler server " << address << " port " << port);
    return descriptor;
}

void closeTCPSocket(int socket)
{
    close(socket);
}

ssize_t sendTCPMessage(int socket, const char* text, int interruption)
{
    const size_t size = std::strlen(text);
    size_t sent = 0;
    while (sent < size)
    {
        const ssize_t result = send(socket, text + sent, size - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (result >= 0)
            sent += static_cast<size_t>(result);
        else if (errno == EAGAIN || errno == EWOULDBLOCK)
        {
            if (!waitUntilWritable(socket, interruption, sendTimeLimit))
                return -1; // half an object may be out: nothing can follow it
        }
        else if (errno != EINTR)
            return -1;
    }
    return static_cast<ssize_t>(size);
}

} // namespace mrv
