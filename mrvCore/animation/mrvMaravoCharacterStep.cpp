// mrvCore/animation/mrvMaravoCharacterStep.cpp
// The step from the version before.
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include "mrvCore/animation/_compatibility/mrvMaravoCharacterV23.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

namespace mrv {

namespace {

template <class Old>
void step(MaravoCharacterV24& to, Old& old)
{
    internal::takeUnchanged(to, old);
    stepUp(to._allAssetGroups, old._allAssetGroups);
}

} // namespace

void MaravoCharacterV24::takeCharacter(MaravoCharacterV24& other)
{
    internal::takeUnchanged(*this, other);
    if (HierarchicalSkeletonDescriptionV1* skeleton = _converterMapping.touchSkeletonDescription())
        skeleton->becomeOwnCopy();
}

MRV_DEFINE_STEP(MaravoCharacterV24, createFromV23, MaravoCharacterV23)

} // namespace mrv
