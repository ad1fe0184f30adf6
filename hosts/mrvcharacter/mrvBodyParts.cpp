// hosts/mrvcharacter/mrvBodyParts.cpp
#include "hosts/mrvcharacter/mrvBodyParts.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include <algorithm>

namespace mrvcharacter {

namespace {

using Mapping = mrv::GenericSpecificConverterMappingV8;

BodyPart::Value getLimbKind(const mrv::GenericSpecificConverterBoneV1& limb)
{
    switch (limb._type)
    {
    case mrv::SkeletonPartType::LEG:
        return BodyPart::LEG;
    case mrv::SkeletonPartType::GRASPER:
        return BodyPart::GRASPER;
    default:
        return BodyPart::OTHER_LIMB;
    }
}

void addPart(const mrv::GenericSpecificConverterBoneV1& part, BodyPart::Value kind, const Mapping& mapping,
             BodyParts& parts)
{
    ++parts.counts[kind];
    for (int chain = 0; chain < 2; ++chain)
    {
        mrv::PODArray<const mrv::HierarchicalBoneV1*> bones;
        Mapping::buildBoneChain(bones, mapping.getSkeletonDescription()->getBones(), part, chain, false);
        for (const mrv::HierarchicalBoneV1* bone : bones)
        {
            BodyPart::Value& known = parts.ofBone[static_cast<size_t>(bone->getSpecificBoneIndex())];
            if (known == BodyPart::NONE)
                known = kind;
        }
    }
}

} // namespace

BodyParts findBodyParts(const Mapping& mapping)
{
    BodyParts parts;
    parts.ofBone.assign(mapping.getSkeletonDescription()->getBones().size(), BodyPart::NONE);
    const size_t pelvis = static_cast<size_t>(mapping.getPelvisBone());
    if (pelvis < parts.ofBone.size())
    {
        parts.ofBone[pelvis] = BodyPart::PELVIS;
        ++parts.counts[BodyPart::PELVIS];
    }
    for (const mrv::GenericSpecificConverterBoneV1& spine : mapping.getSpineBones())
        addPart(spine, BodyPart::SPINE, mapping, parts);
    for (const mrv::GenericSpecificConverterBoneV1& limb : mapping.getLimbBones())
        addPart(limb, getLimbKind(limb), mapping, parts);
    for (const mrv::GenericSpecificConverterBoneV1& effector : mapping.getEffectorBones())
        addPart(effector, BodyPart::EFFECTOR, mapping, parts);
    parts.counts[BodyPart::NONE] =
        static_cast<size_t>(std::count(parts.ofBone.begin(), parts.ofBone.end(), BodyPart::NONE));
    return parts;
}

} // namespace mrvcharacter
