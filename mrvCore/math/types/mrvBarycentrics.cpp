// mrvCore/math/types/mrvBarycentrics.cpp
#include "mrvCore/math/types/mrvBarycentrics.h"

#include <algorithm>
#include <cmath>

namespace mrv {

void computeBarycentricsCoordinates(const Vector2& point, const Vector2& a, const Vector2& b,
                                    const Vector2& c, Vector3& out)
{
    constexpr float smallest = 1e-5f;
    Vector2 u = a - c;
    Vector2 v = b - c;
    // The signed maximum: a triangle that lies wholly below and left of c is not scaled.
    const float greatest = std::max({ 0.0f, u.x, u.y, v.x, v.y });
    const float scale = greatest > 1.0f ? 1.0f / greatest : 1.0f;
    u *= scale;
    v *= scale;
    const Vector2 p = (point - c) * scale;

    const float determinant = u.x * v.y - u.y * v.x;
    if (std::abs(determinant) > smallest)
    {
        const float inverse = 1.0f / determinant;
        out.x = (p.x * v.y - v.x * p.y) * inverse;
        out.y = (u.x * p.y - p.x * u.y) * inverse;
        out.z = 1.0f - out.x - out.y;
        return;
    }

    const Vector2 ab = (a - b) * scale;
    const float lengthAB = ab.norm2();
    const float lengthBC = v.norm2();
    const float lengthAC = u.norm2();
    const float longer = std::max(lengthAB, lengthBC);
    if (lengthAC > longer && lengthAC > smallest)
    {
        const float t = p.dot(u) / lengthAC;
        out = Vector3(t, 0.0f, 1.0f - t);
    }
    else if (longer > smallest && lengthBC > lengthAB)
    {
        const float t = p.dot(v) / lengthBC;
        out = Vector3(0.0f, t, 1.0f - t);
    }
    else if (longer > smallest)
    {
        const float t = ((point - b) * scale).dot(ab) / lengthAB;
        out = Vector3(t, 1.0f - t, 0.0f);
    }
    else
        out = Vector3(0.33333334f);
}

void computeTetrahedronBarcentricCoords(Vector4& out, const Vector3& a, const Vector3& b, const Vector3& c,
                                        const Vector3& d, const Vector3& point)
{
    const Vector3 ab = b - a;
    const Vector3 ac = c - a;
    const Vector3 ad = d - a;
    const Vector3 ap = point - a;
    const float inverse = 1.0f / scalarTripleProduct(ab, ac, ad);
    out = Vector4(scalarTripleProduct(point - b, d - b, c - b), scalarTripleProduct(ap, ac, ad),
                  scalarTripleProduct(ap, ad, ab), scalarTripleProduct(ap, ab, ac)) *
          inverse;
}

} // namespace mrv
