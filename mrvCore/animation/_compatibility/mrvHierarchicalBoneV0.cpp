// mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.cpp
#include "mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(HierarchicalBoneV0, "mrv::HierarchicalBoneV0",
                            "885b17a4-48af-4ff4-bfa8-b5766ea0f670")

void HierarchicalBoneV0::addAttributes()
{
    using V0 = HierarchicalBoneV0;
    addAttribute<MrvString>("name", &V0::_name);
    addAttribute<Vector3>("relativePos", &V0::_relativePos);
    addAttribute<Quaternion>("baseLocalOri", &V0::_baseLocalOri);
    addAttribute<Quaternion>("preRotation", &V0::_preRotation);
    addAttribute<HierarchicalBoneV0*>("father", &V0::_father);
    addAttribute<Array<HierarchicalBoneV0*>>("children", &V0::_children);
    addAttribute<int>("specificBoneIndex", &V0::_specificBoneIndex);
}

} // namespace mrv
