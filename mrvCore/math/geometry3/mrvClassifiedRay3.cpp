// mrvCore/math/geometry3/mrvClassifiedRay3.cpp
#include "mrvCore/math/geometry3/mrvClassifiedRay3.h"

namespace mrv {

namespace {

using Classification = ClassifiedRay3::Classification;

/// By the signs of x, y and z, each minus, plus, zero.
constexpr Classification::Value classes[3][3][3] = {
    { { Classification::MMM, Classification::MMP, Classification::MMO },
      { Classification::MPM, Classification::MPP, Classification::MPO },
      { Classification::MOM, Classification::MOP, Classification::MOO } },
    { { Classification::PMM, Classification::PMP, Classification::PMO },
      { Classification::PPM, Classification::PPP, Classification::PPO },
      { Classification::POM, Classification::POP, Classification::POO } },
    { { Classification::OMM, Classification::OMP, Classification::OMO },
      { Classification::OPM, Classification::OPP, Classification::OPO },
      { Classification::OOM, Classification::OOP, Classification::OPO } },
};

int signOf(float component)
{
    if (component < 0.0f)
        return 0;
    return component > 0.0f ? 1 : 2;
}

} // namespace

void ClassifiedRay3::classify()
{
    const Vector3& source = _ray._source;
    const Vector3& direction = _ray._direction;
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (direction[axis] != 0.0f)
            _directionInverses[axis] = 1.0f / direction[axis];

    _sXY = direction.x * _directionInverses.y;
    _sYX = direction.y * _directionInverses.x;
    _sZY = direction.z * _directionInverses.y;
    _sYZ = direction.y * _directionInverses.z;
    _sXZ = direction.x * _directionInverses.z;
    _sZX = direction.z * _directionInverses.x;
    _cXY = source.y - _sYX * source.x;
    _cYX = source.x - _sXY * source.y;
    _cZY = source.y - _sYZ * source.z;
    _cYZ = source.z - _sZY * source.y;
    _cXZ = source.z - _sZX * source.x;
    _cZX = source.x - _sXZ * source.z;

    _classification = classes[signOf(direction.x)][signOf(direction.y)][signOf(direction.z)];
}

} // namespace mrv
