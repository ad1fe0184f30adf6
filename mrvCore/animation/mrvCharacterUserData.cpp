// mrvCore/animation/mrvCharacterUserData.cpp
#include "mrvCore/animation/mrvCharacterUserData.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(CharacterUserDataV0, "CharacterUserDataV0",
                            "acfc75d4-ba38-4e41-aede-46b112854eac")

// This list is the file format: order, names and types stay. A change is a CharacterUserDataV1.
void CharacterUserDataV0::addAttributes()
{
    addAttribute<Array<Vector2>>("nodesPositions", &CharacterUserDataV0::_nodesPositions);
}

} // namespace mrv
