// tests/animation/mrvDamagedMappingTest.cpp
// Damaged mapping files: whatever they hold, loading ends in an error code or in a mapping that can be used.
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvSpecificPosture.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"
#include "tests/animation/mrvTestBiped.h"
#include "tests/support/mrvDamagedFiles.h"

#include <iterator>
#include <random>
#include <string>

namespace mrv {
namespace {

using Mapping = GenericSpecificConverterMappingV8;
using Load = LoadSkeletonMappingErrorCode;

// Every version, the oldest and the current one in both forms.
const char* const files[] = {
    "mappings/biped_mapping_v0.mvsm", "mappings/biped_mapping_v0.mvsm.xml",
    "mappings/biped_mapping_v8.mvsm", "mappings/biped_mapping_v8.mvsm.xml",
    "versions/mapping_v1.mvsm.xml",   "versions/mapping_v2.mvsm",
    "versions/mapping_v3.mvsm",       "versions/mapping_v4.mvsm.xml",
    "versions/mapping_v5.mvsm",       "versions/mapping_v6.mvsm.xml",
    "versions/mapping_v7.mvsm",
};

std::string contentOf(const std::string& name)
{
    std::ifstream stream(std::string(MRV_TEST_DATA) + '/' + name, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(stream), {});
    EXPECT_FALSE(content.empty());
    return content;
}

bool isXML(const std::string& name)
{
    return name.back() == 'l';
}

/// Follows every index and pointer that a mapping holds.
void use(Mapping& mapping)
{
    FastBoundingBox box;
    PODArray<int> list, places;
    mapping.computePerceptionBoundingBox(box);
    mapping.computeRootHeight({}, {});
    for (int bone = -1; bone < 100; ++bone)
        mapping.getEstimatedMirrorBoneIndex(bone);
    mapping.computeAutomaticBoneConfigurationSizes(true, 0.3f);
    mapping.autoConfigureRagdoll(true);
    Mapping::findRigidBodiesBoneCorrespondances(list, places, &mapping);
    const auto& bones = mapping.getSkeletonDescription()->getBones();
    SpecificPosture posture;
    posture.initFromSkeleton(bones, Array<Vector3>(bones.size(), Vector3(1.0f)));
    posture.initFromRestRelativesOrientation(bones, Vector3(), Quaternion::getIdentity(),
                                             Array<Quaternion>(bones.size()), 1.0f);
}

class DamagedMappings : public DamagedFiles
{
protected:
    using IsRight = std::function<bool(size_t, Load::Value)>;

    size_t load(const std::string& name, size_t count, const MakeInput& makeInput, const IsRight& isRight)
    {
        const auto loadFile = [&](size_t input, const MrvString& fileName) {
            Mapping mapping;
            const Load::Value result = isXML(name) ? mapping.loadMappingXML(fileName.c_str())
                                                   : mapping.loadMapping(fileName.c_str());
            if (result == Load::SUCCESS)
                use(mapping);
            mapping.saveMapping("/dev/null");
            return isRight(input, result);
        };
        return loadInputs(isXML(name) ? "mvsm.xml" : "mvsm", count, makeInput, loadFile);
    }
};

TEST_F(DamagedMappings, thatAreCutOffAreRefused)
{
    constexpr size_t step = 211;
    for (const std::string name : files)
    {
        const std::string whole = contentOf(name);
        const size_t needed = isXML(name) ? whole.rfind('>') : whole.size() - 1;
        const auto makeInput = [&](size_t i) { return whole.substr(0, needed - i * step); };
        const auto isRight = [&](size_t i, Load::Value result) {
            const bool hasVersion = !isXML(name) && needed - i * step >= 4;
            return result == (hasVersion ? Load::INVALID_FILE : Load::INCORRECT_VERSION);
        };
        EXPECT_EQ(load(name, needed / step + 1, makeInput, isRight), 0u) << name;
    }
}

TEST_F(DamagedMappings, withWrongBytesAreSurvived)
{
    for (const std::string name : files)
    {
        const std::string whole = contentOf(name);
        const auto makeInput = [&](size_t i) {
            std::mt19937 random(static_cast<uint32_t>(i));
            std::string damaged = whole;
            damaged[random() % damaged.size()] = static_cast<char>(random());
            return damaged;
        };
        load(name, 250, makeInput,
             [](size_t, Load::Value result) { return result >= Load::SUCCESS && result < Load::END; });
    }
}

/// What a file can make of a biped.
const struct
{
    const char* what;
    void (*damage)(Mapping&, PODArray<HierarchicalBoneV1*>& bones);
    Load::Value result;
} damages[] = {
    { "nothing", [](auto&, auto&) {}, Load::SUCCESS },
    { "no pelvis", [](auto& mapping, auto&) { mapping.setPelvis(static_cast<HierarchicalBoneV1*>(nullptr)); },
      Load::SUCCESS },
    { "no bodies", [](auto& mapping, auto&) { mapping.touchBoneConfigurations().clear(); }, Load::SUCCESS },
    { "a negative index", [](auto&, auto& bones) { bones[test::CHEST]->setSpecificBoneIndex(-1); },
      Load::SUCCESS },
    { "equal indices", [](auto&, auto& bones) { bones[test::CHEST]->setSpecificBoneIndex(0); },
      Load::INVALID_SKELETON_DESCRIPTION },
    { "a ring", [](auto&, auto& bones) { bones[test::KNEE_L]->setFather(bones[test::FOOT_L]); },
      Load::INVALID_SKELETON_DESCRIPTION },
    { "a null bone", [](auto&, auto& bones) { bones.push_back(nullptr); },
      Load::INVALID_SKELETON_DESCRIPTION },
    { "no bones", [](auto& mapping, auto&) { mapping.touchSkeletonDescription()->clear(); },
      Load::INVALID_SKELETON_DESCRIPTION },
    { "no skeleton", [](auto& mapping, auto&) { mapping.finish(); }, Load::INVALID_FILE },
    { "wrong ends",
      [](auto& mapping, auto&) {
          mapping.touchLimbBones()[0]._lastBoneOfChain[1] = 1000;
          mapping.touchLimbBones()[1]._firstBoneOfChain[1] = -7;
          mapping.touchSpineBones()[0]._firstBoneOfChain[1] = 1000;
          mapping.touchEffectorBones()[0]._lastBoneOfChain[0] = 1000;
          mapping.touchIkExcludedBones().push_back(1000);
      },
      Load::SUCCESS },
};

TEST_F(DamagedMappings, areToldByTheirSkeletons)
{
    const auto makeInput = [](size_t i) {
        Mapping mapping;
        test::fillBody(mapping);
        damages[i].damage(mapping, mapping.touchSkeletonDescription()->touchBones());
        const TemporaryFolder folder;
        mapping.saveMapping(folder.path("m").c_str());
        return folder.read("m");
    };
    const auto isRight = [](size_t i, Load::Value result) { return result == damages[i].result; };
    EXPECT_EQ(load("binary", std::size(damages), makeInput, isRight), 0u);
}

} // namespace
} // namespace mrv
