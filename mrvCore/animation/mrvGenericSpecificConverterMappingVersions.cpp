// mrvCore/animation/mrvGenericSpecificConverterMappingVersions.cpp
// From the mappings of old files straight to the current one, and back to one that older hosts read.
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/_compatibility/mrvBoneSteps.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV0.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV1.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV2.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV3.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV4.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV5.h"
#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV6.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/assetManagement/_compatibility/mrvBlindDataV0.h"
#include "mrvCore/assetManagement/mrvBlindData.h"

namespace mrv {

namespace {

void convertBlendShapes(Array<BlindDataV1>& to, const Array<BlendShapeGroupV0>& from)
{
    to.resize(from.size());
    for (size_t i = 0; i < from.size(); ++i)
    {
        to[i]._name = from[i]._name;
        to[i]._type = BlindDataV1::Type::BLENDSHAPE;
        to[i]._floatCount = 1;
    }
}

} // namespace

template <int version, class Old>
void GenericSpecificConverterMappingV8::createFromOlder(Old& old)
{
    finish(); // what the version lacks stays empty
    // As constant: copies the skeleton, whose bones are numbered anew by that.
    internal::takeUnchanged(*this, static_cast<const Old&>(old));
    if constexpr (version < 5)
    {
        if (old._skeletonDescription != nullptr)
            stepUp(_skeletonDescription, old._skeletonDescription);
        stepUp(_pelvisBoneIndex, old._pelvisBone);
        stepUp(_spineBones, old._spineBones);
        stepUp(_limbBones, old._limbBones);
        stepUp(_effectorBones, old._effectorBones);
        stepUp(_ikExcludedBones, old._ikExcludedBones);
        stepUp(_boneConfigurations, old._boneConfigurations);
    }
    setUpAxis(old._upAxis);
    setFrontAxis(old._frontAxis);
    if constexpr (version == 6)
        stepUp(_blindDataInfo, old._blindDataInfo);
    else if constexpr (version >= 2)
        convertBlendShapes(_blindDataInfo, old._blendShapeGroups);
    updateBlindDataFloatCount();

    // Spines had no mirrors; each is its own.
    initSpineMirrorSources(_spineBones.sizeInt());
    for (int spine = 0; spine < _spineBones.sizeInt(); ++spine)
        _spineMirrorSources[static_cast<size_t>(spine)] = spine;
    if constexpr (version < 3)
        _squashStretchWeightsArray.assign(_boneConfigurations.size(), 1.0f);
    if constexpr (version < 4)
        _bonesSnsScaleModes.assign(internal::bonesOf(_skeletonDescription).size(), 0);
}

void GenericSpecificConverterMappingV8::createFromV0(GenericSpecificConverterMappingV0& old)
{
    createFromOlder<0>(old);
    computeAutomaticNames();
    stepUp(_limbBoneNames, old._channelNames);
}

void GenericSpecificConverterMappingV8::createFromV1(GenericSpecificConverterMappingV1& old)
{
    createFromOlder<1>(old);
}

void GenericSpecificConverterMappingV8::createFromV2(GenericSpecificConverterMappingV2& old)
{
    createFromOlder<2>(old);
}

void GenericSpecificConverterMappingV8::createFromV3(GenericSpecificConverterMappingV3& old)
{
    createFromOlder<3>(old);
}

void GenericSpecificConverterMappingV8::createFromV4(GenericSpecificConverterMappingV4& old)
{
    createFromOlder<4>(old);
}

void GenericSpecificConverterMappingV8::createFromV5(GenericSpecificConverterMappingV5& old)
{
    createFromOlder<5>(old);
}

void GenericSpecificConverterMappingV8::createFromV6(GenericSpecificConverterMappingV6& old)
{
    createFromOlder<6>(old);
}

void GenericSpecificConverterMappingV8::exportToV5(GenericSpecificConverterMappingV5& old) const
{
    internal::takeUnchanged(old, *this);
    old._blendShapeGroups.clear();
    for (const BlindDataV1& record : _blindDataInfo)
    {
        if (record._type != BlindDataV1::Type::BLENDSHAPE)
            continue;
        BlendShapeGroupV0 group;
        group._name = record._name;
        old._blendShapeGroups.push_back(group);
    }
}

} // namespace mrv
