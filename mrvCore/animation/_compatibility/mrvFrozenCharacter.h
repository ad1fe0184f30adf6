// mrvCore/animation/_compatibility/mrvFrozenCharacter.h
// What the frozen characters have in common.
#pragma once

#include "mrvCore/animation/mrvCharacterUserData.h"
#include "mrvCore/animation/mrvMaravoCharacterInterface.h"

namespace mrv::internal {

/// A character of the versions 0 to 4, which owns a tree of assets, a mapping and user data, each by a
/// pointer that a damaged file leaves null. Who takes one of them over puts null in its place.
template <class AssetManager, class Mapping>
class FrozenTreeCharacter : public MaravoCharacterInterface
{
public:
    ~FrozenTreeCharacter() override
    {
        delete _assetManager;
        delete _converterMapping;
        delete _characterUserData;
    }

    AssetManager* _assetManager = nullptr;
    Mapping* _converterMapping = nullptr;
    CharacterUserDataV0* _characterUserData = nullptr;
};

/// A character of version 5 or later, which holds everything by value. What its members mean is told in the
/// current version.
template <class Mapping>
class FrozenCharacter : public MaravoCharacterInterface
{
public:
    // Through these files reach the members below.

    const Mapping& getConverterMapping() const { return _converterMapping; }
    void setConverterMapping(const Mapping& mapping) { _converterMapping = mapping; }
    const CharacterUserDataV0& getCharacterUserData() const { return _characterUserData; }
    void setCharacterUserData(const CharacterUserDataV0& userData) { _characterUserData = userData; }

    Mapping _converterMapping;
    CharacterUserDataV0 _characterUserData;
};

} // namespace mrv::internal
