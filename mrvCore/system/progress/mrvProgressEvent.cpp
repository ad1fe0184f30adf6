// mrvCore/system/progress/mrvProgressEvent.cpp
// What listeners are told of a process.
#include "mrvCore/system/progress/mrvProgressEvent.h"

#include "mrvCore/system/progress/mrvProgress.h"

#include <climits>
#include <cmath>

namespace mrv {

ProgressEvent::ProgressEvent(const Progress& process, Type::Value type, const MrvString& message)
    : Event<Progress>(process)
    , _type(type)
    , _processName(process.getProcessName())
    , _elapsedTime(process.getElapsedRunningTime())
    , _done(process.getDone())
    , _todo(process.getTodo())
    , _message(message)
{}

float ProgressEvent::getProgress() const
{
    return internal::getProgressShare(_done, _todo);
}

unsigned int ProgressEvent::getProgressPercentage() const
{
    return internal::roundUp(getProgress() * 100);
}

float internal::getProgressShare(unsigned int done, unsigned int todo)
{
    return todo == 0 ? 0 : static_cast<float>(done) / static_cast<float>(todo);
}

unsigned int internal::roundUp(float value)
{
    // The conversion of a value beyond the type is undefined.
    return value < 4294967296.0f ? static_cast<unsigned int>(std::ceil(value)) : UINT_MAX;
}

} // namespace mrv
