// mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h
// A part of a body in version 0, as files hold it.
#pragma once

#include "mrvCore/animation/mrvRollAttributes.h"
#include "mrvCore/animation/mrvSkeletonPartTypes.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class HierarchicalBoneV0;

/// Bones are borrowed from the skeleton; null is no bone. Pairs are by chain, auxiliary and extension.
class MRV_CORE_API GenericSpecificConverterBoneV0
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterBoneV0)

    // Through these files reach the members below. "Nomal" is part of the names.

    const HierarchicalBoneV0* getFirstBoneOfChain(unsigned int chain) const
    {
        return _firstBoneOfChain[chain];
    }
    void setFirstBoneOfChain(unsigned int chain, const HierarchicalBoneV0* bone)
    {
        _firstBoneOfChain[chain] = bone;
    }
    const HierarchicalBoneV0* getLastBoneOfChain(unsigned int chain) const { return _lastBoneOfChain[chain]; }
    void setLastBoneOfChain(unsigned int chain, const HierarchicalBoneV0* bone)
    {
        _lastBoneOfChain[chain] = bone;
    }
    Vector3 getIkNomalPlane(unsigned int chain) const { return _relativeIkNormalPlane[chain]; }
    void setIkNomalPlane(unsigned int chain, Vector3 normal) { _relativeIkNormalPlane[chain] = normal; }
    bool getComputeFullExtentLength(unsigned int chain) const { return _computeFullExtentLength[chain]; }
    void setComputeFullExtentLength(unsigned int chain, bool full) { _computeFullExtentLength[chain] = full; }
    const Array<RollAttributesV0>& getRollAttributes(unsigned int chain) const
    {
        return _rollAttributes[chain];
    }
    void setRollAttributes(unsigned int chain, const Array<RollAttributesV0>& rolls)
    {
        _rollAttributes[chain] = rolls;
    }

    int _type = SkeletonPartType::GENERIC;
    int _coronalLocation = CoronalPlaneLocation::END;
    int _transverseLocation = TransversePlaneLocation::END;
    int _sagittalLocation = SagittalPlaneLocation::END;
    const HierarchicalBoneV0* _firstBoneOfChain[2] = { nullptr, nullptr };
    const HierarchicalBoneV0* _lastBoneOfChain[2] = { nullptr, nullptr };
    Vector3 _relativeIkNormalPlane[2];
    bool _computeFullExtentLength[2] = { false, false };
    Array<RollAttributesV0> _rollAttributes[2];
};

} // namespace mrv
