// mrvCore/math/geometry2/mrvBox2.cpp
#include "mrvCore/math/geometry2/mrvBox2.h"

#include "mrvCore/system/log/mrvLogMacros.h"

#include <cmath>

namespace mrv {

Box2::Box2(const Vector2& size, const Vector2& translation, Angle rotation)
    : _size(size)
    , _translation(translation)
{
    setRotation(rotation);
}

void Box2::setRotation(Angle rotation)
{
    _rotation = rotation;
    _cosRotation = std::cos(rotation);
    _sinRotation = std::sin(rotation);
}

Vector2 Box2::getVertex(Quadrant::Value quadrant) const
{
    switch (quadrant)
    {
    case Quadrant::SW:
        return _translation;
    case Quadrant::SE:
        return _translation + getUVector();
    case Quadrant::NE:
        return _translation + getUVector() + getVVector();
    case Quadrant::NW:
        return _translation + getVVector();
    default:
        MRV_LOG(SDK, LOG_ERROR, static_cast<int>(quadrant) << " is an unknown quadrant.");
        return _translation;
    }
}

} // namespace mrv
