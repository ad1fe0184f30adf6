// mrvCore/math/delaunay/mrvDelaunayQuery2.h
// The planar predicates: on which side of a line, a triangle or a circle a point lies.
#pragma once

#include "mrvCore/math/delaunay/mrvDelaunayQuery.h"
#include "mrvCore/math/types/mrvVector2.h"

namespace mrv {

/// Predicates in plain float over a table of vertices, which it borrows.
///
/// Each answers 0 for a point on the line, outline or circle as far as float arithmetic can tell. Triangles
/// are given counterclockwise. Swapping the ends of a line turns its answer, exactly.
/// Threads: read-only.
class MRV_CORE_API DelaunayQuery2 : public DelaunayQuery
{
public:
    DelaunayQuery2(int verticesCount, const Vector2* vertices)
        : _verticesCount(verticesCount)
        , _vertices(vertices)
    {}

    Type::Values getType() const override;
    int getVerticesCount() const { return _verticesCount; }
    const Vector2& getVertex(int index) const { return _vertices[index]; }

    /// +1 to the right of the line from v0 to v1, -1 to the left of it. The first argument is a point or the
    /// index of one, here and below.
    virtual int toLine(int point, int v0, int v1) const { return toLine(_vertices[point], v0, v1); }
    virtual int toLine(const Vector2& point, int v0, int v1) const
    {
        return toLine(point, v0, v1, _vertices[v0], _vertices[v1]);
    }

    /// +1 outside, -1 inside, 0 on an edge.
    virtual int toTriangle(int point, int v0, int v1, int v2) const;
    virtual int toTriangle(const Vector2& point, int v0, int v1, int v2) const;

    /// +1 outside, -1 inside the circle through the three.
    virtual int toCircumcircle(int point, int v0, int v1, int v2) const
    {
        return toCircumcircle(_vertices[point], v0, v1, v2);
    }
    [[gnu::always_inline]] virtual int toCircumcircle(const Vector2& point, int v0, int v1, int v2) const
    {
        const bool even = sort(v0, v1, v2);
        const Lifted s0(_vertices[v0], point);
        const Lifted s1(_vertices[v1], point);
        const Lifted s2(_vertices[v2], point);
        const float d = det3(s0.x, s0.y, s0.z, s1.x, s1.y, s1.z, s2.x, s2.y, s2.z);
        return signOf(even ? -d : d);
    }

    /// @{
    /// The same answers for vertices whose points are at hand. The first index of a triangle is its greatest.
    static int toLine(const Vector2& point, int v0, int v1, const Vector2& p0, const Vector2& p1)
    {
        return signOf(lineTerms(point, v0, v1, p0, p1).getDifference());
    }
    [[gnu::always_inline]] static int toCircumcircle(const Vector2& point, const Vector2 corners[3])
    {
        const Lifted s0(corners[0], point);
        const Lifted s1(corners[1], point);
        const Lifted s2(corners[2], point);
        // The order of the other two does not show: it turns all signs, of both the determinant and the turn.
        return signOf(-det3(s1.x, s1.y, s1.z, s2.x, s2.y, s2.z, s0.x, s0.y, s0.z));
    }
    /// @}

    /// The answer of toLine() where rounding cannot have turned it, else 0.
    int toLineForSure(const Vector2& point, int v0, int v1) const
    {
        return toLineForSure(point, v0, v1, _vertices[v0], _vertices[v1]);
    }
    static int toLineForSure(const Vector2& point, int v0, int v1, const Vector2& p0, const Vector2& p1)
    {
        const LineTerms terms = lineTerms(point, v0, v1, p0, p1);
        const float d = terms.getDifference();
        return __builtin_fabsf(d) > terms.getRounding() ? signOf(d) : 0;
    }

    /// False if rounding may have made up that the triangle of the point and the line from v0 to v1 turns
    /// counterclockwise or is flat.
    static bool isTurnSure(const Vector2& point, int v0, int v1, const Vector2& p0, const Vector2& p1)
    {
        const LineTerms terms = lineTerms(point, v0, v1, p0, p1);
        return terms.getDifference() < -terms.getRounding() || (terms.first == 0.0f && terms.second == 0.0f);
    }

    /// @{
    /// Products and determinants by the order of operations written here, on which answers depend.
    static float dot(float x0, float y0, float x1, float y1) { return x0 * x1 + y0 * y1; }
    static float det2(float x0, float y0, float x1, float y1) { return x0 * y1 - x1 * y0; }
    static float det3(float a, float b, float c, float d, float e, float f, float g, float h, float i)
    {
        return a * (e * i - f * h) + d * (h * c - i * b) + g * (f * b - e * c);
    }
    /// @}

private:
    static int signOf(float value) { return (value > 0.0f) - (value < 0.0f); }

    /// The products whose difference is the determinant of two edges.
    struct LineTerms
    {
        float first;
        float second;
        bool even;

        float getDifference() const
        {
            const float d = first - second;
            return even ? d : -d;
        }
        /// More than the difference can be off: four roundings reach it, or the loss of small products.
        float getRounding() const
        {
            constexpr float relative = 4.0f * 0x1p-24f * 1.001f;
            constexpr float absolute = 1e-37f;
            return (__builtin_fabsf(first) + __builtin_fabsf(second)) * relative + absolute;
        }
    };

    static LineTerms lineTerms(const Vector2& point, int v0, int v1, const Vector2& p0, const Vector2& p1)
    {
        const bool even = v0 < v1;
        const Vector2& low = even ? p0 : p1;
        const Vector2 toPoint = point - low;
        const Vector2 edge = (even ? p1 : p0) - low;
        return { toPoint.x * edge.y, edge.x * toPoint.y, even };
    }

    /// A vertex seen from the point, both lifted to the paraboloid z = x x + y y.
    struct Lifted
    {
        float x;
        float y;
        float z;

        Lifted(const Vector2& vertex, const Vector2& point)
            : x(vertex.x - point.x)
            , y(vertex.y - point.y)
            , z((vertex.x + point.x) * x + (vertex.y + point.y) * y)
        {}
    };

    int _verticesCount;
    const Vector2* _vertices;
};

} // namespace mrv
