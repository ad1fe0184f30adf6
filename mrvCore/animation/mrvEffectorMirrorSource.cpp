// mrvCore/animation/mrvEffectorMirrorSource.cpp
#include "mrvCore/animation/mrvEffectorMirrorSource.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(EffectorMirrorSourceV0, "mrv::EffectorMirrorSourceV0",
                            "b0d9b338-07c2-477d-bcb9-87f045a64814")

void EffectorMirrorSourceV0::addAttributes()
{
    addRTTIAttributes();
}

void EffectorMirrorSourceV0::addRTTIAttributes()
{
    addAttribute<PODArray<int>>("effectorMirrorSourcesIdx",
                                &EffectorMirrorSourceV0::_effectorMirrorSourcesIdx);
}

} // namespace mrv
