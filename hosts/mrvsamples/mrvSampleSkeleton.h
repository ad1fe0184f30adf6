// hosts/mrvsamples/mrvSampleSkeleton.h
// Skeletons and body parts from short tables.
#pragma once

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include <cstddef>
#include <vector>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvsamples {

/// One joint, in the world: metres, Z up, the front towards X, and so the left side towards Y.
///
/// Names that end with "_l" have a twin: the branch comes a second time with Y negated and "_r". A father
/// comes before its children.
struct Joint
{
    const char* name;
    const char* father; ///< null for the root
    float x;
    float y;
    float z;
};

/// Fills the mapping of a character with the joints, a left branch directly before its twin.
///
/// The X axis of a bone points at its first child; a bone without children stands like its father. Bodies and
/// display shapes are fitted to the lengths of the bones, and bones without length have none.
void buildSkeleton(mrv::MaravoCharacterV24& character, const char* name, const std::vector<Joint>& joints);

/// Specific index of a bone; a name that is none is fatal.
int findBone(const mrv::MaravoCharacterV24& character, const char* name);

/// A chain by its ends, null for none.
struct Chain
{
    const char* first = nullptr;
    const char* last = nullptr;
};

/// A limb with what hangs on its end. With `isSided` it is the left one of a pair, whose names end with "_l".
struct Limb
{
    const char* name;
    mrv::SkeletonPartType::Value type;
    Chain auxiliary;
    Chain extension;
    mrv::CoronalPlaneLocation::Value coronal;
    mrv::TransversePlaneLocation::Value transverse;
    bool isSided;
    std::vector<Chain> effectors;
};

/// Adds the limbs with their effectors, names and mirrors: limb by limb, a left one before its twin. Planes
/// are those of limbs that bend forwards and back.
void addLimbs(mrv::MaravoCharacterV24& character, const std::vector<Limb>& limbs);

/// Adds a spine that bends forwards and back.
void addSpine(mrv::MaravoCharacterV24& character, const char* name, const Chain& chain);

} // namespace mrvsamples
