// mrvCore/math/delaunay/mrvDelaunay2Information.cpp
// Extent and dimension of a set of points.
#include "mrvCore/math/delaunay/mrvDelaunay2.h"

#include <cmath>

namespace mrv {

namespace {

bool isFinite(const Vector2& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// Least and greatest coordinate of the finite points on one axis, with the first points that have them.
struct Extent
{
    float min = 0.0f;
    float max = 0.0f;
    int minIndex = -1; ///< -1 until there is a point
    int maxIndex = -1;

    void update(float value, int index)
    {
        if (minIndex == -1 || value < min)
        {
            min = value;
            minIndex = index;
        }
        if (maxIndex == -1 || value > max)
        {
            max = value;
            maxIndex = index;
        }
    }
    float getRange() const { return max - min; }
};

} // namespace

void Delaunay2::getInformation(unsigned int count, const Vector2* points, float epsilon, Information& info)
{
    info = Information();
    const int pointCount = static_cast<int>(count);
    Extent extents[2];
    for (int i = 0; i < pointCount; ++i)
    {
        if (!isFinite(points[i]))
            continue;
        extents[0].update(points[i].x, i);
        extents[1].update(points[i].y, i);
    }
    if (extents[0].minIndex == -1)
        return;

    const Extent& longer = extents[1].getRange() > extents[0].getRange() ? extents[1] : extents[0];
    for (int axis = 0; axis < 2; ++axis)
    {
        info._min[axis] = extents[axis].min;
        info._max[axis] = extents[axis].max;
    }
    info._maxRange = longer.getRange();
    info._extreme[0] = longer.minIndex;
    info._origin = points[longer.minIndex];
    if (epsilon > info._maxRange)
    {
        info._extreme[1] = info._extreme[2] = info._extreme[0];
        return;
    }

    info._extreme[1] = longer.maxIndex;
    const Vector2 along = points[longer.maxIndex] - info._origin;
    info._direction[0] = along / std::sqrt(along.norm2() + internal::SMALLEST_NORM2);
    info._direction[1] = Vector2(-info._direction[0].y, info._direction[0].x);

    info._extreme[2] = info._extreme[0];
    float farthest = 0.0f;
    for (int i = 0; i < pointCount; ++i)
    {
        const float distance = info._direction[1].dot(points[i] - info._origin);
        if (!isFinite(points[i]) || !(std::abs(distance) > std::abs(farthest)))
            continue;
        farthest = distance;
        info._extreme[2] = i;
    }
    if (epsilon * info._maxRange > std::abs(farthest))
    {
        info._dimension = 1;
        info._extreme[2] = info._extreme[1];
        return;
    }
    info._dimension = 2;
    info._extremeCCW = farthest > 0.0f;
}

} // namespace mrv
