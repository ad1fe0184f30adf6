// mrvCore/animation/mrvBoneGeometry.cpp
#include "mrvCore/animation/mrvBoneGeometry.h"

#include "mrvCore/animation/mrvBoneChain.h"
#include "mrvCore/animation/mrvBoneWalks.h"

#include <algorithm>

namespace mrv {

using internal::BoneChain;

namespace {

/// Mean, least and greatest of values, in the order in which they come.
struct Extent
{
    void add(float value)
    {
        _min = _count == 0 ? value : std::min(_min, value);
        _max = _count == 0 ? value : std::max(_max, value);
        _sum += value;
        ++_count;
    }
    void get(float& average, float& min, float& max) const
    {
        average = _count == 0 ? 0.0f : _sum / static_cast<float>(_count);
        min = _min;
        max = _max;
    }

private:
    float _sum = 0.0f;
    float _min = 0.0f;
    float _max = 0.0f;
    int _count = 0;
};

} // namespace

namespace internal {

BoneChain getChain(const HierarchicalBoneV1* first, const HierarchicalBoneV1* last)
{
    BoneChain chain;
    FatherClimb climb(last);
    for (; climb.get() != nullptr; climb.climb())
    {
        chain.push_back(climb.get());
        if (climb.get() == first)
            break;
    }
    if (climb.get() == nullptr)
        chain.clear();
    std::reverse(chain.begin(), chain.end());
    return chain;
}

Vector3 getMidpoint(const HierarchicalBoneV1& a, const HierarchicalBoneV1& b)
{
    return (a.getWorldPosUnscaled() + b.getWorldPosUnscaled()) * 0.5f;
}

size_t findNearest(const BoneChain& chain, size_t begin, size_t end, const Vector3& point)
{
    size_t nearest = begin;
    float least = 0.0f;
    for (size_t i = begin; i < end; ++i)
    {
        const float distance = (chain[i]->getWorldPosUnscaled() - point).norm2();
        if (i == begin || distance < least)
        {
            nearest = i;
            least = distance;
        }
    }
    return nearest;
}

} // namespace internal

void getPlanesValuesOnHierarchy(float& averageA, float& minA, float& maxA, float& averageB, float& minB,
                                float& maxB, float& averageC, float& minC, float& maxC,
                                const HierarchicalBoneV1* bone, const Vector3& axisA, const Vector3& axisB,
                                const Vector3& axisC)
{
    Extent extents[3];
    if (bone != nullptr)
    {
        internal::walkBranch(*bone, [&](const HierarchicalBoneV1& below, int) {
            const Vector3& position = below.getWorldPosUnscaled();
            extents[0].add(position.dot(axisA));
            extents[1].add(position.dot(axisB));
            extents[2].add(position.dot(axisC));
        });
    }
    extents[0].get(averageA, minA, maxA);
    extents[1].get(averageB, minB, maxB);
    extents[2].get(averageC, minC, maxC);
}

const HierarchicalBoneV1* findGeometricMiddleBone(const HierarchicalBoneV1* first,
                                                  const HierarchicalBoneV1* last)
{
    if (first == last || first == nullptr || last == nullptr)
        return nullptr;
    const Vector3 midpoint = internal::getMidpoint(*first, *last);
    const HierarchicalBoneV1* middle = nullptr;
    float least = 0.0f;
    for (internal::FatherClimb climb(last); climb.get() != nullptr && climb.get() != first; climb.climb())
    {
        const float distance = (climb.get()->getWorldPosUnscaled() - midpoint).norm2();
        if (middle != nullptr && !(distance < least))
            continue;
        middle = climb.get();
        least = distance;
    }
    return middle;
}

const HierarchicalBoneV1* trimEndOfChainFromGeometricMiddle(const HierarchicalBoneV1* first,
                                                            const HierarchicalBoneV1* last)
{
    const BoneChain chain = internal::getChain(first, last);
    const size_t count = chain.size();
    if (count < 3)
        return last;
    const size_t middle = findNearest(chain, 1, count - 1, internal::getMidpoint(*first, *last));
    const Vector3& start = first->getWorldPosUnscaled();
    const Vector3 target = start + 2.0f * (chain[middle]->getWorldPosUnscaled() - start);
    // Never the bone right below the first: the search begins behind it.
    return chain[findNearest(chain, 2, count, target)];
}

} // namespace mrv
