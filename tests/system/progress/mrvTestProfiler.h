// tests/system/progress/mrvTestProfiler.h
// A server of performance events in this process, which a test leads step by step.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace mrv {

/// A port of the loopback address, chosen by the system. It refuses connections until listen(). All waits end
/// after ten seconds, as failures.
class TestProfiler
{
public:
    TestProfiler() : _listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const int few = 4096; // little of what is sent fits in before it is read
        setsockopt(_listener, SOL_SOCKET, SO_RCVBUF, &few, sizeof(few));
        sockaddr_in address = makeAddress(0);
        socklen_t size = sizeof(address);
        EXPECT_EQ(bind(_listener, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(getsockname(_listener, reinterpret_cast<sockaddr*>(&address), &size), 0);
        _port = ntohs(address.sin_port);
    }
    ~TestProfiler()
    {
        close();
        ::close(_listener);
    }
    TestProfiler(const TestProfiler&) = delete;
    TestProfiler& operator=(const TestProfiler&) = delete;

    unsigned short getPort() const { return _port; }

    void listen(int backlog = 5) { EXPECT_EQ(::listen(_listener, backlog), 0); }

    /// Takes the next connection; what came before is forgotten.
    bool accept()
    {
        close();
        _text.clear();
        if (!isReady(_listener))
            return false;
        _connection = ::accept(_listener, nullptr, nullptr);
        return true;
    }

    /// Everything that came over this connection, as soon as it contains `text`.
    std::string receive(const std::string& text)
    {
        for (size_t from = 0; _text.find(text, from) == std::string::npos;)
        {
            from = _text.size() < text.size() ? 0 : _text.size() - text.size();
            if (!receiveMore())
            {
                ADD_FAILURE() << "the text did not come: " << text;
                break;
            }
        }
        return _text;
    }

    /// Whether the client closes the connection.
    bool isLeft()
    {
        while (receiveMore())
        {}
        return _isAtEnd;
    }

    void close()
    {
        if (_connection != -1)
            ::close(_connection);
        _connection = -1;
    }

    /// Breaks the connection off: the client gets an error instead of an end.
    void reset()
    {
        const linger none = { 1, 0 };
        setsockopt(_connection, SOL_SOCKET, SO_LINGER, &none, sizeof(none));
        close();
    }

    static sockaddr_in makeAddress(unsigned short port)
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return address;
    }

private:
    static bool isReady(int descriptor)
    {
        pollfd waited = { descriptor, POLLIN, 0 };
        return poll(&waited, 1, 10000) == 1;
    }

    bool receiveMore()
    {
        char bytes[65536];
        const ssize_t count = isReady(_connection) ? recv(_connection, bytes, sizeof(bytes), 0) : -1;
        _isAtEnd = count == 0;
        if (count > 0)
            _text.append(bytes, static_cast<size_t>(count));
        return count > 0;
    }

    int _listener;
    int _connection = -1;
    unsigned short _port = 0;
    std::string _text;
    bool _isAtEnd = false;
};

} // namespace mrv
