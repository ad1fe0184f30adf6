// mrvCore/math/delaunay/mrvDelaunayQuery2.cpp
#include "mrvCore/math/delaunay/mrvDelaunayQuery2.h"

namespace mrv {

DelaunayQuery::Type::Values DelaunayQuery2::getType() const
{
    return Type::REAL;
}

int DelaunayQuery2::toTriangle(int point, int v0, int v1, int v2) const
{
    return toTriangle(_vertices[point], v0, v1, v2);
}

int DelaunayQuery2::toTriangle(const Vector2& point, int v0, int v1, int v2) const
{
    const int side1 = toLine(point, v1, v2);
    if (side1 > 0)
        return 1;
    const int side0 = toLine(point, v0, v2); // against the turn of the triangle
    if (side0 < 0)
        return 1;
    const int side2 = toLine(point, v0, v1);
    if (side2 > 0)
        return 1;
    return side0 != 0 && side1 != 0 && side2 != 0 ? -1 : 0;
}

} // namespace mrv
