// tests/animation/mrvAutomaticMappingRigs.h
// Rigs of many shapes, and what automatic mapping makes of them. Worked out step by step from the rules,
// apart from the code.
#pragma once

namespace mrv::test {

struct RigCase
{
    const char* name;
    const char* rig;
    const char* mapping; ///< as of describe(), empty where no shape repeats
    bool hasTies;        ///< which of equal bones comes first decides about more than the order of parts
};

// clang-format off
inline constexpr RigCase rigCases[] = {
    // A head of one bone would be no limb: even a left-over branch must lead down one bone.
    { "biped", R"(
pelvis  -       0      0      1
spine   pelvis  0      0      1.125
chest   spine   0      0      1.25
neck    chest   0      0      1.5
head    neck    0.0625 0      1.625
clav*   chest   0      0.0625 1.4375
arm*    clav*   0      0.25   1.4375
elbow*  arm*   -0.125  0.5    1.4375
hand*   elbow*  0      0.75   1.4375
leg*    pelvis  0      0.125  1
knee*   leg*    0.0625 0.125  0.5
foot*   knee*   0      0.125  0.125
toe*    foot*   0.125  0.125  0
)", R"(pelvis pelvis
spine spine>chest CCC ext(0,1,0) ~0
limb RightArm GRASPER clavR>elbowR CTR ~LeftArm [0] rolls at elbowR
limb LeftArm GRASPER clavL>elbowL CTL ~RightArm [0] rolls at elbowL
limb RightLeg LEG legR>toeR CBR ext(0,1,0) ~LeftLeg rolls at toeR
limb LeftLeg LEG legL>toeL CBL ext(0,1,0) ~RightLeg rolls at toeL
limb neck GENERIC neck>head CTC ext(0,1,0) ~neck
effector handR GRASPER handR>handR BTR
effector handL GRASPER handL>handL BTL
excluded
)", false },
    // The third finger keeps the wrist as its top: it was not below the top of the first when that moved.
    { "bipedWithFingers", R"(
root    -       0      0      0
hips    root    0      0      1
spine1  hips    0      0      1.125
spine2  spine1  0      0      1.25
neck    spine2  0      0      1.5
head    neck    0.0625 0      1.625
arm*    spine2  0      0.25   1.4375
twist*  arm*    0      0.375  1.4375
elbow*  twist*  0      0.5    1.4375
wrist*  elbow*  0.25   0.5    1.4375
thumb1* wrist*  0.25   0.375  1.4375
thumb2* thumb1* 0.3125 0.375  1.4375
index1* wrist*  0.3125 0.4375 1.4375
index2* index1* 0.375  0.4375 1.4375
index3* index2* 0.4375 0.4375 1.4375
index4* index3* 0.5    0.4375 1.4375
ring1*  wrist*  0.3125 0.5625 1.4375
ring2*  ring1*  0.375  0.5625 1.4375
ring3*  ring2*  0.4375 0.5625 1.4375
ring4*  ring3*  0.5    0.5625 1.4375
leg*    hips    0      0.125  0.9375
knee*   leg*    0.0625 0.125  0.5
foot*   knee*   0      0.125  0.125
toe*    foot*   0.125  0.125  0
)", R"(pelvis hips
spine spine1>spine2 CCC ext(0,1,0) ~0
limb RightLeg LEG legR>toeR CBR ext(0,1,0) ~LeftLeg rolls at toeR
limb LeftLeg LEG legL>toeL CBL ext(0,1,0) ~RightLeg rolls at toeL
limb RightArm GRASPER armR>elbowR CTR ~LeftArm [0] [1] [2] rolls at elbowR
limb LeftArm GRASPER armL>elbowL CTL ~RightArm [0] [1] [2] rolls at elbowL
limb neck GENERIC neck>head CTC ext(0,1,0) ~neck
effector ring GRASPER ring1R>ring4R FTR
effector index GRASPER index1R>index4R FTR
effector t GRASPER wristR>thumb2R FTR
effector ring GRASPER ring1L>ring4L FTL
effector index GRASPER index1L>index4L FTL
effector t GRASPER wristL>thumb2L FTL
excluded
)", true },
    // The ears repeat, and what repeats up there counts as an arm.
    { "quadruped", R"(
hips    -      -0.5    0      1
loin    hips   -0.25   0      1
back    loin    0.25   0      1
withers back    0.5    0      1
neck    withers 0.75   0      1.25
head    neck    1      0      1.375
jaw     head    1.125  0      1.25
fore*   withers 0.5    0.125  0.875
elbow*  fore*   0.4375 0.125  0.5
wrist*  elbow*  0.5    0.125  0.25
paw*    wrist*  0.5625 0.125  0
hind*   hips   -0.5    0.125  0.9375
stifle* hind*  -0.375  0.125  0.5
hock*   stifle* -0.5625 0.125 0.25
pad*    hock*  -0.5    0.125  0
ear*    head    1      0.0625 1.5
tip*    ear*    1      0.125  1.625
lobe*   tip*    1      0.125  1.5625
tail1   hips   -0.625  0      1
tail2   tail1  -0.75   0      1
tail3   tail2  -0.875  0      1
)", R"(pelvis hips
spine loin>withers --- ~0
spine neck>head --- ~1
limb RightArm GRASPER earR>lobeR FTR ~LeftArm
limb LeftArm GRASPER earL>lobeL FTL ~RightArm
limb RightFrontLeg LEG foreR>wristR FBR ~LeftFrontLeg [0] rolls at wristR
limb LeftFrontLeg LEG foreL>wristL FBL ~RightFrontLeg [0] rolls at wristL
limb RightBackLeg LEG hindR>padR BBR ~LeftBackLeg rolls at padR
limb LeftBackLeg LEG hindL>padL BBL ~RightBackLeg rolls at padL
limb tail1 GENERIC tail1>tail3 BCC ~tail1
effector pawR LEG pawR>pawR FBR
effector pawL LEG pawL>pawL FBL
excluded
)", false },
    // The middle legs are as many as the others but in front of the middle of the means.
    { "sixLegs", R"(
thorax  -       0      0      1
front*  thorax  1      0.25   1
front2* front*  1.25   0.75   1.25
front3* front2* 1.5    1      0
mid*    thorax  0.25   0.25   1
mid2*   mid*    0.25   0.75   1.25
mid3*   mid2*   0.25   1      0
hind*   thorax -0.5    0.25   1
hind2*  hind*  -0.75   0.75   1.25
hind3*  hind2* -1      1      0
waist   thorax -0.25   0      1
sting1  waist  -0.75   0      1.25
sting2  sting1 -1      0      1.25
feeler* waist  -0.5    0.125  1.5
feel2*  feeler* -0.25  0.25   1.75
feel3*  feel2*  0      0.375  2
)", R"(pelvis thorax
spine waist>waist --- ~0
limb RightFrontLeg LEG frontR>front3R FBR
limb LeftFrontLeg LEG frontL>front3L FBL
limb RightFrontLeg LEG midR>mid3R FBR
limb LeftFrontLeg LEG midL>mid3L FBL
limb RightBackLeg LEG hindR>hind3R BBR
limb LeftBackLeg LEG hindL>hind3L BBL
limb RightArm GRASPER feelerR>feel3R BTR ~LeftArm
limb LeftArm GRASPER feelerL>feel3L BTL ~RightArm
limb sting1 GENERIC sting1>sting2 BCC ~sting1
excluded
)", false },
    // Eight equal legs alone would be arms: a leg reaches below the mean of the lowest group.
    { "eightLegs", R"(
body    -       0      0      1
a1*     body    0.75   0.25   1
a2*     a1*     1      0.75   1.5
a3*     a2*     1.25   1.25   1
a4*     a3*     1.5    1.5    0
b1*     body    0.5    0.375  1
b2*     b1*     0.5    1      1.5
b3*     b2*     0.625  1.5    1
b4*     b3*     0.625  1.75   0
c1*     body    0.25   0.375  1
c2*     c1*     0      1      1.5
c3*     c2*    -0.125  1.5    1
c4*     c3*    -0.125  1.75   0
d1*     body    0      0.25   1
d2*     d1*    -0.5    0.75   1.5
d3*     d2*    -0.75   1.25   1
d4*     d3*    -1      1.5    0
abdomen body   -0.5    0      1
tip     abdomen -1     0      1.25
palp*   body    1      0.125  1
palp2*  palp*   1.125  0.125  1.25
palp3*  palp2*  1.25   0.125  1.125
)", R"(pelvis body
limb RightArm GRASPER palpR>palp3R FTR ~LeftArm
limb LeftArm GRASPER palpL>palp3L FTL ~RightArm
limb RightFrontLeg LEG a1R>a2R>a4R FBR rolls at a4R
limb LeftFrontLeg LEG a1L>a2L>a4L FBL rolls at a4L
limb RightBackLeg LEG b1R>b2R>b4R BBR rolls at b4R
limb LeftBackLeg LEG b1L>b2L>b4L BBL rolls at b4L
limb RightBackLeg LEG c1R>c2R>c4R BBR rolls at c4R
limb LeftBackLeg LEG c1L>c2L>c4L BBL rolls at c4L
limb RightBackLeg LEG d1R>d2R>d4R BBR rolls at d4R
limb LeftBackLeg LEG d1L>d2L>d4L BBL rolls at d4L
excluded
)", false },
    // Neck and tail, the two left-over branches, become mirrors of each other.
    { "bird", R"(
body    -       0      0      1
chest   body    0.25   0      1.125
neck    chest   0.375  0      1.375
skull   neck    0.4375 0      1.5
beak    skull   0.5625 0      1.5
wing*   chest   0.25   0.125  1.25
fore*   wing*   0.125  0.5    1.25
hand*   fore*   0.25   0.875  1.25
feather1* hand* 0.125  1.125  1.25
feather2* hand* 0      1      1.25
feather3* hand* -0.125 0.875  1.25
thigh*  body    0      0.125  0.875
shin*   thigh*  0.125  0.125  0.625
tarsus* shin*  -0.0625 0.125  0.375
claw1*  tarsus* 0      0.0625 0
claw2*  tarsus* 0.0625 0.125  0
claw3*  tarsus* 0      0.1875 0
claw4*  tarsus* -0.0625 0.125 0
tail    body   -0.25   0      1
fan     tail   -0.5    0      1
)", R"(pelvis body
spine chest>chest --- ~0
limb RightArm GRASPER wingR>handR FTR ~LeftArm [0] [1] [2]
limb LeftArm GRASPER wingL>handL FTL ~RightArm [0] [1] [2]
limb RightLeg LEG thighR>tarsusR BBR ~LeftLeg [0] [1] [2] [3]
limb LeftLeg LEG thighL>tarsusL BBL ~RightLeg [0] [1] [2] [3]
limb neck GENERIC neck>beak FTC ~tail
limb tail GENERIC tail>fan BTC ~neck
effector feather3R GRASPER feather3R>feather3R FTR
effector feather2R GRASPER feather2R>feather2R FTR
effector feather1R GRASPER feather1R>feather1R FTR
effector feather3L GRASPER feather3L>feather3L FTL
effector feather2L GRASPER feather2L>feather2L FTL
effector feather1L GRASPER feather1L>feather1L FTL
effector claw4R LEG claw4R>claw4R BBR
effector claw3R LEG claw3R>claw3R BBR
effector claw2R LEG claw2R>claw2R BBR
effector claw1R LEG claw1R>claw1R BBR
effector claw4L LEG claw4L>claw4L BBL
effector claw3L LEG claw3L>claw3L BBL
effector claw2L LEG claw2L>claw2L BBL
effector claw1L LEG claw1L>claw1L BBL
excluded
)", false },
    // Arms of different lengths do not repeat. The legs do, but as the only group they are not below others.
    { "lopsided", R"(
trunk   -       0      0      1
upper   trunk   0      0      1.5
skull   upper   0      0      1.75
crown   skull   0      0      2
armR    upper   0     -0.25   1.5
elbowR  armR    0     -0.5    1.5
handR   elbowR  0.0625 -0.75  1.5
armL    upper   0      0.25   1.5
elbowL  armL    0      0.5    1.5
handL   elbowL  0      0.75   1.5
palmL   handL   0      0.875  1.5
leg*    trunk   0      0.125  1
knee*   leg*    0      0.125  0.5
foot*   knee*   0.125  0.125  0
stump   trunk   0     -0.375  0.875
stump2  stump   0     -0.375  0.75
)", R"(pelvis trunk
limb RightArm GRASPER legR>footR CCR ~LeftArm
limb LeftArm GRASPER legL>footL CCL ~RightArm
excluded
)", false },
    { "twistBones", R"(
pelvis  -       0      0      1
hip*    pelvis  0      0.125  1
hip2*   hip*    0      0.125  0.9921875
thigh1* hip2*   0.0625 0.125  0.875
thigh2* thigh1* 0.125  0.125  0.75
thigh3* thigh2* 0.1875 0.125  0.625
knee*   thigh3* 0.25   0.125  0.5
shin1*  knee*   0.1875 0.125  0.375
shin2*  shin1*  0.125  0.125  0.25
ankle*  shin2*  0.0625 0.125  0.125
toe*    ankle*  0.1875 0.125  0
chest   pelvis  0      0      1.5
arm*    chest   0      0.25   1.5
arm2*   arm*    0      0.375  1.5
elbow*  arm2*   0      0.5    1.5
fore*   elbow*  0.125  0.625  1.5
hand*   fore*   0.25   0.75   1.5
)", R"(pelvis pelvis
spine chest>chest --- ~0
limb RightArm GRASPER armR>elbowR>handR BTR ~LeftArm rolls at handR
limb LeftArm GRASPER armL>elbowL>handL BTL ~RightArm rolls at handL
limb RightLeg LEG hipR>shin1R FBR ~LeftLeg [0] rolls at shin1R
limb LeftLeg LEG hipL>shin1L FBL ~RightLeg [0] rolls at shin1L
effector R LEG shin2R>toeR FBR
effector L LEG shin2L>toeL FBL
excluded arm2R foreR arm2L foreL thigh1R thigh3R thigh2R thigh1L thigh3L thigh2L
)", false },
    { "snake", R"(
head - 1 0 0
s1 head 0.5 0 0
s2 s1 0 0 0
s3 s2 -0.5 0 0
s4 s3 -1 0 0
)", "", false },
};
// clang-format on

} // namespace mrv::test
