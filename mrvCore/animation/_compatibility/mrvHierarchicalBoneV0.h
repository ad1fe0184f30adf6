// mrvCore/animation/_compatibility/mrvHierarchicalBoneV0.h
// A bone of version 0, as files hold it.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Links are as the file tells them: a damaged one may hold nulls and rings.
class MRV_CORE_API HierarchicalBoneV0
{
public:
    MRV_PERSISTENT_CLASS(HierarchicalBoneV0)

    MrvString _name;
    Vector3 _relativePos;
    Quaternion _baseLocalOri;
    Quaternion _preRotation;
    HierarchicalBoneV0* _father = nullptr;
    Array<HierarchicalBoneV0*> _children;
    int _specificBoneIndex = 0;
};

} // namespace mrv
