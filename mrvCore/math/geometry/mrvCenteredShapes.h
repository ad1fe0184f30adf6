// mrvCore/math/geometry/mrvCenteredShapes.h
// Lines, segments, rectangles and boxes of space as the distance functions take them.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

namespace mrv {

/// All points `_P` + t `_D`; the direction may have any length but 0.
struct Line
{
    Vector3 _P;
    Vector3 _D;
};

/// The points `_C` + t `_D` with |t| up to `_e`.
struct CenteredSegment
{
    Vector3 _C;
    Vector3 _D;
    float _e = 0.0f;
};

/// The points `_C` + s `_D[0]` + t `_D[1]` with |s| up to `_e[0]` and |t| up to `_e[1]`. The directions are
/// units at right angles.
struct CenteredRectangle
{
    Vector3 _C;
    Vector3 _D[2];
    float _e[2] = {};
};

/// The same with three directions; a solid.
struct CenteredBox
{
    Vector3 _C;
    Vector3 _D[3];
    Vector3 _e;
};

} // namespace mrv
