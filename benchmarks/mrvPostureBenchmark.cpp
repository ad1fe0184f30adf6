// benchmarks/mrvPostureBenchmark.cpp
// A posture of 300 bones from rest-relative orientations, beside a plain loop over GLM quaternions. Goal: at
// most 3 microseconds, and at most 1.0 of the time of the loop.
#include "benchmarks/mrvBenchmarkReport.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

#define GLM_FORCE_INTRINSICS
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_aligned.hpp>

#include <random>
#include <vector>

namespace mrvBenchmark {
namespace {

constexpr size_t boneCount = 300;
constexpr size_t chainLength = 6; // about that of a limb or a finger with what leads to it

struct BoneInput
{
    int father;
    float position[3];
    float orientation[4];
    float restRelative[4];
};

/// Chains that begin at any bone before them.
std::vector<BoneInput> makeBones()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> number(-1.0f, 1.0f);
    std::vector<BoneInput> bones(boneCount);
    for (size_t i = 0; i < boneCount; ++i)
    {
        BoneInput& bone = bones[i];
        bone.father = static_cast<int>(i) - 1;
        if (i > 0 && i % chainLength == 0)
            bone.father = static_cast<int>(random() % i);
        for (float& component : bone.position)
            component = number(random);
        for (float* orientation : { bone.orientation, bone.restRelative })
        {
            for (int k = 0; k < 4; ++k)
                orientation[k] = number(random);
            const mrv::Quaternion unit = mrv::Quaternion(orientation).computeNormalize();
            for (unsigned int k = 0; k < 4; ++k)
                orientation[k] = unit[k];
        }
    }
    return bones;
}

void addLibrary()
{
    add("posture/mrvCore/rest_relative_300", [](State& state) {
        mrv::HierarchicalSkeletonDescriptionV1 skeleton("skeleton");
        mrv::Array<mrv::Quaternion> restRelatives;
        mrv::PODArray<mrv::HierarchicalBoneV1*>& bones = skeleton.touchBones();
        for (const BoneInput& in : makeBones())
        {
            mrv::HierarchicalBoneV1* father =
                in.father >= 0 ? bones[static_cast<size_t>(in.father)] : nullptr;
            bones.push_back(new mrv::HierarchicalBoneV1("", father, mrv::Vector3(in.position),
                                                        mrv::Quaternion(in.orientation), bones.sizeInt()));
            restRelatives.push_back(mrv::Quaternion(in.restRelative));
        }
        mrv::Array<mrv::Vector3> positions(boneCount);
        mrv::Array<mrv::Quaternion> orientations(boneCount);
        for (auto _ : state)
        {
            mrv::SpecificPosture::computePostureFromRestRelativeOrientations(
                positions, orientations, bones, mrv::Vector3(), mrv::Quaternion::getIdentity(), restRelatives,
                1.5f);
            benchmark::DoNotOptimize(positions.begin());
            benchmark::ClobberMemory();
        }
        perItem(state, 1.0, "us/posture", 1e6);
    });
}

/// The loop that one would write: one record a bone, and two arrays to fill.
template <glm::qualifier Qualifier>
void addGlm(const char* name)
{
    using Quaternion = glm::qua<float, Qualifier>;
    using Vector = glm::vec<3, float, Qualifier>;
    struct Bone
    {
        int father;
        Vector position;
        Quaternion orientation;
        Quaternion restRelative;
    };
    add(std::string("posture/") + name + "/rest_relative_300", [](State& state) {
        const auto convert = [](const float* q) { return Quaternion(q[3], q[0], q[1], q[2]); };
        std::vector<Bone> bones;
        for (const BoneInput& in : makeBones())
            bones.push_back({ in.father, Vector(in.position[0], in.position[1], in.position[2]),
                              convert(in.orientation), convert(in.restRelative) });
        std::vector<Vector> positions(boneCount);
        std::vector<Quaternion> orientations(boneCount);
        float scale = 1.5f;
        for (auto _ : state)
        {
            benchmark::DoNotOptimize(scale);
            for (size_t i = 0; i < boneCount; ++i)
            {
                const Bone& bone = bones[i];
                if (bone.father < 0)
                {
                    positions[i] = Vector(0.0f);
                    orientations[i] = convert(mrv::Quaternion::getIdentity().getFloatValues());
                    continue;
                }
                const size_t f = static_cast<size_t>(bone.father);
                orientations[i] = orientations[f] * bone.orientation * bone.restRelative;
                positions[i] = positions[f] + orientations[f] * (scale * bone.position);
            }
            benchmark::DoNotOptimize(positions.data());
            benchmark::ClobberMemory();
        }
        perItem(state, 1.0, "us/posture", 1e6);
    });
}

} // namespace
} // namespace mrvBenchmark

int main(int argc, char** argv)
{
    mrvBenchmark::addLibrary();
    mrvBenchmark::addGlm<glm::packed_highp>("glm");
    mrvBenchmark::addGlm<glm::aligned_highp>("glm_simd");
    return mrvBenchmark::run(argc, argv);
}
