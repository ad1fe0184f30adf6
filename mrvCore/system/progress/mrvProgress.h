// mrvCore/system/progress/mrvProgress.h
// Progress of a long operation, with weighted parts.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/events/mrvEventSource.h"
#include "mrvCore/system/genericPatterns/mrvSmartPointer.h"
#include "mrvCore/system/progress/mrvProgressEvent.h"
#include "mrvCore/system/time/mrvTimer.h"

#include <utility>

namespace mrv {

class IProgressListener;

/// Counts the steps of a process, and the share that its children have done.
///
/// Listeners hear of start, advance, messages and outcome; an advance is told only when the whole percentage
/// rises above that of the last event. A child tells its parent of its own start, messages and outcome as
/// messages, so that listeners of the root hear of all.
/// Ownership: a parent shares its children; a child only points back. No process may be its own ancestor.
/// Threads: one at a time for the whole tree.
class MRV_CORE_API Progress : public EventSource<IProgressListener, ProgressEvent>, public ReferenceCounter
{
public:
    using SP = SmartPointer<Progress>;

    /// Idle, with nothing to do.
    explicit Progress(const char* processName);
    ~Progress() override;

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Back to idle: leaves its parent, which goes on counting its weight, and lets go of its children. Name
    /// and listeners stay.
    void reset();

    const MrvString& getProcessName() const { return _processName; }
    void setProcessName(const char* processName) { _processName = processName; }

    /// Adds a part that counts as `weight` steps.
    void addChild(SP child, unsigned int weight);

    /// Own steps, without the children's. The setters send nothing: the next step does.
    unsigned int getOwnTodo() const { return _ownTodo; }
    void setOwnTodo(unsigned int ownTodo) { _ownTodo = ownTodo; }
    unsigned int getOwnDone() const { return _ownDone; }
    void setOwnDone(unsigned int ownDone) { _ownDone = ownDone; }

    /// Own steps forwards and back, never below 0. Steps beyond what there was to do raise that.
    Progress& operator+=(int steps);
    Progress& operator-=(int steps);
    Progress& operator++() { return *this += 1; }
    Progress& operator--() { return *this -= 1; }
    void operator++(int) { *this += 1; }
    void operator--(int) { *this -= 1; }

    /// Own and children's steps. What is done is counted only while the process runs.
    unsigned int getTodo() const { return _ownTodo + _childrenTodo; }
    unsigned int getDone() const { return _done; }

    /// From 0 to 1; 0 where there is nothing to do.
    float getProgress() const;
    /// The same in whole percent, rounded up.
    unsigned int getProgressPercentage() const;

    /// Starts, and first the parent if that is not running. A finished process starts again at no own step.
    void start();
    /// Ends well: first the children that run, then all own steps are done.
    void success();
    /// Ends badly: first the children that run. The reason goes to their and to the own listeners alone.
    void failure(const char* reason);
    /// Tells the listeners, and those of each ancestor with the names on the way. Also while nothing runs;
    /// a finished process counts as running again afterwards.
    void message(const char* text);

    /// Whether the last event was a start, an advance or a message.
    bool isRunning() const;
    /// In seconds since the start; goes on behind the end of the process.
    Time getElapsedRunningTime() const { return _timer.getTime(); }
    /// Valid as long as the process, and overwritten by each event.
    const ProgressEvent& getLastEvent() const { return _lastEvent; }

private:
    using Child = std::pair<unsigned int, SP>; ///< weight and child; null once the child has left

    void updateDone();
    void notifyProgressChange();
    void sendEvent(ProgressEvent::Type::Value type, const MrvString& message);
    template <class Operation>
    void forEachRunningChild(Operation operation);

    Progress* _parent; ///< null for a root
    Array<Child> _children;
    MrvString _processName;
    unsigned int _ownDone;
    unsigned int _ownTodo;
    unsigned int _childrenTodo; ///< sum of the children's weights
    mutable Timer _timer;
    unsigned int _done;
    ProgressEvent _lastEvent; ///< of type NONE while idle
};

} // namespace mrv
