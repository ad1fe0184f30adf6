// mrvCore/math/geometry/mrvDistanceCentered.cpp
// The closest features of lines, segments, rectangles and boxes of space.
//
// The distance from a point of a line to a convex shape is convex along the line. So for a segment the
// line's closest parameter is clamped, and for two flat or solid shapes that do not swallow each other the
// closest pair lies on an edge of one of them.
#include "mrvCore/math/geometry/mrvDistance.h"
#include "mrvCore/math/geometry3/mrvSegment3.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mrv {

namespace {

/// Squared distance and the parameter on the line that it is reached at.
struct OnLine
{
    float measure;
    float parameter;
};

const OnLine& nearer(const OnLine& a, const OnLine& b)
{
    return b.measure < a.measure ? b : a;
}

Vector3 pointAt(const Line& line, float parameter)
{
    return line._P + line._D * parameter;
}

Line lineOf(const CenteredSegment& segment)
{
    return { segment._C, segment._D };
}

Segment3 toSegment3(const CenteredSegment& segment)
{
    const Vector3 half = segment._D * segment._e;
    return Segment3(segment._C - half, segment._C + half);
}

/// Where the two lines are closest, on the first; where they are parallel, at its origin.
float closestParameter(const Line& line, const Line& other, float tolerance)
{
    const float uu = line._D.norm2();
    const float vv = other._D.norm2();
    const float uv = line._D.dot(other._D);
    const Vector3 w = other._P - line._P;
    const float determinant = uu * vv - uv * uv;
    if (!(determinant > tolerance * uu * vv))
        return 0.0f;
    return (vv * line._D.dot(w) - uv * other._D.dot(w)) / determinant;
}

float closestParameter(const Line& line, const Vector3& point)
{
    return line._D.dot(point - line._P) / (line._D.norm2() + internal::SMALLEST_NORM2);
}

/// The end or the point between that is closest to the line.
OnLine closestTo(const Line& line, const CenteredSegment& segment, float tolerance)
{
    const Line carrier = lineOf(segment);
    const float free = closestParameter(carrier, line, tolerance);
    const Vector3 onSegment = pointAt(carrier, std::clamp(free, -segment._e, segment._e));
    const float parameter = closestParameter(line, onSegment);
    return { (onSegment - pointAt(line, parameter)).norm2(), parameter };
}

CenteredSegment edgeOf(const CenteredRectangle& rectangle, int edge)
{
    const int along = edge / 2;
    const int across = 1 - along;
    const float side = edge % 2 == 0 ? -rectangle._e[across] : rectangle._e[across];
    return { rectangle._C + rectangle._D[across] * side, rectangle._D[along], rectangle._e[along] };
}

OnLine closestTo(const Line& line, const CenteredRectangle& rectangle, float tolerance)
{
    const Vector3 normal = rectangle._D[0].cross(rectangle._D[1]);
    const float slope = normal.dot(line._D);
    if (slope * slope > tolerance * line._D.norm2())
    {
        const float parameter = normal.dot(rectangle._C - line._P) / slope;
        const Vector3 hit = pointAt(line, parameter) - rectangle._C;
        if (std::abs(hit.dot(rectangle._D[0])) <= rectangle._e[0] &&
            std::abs(hit.dot(rectangle._D[1])) <= rectangle._e[1])
            return { 0.0f, parameter };
    }
    OnLine closest = { std::numeric_limits<float>::infinity(), 0.0f };
    for (int edge = 0; edge < 4; ++edge)
        closest = nearer(closest, closestTo(line, edgeOf(rectangle, edge), tolerance));
    return closest;
}

/// An edge of a box: four along each direction.
CenteredSegment edgeOf(const CenteredBox& box, unsigned int edge)
{
    const unsigned int along = edge / 4;
    const unsigned int i1 = (along + 1) % 3;
    const unsigned int i2 = (along + 2) % 3;
    const float side1 = (edge & 1) == 0 ? -box._e[i1] : box._e[i1];
    const float side2 = (edge & 2) == 0 ? -box._e[i2] : box._e[i2];
    return { box._C + box._D[i1] * side1 + box._D[i2] * side2, box._D[along], box._e[along] };
}

/// A line in the frame of a box, mirrored so that no component of the direction is negative. Each case is
/// named for the components that are 0 (Schneider and Eberly, 2002).
struct LineOfBox
{
    Vector3 point;
    Vector3 direction;
    const Vector3& extent;

    float outside2(unsigned int axis) const
    {
        const float outside = std::abs(point[axis]) - extent[axis];
        return outside > 0.0f ? outside * outside : 0.0f;
    }

    OnLine Case000() const { return { outside2(0) + outside2(1) + outside2(2), 0.0f }; }

    /// Along axis i0.
    OnLine Case00(unsigned int i0, unsigned int i1, unsigned int i2) const
    {
        return { outside2(i1) + outside2(i2), (extent[i0] - point[i0]) / direction[i0] };
    }

    /// Across axis i2: against a rectangle of the plane i0 i1. A line that misses it comes closest at the
    /// corner that is the upper one of one axis and the lower one of the other.
    OnLine Case0(unsigned int i0, unsigned int i1, unsigned int i2) const
    {
        const float product0 = direction[i1] * (point[i0] - extent[i0]);
        const float product1 = direction[i0] * (point[i1] - extent[i1]);
        if (product0 < product1)
            return Case0(i1, i0, i2);
        const float upper = point[i0] - extent[i0];
        const float lower = point[i1] + extent[i1];
        const float delta = product0 - direction[i0] * lower;
        if (delta < 0.0f)
            return { outside2(i2), -upper / direction[i0] };
        const float norm2 = direction[i0] * direction[i0] + direction[i1] * direction[i1];
        return { delta * delta / norm2 + outside2(i2),
                 -(direction[i0] * upper + direction[i1] * lower) / norm2 };
    }

    /// Through the plane of the upper face of axis i0, below the upper ones of the others: it hits the face,
    /// or the closest point lies on one of the face's two lower edges.
    OnLine Face(unsigned int i0, unsigned int i1, unsigned int i2) const
    {
        const float parameter = (extent[i0] - point[i0]) / direction[i0];
        const bool isBelow1 = point[i1] + direction[i1] * parameter < -extent[i1];
        const bool isBelow2 = point[i2] + direction[i2] * parameter < -extent[i2];
        if (!isBelow1 && !isBelow2)
            return { 0.0f, parameter };
        OnLine closest = { std::numeric_limits<float>::infinity(), parameter };
        if (isBelow1)
            closest = nearer(closest, toEdge(i0, i1, i2));
        if (isBelow2)
            closest = nearer(closest, toEdge(i0, i2, i1));
        return closest;
    }

    /// The edge of that face which is the lower one of axis `low` and runs along the third.
    OnLine toEdge(unsigned int i0, unsigned int low, unsigned int along) const
    {
        CenteredSegment edge;
        edge._C[i0] = extent[i0];
        edge._C[low] = -extent[low];
        edge._D[along] = 1.0f;
        edge._e = extent[along];
        return closestTo({ point, direction }, edge, 0.0f);
    }

    /// The face among the upper ones whose plane the line comes to first.
    OnLine CaseNoZeros() const
    {
        const auto comesFirst = [this](unsigned int i, unsigned int j) {
            return direction[j] * (point[i] - extent[i]) >= direction[i] * (point[j] - extent[j]);
        };
        unsigned int i0 = comesFirst(0, 1) ? 0 : 1;
        i0 = comesFirst(i0, 2) ? i0 : 2;
        return Face(i0, (i0 + 1) % 3, (i0 + 2) % 3);
    }

    OnLine closest() const
    {
        unsigned int zeros[3];
        unsigned int others[3];
        unsigned int zeroCount = 0;
        unsigned int otherCount = 0;
        for (unsigned int axis = 0; axis < 3; ++axis)
            if (direction[axis] > 0.0f)
                others[otherCount++] = axis;
            else
                zeros[zeroCount++] = axis;
        if (zeroCount == 0)
            return CaseNoZeros();
        if (zeroCount == 1)
            return Case0(others[0], others[1], zeros[0]);
        return zeroCount == 2 ? Case00(others[0], zeros[0], zeros[1]) : Case000();
    }
};

OnLine closestTo(const Line& line, const CenteredBox& box)
{
    const Vector3 offset = line._P - box._C;
    LineOfBox local = { Vector3(), Vector3(), box._e };
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        const float component = line._D.dot(box._D[axis]);
        const float sign = component < 0.0f ? -1.0f : 1.0f;
        local.point[axis] = sign * offset.dot(box._D[axis]);
        local.direction[axis] = sign * component;
    }
    return local.closest();
}

} // namespace

float distance2(const Vector3& point, const Line& line)
{
    return (point - pointAt(line, closestParameter(line, point))).norm2();
}

float distance2(const Vector3& point, const CenteredRectangle& rectangle)
{
    Vector3 rest = point - rectangle._C;
    for (int i = 0; i < 2; ++i)
    {
        const float e = rectangle._e[i];
        rest -= rectangle._D[i] * std::clamp(rest.dot(rectangle._D[i]), -e, e);
    }
    return rest.norm2();
}

float distance2(const Vector3& point, const CenteredBox& box)
{
    const Vector3 offset = point - box._C;
    const Vector3 local(offset.dot(box._D[0]), offset.dot(box._D[1]), offset.dot(box._D[2]));
    return LineOfBox{ local, Vector3(), box._e }.Case000().measure;
}

float distance2(const Line& a, const Line& b, float tolerance)
{
    return distance2(pointAt(a, closestParameter(a, b, tolerance)), b);
}

float distance2(const Line& line, const CenteredSegment& segment, float tolerance)
{
    return closestTo(line, segment, tolerance).measure;
}

float distance2(const CenteredSegment& a, const CenteredSegment& b)
{
    return distance2(toSegment3(a), toSegment3(b));
}

float distance2(const Line& line, const CenteredRectangle& rectangle, float tolerance)
{
    return closestTo(line, rectangle, tolerance).measure;
}

float distance2(const CenteredSegment& segment, const CenteredRectangle& rectangle, float tolerance)
{
    const OnLine free = closestTo(lineOf(segment), rectangle, tolerance);
    if (std::abs(free.parameter) <= segment._e)
        return free.measure;
    const float parameter = std::clamp(free.parameter, -segment._e, segment._e);
    return distance2(pointAt(lineOf(segment), parameter), rectangle);
}

float distance2(const CenteredRectangle& a, const CenteredRectangle& b, float tolerance)
{
    float least = std::numeric_limits<float>::infinity();
    for (int edge = 0; edge < 4; ++edge)
        least = std::min(
            { least, distance2(edgeOf(a, edge), b, tolerance), distance2(edgeOf(b, edge), a, tolerance) });
    return least;
}

float distance2(const Line& line, const CenteredBox& box)
{
    return closestTo(line, box).measure;
}

float distance2(const CenteredSegment& segment, const CenteredBox& box)
{
    const OnLine free = closestTo(lineOf(segment), box);
    const float parameter = std::clamp(free.parameter, -segment._e, segment._e);
    return parameter == free.parameter ? free.measure : distance2(pointAt(lineOf(segment), parameter), box);
}

float distance2(const CenteredRectangle& rectangle, const CenteredBox& box, float tolerance)
{
    float least = std::numeric_limits<float>::infinity();
    for (int edge = 0; edge < 4; ++edge)
        least = std::min(least, distance2(edgeOf(rectangle, edge), box));
    for (unsigned int edge = 0; edge < 12; ++edge)
        least = std::min(least, distance2(edgeOf(box, edge), rectangle, tolerance));
    return least;
}

float distance2(const CenteredBox& a, const CenteredBox& b)
{
    float least = std::numeric_limits<float>::infinity();
    for (unsigned int edge = 0; edge < 12; ++edge)
        least = std::min({ least, distance2(edgeOf(a, edge), b), distance2(edgeOf(b, edge), a) });
    return least;
}

} // namespace mrv
