// mrvCore/animation/mrvGenericSpecificConverterBone.cpp
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

namespace {

int indexOf(const HierarchicalBoneV1* bone)
{
    return bone != nullptr ? bone->getSpecificBoneIndex() : -1;
}

} // namespace

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterBoneV1, "mrv::GenericSpecificConverterBoneV1",
                            "f39bd1db-afff-4d76-9d35-4bcaa5f2398b")

// This list is the file format: order, names and types stay.
void GenericSpecificConverterBoneV1::addAttributes()
{
    using Bone = GenericSpecificConverterBoneV1;
    addAttribute<int>("type", &Bone::_type);
    addContainerAccessorsAttribute<int>("firstAuxiliary", &Bone::getFirstBoneOfChain,
                                        &Bone::setFirstBoneOfChain, 0);
    addContainerAccessorsAttribute<int>("lastAuxiliary", &Bone::getLastBoneOfChain, &Bone::setLastBoneOfChain,
                                        0);
    addContainerAccessorsAttribute<int>("firstExtension", &Bone::getFirstBoneOfChain,
                                        &Bone::setFirstBoneOfChain, 1);
    addContainerAccessorsAttribute<int>("lastExtension", &Bone::getLastBoneOfChain, &Bone::setLastBoneOfChain,
                                        1);
    addAttribute<int>("coronalLocation", &Bone::_coronalLocation);
    addAttribute<int>("transverseLocation", &Bone::_transverseLocation);
    addAttribute<int>("sagittalLocation", &Bone::_sagittalLocation);
    addContainerAccessorsAttribute<Vector3>("auxiliaryIkNomalPlane", &Bone::getIkNomalPlane,
                                            &Bone::setIkNomalPlane, 0);
    addContainerAccessorsAttribute<Vector3>("extensionIkNomalPlane", &Bone::getIkNomalPlane,
                                            &Bone::setIkNomalPlane, 1);
    addContainerAccessorsAttribute<bool>("auxiliaryComputeFullExtentLength",
                                         &Bone::getComputeFullExtentLength, &Bone::setComputeFullExtentLength,
                                         0);
    addContainerAccessorsAttribute<bool>("extensionComputeFullExtentLength",
                                         &Bone::getComputeFullExtentLength, &Bone::setComputeFullExtentLength,
                                         1);
    addContainerAccessorsAttribute<const Array<RollAttributesV0>&>(
        "auxRollAttributes", &Bone::getRollAttributes, &Bone::setRollAttributes, 0);
    addContainerAccessorsAttribute<const Array<RollAttributesV0>&>(
        "extRollAttributes", &Bone::getRollAttributes, &Bone::setRollAttributes, 1);
}

GenericSpecificConverterBoneV1::GenericSpecificConverterBoneV1(
    SkeletonPartType::Value type, const HierarchicalBoneV1* firstAux, const HierarchicalBoneV1* lastAux,
    const HierarchicalBoneV1* firstExt, const HierarchicalBoneV1* lastExt,
    CoronalPlaneLocation::Value coronalLocation, TransversePlaneLocation::Value transverseLocation,
    SagittalPlaneLocation::Value sagittalLocation, const Vector3& planeAux, const Vector3& planeExt,
    bool fullAux, bool fullExt)
    : _type(type)
    , _coronalLocation(coronalLocation)
    , _transverseLocation(transverseLocation)
    , _sagittalLocation(sagittalLocation)
    , _firstBoneOfChain{ indexOf(firstAux), indexOf(firstExt) }
    , _lastBoneOfChain{ indexOf(lastAux), indexOf(lastExt) }
    , _relativeIkNormalPlane{ planeAux, planeExt }
    , _computeFullExtentLength{ fullAux, fullExt }
{}

GenericSpecificConverterBoneV1::GenericSpecificConverterBoneV1(
    SkeletonPartType::Value type, const HierarchicalBoneV1* firstAux, const HierarchicalBoneV1* lastAux,
    const HierarchicalBoneV1* firstExt, const HierarchicalBoneV1* lastExt, const Vector3& planeAux,
    const Vector3& planeExt, bool fullAux, bool fullExt)
    : GenericSpecificConverterBoneV1(type, firstAux, lastAux, firstExt, lastExt, CoronalPlaneLocation::END,
                                     TransversePlaneLocation::END, SagittalPlaneLocation::END, planeAux,
                                     planeExt, fullAux, fullExt)
{}

} // namespace mrv
