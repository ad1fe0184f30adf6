// mrvCore/math/random/mrvSimplexNoise.h
// Gradient noise over one coordinate.
#pragma once

#include "mrvCore/mrvCoreApi.h"

namespace mrv {

/// Simplex noise in one dimension (Perlin, 2001; the form of Gustavson, 2005): smooth, within [-1, 1], with
/// period 256, and 0 at every whole number. 0 for what is not finite.
MRV_CORE_API float sdnoise1(float x);

/// The slope that a hash stands for: from 1 to 8 by its low three bits, with the sign of the fourth.
MRV_CORE_API void grad1(int hash, float* gradient);

} // namespace mrv
