// hosts/mrvsamples/mrvSampleCourier.cpp
#include "hosts/mrvsamples/mrvSampleCharacters.h"

#include "hosts/mrvsamples/mrvSampleAssets.h"
#include "hosts/mrvsamples/mrvSampleSkeleton.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"

namespace mrvsamples {

namespace {

using Character = mrv::MaravoCharacterV24;

const std::vector<Joint> joints = {
    { "hips", nullptr, 0.0f, 0.0f, 0.98f },
    { "spine1", "hips", -0.01f, 0.0f, 1.09f },
    { "spine2", "spine1", -0.015f, 0.0f, 1.21f },
    { "chest", "spine2", -0.01f, 0.0f, 1.34f },
    { "neck", "chest", -0.005f, 0.0f, 1.52f },
    { "head", "neck", 0.015f, 0.0f, 1.62f },
    { "headEnd", "head", 0.02f, 0.0f, 1.82f },
    { "jaw", "head", 0.05f, 0.0f, 1.64f },
    { "jawEnd", "jaw", 0.11f, 0.0f, 1.6f },
    { "eye_l", "head", 0.1f, 0.032f, 1.71f },
    { "clavicle_l", "chest", 0.005f, 0.03f, 1.48f },
    { "upperArm_l", "clavicle_l", -0.02f, 0.18f, 1.49f },
    { "lowerArm_l", "upperArm_l", -0.03f, 0.46f, 1.485f },
    { "hand_l", "lowerArm_l", -0.01f, 0.715f, 1.48f },
    { "lowerArmRoll_l", "lowerArm_l", -0.02f, 0.59f, 1.4825f },
    { "thumb1_l", "hand_l", 0.025f, 0.745f, 1.465f },
    { "thumb2_l", "thumb1_l", 0.055f, 0.775f, 1.455f },
    { "thumb3_l", "thumb2_l", 0.075f, 0.8f, 1.45f },
    { "index1_l", "hand_l", 0.022f, 0.805f, 1.482f },
    { "index2_l", "index1_l", 0.026f, 0.845f, 1.48f },
    { "index3_l", "index2_l", 0.029f, 0.87f, 1.477f },
    { "middle1_l", "hand_l", 0.0f, 0.81f, 1.484f },
    { "middle2_l", "middle1_l", 0.001f, 0.855f, 1.482f },
    { "middle3_l", "middle2_l", 0.002f, 0.882f, 1.479f },
    { "ring1_l", "hand_l", -0.02f, 0.805f, 1.482f },
    { "ring2_l", "ring1_l", -0.022f, 0.846f, 1.48f },
    { "ring3_l", "ring2_l", -0.024f, 0.871f, 1.477f },
    { "pinky1_l", "hand_l", -0.039f, 0.795f, 1.478f },
    { "pinky2_l", "pinky1_l", -0.044f, 0.826f, 1.476f },
    { "pinky3_l", "pinky2_l", -0.047f, 0.846f, 1.474f },
    { "upperLeg_l", "hips", 0.0f, 0.095f, 0.93f },
    { "lowerLeg_l", "upperLeg_l", 0.015f, 0.1f, 0.51f },
    { "foot_l", "lowerLeg_l", -0.025f, 0.105f, 0.09f },
    { "toes_l", "foot_l", 0.1f, 0.11f, 0.02f },
    { "toesEnd_l", "toes_l", 0.165f, 0.11f, 0.015f },
};

const std::vector<Limb> limbs = {
    { "arm_l",
      mrv::SkeletonPartType::GRASPER,
      { "clavicle_l", "clavicle_l" },
      { "upperArm_l", "hand_l" },
      mrv::CoronalPlaneLocation::CENTER,
      mrv::TransversePlaneLocation::TOP,
      true,
      { { "thumb1_l", "thumb3_l" },
        { "index1_l", "index3_l" },
        { "middle1_l", "middle3_l" },
        { "ring1_l", "ring3_l" },
        { "pinky1_l", "pinky3_l" } } },
    { "leg_l",
      mrv::SkeletonPartType::LEG,
      {},
      { "upperLeg_l", "foot_l" },
      mrv::CoronalPlaneLocation::CENTER,
      mrv::TransversePlaneLocation::BOTTOM,
      true,
      { { "toes_l", "toesEnd_l" } } },
    { "head",
      mrv::SkeletonPartType::GENERIC,
      { "neck", "neck" },
      { "head", "headEnd" },
      mrv::CoronalPlaneLocation::CENTER,
      mrv::TransversePlaneLocation::TOP,
      false,
      {} },
};

// Half of the hand's twist goes to the roll bone of the lower arm.
void addRolls(Character& character)
{
    const char* const names[][3] = { { "arm_l", "hand_l", "lowerArmRoll_l" },
                                     { "arm_r", "hand_r", "lowerArmRoll_r" } };
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    for (const auto& [limb, hand, rollBone] : names)
        for (size_t i = 0; i < mapping.getLimbBonesSize(); ++i)
        {
            if (!(mapping.getLimbBoneNames()[i] == limb))
                continue;
            mrv::RollAttributesV0 roll;
            roll._farEndBoneIdx = findBone(character, hand);
            roll._rollBonesIdx.push_back(findBone(character, rollBone));
            roll._rollWeights.push_back(0.5f);
            mapping.touchLimbBones()[i]._rollAttributes[1].push_back(roll);
        }
}

void shapeBodies(Character& character)
{
    mrv::Array<mrv::BonePhysicConfigurationV1>& bodies =
        character._converterMapping.touchBoneConfigurations();
    for (const char* name : { "hips", "spine1", "spine2", "chest" })
    {
        mrv::BonePhysicConfigurationV1& body = bodies[static_cast<size_t>(findBone(character, name))];
        body._bodyShape = mrv::RagdollRigidBodyShape::BOX;
        body._halfExtents = mrv::Vector3(0.1f, 0.15f, 0.06f);
        body._jointAngularLowerLimit = mrv::Vector3(-10.0f, -15.0f, -10.0f);
        body._jointAngularUpperLimit = mrv::Vector3(10.0f, 25.0f, 10.0f);
    }
    for (const char* name : { "lowerLeg_l", "lowerLeg_r", "lowerArm_l", "lowerArm_r" })
    {
        mrv::BonePhysicConfigurationV1& body = bodies[static_cast<size_t>(findBone(character, name))];
        body._jointAngularLowerLimit = mrv::Vector3(0.0f, 0.0f, 0.0f);
        body._jointAngularUpperLimit = mrv::Vector3(0.0f, 140.0f, 0.0f);
    }
    mrv::BonePhysicConfigurationV1& head = bodies[static_cast<size_t>(findBone(character, "head"))];
    head._bodyShape = mrv::RagdollRigidBodyShape::SPHERE;
    head._halfExtents = mrv::Vector3(0.11f, 0.0f, 0.0f);
    head._useMassInsteadOfBodyDensity = true;
    head._bodyDensity = 4.5f;
}

void addOverrides(Character& character)
{
    addBoneScales(character, "longLegs", { "lowerLeg_l", "foot_l", "lowerLeg_r", "foot_r" }, 1.12f, 11);
    addBoneScales(character, "broadShoulders", { "upperArm_l", "upperArm_r" }, 1.15f, 12);

    mrv::BlindDataOverrideV0 cheerful;
    cheerful._name = "cheerful";
    cheerful._blindDataIndices.push_back(0);
    cheerful._blindDataValues.push_back(0.8f);
    cheerful._weightMax = 1.0f;
    cheerful._randomSeed = 21;
    character._blindDataOverrides.push_back(cheerful);

    mrv::PhysicsOverrideV0 helmet;
    helmet._name = "helmet";
    helmet._skeletonBoneIndex = findBone(character, "head");
    helmet._physicsConfiguration =
        character._converterMapping.getBoneConfigurations()[static_cast<size_t>(helmet._skeletonBoneIndex)];
    helmet._physicsConfiguration._bodyDensity = 6.0f;
    character._physicsOverrides.push_back(helmet);
}

void addShadings(Character& character)
{
    addShading(character, "skin", "surface skin");
    addShading(character, "fabric", "surface cloth");
    addShading(character, "leather", "surface");

    mrv::ShaderAttributeV3& tone =
        addAttribute(character, "skinTone", mrv::ShaderAttributeType::FLOAT, "0.1", "0.9", "skin");
    for (const float value : { 0.2f, 0.5f, 0.8f })
    {
        tone._values.push_back(value);
        tone._weights.push_back(1.0f);
    }
    addAttribute(character, "fabricColour", mrv::ShaderAttributeType::VECTOR, "(0.05,0.1,0.3)",
                 "(0.4,0.5,0.9)", "fabric");
    mrv::ShaderAttributeV3& pattern =
        addAttribute(character, "pattern", mrv::ShaderAttributeType::STRING, "", "", "fabric");
    pattern._stringValue = "textures/stripes.png";
    pattern._valueType = mrv::ShaderAttributeValueType::ATTRIBUTE;
    pattern._ppAttr = "patternFile";
    mrv::ShaderAttributeV3& dirt =
        addAttribute(character, "dirt", mrv::ShaderAttributeType::INT, "0", "3", nullptr);
    dirt._valueType = mrv::ShaderAttributeValueType::CHANNEL;
    dirt._ppAttr = "weather";
}

void addMeshes(Character& character)
{
    addMesh(character, "body", "skin");
    addMesh(character, "face", "skin");
    addMesh(character, "shirt", "fabric");
    addMesh(character, "jacket", "leather")._exportAlias = "outerwear";
    addMesh(character, "trousers", "fabric");
    addMesh(character, "shorts", "fabric", { 0 });
    mrv::MeshAssetV8& cape = addMesh(character, "cape", "fabric", { 0 });
    cape._clothAsset._filename = "./cloth/cape.mvcloth";
    cape._lodLevelFlags = mrv::LODLevelFlags::LOD0 | mrv::LODLevelFlags::LOD1;
    mrv::MeshAssetV8& hair = addMesh(character, "hair", "skin");
    hair._furAsset._furInformation = "furFile=./fur/hair.mvfur;meshNames=face;enabledMeshes=1";

    mrv::DeepDeformerAssetV0 elbows;
    elbows._name = "elbowWrinkles";
    elbows._lodLevel = mrv::LODLevelFlags::LOD0;
    elbows._geometryTags.push_back(0);
    elbows._deepFilename = "./deep/elbows.json";
    character._deepDeformerAssets.push_back(elbows);

    addGeometry(character, 0, "./geometry/courier", mrv::Vector3(0.92f, 0.91f, 0.2f),
                { 8.0f, 30.0f, 200.0f });
    addGeometry(character, 1, "./geometry/courierRain", mrv::Vector3(0.95f, 0.92f, 0.25f), { 15.0f, 120.0f });
}

void addGroups(Character& character)
{
    character._mainAssetGroups.push_back(
        addGroup(character, "person", { { "body", 1.0f }, { "face", 1.0f }, { "hair", 1.0f } }));
    addGroup(character, "tops", { { "shirt", 70.0f }, { "jacket", 30.0f } });
    addGroup(character, "bottoms", { { "trousers", 0.0f }, { "shorts", 1.0f } }, "season");
    character._mainAssetGroups.push_back(
        addGroup(character, "outfit", { { "tops", 1.0f }, { "bottoms", 1.0f }, { "cape", 0.25f } }));
    character._mainAssetGroups.push_back(
        addGroup(character, "build", { { "=longLegs", 0.4f }, { "=broadShoulders", 0.6f } }));

    addRenderingType(character, "everyday", nullptr, {});
    addRenderingType(character, "winter", "everyday",
                     { { "tops", { 5.0f, 95.0f } }, { "bottoms", { 1.0f, 0.0f } } });
}

} // namespace

void buildCourier(Character& character)
{
    character._name = "Courier";
    buildSkeleton(character, "courier", joints);
    addSpine(character, "spine", { "spine1", "chest" });
    addLimbs(character, limbs);
    addRolls(character);
    for (const char* bone : { "lowerArmRoll_l", "lowerArmRoll_r" })
        character._converterMapping.addIkExcludedBonesByBoneName(&bone, 1);
    shapeBodies(character);
    for (const char* shape : { "smile", "blink_l", "blink_r" })
        addBlendShape(character, "face", shape);
    addOverrides(character);
    addShadings(character);
    addMeshes(character);
    addGroups(character);
    character.autoComputePerceptionShape();
}

} // namespace mrvsamples
