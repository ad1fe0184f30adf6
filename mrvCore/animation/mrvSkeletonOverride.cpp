// mrvCore/animation/mrvSkeletonOverride.cpp
#include "mrvCore/animation/mrvSkeletonOverride.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(SkeletonOverrideV0, "mrv::SkeletonOverrideV0",
                            "5d8a273f-cbda-4e36-80f6-455d30c63ceb")

void SkeletonOverrideV0::addAttributes()
{
    using Record = SkeletonOverrideV0;
    using Indices = PODArray<unsigned int>;
    using Vectors = Array<Vector3>;
    addAttribute<MrvString>("name", &Record::_name);
    addAttribute<Indices>("skeletonBonesLocalPosIndices", &Record::_skeletonBonesLocalPosIndices);
    addAttribute<Vectors>("skeletonBonesLocalPosScales", &Record::_skeletonBonesLocalPosScales);
    addAttribute<float>("skeletonBonesLocalPosWeightMin", &Record::_skeletonBonesLocalPosWeightMin);
    addAttribute<float>("skeletonBonesLocalPosWeightMax", &Record::_skeletonBonesLocalPosWeightMax);
    addAttribute<Indices>("skeletonBonesLocalOriIndices", &Record::_skeletonBonesLocalOriIndices);
    addAttribute<Vectors>("skeletonBonesLocalOriOffsets", &Record::_skeletonBonesLocalOriOffsets);
    addAttribute<float>("skeletonBonesLocalOriWeightMin", &Record::_skeletonBonesLocalOriWeightMin);
    addAttribute<float>("skeletonBonesLocalOriWeightMax", &Record::_skeletonBonesLocalOriWeightMax);
    addAttribute<Indices>("skeletonBonesSkinScalesIndices", &Record::_skeletonBonesSkinScalesIndices);
    addAttribute<Vectors>("skeletonBonesSkinScales", &Record::_skeletonBonesSkinScales);
    addAttribute<float>("skeletonBonesSkinScalesWeightMin", &Record::_skeletonBonesSkinScalesWeightMin);
    addAttribute<float>("skeletonBonesSkinScalesWeightMax", &Record::_skeletonBonesSkinScalesWeightMax);
    addAttribute<uint32_t>("randomSeed", &Record::_randomSeed);
}

} // namespace mrv
