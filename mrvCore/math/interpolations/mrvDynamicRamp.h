// mrvCore/math/interpolations/mrvDynamicRamp.h
// A ramp that an entity runs through in time.
#pragma once

#include "mrvCore/math/interpolations/mrvRamp.h"

namespace mrv {

/// Carries how the position on the ramp is to be found, for the applications that do it; nothing in the
/// library reads these.
class MRV_CORE_API DynamicRamp : public Ramp
{
public:
    using Ramp::Ramp;

    bool _isRandom = false;
    bool _isDynamic = false;
    int _evalMode = 0;
    float _duration = 0.0f;
};

} // namespace mrv
