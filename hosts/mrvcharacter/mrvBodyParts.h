// hosts/mrvcharacter/mrvBodyParts.h
// What part of the body each bone belongs to.
#pragma once

#include <cstddef>
#include <vector>

namespace mrv {
class GenericSpecificConverterMappingV8;
}

namespace mrvcharacter {

/// Kinds of parts as a picture tells them apart.
struct BodyPart
{
    enum Value { PELVIS, SPINE, LEG, GRASPER, OTHER_LIMB, EFFECTOR, NONE, END };
};

struct BodyParts
{
    std::vector<BodyPart::Value> ofBone; ///< by specific index
    size_t counts[BodyPart::END] = {};   ///< parts of each kind; bones for NONE
};

/// Bones of the chains of all parts. Of a bone in several chains the first one counts: that of a spine before
/// that of a limb, that of a limb before that of an effector.
BodyParts findBodyParts(const mrv::GenericSpecificConverterMappingV8& mapping);

} // namespace mrvcharacter
