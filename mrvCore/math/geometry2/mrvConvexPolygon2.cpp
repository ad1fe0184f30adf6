// mrvCore/math/geometry2/mrvConvexPolygon2.cpp
#include "mrvCore/math/geometry2/mrvConvexPolygon2.h"

#include <algorithm>
#include <cmath>

namespace mrv {

namespace {

/// Positive if the way from `a` over `b` to `c` turns left.
float leftTurnOf(const Vector2& a, const Vector2& b, const Vector2& c)
{
    const Vector2 u = b - a;
    const Vector2 v = c - a;
    return u.x * v.y - v.x * u.y;
}

bool isNoNumber(const Vector2& point)
{
    return std::isnan(point.x) || std::isnan(point.y);
}

} // namespace

void ConvexPolygon2::setVertices(const Array<Vector2>& vertices, MrvPolygonStatus::Value status)
{
    _vertices = vertices;
    _status = status;
}

ConvexPolygon2::MrvPolygonStatus::Value ConvexPolygon2::getStatus(bool force, bool computeIfUnknown)
{
    constexpr float smallestTurn = 1e-5f;
    const auto stored = [this] { return static_cast<MrvPolygonStatus::Value>(_status); };
    if (!force && !(_status == MrvPolygonStatus::UNKNOWN && computeIfUnknown))
        return stored();

    const size_t count = _vertices.size();
    if (count < 3)
        _status = MrvPolygonStatus::INVALID;
    for (size_t i = 0; i < count && _status != MrvPolygonStatus::INVALID; ++i)
    {
        const float turn = leftTurnOf(_vertices[i], _vertices[(i + 1) % count], _vertices[(i + 2) % count]);
        if (!(std::abs(turn) > smallestTurn))
            continue;
        const int found = turn > 0.0f ? MrvPolygonStatus::CCW : MrvPolygonStatus::CW;
        const bool isMet = _status == MrvPolygonStatus::UNKNOWN || _status == found;
        _status = isMet ? found : static_cast<int>(MrvPolygonStatus::INVALID);
    }
    return stored();
}

void ConvexPolygon2::computeConvexHull(Array<Vector2> points)
{
    _vertices.clear();
    _status = MrvPolygonStatus::UNKNOWN;
    points.erase(std::remove_if(points.begin(), points.end(), isNoNumber), points.end());
    const size_t count = points.size();
    if (count < 3)
        return;
    std::sort(points.begin(), points.end(), lexicoGraphicCompare);

    _vertices.resize(2 * count);
    size_t size = 0;
    size_t floor = 2; // the chain is not cut below this size
    const auto extend = [&](const Vector2& point) {
        while (size >= floor && !(leftTurnOf(_vertices[size - 2], _vertices[size - 1], point) > 0.0f))
            --size;
        _vertices[size++] = point;
    };
    for (size_t i = 0; i < count; ++i)
        extend(points[i]);
    floor = size + 1;
    for (size_t i = count - 1; i-- > 0;)
        extend(points[i]);
    _vertices.resize(size - 1); // the first point closes the upper chain too
}

} // namespace mrv
