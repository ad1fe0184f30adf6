// hosts/mrvcharacter/mrvSkeletonImporter.h
// Rigs made elsewhere, as plain data, and the character that is made of one.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector3.h"

#include <string>
#include <vector>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvcharacter {

/// One joint in its bind pose. Units are those of the source.
struct ImportedBone
{
    std::string name;
    int father = -1; ///< an earlier place in the list of bones, -1 for a root
    mrv::Vector3 position;
    mrv::Quaternion orientation; ///< of unit length
};

/// Fathers before their children, with Z up.
struct ImportedSkeleton
{
    std::vector<ImportedBone> bones;
    bool wasYUp = false; ///< the roots were turned from Y up
};

/// Which axis is up in the source.
enum class SourceUp { BY_FORMAT, Y, Z };

/// Reads a rig by the importer for the extension of the file. False with a `failure` for the user.
bool importSkeleton(const std::string& file, SourceUp up, ImportedSkeleton& skeleton, std::string& failure);

/// Makes a new character of the rig: bones by their place, the first root as root and pelvis, Z up, and the
/// default records of every bone.
void buildCharacter(const ImportedSkeleton& skeleton, const mrv::Vector3& front, const std::string& name,
                    mrv::MaravoCharacterV24& character);

} // namespace mrvcharacter
