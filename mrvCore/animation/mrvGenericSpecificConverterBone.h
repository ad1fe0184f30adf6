// mrvCore/animation/mrvGenericSpecificConverterBone.h
// One part of a character's body: a spine, a limb or an effector.
#pragma once

#include "mrvCore/animation/mrvRollAttributes.h"
#include "mrvCore/animation/mrvSkeletonPartTypes.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class GenericSpecificConverterBoneV0;
class HierarchicalBoneV1;

/// The bones of a character that stand for one part of the generic body.
///
/// A part has two chains, and every pair below is indexed by the chain: 0 is the auxiliary chain that leads
/// to the part, like a shoulder, and 1 the extension chain, the part itself. A chain is named by its first
/// bone, the one nearest to the root, and its last, as specific bone indices; -1 is no bone.
/// Units: lengths in those of the skeleton. Threads: a plain value.
class MRV_CORE_API GenericSpecificConverterBoneV1
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterBoneV1)

    /// A generic part without chains, at an unknown place.
    GenericSpecificConverterBoneV1() = default;
    /// A limb. A null bone is no bone; bones are only asked for their indices.
    GenericSpecificConverterBoneV1(SkeletonPartType::Value type, const HierarchicalBoneV1* firstAux,
                                   const HierarchicalBoneV1* lastAux, const HierarchicalBoneV1* firstExt,
                                   const HierarchicalBoneV1* lastExt,
                                   CoronalPlaneLocation::Value coronalLocation,
                                   TransversePlaneLocation::Value transverseLocation,
                                   SagittalPlaneLocation::Value sagittalLocation, const Vector3& planeAux,
                                   const Vector3& planeExt, bool fullAux, bool fullExt);
    /// A spine or an effector: a part at an unknown place.
    GenericSpecificConverterBoneV1(SkeletonPartType::Value type, const HierarchicalBoneV1* firstAux,
                                   const HierarchicalBoneV1* lastAux, const HierarchicalBoneV1* firstExt,
                                   const HierarchicalBoneV1* lastExt, const Vector3& planeAux,
                                   const Vector3& planeExt, bool fullAux, bool fullExt);
    /// The step from the version before, with the indices that the bones tell.
    explicit GenericSpecificConverterBoneV1(const GenericSpecificConverterBoneV0& old);

    // Through these files reach the members below. The chain is 0 or 1. "Nomal" is part of the names.

    int getFirstBoneOfChain(unsigned int chain) const { return _firstBoneOfChain[chain]; }
    void setFirstBoneOfChain(unsigned int chain, int bone) { _firstBoneOfChain[chain] = bone; }
    int getLastBoneOfChain(unsigned int chain) const { return _lastBoneOfChain[chain]; }
    void setLastBoneOfChain(unsigned int chain, int bone) { _lastBoneOfChain[chain] = bone; }
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

    /// The first bone of the whole part: that of the auxiliary chain, or else of the extension; -1 for none.
    int getTopBone() const { return _firstBoneOfChain[0] >= 0 ? _firstBoneOfChain[0] : _firstBoneOfChain[1]; }

    int _type = SkeletonPartType::GENERIC;                  ///< a SkeletonPartType
    int _coronalLocation = CoronalPlaneLocation::END;       ///< a CoronalPlaneLocation
    int _transverseLocation = TransversePlaneLocation::END; ///< a TransversePlaneLocation
    int _sagittalLocation = SagittalPlaneLocation::END;     ///< a SagittalPlaneLocation
    int _firstBoneOfChain[2] = { -1, -1 };
    int _lastBoneOfChain[2] = { -1, -1 };
    Vector3 _relativeIkNormalPlane[2]; ///< normal of the bending plane, in the frame of the first bone
    bool _computeFullExtentLength[2] = { false, false };
    Array<RollAttributesV0> _rollAttributes[2];

    // The application's own, in no file.

    int _genericBoneIndex[2] = { -1, -1 }; ///< in the generic body, -1 until assigned
    PODArray<unsigned int> _correspondingIndexInSpecificPostureForIK[2];
    PODArray<unsigned int> _correspondingIndexInSpecificPostureFullChain[2];
    Array<float> _boneLengthsUnscaledForIK[2];
    Array<float> _boneLengthsUnscaledFullChain[2];
};

} // namespace mrv
