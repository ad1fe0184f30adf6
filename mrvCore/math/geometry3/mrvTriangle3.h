// mrvCore/math/geometry3/mrvTriangle3.h
// A triangle of space.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

class Plane3;
class RandomNumberGenerator;
class Ray3;
class Segment3;

/// Three points, with edges, normal and surface kept beside them. Edge i runs from point i to the next.
class MRV_CORE_API Triangle3
{
public:
    /// All points at the origin.
    Triangle3() { update(); }
    Triangle3(const Vector3& p0, const Vector3& p1, const Vector3& p2) { setPoints(p0, p1, p2); }

    void setPoints(const Vector3& p0, const Vector3& p1, const Vector3& p2);
    /// Computes what depends on the points. Collinear ones have no surface, and the normal (0, 0, 1).
    void update();

    /// The index is 0 to 2 and not checked.
    const Vector3& getVertex(int i) const { return _points[i]; }
    const Vector3& operator[](int i) const { return _points[i]; }
    Segment3 getEdge(int i) const;

    /// Moved by the offset.
    Triangle3 operator+(const Vector3& offset) const;
    bool operator==(const Triangle3& other) const;
    bool operator!=(const Triangle3& other) const { return !(*this == other); }

    /// True if two points differ by at most the tolerance in all coordinates.
    bool isDegenerated(float tolerance) const;
    /// The mean of the points; `refine` adds the mean of what they are off it, for precision far from the
    /// origin.
    Vector3 getBarycenter(bool refine) const;
    /// Not uniform: point 0's weight is drawn first, and 1 as likely as 0, so points crowd near it.
    Vector3 getRandomPoint(RandomNumberGenerator& rng) const;
    float getSurface() const { return _surface; }
    /// Angle of the upward normal over the ground plane: pi/2 for a level triangle, 0 for an upright one.
    Angle xyAngle() const;

    Plane3 getPlane() const;
    const Vector3& getNormal() const { return _normalizedNormal; }
    /// The normal or its opposite, whichever does not point away from the reference.
    Vector3 getNormal(const Vector3& reference) const;
    const Vector3& getUAxis() const { return _uAxis; }
    const Vector3& getVAxis() const { return _vAxis; }
    /// The point at these axis coordinates, which may lie outside.
    Vector3 computePositionFromUV(float u, float v) const { return _points[0] + u * _uAxis + v * _vAxis; }

    /// Where the segment crosses the triangle, by the ray test; one in the triangle's plane does not.
    bool intersection(const Segment3& segment, Vector3& point) const;
    /// The ray's parameter and the point's axis coordinates; t, u and v mean nothing for a miss. A ray
    /// whose determinant is within 1e-5 of 0 counts as parallel (Möller and Trumbore, 1997).
    bool intersection(const Ray3& ray, float& t, float& u, float& v) const;
    /// The same for the ray's line and the triangle's plane: false only if they are parallel.
    bool generalIntersection(const Ray3& ray, float& t, float& u, float& v) const;

    /// The foot of the perpendicular on the plane; true if the triangle has it, within 1e-5.
    bool projectOn(const Vector3& point, Vector3& out) const;
    /// True if the point is less than `tolerance` from the plane and containsFast() says so. A degenerate
    /// triangle counts as the segment or the point that it is.
    bool contains(const Vector3& point, float tolerance) const;
    /// Whatever the distance from the plane: the tolerance applies to the axis coordinates.
    bool containsFast(const Vector3& point, float tolerance) const;
    /// True if a point of each differ by at most the tolerance in all coordinates.
    bool vertexInCommon(const Triangle3& other, float tolerance) const;

private:
    Vector3 _points[3];
    Vector3 _uAxis;
    Vector3 _vAxis;
    Vector3 _normalizedNormal;
    float _surface;
};

} // namespace mrv
