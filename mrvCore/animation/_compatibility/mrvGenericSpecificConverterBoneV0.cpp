// mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.cpp
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterBoneV0.h"

#include "mrvCore/animation/_compatibility/mrvBoneSteps.h"
#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterBoneV0, "mrv::GenericSpecificConverterBoneV0",
                            "ad59a1da-8fd8-47c6-8535-9a8cb958f05f")

void GenericSpecificConverterBoneV0::addAttributes()
{
    using V0 = GenericSpecificConverterBoneV0;
    using BonePointer = const HierarchicalBoneV0*;
    using Rolls = const Array<RollAttributesV0>&;
    addAttribute<int>("type", &V0::_type);
    addContainerAccessorsAttribute<BonePointer>("firstAuxiliary", &V0::getFirstBoneOfChain,
                                                &V0::setFirstBoneOfChain, 0);
    addContainerAccessorsAttribute<BonePointer>("lastAuxiliary", &V0::getLastBoneOfChain,
                                                &V0::setLastBoneOfChain, 0);
    addContainerAccessorsAttribute<BonePointer>("firstExtension", &V0::getFirstBoneOfChain,
                                                &V0::setFirstBoneOfChain, 1);
    addContainerAccessorsAttribute<BonePointer>("lastExtension", &V0::getLastBoneOfChain,
                                                &V0::setLastBoneOfChain, 1);
    addAttribute<int>("coronalLocation", &V0::_coronalLocation);
    addAttribute<int>("transverseLocation", &V0::_transverseLocation);
    addAttribute<int>("sagittalLocation", &V0::_sagittalLocation);
    addContainerAccessorsAttribute<Vector3>("auxiliaryIkNomalPlane", &V0::getIkNomalPlane,
                                            &V0::setIkNomalPlane, 0);
    addContainerAccessorsAttribute<Vector3>("extensionIkNomalPlane", &V0::getIkNomalPlane,
                                            &V0::setIkNomalPlane, 1);
    addContainerAccessorsAttribute<bool>("auxiliaryComputeFullExtentLength", &V0::getComputeFullExtentLength,
                                         &V0::setComputeFullExtentLength, 0);
    addContainerAccessorsAttribute<bool>("extensionComputeFullExtentLength", &V0::getComputeFullExtentLength,
                                         &V0::setComputeFullExtentLength, 1);
    addContainerAccessorsAttribute<Rolls>("auxRollAttributes", &V0::getRollAttributes, &V0::setRollAttributes,
                                          0);
    addContainerAccessorsAttribute<Rolls>("extRollAttributes", &V0::getRollAttributes, &V0::setRollAttributes,
                                          1);
}

GenericSpecificConverterBoneV1::GenericSpecificConverterBoneV1(const GenericSpecificConverterBoneV0& old)
    : _type(old._type)
    , _coronalLocation(old._coronalLocation)
    , _transverseLocation(old._transverseLocation)
    , _sagittalLocation(old._sagittalLocation)
{
    for (unsigned int chain = 0; chain < 2; ++chain)
    {
        stepUp(_firstBoneOfChain[chain], old._firstBoneOfChain[chain]);
        stepUp(_lastBoneOfChain[chain], old._lastBoneOfChain[chain]);
        _relativeIkNormalPlane[chain] = old._relativeIkNormalPlane[chain];
        _computeFullExtentLength[chain] = old._computeFullExtentLength[chain];
        _rollAttributes[chain] = old._rollAttributes[chain];
    }
}

} // namespace mrv
