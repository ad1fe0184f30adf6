// mrvCore/math/geometry3/mrvRayBoxSlopes.cpp
#include "mrvCore/math/geometry3/mrvRayBoxSlopes.h"

#include "mrvCore/math/geometry3/mrvClassifiedRay3.h"

#include <limits>

namespace mrv::internal {

namespace {

enum Sign { M = -1, O = 0, P = 1 };

/// False if the ray leads away from the box on the axis, or passes it by where it has no direction.
template <Sign Direction>
bool leadsTo(float source, float min, float max)
{
    if constexpr (Direction == M)
        return !(min > source);
    else if constexpr (Direction == P)
        return !(source > max);
    else
        return source >= min && source <= max;
}

/// False if the ray, where it leaves the slab of axis A, has not come to the slab of axis B.
template <Sign A, Sign B>
bool reaches(float slope, float intercept, float minA, float maxA, float minB, float maxB)
{
    if constexpr (A == O || B == O)
        return true;
    else
    {
        const float v = slope * (A == M ? minA : maxA) + intercept;
        return B == M ? !(v > maxB) : !(v < minB);
    }
}

template <Sign X, Sign Y, Sign Z>
bool test(const ClassifiedRay3& ray, const Vector3& min, const Vector3& max)
{
    const Vector3& source = ray.getSource();
    return leadsTo<X>(source.x, min.x, max.x) && leadsTo<Y>(source.y, min.y, max.y) &&
           leadsTo<Z>(source.z, min.z, max.z) &&
           reaches<X, Y>(ray.getSYX(), ray.getCXY(), min.x, max.x, min.y, max.y) &&
           reaches<Y, X>(ray.getSXY(), ray.getCYX(), min.y, max.y, min.x, max.x) &&
           reaches<Y, Z>(ray.getSZY(), ray.getCYZ(), min.y, max.y, min.z, max.z) &&
           reaches<Z, Y>(ray.getSYZ(), ray.getCZY(), min.z, max.z, min.y, max.y) &&
           reaches<X, Z>(ray.getSZX(), ray.getCXZ(), min.x, max.x, min.z, max.z) &&
           reaches<Z, X>(ray.getSXZ(), ray.getCZX(), min.z, max.z, min.x, max.x);
}

using Test = bool (*)(const ClassifiedRay3&, const Vector3&, const Vector3&);

/// In the order of the classes.
constexpr Test tests[ClassifiedRay3::Classification::END] = {
    test<M, M, M>, test<M, M, P>, test<M, P, M>, test<M, P, P>, test<M, O, M>, test<M, O, P>, test<M, M, O>,
    test<M, P, O>, test<M, O, O>, test<P, M, M>, test<P, M, P>, test<P, P, M>, test<P, P, P>, test<P, O, M>,
    test<P, O, P>, test<P, M, O>, test<P, P, O>, test<P, O, O>, test<O, M, M>, test<O, M, P>, test<O, P, M>,
    test<O, P, P>, test<O, O, M>, test<O, O, P>, test<O, M, O>, test<O, P, O>,
};

} // namespace

bool intersectsBox(const ClassifiedRay3& ray, const Vector3& min, const Vector3& max)
{
    const int classification = ray.getClassificationInt();
    return classification < ClassifiedRay3::Classification::END && tests[classification](ray, min, max);
}

bool intersectsBox(const ClassifiedRay3& ray, const Vector3& min, const Vector3& max, float& t)
{
    t = std::numeric_limits<float>::max();
    if (!intersectsBox(ray, min, max))
        return false;
    const Vector3& direction = ray.getDirection();
    bool isFirst = true;
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        if (direction[axis] == 0.0f)
            continue;
        const float entry = direction[axis] < 0.0f ? max[axis] : min[axis];
        const float candidate = (entry - ray.getSource()[axis]) * ray.getDirectionInverses()[axis];
        if (isFirst || candidate > t)
            t = candidate;
        isFirst = false;
    }
    return !(t < 0.0f);
}

} // namespace mrv::internal
