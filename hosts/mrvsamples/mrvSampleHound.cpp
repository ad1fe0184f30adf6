// hosts/mrvsamples/mrvSampleHound.cpp
#include "hosts/mrvsamples/mrvSampleCharacters.h"

#include "hosts/mrvsamples/mrvSampleAssets.h"
#include "hosts/mrvsamples/mrvSampleSkeleton.h"

namespace mrvsamples {

namespace {

const std::vector<Joint> joints = {
    { "hips", nullptr, -0.36f, 0.0f, 0.58f },
    { "spine1", "hips", -0.25f, 0.0f, 0.6f },
    { "spine2", "spine1", -0.1f, 0.0f, 0.61f },
    { "spine3", "spine2", 0.05f, 0.0f, 0.6f },
    { "withers", "spine3", 0.19f, 0.0f, 0.6f },
    { "neck1", "withers", 0.3f, 0.0f, 0.65f },
    { "neck2", "neck1", 0.38f, 0.0f, 0.73f },
    { "head", "neck2", 0.44f, 0.0f, 0.81f },
    { "muzzle", "head", 0.6f, 0.0f, 0.79f },
    { "jaw", "head", 0.49f, 0.0f, 0.775f },
    { "jawEnd", "jaw", 0.59f, 0.0f, 0.75f },
    { "ear_l", "head", 0.41f, 0.05f, 0.85f },
    { "earTip_l", "ear_l", 0.38f, 0.075f, 0.93f },
    { "tail1", "hips", -0.47f, 0.0f, 0.6f },
    { "tail2", "tail1", -0.57f, 0.0f, 0.57f },
    { "tail3", "tail2", -0.66f, 0.0f, 0.52f },
    { "tail4", "tail3", -0.74f, 0.0f, 0.48f },
    { "tail5", "tail4", -0.81f, 0.0f, 0.47f },
    { "scapula_l", "withers", 0.16f, 0.07f, 0.58f },
    { "upperForeleg_l", "scapula_l", 0.25f, 0.09f, 0.44f },
    { "lowerForeleg_l", "upperForeleg_l", 0.16f, 0.09f, 0.32f },
    { "forefoot_l", "lowerForeleg_l", 0.18f, 0.09f, 0.09f },
    { "foretoes_l", "forefoot_l", 0.21f, 0.09f, 0.015f },
    { "thigh_l", "hips", -0.36f, 0.08f, 0.53f },
    { "shank_l", "thigh_l", -0.28f, 0.09f, 0.34f },
    { "hindfoot_l", "shank_l", -0.45f, 0.09f, 0.18f },
    { "hindtoes_l", "hindfoot_l", -0.43f, 0.09f, 0.02f },
};

const std::vector<Limb> limbs = {
    { "foreleg_l",
      mrv::SkeletonPartType::LEG,
      { "scapula_l", "scapula_l" },
      { "upperForeleg_l", "forefoot_l" },
      mrv::CoronalPlaneLocation::FRONT,
      mrv::TransversePlaneLocation::BOTTOM,
      true,
      { { "foretoes_l", "foretoes_l" } } },
    { "hindleg_l",
      mrv::SkeletonPartType::LEG,
      {},
      { "thigh_l", "hindfoot_l" },
      mrv::CoronalPlaneLocation::BACK,
      mrv::TransversePlaneLocation::BOTTOM,
      true,
      { { "hindtoes_l", "hindtoes_l" } } },
    { "head",
      mrv::SkeletonPartType::GENERIC,
      { "neck1", "neck2" },
      { "head", "head" },
      mrv::CoronalPlaneLocation::FRONT,
      mrv::TransversePlaneLocation::TOP,
      false,
      { { "muzzle", "muzzle" }, { "jaw", "jawEnd" }, { "ear_l", "earTip_l" }, { "ear_r", "earTip_r" } } },
    { "tail",
      mrv::SkeletonPartType::GENERIC,
      {},
      { "tail1", "tail5" },
      mrv::CoronalPlaneLocation::BACK,
      mrv::TransversePlaneLocation::CENTER,
      false,
      {} },
};

} // namespace

void buildHound(mrv::MaravoCharacterV24& character)
{
    character._name = "Hound";
    buildSkeleton(character, "hound", joints);
    addSpine(character, "spine", { "spine1", "withers" });
    addLimbs(character, limbs);
    addBlendShape(character, "face", "snarl");
    addBoneScales(character, "longTail", { "tail2", "tail3", "tail4", "tail5" }, 1.3f, 31);

    addShading(character, "coat", "surface fur");
    addAttribute(character, "coatColour", mrv::ShaderAttributeType::VECTOR, "(0.1,0.07,0.04)",
                 "(0.7,0.6,0.5)", "coat");
    addMesh(character, "smoothCoat", "coat");
    addMesh(character, "shaggyCoat", "coat");
    addMesh(character, "collar", "coat");
    addGeometry(character, 0, "./geometry/hound", mrv::Vector3(0.15f, 0.47f, 0.71f), { 10.0f, 150.0f });
    character._mainAssetGroups.push_back(
        addGroup(character, "coats", { { "smoothCoat", 3.0f }, { "shaggyCoat", 1.0f } }));
    character._mainAssetGroups.push_back(
        addGroup(character, "gear", { { "collar", 1.0f }, { "=longTail", 0.5f } }));
    addRenderingType(character, "stray", nullptr, { { "gear", { 0.0f, 1.0f } } });
    character.autoComputePerceptionShape();
}

} // namespace mrvsamples
