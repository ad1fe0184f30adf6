// mrvCore/animation/_compatibility/mrvVersionSteps.h
// What the steps of the characters and mappings share, so that each reads as the list of what changed.
#pragma once

#include "mrvCore/assetManagement/_compatibility/mrvAssetSteps.h"

#include <type_traits>

namespace mrv {

/// From a version that stays as it is: the step of a copy.
template <class New, class Old>
std::enable_if_t<!std::is_pointer_v<Old>> stepUp(New& to, const Old& from)
{
    Old copy(from);
    stepUp(to, copy);
}

/// Defines both forms of a step by the template step() of the file: from an old object that is used up, and
/// from one that is copied.
#define MRV_DEFINE_STEP(New, createFrom, Old)                                                                \
    void New::createFrom(Old& old)                                                                           \
    {                                                                                                        \
        step(*this, old);                                                                                    \
    }                                                                                                        \
    void New::createFrom(const Old& old)                                                                     \
    {                                                                                                        \
        step(*this, old);                                                                                    \
    }

namespace internal {

/// A friend of the classes whose members are private.
class VersionSteps
{
public:
    /// Takes over every member that has one name and one type in both classes.
    template <class New, class Old>
    static void takeUnchanged(New& to, Old& old)
    {
#define MRV_INTERNAL_TAKE(member)                                                                            \
    takeIfUnchanged(to, old, [](auto& object) -> decltype((object.member)) { return object.member; });
        MRV_INTERNAL_TAKE(_name)
        MRV_INTERNAL_TAKE(_mainAssetGroups)
        MRV_INTERNAL_TAKE(_mainShaderAttributes)
        MRV_INTERNAL_TAKE(_allAssetGroups)
        MRV_INTERNAL_TAKE(_meshAssets)
        MRV_INTERNAL_TAKE(_geometryAssets)
        MRV_INTERNAL_TAKE(_geometryAssetsPerTags)
        MRV_INTERNAL_TAKE(_shadingGroups)
        MRV_INTERNAL_TAKE(_shaderAttributes)
        MRV_INTERNAL_TAKE(_shaderAssets)
        MRV_INTERNAL_TAKE(_renderingTypes)
        MRV_INTERNAL_TAKE(_converterMapping)
        MRV_INTERNAL_TAKE(_characterUserData)
        MRV_INTERNAL_TAKE(_skeletonOverrides)
        MRV_INTERNAL_TAKE(_blindDataOverrides)
        MRV_INTERNAL_TAKE(_physicsOverrides)
        MRV_INTERNAL_TAKE(_perceptionShapeExtents)
        MRV_INTERNAL_TAKE(_perceptionShapeOffset)
        MRV_INTERNAL_TAKE(_skeletonDisplay)
        MRV_INTERNAL_TAKE(_deepDeformerAssets)

        MRV_INTERNAL_TAKE(_skeletonDescription)
        MRV_INTERNAL_TAKE(_pelvisBoneIndex)
        MRV_INTERNAL_TAKE(_spineBones)
        MRV_INTERNAL_TAKE(_limbBones)
        MRV_INTERNAL_TAKE(_effectorBones)
        MRV_INTERNAL_TAKE(_spineBoneNames)
        MRV_INTERNAL_TAKE(_limbBoneNames)
        MRV_INTERNAL_TAKE(_effectorBoneNames)
        MRV_INTERNAL_TAKE(_ikExcludedBones)
        MRV_INTERNAL_TAKE(_upAxis)
        MRV_INTERNAL_TAKE(_frontAxis)
        MRV_INTERNAL_TAKE(_boneConfigurations)
        MRV_INTERNAL_TAKE(_channelMirrorSources)
        MRV_INTERNAL_TAKE(_effectorMirrorSources)
        MRV_INTERNAL_TAKE(_spineMirrorSources)
        MRV_INTERNAL_TAKE(_groundHeightArray)
        MRV_INTERNAL_TAKE(_blendShapeGroups)
        MRV_INTERNAL_TAKE(_blindDataInfo)
        MRV_INTERNAL_TAKE(_squashStretchWeightsArray)
        MRV_INTERNAL_TAKE(_cacheAllowed)
        MRV_INTERNAL_TAKE(_bonesSnsScaleModes)
#undef MRV_INTERNAL_TAKE
    }

private:
    template <class New, class Old, class Reach>
    static void takeIfUnchanged(New& to, Old& old, Reach reach)
    {
        if constexpr (std::is_invocable_v<Reach, New&> && std::is_invocable_v<Reach, Old&>)
        {
            using To = std::decay_t<std::invoke_result_t<Reach, New&>>;
            using From = std::decay_t<std::invoke_result_t<Reach, Old&>>;
            if constexpr (std::is_same_v<To, From>)
                take(reach(to), reach(old));
        }
    }

    template <class To, class From>
    static void take(To& to, From& from)
    {
        stepUp(to, from);
    }
    // A pointer is an owned skeleton.
    template <class T>
    static void take(T*& to, T*& from)
    {
        std::swap(to, from);
    }
    template <class T>
    static void take(T*& to, T* const& from)
    {
        delete to;
        to = from != nullptr ? new T(*from) : nullptr;
    }
};

template <class New, class Old>
void takeUnchanged(New& to, Old& old)
{
    VersionSteps::takeUnchanged(to, old);
}

} // namespace internal
} // namespace mrv
