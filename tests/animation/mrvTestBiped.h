// tests/animation/mrvTestBiped.h
// A small biped with its mapping, for the tests of what a mapping answers.
#pragma once

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "tests/support/mrvTestSkeleton.h"

#include <sstream>
#include <string>

namespace mrv::test {

// Specific bone indices of the biped. X is the front, Y the left side, Z up.
enum { ROOT, PELVIS, SPINE, CHEST, HEAD };
enum { SHOULDER_R = HEAD + 1, ARM_R, HAND_R, FINGER_R, FINGERTIP_R };
enum { SHOULDER_L = FINGERTIP_R + 1, ARM_L, HAND_L, FINGER_L, FINGERTIP_L };
enum { LEG_R = FINGERTIP_L + 1, KNEE_R, FOOT_R, TOE_R, TOETIP_R };
enum { LEG_L = TOETIP_R + 1, KNEE_L, FOOT_L, BONE_COUNT };

/// Its toes stand at a height of 1/16, the pelvis at 1; all heights are exact.
class Biped : public HierarchicalSkeletonDescriptionV1
{
public:
    Biped()
    {
        fillSkeleton(*this, R"(
            root        -           0     0       0
            pelvis      root        0     0       1
            spine       pelvis      0     0       0.25
            chest       spine       0     0       0.25
            head        chest       0     0       0.5
            shoulderR   chest       0    -0.25    0
            armR        shoulderR   0    -0.25    0
            handR       armR        0    -0.25    0
            fingerR     handR       0    -0.125   0
            fingertipR  fingerR     0    -0.125   0
            shoulderL   chest       0     0.25    0
            armL        shoulderL   0     0.25    0
            handL       armL        0     0.25    0
            fingerL     handL       0     0.125   0
            fingertipL  fingerL     0     0.125   0
            legR        pelvis      0    -0.125   0
            kneeR       legR        0     0      -0.5
            footR       kneeR       0     0      -0.375
            toeR        footR       0.125 0      -0.0625
            toetipR     toeR        0.125 0       0
            legL        pelvis      0     0.125   0
            kneeL       legL        0     0      -0.5
            footL       kneeL       0     0      -0.4375)");
    }
};

/// Limbs of the body: both arms, both legs, the head. Effectors: a finger and a toe of the right side.
enum { RIGHT_ARM, LEFT_ARM, RIGHT_LEG, LEFT_LEG, SKULL, LIMB_COUNT };

inline GenericSpecificConverterBoneV1 makePart(SkeletonPartType::Value type, int firstAux, int lastAux,
                                               int firstExt, int lastExt)
{
    GenericSpecificConverterBoneV1 part;
    part._type = type;
    part._firstBoneOfChain[0] = firstAux;
    part._lastBoneOfChain[0] = lastAux;
    part._firstBoneOfChain[1] = firstExt;
    part._lastBoneOfChain[1] = lastExt;
    return part;
}

inline void fillBody(GenericSpecificConverterMappingV8& mapping)
{
    mapping.duplicateHierarchicalSkeletonDescription(Biped());
    mapping.setUpAxis(Vector3(0.0f, 0.0f, 1.0f));
    mapping.setPelvis("pelvis");
    mapping.addSpine(makePart(SkeletonPartType::SPINE, -1, -1, SPINE, CHEST));
    mapping.addLimb(makePart(SkeletonPartType::GRASPER, SHOULDER_R, ARM_R, ARM_R, HAND_R));
    mapping.addLimb(makePart(SkeletonPartType::GRASPER, SHOULDER_L, ARM_L, ARM_L, HAND_L));
    mapping.addLimb(makePart(SkeletonPartType::LEG, -1, -1, LEG_R, FOOT_R));
    mapping.addLimb(makePart(SkeletonPartType::LEG, -1, -1, LEG_L, FOOT_L));
    mapping.addLimb(makePart(SkeletonPartType::GENERIC, -1, -1, HEAD, HEAD));
    mapping.addEffector(makePart(SkeletonPartType::GRASPER, -1, -1, FINGER_R, FINGERTIP_R));
    mapping.addEffector(makePart(SkeletonPartType::LEG, -1, -1, TOE_R, TOETIP_R));
    mapping.initChannelMirrorSources(LIMB_COUNT);
    const int mirrors[LIMB_COUNT] = { LEFT_ARM, RIGHT_ARM, LEFT_LEG, RIGHT_LEG, SKULL };
    mapping.touchChannelMirrorSources().assign(LIMB_COUNT, mirrors);
    mapping.initSpineMirrorSources(1);
    mapping.touchSpineMirrorSources()[0] = 0;
}

/// The object in the binary form.
template <typename T>
std::string packed(const T& object)
{
    BinaryStream stream;
    stream.pack(object);
    return stream.getStream().str();
}

} // namespace mrv::test
