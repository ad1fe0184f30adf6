// benchmarks/mrvMappingBenchmark.cpp
// Automatic mapping of skeletons of growing size.
#include "benchmarks/mrvBenchmarkReport.h"

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "mrvCore/mrvCore.h"

#include <string>

namespace mrvBenchmark {
namespace {

using mrv::HierarchicalBoneV1;

/// A creature with four levels of branching: segments of a spine, pairs of limbs on them, chains of four
/// bones that branch into fingers, and these into two tips.
class Creature : public mrv::HierarchicalSkeletonDescriptionV1
{
public:
    explicit Creature(int boneCount)
    {
        constexpr int fingers = 4;
        constexpr int bonesOfPair = 2 * (4 + 3 * fingers);
        HierarchicalBoneV1* segment = addBone(nullptr, 0.0f, 0.0f, 0.0f);
        setRootBone(segment);
        for (int pair = 0; getBones().sizeInt() + bonesOfPair + 1 <= boneCount; ++pair)
        {
            segment = addBone(segment, -1.0f, 0.0f, pair % 2 == 0 ? 0.25f : -0.25f);
            for (const float side : { -1.0f, 1.0f })
                addLimb(segment, side, fingers);
        }
        while (getBones().sizeInt() < boneCount)
            segment = addBone(segment, -0.5f, 0.0f, 0.0f);
        initSortedBones();
    }

private:
    HierarchicalBoneV1* addBone(HierarchicalBoneV1* father, float x, float y, float z)
    {
        const int index = getBones().sizeInt();
        touchBones().push_back(new HierarchicalBoneV1(("bone" + std::to_string(index)).c_str(), father,
                                                      mrv::Vector3(x, y, z), mrv::Quaternion::getIdentity(),
                                                      index));
        return touchBones().back();
    }

    void addLimb(HierarchicalBoneV1* segment, float side, int fingers)
    {
        HierarchicalBoneV1* bone = addBone(segment, 0.0f, side, 0.0f);
        bone = addBone(bone, 0.25f, side, 0.0f);
        bone = addBone(bone, 0.25f, 0.0f, -1.0f);
        bone = addBone(bone, 0.0f, 0.0f, -1.0f);
        for (int i = 0; i < fingers; ++i)
        {
            HierarchicalBoneV1* finger = addBone(bone, 0.25f, 0.125f * static_cast<float>(i), 0.0f);
            for (const float tip : { -0.0625f, 0.0625f })
                addBone(finger, 0.25f, tip, 0.0f);
        }
    }
};

void addSize(int boneCount)
{
    add("mapping/mrvCore/automatic_" + std::to_string(boneCount), [boneCount](State& state) {
        mrv::GenericSpecificConverterMappingV8 mapping;
        mapping.duplicateHierarchicalSkeletonDescription(Creature(boneCount));
        for (auto _ : state)
        {
            mapping.clearMappingPart();
            mapping.touchIkExcludedBones().clear();
            if (!mapping.computeAutomaticMapping(0.5f, mrv::AngleUtils::degreeToRadian(5.0f)))
                state.SkipWithError("not mapped");
        }
        time(state);
        perItem(state, boneCount, "us/bone", 1e6);
        fact(state, static_cast<double>(mapping.getLimbBonesSize()), "limbs");
        fact(state, static_cast<double>(mapping.getEffectorBonesSize()), "effectors");
    });
}

} // namespace
} // namespace mrvBenchmark

int main(int argc, char** argv)
{
    mrv::initCore();
    for (const int boneCount : { 100, 300, 1000, 3000 })
        mrvBenchmark::addSize(boneCount);
    const int exitCode = mrvBenchmark::run(argc, argv);
    mrv::finishCore(true);
    return exitCode;
}
