// mrvCore/animation/mrvEffectorMirrorSource.h
// Which effectors of the mirror limb the effectors of a limb correspond to.
#pragma once

#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <cstddef>

namespace mrv {

/// One entry per effector of a limb: the position of its twin among the effectors of the mirror limb.
class MRV_CORE_API EffectorMirrorSourceV0
{
public:
    MRV_PERSISTENT_CLASS(EffectorMirrorSourceV0)

    /// The attribute declaration, under the name that it has in this class alone.
    static void addRTTIAttributes();

    /// Makes room for `count` sources, all -1; those before are dropped.
    void allocateSources(size_t count) { _effectorMirrorSourcesIdx.assign(count, -1); }
    size_t getSourcesCount() const { return _effectorMirrorSourcesIdx.size(); }
    /// -1 for no twin and beyond the last source.
    int getSourceIdx(size_t index) const
    {
        return index < getSourcesCount() ? _effectorMirrorSourcesIdx[index] : -1;
    }
    /// Does nothing beyond the last source.
    void setSourceIdx(size_t index, int source)
    {
        if (index < getSourcesCount())
            _effectorMirrorSourcesIdx[index] = source;
    }

    PODArray<int> _effectorMirrorSourcesIdx;
};

} // namespace mrv
