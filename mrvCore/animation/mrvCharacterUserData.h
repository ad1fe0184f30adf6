// mrvCore/animation/mrvCharacterUserData.h
// What the editors keep in a character.
#pragma once

#include "mrvCore/math/types/mrvVector2.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// Carried with the character; nothing in the library looks at it.
class MRV_CORE_API CharacterUserDataV0
{
public:
    MRV_PERSISTENT_CLASS(CharacterUserDataV0)

    Array<Vector2> _nodesPositions; ///< of the nodes of the character's graph
};

} // namespace mrv
