// mrvCore/engine/simulationBatch/mrvProcessingBatch.h
// One unit of work of the pool: a function and the range of indices that it is to treat.
#pragma once

#include "mrvCore/system/time/mrvTime.h"

#include <cstdint>

namespace mrv {

struct ProcessingBatch;

/// Treats the indices of one batch, from `_firstIndex` to `_lastIndex` inclusive; it loops over them itself.
///
/// Runs on any worker or on the thread that asked, beside other batches of the same range. It must not let
/// an exception escape.
using ThreadUpdateMethod = void(ProcessingBatch& batch);

/// The indices are inclusive: `_lastIndex` is below `_firstIndex` for a batch without work.
struct ProcessingBatch
{
    ThreadUpdateMethod* _updateMethod = nullptr;
    void* _userData = nullptr; ///< the caller's, borrowed
    Time _dt = 0.0;            ///< time step, passed through
    union
    {
        int64_t _firstIndex = -1;
        int _updateOrder;    ///< another reading for callers that build their batches themselves
        int _setInitialized; ///< the same
    };
    int64_t _lastIndex = -1;
    int _typeIndex = -1; ///< a selector for callers that build their batches themselves
    bool _blocking = true;
};

} // namespace mrv
