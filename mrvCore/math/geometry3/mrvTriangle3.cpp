// mrvCore/math/geometry3/mrvTriangle3.cpp
#include "mrvCore/math/geometry3/mrvTriangle3.h"

#include "mrvCore/math/geometry3/mrvPlane3.h"
#include "mrvCore/math/geometry3/mrvRay3.h"
#include "mrvCore/math/geometry3/mrvSegment3.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include <cmath>

namespace mrv {

namespace {

Vector3 meanOf(const Vector3& a, const Vector3& b, const Vector3& c)
{
    return (a + b + c) / 3.0f;
}

bool coincide(const Vector3& a, const Vector3& b, float tolerance)
{
    return Segment3(a, b).isDegenerated(tolerance);
}

} // namespace

void Triangle3::setPoints(const Vector3& p0, const Vector3& p1, const Vector3& p2)
{
    _points[0] = p0;
    _points[1] = p1;
    _points[2] = p2;
    update();
}

void Triangle3::update()
{
    _uAxis = _points[1] - _points[0];
    _vAxis = _points[2] - _points[0];
    const Vector3 cross = _uAxis.cross(_vAxis);
    const float length = cross.norm();
    const bool isFlat = length == 0.0f;
    _surface = isFlat ? 0.0f : length / 2.0f;
    _normalizedNormal = isFlat ? Vector3::getZUpVector() : cross / length;
}

Segment3 Triangle3::getEdge(int i) const
{
    return Segment3(_points[i], _points[i == 2 ? 0 : i + 1]);
}

Triangle3 Triangle3::operator+(const Vector3& offset) const
{
    return Triangle3(_points[0] + offset, _points[1] + offset, _points[2] + offset);
}

bool Triangle3::operator==(const Triangle3& other) const
{
    return _points[0] == other[0] && _points[1] == other[1] && _points[2] == other[2];
}

bool Triangle3::isDegenerated(float tolerance) const
{
    return coincide(_points[0], _points[1], tolerance) || coincide(_points[1], _points[2], tolerance) ||
           coincide(_points[2], _points[0], tolerance);
}

Vector3 Triangle3::getBarycenter(bool refine) const
{
    const Vector3 mean = meanOf(_points[0], _points[1], _points[2]);
    return refine ? mean + meanOf(_points[0] - mean, _points[1] - mean, _points[2] - mean) : mean;
}

Vector3 Triangle3::getRandomPoint(RandomNumberGenerator& rng) const
{
    const float a = rng.frand();
    const float b = rng.frand() * (1.0f - a);
    const float c = 1.0f - a - b;
    return a * _points[0] + b * _points[1] + c * _points[2];
}

Angle Triangle3::xyAngle() const
{
    const Vector3 normal = _normalizedNormal.z < 0.0f ? -_normalizedNormal : _normalizedNormal;
    const Vector3 horizontal(normal.x, normal.y, 0.0f);
    return horizontal.isNull() ? HALF_PI_ANGLE : angle(normal, horizontal.computeNormalize());
}

Plane3 Triangle3::getPlane() const
{
    return Plane3(_normalizedNormal, -_normalizedNormal.dot(_points[0]));
}

Vector3 Triangle3::getNormal(const Vector3& reference) const
{
    return _normalizedNormal.dot(reference) < 0.0f ? -_normalizedNormal : _normalizedNormal;
}

bool Triangle3::intersection(const Segment3& segment, Vector3& point) const
{
    const Ray3 ray(segment._p1, segment.getVector());
    float t, u, v;
    if (!intersection(ray, t, u, v) || t > 1.0f)
        return false;
    point = ray.value(t);
    return true;
}

bool Triangle3::intersection(const Ray3& ray, float& t, float& u, float& v) const
{
    return generalIntersection(ray, t, u, v) && u >= 0.0f && u <= 1.0f && v >= 0.0f && u + v <= 1.0f &&
           t >= 0.0f;
}

bool Triangle3::generalIntersection(const Ray3& ray, float& t, float& u, float& v) const
{
    constexpr float parallel = 1e-5f;
    const Vector3 p = ray._direction.cross(_vAxis);
    const float determinant = _uAxis.dot(p);
    if (determinant > -parallel && determinant < parallel)
        return false;
    const float inverse = 1.0f / determinant;
    const Vector3 s = ray._source - _points[0];
    u = s.dot(p) * inverse;
    const Vector3 q = s.cross(_uAxis);
    v = ray._direction.dot(q) * inverse;
    t = _vAxis.dot(q) * inverse;
    return true;
}

bool Triangle3::projectOn(const Vector3& point, Vector3& out) const
{
    out = getPlane().project(point);
    return containsFast(out, 1e-5f);
}

bool Triangle3::contains(const Vector3& point, float tolerance) const
{
    if (_surface == 0.0f || isDegenerated(tolerance))
    {
        // The longest edge is all there is.
        Segment3 longest = getEdge(0);
        for (int i = 1; i < 3; ++i)
            if (getEdge(i).getLength() > longest.getLength())
                longest = getEdge(i);
        return longest.contains(point, tolerance);
    }
    return getPlane().contains(point, tolerance) && containsFast(point, tolerance);
}

bool Triangle3::containsFast(const Vector3& point, float tolerance) const
{
    const Vector3 w = point - _points[0];
    const float uu = _uAxis.norm2();
    const float uv = _uAxis.dot(_vAxis);
    const float vv = _vAxis.norm2();
    const float uw = _uAxis.dot(w);
    const float vw = _vAxis.dot(w);
    const float inverse = 1.0f / (uu * vv - uv * uv);
    const float u = (vv * uw - uv * vw) * inverse;
    const float v = (uu * vw - uv * uw) * inverse;
    return u >= -tolerance && v >= -tolerance && u + v < 1.0f + tolerance;
}

bool Triangle3::vertexInCommon(const Triangle3& other, float tolerance) const
{
    for (const Vector3& point : _points)
        for (const Vector3& otherPoint : other._points)
            if (coincide(point, otherPoint, tolerance))
                return true;
    return false;
}

} // namespace mrv
