// mrvCore/math/geometry3/mrvClassifiedRay3.h
// A ray that is analysed once, so that tests against boxes need no division.
#pragma once

#include "mrvCore/math/geometry3/mrvRay3.h"
#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// A ray with the class of its direction, its slopes and its intercepts (Eisemann et al., 2007).
///
/// On the ray B = sBA A + cAB, for any two axes A and B with a direction. What would be divided by a
/// component of 0 is as it was before, and means nothing.
class MRV_CORE_API ClassifiedRay3
{
public:
    /// Signs of x, y and z of the direction: M for minus, P for plus, O for zero. There is no OOO.
    struct Classification
    {
        // clang-format off
        enum Value {
            MMM = 0,  MMP = 1,  MPM = 2,  MPP = 3,  MOM = 4,  MOP = 5,  MMO = 6,  MPO = 7,  MOO = 8,
            PMM = 9,  PMP = 10, PPM = 11, PPP = 12, POM = 13, POP = 14, PMO = 15, PPO = 16, POO = 17,
            OMM = 18, OMP = 19, OPM = 20, OPP = 21, OOM = 22, OOP = 23, OMO = 24, OPO = 25, END = 26
        };
        // clang-format on
    };

    /// No direction.
    ClassifiedRay3() : ClassifiedRay3(Ray3()) {}
    ClassifiedRay3(const Vector3& source, const Vector3& direction) : ClassifiedRay3(Ray3(source, direction))
    {}
    explicit ClassifiedRay3(const Ray3& ray) : _ray(ray) { classify(); }
    ClassifiedRay3(const ClassifiedRay3&) = default;
    ClassifiedRay3& operator=(const ClassifiedRay3&) = default;
    ClassifiedRay3& operator=(const Ray3& ray)
    {
        _ray = ray;
        classify();
        return *this;
    }

    /// Computes all from the ray. A null direction counts as OPO.
    void classify();

    const Ray3& getRay3() const { return _ray; }
    operator const Ray3*() const { return &_ray; }
    int getClassificationInt() const { return _classification; }
    Classification::Value getClassification() const
    {
        return static_cast<Classification::Value>(_classification);
    }
    const Vector3& getSource() const { return _ray._source; }
    const Vector3& getDirection() const { return _ray._direction; }
    const Vector3& getDirectionInverses() const { return _directionInverses; }
    float getSXY() const { return _sXY; }
    float getSYX() const { return _sYX; }
    float getSZY() const { return _sZY; }
    float getSYZ() const { return _sYZ; }
    float getSXZ() const { return _sXZ; }
    float getSZX() const { return _sZX; }
    float getCXY() const { return _cXY; }
    float getCYX() const { return _cYX; }
    float getCZY() const { return _cZY; }
    float getCYZ() const { return _cYZ; }
    float getCXZ() const { return _cXZ; }
    float getCZX() const { return _cZX; }

    /// @{
    /// As those of Ray3.
    void project(const Vector3& point, float& t, Vector3& offset) const { _ray.project(point, t, offset); }
    Vector3 value(float t) const { return _ray.value(t); }
    /// @}

private:
    Ray3 _ray;
    int _classification = Classification::OPO;
    Vector3 _directionInverses;
    float _sXY = 0.0f;
    float _sYX = 0.0f;
    float _sZY = 0.0f;
    float _sYZ = 0.0f;
    float _sXZ = 0.0f;
    float _sZX = 0.0f;
    float _cXY = 0.0f;
    float _cYX = 0.0f;
    float _cZY = 0.0f;
    float _cYZ = 0.0f;
    float _cXZ = 0.0f;
    float _cZX = 0.0f;
};

} // namespace mrv
