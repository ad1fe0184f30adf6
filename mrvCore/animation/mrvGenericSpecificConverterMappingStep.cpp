// mrvCore/animation/mrvGenericSpecificConverterMappingStep.cpp
// The step from the version before.
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/_compatibility/mrvGenericSpecificConverterMappingV7.h"
#include "mrvCore/animation/_compatibility/mrvVersionSteps.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/assetManagement/mrvBlindData.h"

#include <utility>

namespace mrv {

void GenericSpecificConverterMappingV8::createFromV7(GenericSpecificConverterMappingV7& old)
{
    internal::takeUnchanged(*this, old);
    stepUp(_blindDataInfo, old._blindDataInfo);
    updateBlindDataFloatCount();
    setFrontAxis(old._frontAxis); // computes the orientations
}

void GenericSpecificConverterMappingV8::createFromV7(const GenericSpecificConverterMappingV7& old)
{
    GenericSpecificConverterMappingV7 copy(old);
    createFromV7(copy);
}

GenericSpecificConverterMappingV8&
GenericSpecificConverterMappingV8::operator=(GenericSpecificConverterMappingV8&& other) noexcept
{
    internal::takeUnchanged(*this, other);
    std::swap(_skeletonDisplay, other._skeletonDisplay); // back: each belongs to the character around it
    updateBlindDataFloatCount();
    _cacheAllowedGlobal = other._cacheAllowedGlobal;
    _orientationToZUpXFront = other._orientationToZUpXFront;
    _orientationToZUpXFrontInverse = other._orientationToZUpXFrontInverse;
    _maxIterations = other._maxIterations;
    _quality = other._quality;
    return *this;
}

void GenericSpecificConverterMappingV8::takeOver(GenericSpecificConverterMappingV8& other)
{
    if (this == &other)
        return;
    *this = std::move(other);
    if (_skeletonDescription != nullptr)
        _skeletonDescription->becomeOwnCopy();
}

} // namespace mrv
