// mrvCore/system/progress/mrvScopedPerfAnalysis.cpp
// Marks the start and the end of a scope in the performance event stream.
#include "mrvCore/system/progress/mrvScopedPerfAnalysis.h"

#include "mrvCore/system/progress/mrvPerfAnalysisManager.h"

namespace mrv {

ScopedPerfAnalysis::ScopedPerfAnalysis(const char* name, Time timeID, uint32_t integerID)
    : _name(name)
    , _timeID(timeID)
    , _integerID(integerID)
    , _state(0)
{
    start();
}

ScopedPerfAnalysis::~ScopedPerfAnalysis()
{
    if (_state == 1)
        end();
}

void ScopedPerfAnalysis::start()
{
    createAndAddPerfEvent();
    _state = 1;
}

void ScopedPerfAnalysis::end()
{
    createAndAddPerfEvent();
    _state = 2;
}

void ScopedPerfAnalysis::createAndAddPerfEvent() const
{
    if (PerfAnalysisManager* const manager = getPerfAnalysisManagerSingleton())
        manager->addEvent(PerfAnalysisManager::Event(PerfAnalysisManager::EventType::PERF, _name, _timeID,
                                                     _integerID, 0, PerfAnalysisManager::EventUnit::END,
                                                     _state));
}

} // namespace mrv
