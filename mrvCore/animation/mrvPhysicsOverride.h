// mrvCore/animation/mrvPhysicsOverride.h
// The replacement of one bone's rigid body, as a character stores it.
#pragma once

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Stored and handed on, not evaluated here.
class MRV_CORE_API PhysicsOverrideV0
{
public:
    MRV_PERSISTENT_CLASS(PhysicsOverrideV0)

    MrvString _name;
    int32_t _skeletonBoneIndex = -1; ///< specific index, -1 for none
    BonePhysicConfigurationV1 _physicsConfiguration;
};

} // namespace mrv
