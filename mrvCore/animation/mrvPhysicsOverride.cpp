// mrvCore/animation/mrvPhysicsOverride.cpp
#include "mrvCore/animation/mrvPhysicsOverride.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(PhysicsOverrideV0, "mrv::PhysicsOverrideV0",
                            "50759144-5b63-46fa-ae07-e00549e054d6")

void PhysicsOverrideV0::addAttributes()
{
    addAttribute<MrvString>("name", &PhysicsOverrideV0::_name);
    addAttribute<int32_t>("skeletonBoneIndex", &PhysicsOverrideV0::_skeletonBoneIndex);
    addAttribute<BonePhysicConfigurationV1>("physicsConfiguration",
                                            &PhysicsOverrideV0::_physicsConfiguration);
}

} // namespace mrv
