// mrvCore/math/types/mrvQuadrant.h
// The four corners of a planar box.
#pragma once

namespace mrv {

/// Counterclockwise from the lower left one; loops run from BEGIN to below END.
struct Quadrant
{
    enum Value { BEGIN = 0, SW = 0, SE = 1, NE = 2, NW = 3, END = 4 };
};

} // namespace mrv
