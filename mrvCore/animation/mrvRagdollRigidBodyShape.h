// mrvCore/animation/mrvRagdollRigidBodyShape.h
// Shapes of a bone's body.
#pragma once

#include <cstdint>

namespace mrv {

/// Cylinders and capsules stand along Z. Files hold the number and may hold others.
struct RagdollRigidBodyShape
{
    enum Value : int32_t { CYLINDER, BOX, CAPSULE, SPHERE, END };
};

} // namespace mrv
