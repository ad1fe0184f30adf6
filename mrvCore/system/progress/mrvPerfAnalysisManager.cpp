// mrvCore/system/progress/mrvPerfAnalysisManager.cpp
// Streams performance events to a profiler over TCP.
#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/progress/mrvPerfAnalysisSocketConnectionThread.h"
#include "mrvCore/system/progress/mrvTCPSocket.h"
#include "mrvCore/system/thread/mrvScopedLock.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <sstream>
#include <type_traits>
#include <utility>

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <time.h>
#include <unistd.h>

MRV_DEFINE_SINGLETON(mrv::PerfAnalysisManager)

namespace mrv {

namespace {

constexpr size_t threadStackSize = 0x100000;
constexpr const char* keepAliveText = "{ }";

unsigned long long getNanoseconds()
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<unsigned long long>(now.tv_sec) * 1000000000 +
           static_cast<unsigned long long>(now.tv_nsec);
}

/// A number as a fresh stream in the classic locale writes it, whatever the state of this one.
template <class T>
void putNumber(std::ostream& stream, const char* key, T value)
{
    char text[32];
    std::to_chars_result end;
    if constexpr (std::is_floating_point_v<T>)
        end = std::to_chars(text, text + sizeof(text), value, std::chars_format::general, 6);
    else
        end = std::to_chars(text, text + sizeof(text), value);
    stream << key;
    stream.write(text, end.ptr - text);
}

} // namespace

PerfAnalysisManager* getPerfAnalysisManagerSingleton()
{
    return Singleton<PerfAnalysisManager>::getInstance();
}

PerfAnalysisManager::Event::Event(EventType::Value type, MrvString name, Time timeID, uint32_t integerID,
                                  double value, EventUnit::Value unit, short flag)
    : _type(type)
    , _threadID(pthread_self())
    , _date(getNanoseconds())
    , _name(std::move(name))
    , _timeID(timeID)
    , _integerID(integerID)
    , _value(value)
    , _unit(unit)
    , _flag(flag)
{}

void PerfAnalysisManager::Event::toJsonString(std::stringstream& stream) const
{
    putNumber(stream, "{\"type\":", static_cast<int>(_type));
    putNumber(stream, ",\"threadID\":", _threadID);
    putNumber(stream, ",\"date\":", _date);
    stream << ",\"name\":\"" << _name << '"';
    putNumber(stream, ",\"timeID\":", _timeID);
    putNumber(stream, ",\"integerID\":", _integerID);
    putNumber(stream, ",\"value\":", _value);
    putNumber(stream, ",\"unit\":", static_cast<int>(_unit));
    putNumber(stream, ",\"flag\":", _flag);
    stream << '}';
}

PerfAnalysisManager::PerfAnalysisManager()
    : _serverIpAdress("127.0.0.1")
    , _serverPort(9999)
    , _eventsBufferWrite(&_eventsBufferA)
    , _eventsBufferRead(&_eventsBufferB)
    , _serverConnection(0)
    , _inited(false)
    , _leaveSignal(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) // without one, waits just last longer
{
    atomicStoreRelaxed(_wakeIntervals, 50);
    atomicStoreRelaxed(_loadingThreadActive, 0);
}

PerfAnalysisManager::~PerfAnalysisManager()
{
    finish();
    MRV_ASSERT(_inited == false);
    if (_leaveSignal != -1)
        close(_leaveSignal);
}

void PerfAnalysisManager::init()
{
    if (atomicLoadAcquireBool(_inited))
        return;
    const ScopedLock<SpinLock> lock(_initedLock);
    if (_inited)
        return;
    setLoadingThreadActive(true);
    if (!createThread(_loadingThread, PerfAnalysisSocketConnectionThread::startRoutine, this,
                      threadStackSize))
    {
        _loadingThread = threaddef_t();
        setLoadingThreadActive(false);
    }
    atomicStoreReleaseBool(_inited, true);
}

void PerfAnalysisManager::finish()
{
    if (!atomicLoadAcquireBool(_inited))
        return;
    setLoadingThreadActive(false);
    joinThread(_loadingThread); // also one that was told to leave before
    atomicStoreReleaseBool(_inited, false);
}

void PerfAnalysisManager::setServer(const char* ipAddress, unsigned short port)
{
    finish();
    _serverIpAdress = ipAddress;
    _serverPort = port;
    init();
}

void PerfAnalysisManager::addEvent(const Event& event)
{
    addEvent(Event(event));
}

void PerfAnalysisManager::addEvent(Event&& event)
{
    init();
    if (!isLoadingThreadActive()) // there is no thread to take it
        return;
    MrvString name; // changes its owner, so that nothing is allocated under the lock but a larger buffer
    name.swap(event._name);
    const ScopedLock<SpinLock> lock(_eventsBufferLock);
    _eventsBufferWrite->push_back(event);
    _eventsBufferWrite->back()._name.swap(name);
}

void PerfAnalysisManager::clearEvents()
{
    {
        const ScopedLock<SpinLock> lock(_eventsBufferLock);
        _eventsBufferRead->clear();
        std::swap(_eventsBufferWrite, _eventsBufferRead);
    }
    _eventsBufferRead->clear(); // outside of the lock: there may be many
}

void PerfAnalysisManager::setLoadingThreadActive(bool isActive)
{
    atomicStoreRelease(_loadingThreadActive, isActive ? 1 : 0);
    eventfd_t former;
    if (isActive)
        eventfd_read(_leaveSignal, &former);
    else
        eventfd_write(_leaveSignal, 1);
}

void PerfAnalysisManager::dispatchEvents()
{
    {
        const ScopedLock<SpinLock> lock(_eventsBufferLock);
        std::swap(_eventsBufferWrite, _eventsBufferRead);
    }
    if (_eventsBufferRead->empty())
    {
        send(keepAliveText); // a lost connection shows here too, without a message
        sleepWhileActive(uint64_t(atomicLoadRelaxed(_wakeIntervals)) * 10);
        return;
    }
    for (const Event& event : *_eventsBufferRead)
    {
        std::stringstream text;
        event.toJsonString(text);
        if (!send(text.str().c_str()))
        {
            MRV_LOG(SDK, LOG_WARNING, "Connection to performance profiler server lost");
            break; // the events behind are lost
        }
    }
    _eventsBufferRead->clear();
}

bool PerfAnalysisManager::send(const char* text)
{
    if (sendTCPMessage(_serverConnection, text, _leaveSignal) != -1)
        return true;
    closeTCPSocket(_serverConnection);
    _serverConnection = 0;
    return false;
}

void PerfAnalysisManager::socketCommunicationThreadMain()
{
    while (isLoadingThreadActive())
    {
        if (_serverConnection != 0)
        {
            dispatchEvents();
            sleepWhileActive(atomicLoadRelaxed(_wakeIntervals));
            continue;
        }
        _serverConnection = openTCPSocket(_serverIpAdress.c_str(), _serverPort, _leaveSignal);
        if (_serverConnection == 0)
        {
            clearEvents(); // nobody would ever take them
            sleepWhileActive(uint64_t(atomicLoadRelaxed(_wakeIntervals)) * 100);
        }
    }
    if (_serverConnection != 0)
        closeTCPSocket(_serverConnection);
    _serverConnection = 0;
}

void PerfAnalysisManager::sleepWhileActive(uint64_t milliseconds) const
{
    pollfd leave = { _leaveSignal, POLLIN, 0 };
    if (milliseconds != 0)
        poll(&leave, 1, static_cast<int>(std::min<uint64_t>(milliseconds, INT_MAX)));
}

} // namespace mrv
