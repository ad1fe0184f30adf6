// mrvCore/math/geometry2/mrvTriangle2.cpp
#include "mrvCore/math/geometry2/mrvTriangle2.h"

#include "mrvCore/math/geometry2/mrvLine2.h"
#include "mrvCore/math/geometry2/mrvSegment2.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

Vector2 meanOf(const Vector2 (&v)[3])
{
    return (v[0] + v[1] + v[2]) / 3.0f;
}

} // namespace

const Triangle2& Triangle2::getNullTriangle()
{
    static const Triangle2 null;
    return null;
}

void Triangle2::computeEdge(unsigned int i, Segment2& edge) const
{
    MRV_ASSERT(i < 3, "A triangle has no edge %u\n", i);
    edge = Segment2(_vertices[i], _vertices[(i + 1) % 3]);
}

void Triangle2::computeBarycenter(Vector2& result, bool refine) const
{
    result = meanOf(_vertices);
    if (!refine)
        return;
    const Vector2 shifted[3] = { _vertices[0] - result, _vertices[1] - result, _vertices[2] - result };
    result += meanOf(shifted);
}

float Triangle2::computeHeight(unsigned int i) const
{
    MRV_ASSERT(i < 3, "A triangle has no height %u\n", i);
    const Vector2& a = _vertices[(i + 1) % 3];
    const Vector2& b = _vertices[(i + 2) % 3];
    if (a == b)
        return (_vertices[i] - a).norm();
    return std::abs(Line2(a, b).signedDistance(_vertices[i]));
}

float Triangle2::computeSurface() const
{
    return 0.5f * (_vertices[1] - _vertices[0]).norm() * computeHeight(2);
}

bool Triangle2::isPoint(float tolerance) const
{
    for (int i = 1; i < 3; ++i)
    {
        const Vector2 offset = _vertices[i] - _vertices[0];
        if (!(std::abs(offset.x) <= tolerance && std::abs(offset.y) <= tolerance))
            return false;
    }
    return true;
}

bool Triangle2::isDegenerated(float tolerance) const
{
    for (int i = 0; i < 3; ++i)
    {
        const Vector2& middle = _vertices[(i + 1) % 3];
        if (areCollinear(middle - _vertices[i], _vertices[(i + 2) % 3] - middle, tolerance))
            return true;
    }
    return false;
}

void Triangle2::computeRandomPosition(RandomNumberGenerator& rng, Vector2& result) const
{
    const float a = rng.frand();
    const float b = rng.frand() * (1.0f - a);
    const float c = 1.0f - a - b;
    result = a * _vertices[0] + b * _vertices[1] + c * _vertices[2];
}

void Triangle2::getBoundingBox(Vector2& min, Vector2& max) const
{
    const auto [minX, maxX] = std::minmax({ _vertices[0].x, _vertices[1].x, _vertices[2].x });
    const auto [minY, maxY] = std::minmax({ _vertices[0].y, _vertices[1].y, _vertices[2].y });
    min = Vector2(minX, minY);
    max = Vector2(maxX, maxY);
}

} // namespace mrv
