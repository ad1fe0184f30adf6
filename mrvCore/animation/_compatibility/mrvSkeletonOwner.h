// mrvCore/animation/_compatibility/mrvSkeletonOwner.h
// The skeleton of a frozen mapping.
#pragma once

#include <utility>

namespace mrv::internal {

/// Deletes the skeleton with the mapping, copies it with it, and lets a next owner take it over.
template <class Description>
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

    Description* _skeletonDescription = nullptr; ///< null where a file has none

private:
    static Description* copy(const Description* source)
    {
        return source != nullptr ? new Description(*source) : nullptr;
    }
};

} // namespace mrv::internal
