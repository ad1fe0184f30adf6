// mrvCore/system/progress/mrvProgress.cpp
// Progress of a long operation, with weighted parts.
#include "mrvCore/system/progress/mrvProgress.h"

#include "mrvCore/system/progress/mrvIProgressListener.h"

#include <algorithm>

namespace mrv {

Progress::Progress(const char* processName)
    : EventSource<IProgressListener, ProgressEvent>(&IProgressListener::onProgressEvent)
    , _parent(nullptr)
    , _processName(processName)
    , _ownDone(0)
    , _ownTodo(0)
    , _childrenTodo(0)
    , _timer(1)
    , _done(0)
    , _lastEvent(*this, ProgressEvent::Type::NONE, MrvString())
{}

Progress::~Progress()
{
    reset();
}

void Progress::reset()
{
    for (const Child& child : _children)
        if (child.second)
            child.second->_parent = nullptr;

    SP self; // the parent may be the last owner; then this ends with the operation
    if (_parent != nullptr)
    {
        const auto slot = std::find_if(_parent->_children.begin(), _parent->_children.end(),
                                       [this](const Child& child) { return child.second.getImpl() == this; });
        // The slot and its weight stay: what the parent has to do does not change.
        self = slot->second;
        slot->second = SP();
        _parent = nullptr;
    }
    _children.set_capacity(0);
    _done = _ownDone = _ownTodo = _childrenTodo = 0;
    _timer = Timer(1);
    _lastEvent = ProgressEvent(*this, ProgressEvent::Type::NONE, MrvString());
}

void Progress::addChild(SP child, unsigned int weight)
{
    _children.push_back(Child(weight, child));
    if (child)
        child->_parent = this;
    _childrenTodo += weight;
}

Progress& Progress::operator+=(int steps)
{
    const unsigned int done = _ownDone + static_cast<unsigned int>(steps);
    const bool isBelowZero = static_cast<int>(done) < 0;
    _ownDone = isBelowZero ? 0 : done;
    _ownTodo = std::max(_ownTodo, _ownDone);
    updateDone();
    notifyProgressChange();
    return *this;
}

Progress& Progress::operator-=(int steps)
{
    return *this += static_cast<int>(0u - static_cast<unsigned int>(steps));
}

float Progress::getProgress() const
{
    return internal::getProgressShare(getDone(), getTodo());
}

unsigned int Progress::getProgressPercentage() const
{
    return internal::roundUp(getProgress() * 100);
}

void Progress::start()
{
    if (_parent != nullptr)
    {
        if (!_parent->isRunning())
            _parent->start();
        _parent->message(_processName.c_str());
    }
    sendEvent(ProgressEvent::Type::START, MrvString()); // with the timer's reading of the run before
    _timer.start();
    _ownDone = 0;
    notifyProgressChange();
}

void Progress::success()
{
    forEachRunningChild([](Progress& child) { child.success(); });
    if (_parent != nullptr)
        _parent->message((_processName + " succeeded").c_str());
    _ownDone = _ownTodo;
    notifyProgressChange();
    sendEvent(ProgressEvent::Type::SUCCES, MrvString());
}

void Progress::failure(const char* reason)
{
    forEachRunningChild([reason](Progress& child) { child.failure(reason); });
    if (_parent != nullptr)
        _parent->message((_processName + " failed").c_str());
    sendEvent(ProgressEvent::Type::FAILURE, reason);
}

void Progress::message(const char* text)
{
    if (_parent != nullptr)
        _parent->message((_processName + " : " + text).c_str());
    sendEvent(ProgressEvent::Type::MESSAGE, text);
}

bool Progress::isRunning() const
{
    return _lastEvent._type >= ProgressEvent::Type::START && _lastEvent._type <= ProgressEvent::Type::MESSAGE;
}

void Progress::updateDone()
{
    if (!isRunning())
        return;
    _done = _ownDone;
    for (const Child& child : _children)
        if (child.second) // rounded up, so that a child that has just begun counts as one step
            _done += internal::roundUp(static_cast<float>(child.first) * child.second->getProgress());
}

void Progress::notifyProgressChange()
{
    updateDone();
    if (getProgressPercentage() <= _lastEvent.getProgressPercentage())
        return;
    if (_parent != nullptr)
        _parent->notifyProgressChange();
    sendEvent(ProgressEvent::Type::PROGRESS, MrvString());
}

void Progress::sendEvent(ProgressEvent::Type::Value type, const MrvString& message)
{
    _lastEvent = ProgressEvent(*this, type, message);
    publishEvent(_lastEvent);
}

template <class Operation>
void Progress::forEachRunningChild(Operation operation)
{
    for (size_t i = 0; i < _children.size(); ++i) // listeners may add children
    {
        const SP child = _children[i].second; // and may let go of this one
        if (child && child->isRunning())
            operation(*child);
    }
}

} // namespace mrv
