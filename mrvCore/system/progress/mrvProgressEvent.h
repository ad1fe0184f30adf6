// mrvCore/system/progress/mrvProgressEvent.h
// What listeners are told of a process.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/events/mrvEvent.h"
#include "mrvCore/system/time/mrvTime.h"

namespace mrv {

class Progress;

/// State of a process when something happened to it.
class MRV_CORE_API ProgressEvent : public Event<Progress>
{
public:
    /// What happened.
    struct Type
    {
        enum Value { NONE, START, PROGRESS, MESSAGE, SUCCES, FAILURE, END };
    };

    ProgressEvent(const Progress& process, Type::Value type, const MrvString& message);

    /// From 0 to 1; 0 where there was nothing to do.
    float getProgress() const;
    /// The same in whole percent, rounded up.
    unsigned int getProgressPercentage() const;

    int _type; ///< a Type::Value
    MrvString _processName;
    Time _elapsedTime; ///< since the process started; at START that of the run before
    unsigned int _done;
    unsigned int _todo;
    MrvString _message; ///< empty unless the type is MESSAGE or FAILURE
};

namespace internal {

/// done / todo in float; 0 when there is nothing to do.
MRV_CORE_API float getProgressShare(unsigned int done, unsigned int todo);

/// The next whole number, as far as the type reaches. Not for negative values.
MRV_CORE_API unsigned int roundUp(float value);

} // namespace internal

} // namespace mrv
