// mrvCore/system/progress/mrvPerfAnalysisManager.h
// Streams performance events to a profiler over TCP.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/genericPatterns/mrvSingleton.h"
#include "mrvCore/system/thread/mrvSpinLock.h"
#include "mrvCore/system/thread/mrvThread.h"
#include "mrvCore/system/time/mrvTime.h"

#include <cstdint>
#include <iosfwd>

namespace mrv {

/// Gathers performance events from all threads and sends them from a thread of its own, which starts with
/// the first event. Without a server the events are thrown away at each attempt to connect.
///
/// Stream: each event is one JSON object, sent as it is, without separator or terminator; "{ }" is sent in
/// the absence of events, about every 550 milliseconds by default. Nothing is read back.
/// Threads: any thread adds events. finish() and setServer() must not run while others do.
class MRV_CORE_API PerfAnalysisManager
{
public:
    /// What an event is about.
    struct EventType
    {
        enum Value { PERF, MEMORY_USAGE, FRAMEDATA_HANDLING, END };
    };

    /// Unit of its value.
    struct EventUnit
    {
        enum Value {
            SECOND,
            MILLISECOND,
            MICROSECOND,
            NANOSECOND,
            BYTE,
            KILOBYTE,
            MEGABYTE,
            COUNTER,
            END ///< also for events that measure nothing
        };
    };

    /// One measurement.
    struct MRV_CORE_API Event
    {
        /// An event of the calling thread, now.
        Event(EventType::Value type, MrvString name, Time timeID, uint32_t integerID, double value,
              EventUnit::Value unit, short flag);

        /// Writes the object that goes over the wire. The name is not escaped: servers take it as it is.
        void toJsonString(std::stringstream& stream) const;

        EventType::Value _type;
        uint64_t _threadID;       ///< pthread_self of the maker
        unsigned long long _date; ///< nanoseconds of the system's clock
        MrvString _name;
        Time _timeID;        ///< the caller's simulation time or frame
        uint32_t _integerID; ///< the caller's
        double _value;
        EventUnit::Value _unit;
        short _flag; ///< the caller's
    };

    PerfAnalysisManager();
    virtual ~PerfAnalysisManager();

    PerfAnalysisManager(const PerfAnalysisManager&) = delete;
    PerfAnalysisManager& operator=(const PerfAnalysisManager&) = delete;

    /// Starts the sending thread, unless it is started. Any thread.
    void init();
    /// Stops the sending thread, whatever the server does; what was not sent yet waits for the next init().
    void finish();

    /// Goes over to another server, by default 127.0.0.1 and 9999; a dotted IPv4 address. Starts the thread.
    void setServer(const char* ipAddress, unsigned short port);

    /// Milliseconds between two looks at the buffer, by default 50; 0 to look without a pause. The pause
    /// between two attempts to connect is 100 times as long.
    void setWakeIntervals(uint32_t milliseconds) { atomicStoreRelaxed(_wakeIntervals, milliseconds); }

    /// Keeps a copy of the event for the sending thread, which is started if need be. Never waits for the
    /// network.
    void addEvent(const Event& event);
    void addEvent(Event&& event); ///< takes the name over

    /// Throws away what waits to be sent. On the sending thread, or while there is none.
    void clearEvents();

    bool isLoadingThreadActive() const { return atomicLoadAcquire(_loadingThreadActive) != 0; }
    /// False makes the sending thread leave, also from a wait.
    void setLoadingThreadActive(bool isActive);

    /// Sends what was added, or a sign of life. On the sending thread.
    void dispatchEvents();
    /// What the sending thread does until it is no longer active.
    void socketCommunicationThreadMain();

private:
    void sleepWhileActive(uint64_t milliseconds) const;
    bool send(const char* text);

    MrvString _serverIpAdress;
    unsigned short _serverPort;
    AtomicInteger<uint32_t> _wakeIntervals; ///< milliseconds
    threaddef_t _loadingThread;
    atomic32_t _loadingThreadActive;
    SpinLock _eventsBufferLock; ///< guards the two pointers and the buffer that is written
    Array<Event> _eventsBufferA;
    Array<Event> _eventsBufferB;
    Array<Event>* _eventsBufferWrite;
    Array<Event>* _eventsBufferRead; ///< the sending thread's
    int _serverConnection;           ///< the sending thread's; 0 means not connected
    bool _inited;                    ///< read without the lock: by atomic operations only
    SpinLock _initedLock;
    int _leaveSignal; ///< descriptor that is readable while the sending thread is to leave
};

/// The manager between start and stop of the library, else null.
MRV_CORE_API PerfAnalysisManager* getPerfAnalysisManagerSingleton();

} // namespace mrv

MRV_DECLARE_SINGLETON(mrv::PerfAnalysisManager)
