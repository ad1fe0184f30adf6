// hosts/mrvcharacter/mrvAssimpSkeletonImporter.h
// Rigs in the files of 3D packages, as far as Assimp reads them.
#pragma once

#include <string>

namespace mrvcharacter {

struct ImportedSkeleton;

/// Reads the bones of the first skinned mesh with the joints between them, or else the node tree below the
/// first joint, in the order of the file. The bind pose is that of the nodes; scales along the chain are
/// worked into the positions, since bones have none.
///
/// `isYUp` tells how the source stands, which is not changed here: by the file where it says so, by the shape
/// of the skeleton for BVH, which never does, and otherwise yes, as Assimp hands its scenes over.
/// False with a `failure` for what Assimp cannot read and for a scene without joints.
bool readAssimpSkeleton(const std::string& file, ImportedSkeleton& skeleton, bool& isYUp,
                        std::string& failure);

} // namespace mrvcharacter
