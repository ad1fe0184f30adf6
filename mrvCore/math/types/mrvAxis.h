// mrvCore/math/types/mrvAxis.h
// The three axes of space.
#pragma once

namespace mrv {

/// Also an index of a component; loops run from BEGIN to below END.
struct Axis
{
    enum Value { BEGIN = 0, X = 0, Y = 1, Z = 2, END = 3 };
};

} // namespace mrv
