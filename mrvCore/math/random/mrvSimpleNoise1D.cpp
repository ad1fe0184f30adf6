// mrvCore/math/random/mrvSimpleNoise1D.cpp
#include "mrvCore/math/random/mrvSimpleNoise1D.h"

#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/types/mrvAngle.h"
#include "mrvCore/system/debug/mrvAssert.h"

#include <cmath>

namespace mrv {

SimpleNoise1D::SimpleNoise1D()
{
    RandomNumberGenerator* const rng = getRNGSingleton();
    MRV_ASSERT(rng != nullptr, "the library is not started");
    for (float& point : _curveControlPts)
        point = rng->frand();
}

float SimpleNoise1D::operator()(const double& x) const
{
    const double whole = std::floor(x);
    // The remainder is exact at any size; a number that is not finite has none.
    const double rest = whole - std::floor(whole / _maxVertices) * _maxVertices;
    const int index = rest >= 0.0 ? static_cast<int>(rest) : 0;
    const float a = _curveControlPts[index & _maxVerticesMask];
    const float b = _curveControlPts[(index + 1) & _maxVerticesMask];
    return cosine(a, b, static_cast<float>(x - whole));
}

float SimpleNoise1D::cosine(float a, float b, float t)
{
    const float weight = (1.0f - std::cos(PI_ANGLE * t)) / 2.0f;
    return (1.0f - weight) * a + weight * b;
}

const SimpleNoise1D& getSimpleNoise1D()
{
    static const SimpleNoise1D noise;
    return noise;
}

} // namespace mrv
