// mrvCore/animation/mrvSkeletonOverrideScales.h
// Between the two forms of an altered skeleton: a whole pose, and its differences from the bind pose.
#pragma once

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class GenericSpecificConverterMappingV8;

/// Writes the bind pose of the mapping's skeleton, altered by `scales`, into `result`, whose content is
/// replaced. Indices of no bone are skipped. Without a skeleton the pose has no bones.
MRV_CORE_API void
skeletonOverrideFromOverrideScales(HierarchicalSkeletonDescriptionV1::Override& result,
                                   const HierarchicalSkeletonDescriptionV1::OverrideScales& scales,
                                   const GenericSpecificConverterMappingV8& mapping);

/// Appends to `result` what `override` changes in the bind pose, to a tolerance of 0.001. Bones that a list
/// of `override` does not reach have no change in it.
///
/// A position counts as scaled only if the last of its axes that can tell does: axes near 0 in either pose
/// cannot. So a scale on x alone goes unrecorded as a rule, which stored variations rely on.
MRV_CORE_API void
skeletonOverrideToOverrideScales(HierarchicalSkeletonDescriptionV1::OverrideScales& result,
                                 const HierarchicalSkeletonDescriptionV1::Override& override,
                                 const GenericSpecificConverterMappingV8& mapping);

} // namespace mrv
