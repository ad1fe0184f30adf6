// mrvCore/system/progress/mrvScopedPerfAnalysis.h
// Marks the start and the end of a scope in the performance event stream.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/time/mrvTime.h"

#include <cstdint>

namespace mrv {

/// Sends an event with flag 0 when it is made and one with flag 1 at its end. Does nothing while the library
/// is stopped. One thread at a time.
class MRV_CORE_API ScopedPerfAnalysis
{
public:
    /// `timeID` and `integerID` are the caller's, for the server to tell scopes apart.
    ScopedPerfAnalysis(const char* name, Time timeID, uint32_t integerID);
    /// Calls end() unless that was done.
    ~ScopedPerfAnalysis();

    ScopedPerfAnalysis(const ScopedPerfAnalysis&) = delete;
    ScopedPerfAnalysis& operator=(const ScopedPerfAnalysis&) = delete;

    /// @{
    /// Each sends an event, whose flag is 0 before the first start() and 1 behind it. The constructor starts.
    void start();
    void end();
    /// @}

private:
    void createAndAddPerfEvent() const;

    MrvString _name;
    Time _timeID;
    uint32_t _integerID;
    short _state; ///< 0 new, 1 started, 2 ended; the flag of the event that leads on from it
};

} // namespace mrv
