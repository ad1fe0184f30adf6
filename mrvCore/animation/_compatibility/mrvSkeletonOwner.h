// mrvCore/animation/_compatibility/mrvSkeletonOwner.h
// The skeleton of the mappings from version 5 to 7.
#pragma once

#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"

#include <utility>

namespace mrv::internal {

/// Deletes the skeleton with the mapping, copies it with it, and lets a next owner take it over.
class SkeletonOwner
{
public:
    SkeletonOwner() = default;
    SkeletonOwner(const SkeletonOwner& other) : _skeletonDescription(copy(other._skeletonDescription)) {}
    SkeletonOwner(SkeletonOwner&& other) noexcept
        : _skeletonDescription(std::exchange(other._skeletonDescription, nullptr))
    {}
    SkeletonOwner& operator=(SkeletonOwner other) noexcept
    {
        std::swap(_skeletonDescription, other._skeletonDescription);
        return *this;
    }
    ~SkeletonOwner() { delete _skeletonDescription; }

    HierarchicalSkeletonDescriptionV1* _skeletonDescription = nullptr; ///< null where a file has none

private:
    static HierarchicalSkeletonDescriptionV1* copy(const HierarchicalSkeletonDescriptionV1* source)
    {
        return source != nullptr ? new HierarchicalSkeletonDescriptionV1(*source) : nullptr;
    }
};

} // namespace mrv::internal
