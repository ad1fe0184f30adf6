// mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.cpp
#include "mrvCore/animation/_compatibility/mrvHierarchicalSkeletonDescriptionV0.h"

#include "mrvCore/animation/_compatibility/mrvBoneSteps.h"
#include "mrvCore/animation/_compatibility/mrvLinkedBones.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <unordered_map>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(HierarchicalSkeletonDescriptionV0, "mrv::HierarchicalSkeletonDescriptionV0",
                            "e57e4f19-c3b3-4a37-a4f1-9bb2e3a9f5c3")

void HierarchicalSkeletonDescriptionV0::addAttributes()
{
    using V0 = HierarchicalSkeletonDescriptionV0;
    addAttribute<MrvString>("name", &V0::_name);
    addAttribute<HierarchicalBoneV0*>("rootBone", &V0::_rootBone);
    addAttribute<Array<HierarchicalBoneV0*>>("bones", &V0::_bones);
}

namespace {

/// The position of each bone's father, -1 for none; of several positions of one father the last.
PODArray<int> findFatherPositions(const Array<HierarchicalBoneV0*>& bones)
{
    std::unordered_map<const HierarchicalBoneV0*, int> positions;
    for (size_t i = 0; i < bones.size(); ++i)
        positions[bones[i]] = static_cast<int>(i);
    positions[nullptr] = -1;
    PODArray<int> fathers(bones.size(), -1);
    for (size_t i = 0; i < bones.size(); ++i)
    {
        const auto father = bones[i] != nullptr ? positions.find(bones[i]->_father) : positions.end();
        if (father != positions.end())
            fathers[i] = father->second;
    }
    return fathers;
}

} // namespace

HierarchicalSkeletonDescriptionV0::~HierarchicalSkeletonDescriptionV0()
{
    internal::LinkedBones owned;
    owned.takeFrom(*this);
    owned.deleteAll();
}

void HierarchicalSkeletonDescriptionV1::createFrom(const HierarchicalSkeletonDescriptionV0& old)
{
    clear();
    _name = old._name;
    _bones.reserve(old._bones.size());
    for (const HierarchicalBoneV0* source : old._bones)
    {
        HierarchicalBoneV1* bone = nullptr; // a null stays one, and keeps the skeleton invalid
        if (source != nullptr)
        {
            bone = new HierarchicalBoneV1("", nullptr, source->_relativePos, source->_baseLocalOri,
                                          _bones.sizeInt());
            bone->setName(source->_name);
        }
        _bones.push_back(bone);
    }
    linkBones(findFatherPositions(old._bones),
              old._rootBone != nullptr ? old._rootBone->_specificBoneIndex : -1);
    computeCaches();
    initSortedBones();
}

void stepUp(HierarchicalSkeletonDescriptionV1*& to, const HierarchicalSkeletonDescriptionV0* from)
{
    delete to;
    to = new HierarchicalSkeletonDescriptionV1("DefaultHierarchicalSkeletonDescriptionName");
    const HierarchicalSkeletonDescriptionV0 nothing;
    to->createFrom(from != nullptr ? *from : nothing);
}

} // namespace mrv
