// mrvCore/math/random/mrvSimpleNoise1D.h
// A smooth random curve over one coordinate.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Value noise: random heights from 0 to 1 at the whole numbers, with period 256, and half waves of the
/// cosine between them. Threads: read-only once made.
class MRV_CORE_API SimpleNoise1D
{
public:
    static constexpr int _maxVertices = 256;
    static constexpr int _maxVerticesMask = 255;

    /// Draws the heights from the generator of the process, so the library must run. Not while another
    /// thread uses that generator.
    SimpleNoise1D();

    /// The height at x, which is that of the control point at a whole number. NaN where x is not finite.
    float operator()(const double& x) const;

    /// From `a` at t = 0 to `b` at 1, level at both ends.
    static float cosine(float a, float b, float t);

private:
    float _curveControlPts[_maxVertices];
};

/// The curve of the process, made by the first call, and the same until the process ends.
MRV_CORE_API const SimpleNoise1D& getSimpleNoise1D();

} // namespace mrv
