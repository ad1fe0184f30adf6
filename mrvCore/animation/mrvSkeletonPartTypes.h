// mrvCore/animation/mrvSkeletonPartTypes.h
// What a part of a body is, where it lies, and how bones scale. Files hold the values as integers.
#pragma once

namespace mrv {

/// Kind of a body part. A leg carries the body, a grasper is what reaches out: an arm, a trunk.
struct SkeletonPartType
{
    enum Value { GENERIC, SPINE, GRASPER, LEG, ROOT, END };
};

/// Before or behind the plane that parts the front from the back; END is unknown.
struct CoronalPlaneLocation
{
    enum Value { FRONT, BACK, CENTER, END };
};

/// Above or below the plane that parts the top from the bottom; END is unknown.
struct TransversePlaneLocation
{
    enum Value { TOP, BOTTOM, CENTER, END };
};

/// To which side of the plane that parts right from left; END is unknown.
struct SagittalPlaneLocation
{
    enum Value { RIGHT, CENTER, LEFT, END };
};

/// How a bone follows, on one of its axes, when the chain that it is in squashes or stretches.
struct SnsScaleMode
{
    enum Value { UNIFORM_SCALE, INVERSE_SQUAREROOT_SCALE, NO_SCALE, END };
};

} // namespace mrv
