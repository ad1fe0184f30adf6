// hosts/mrvcharacter/mrvPartLabels.h
// The names of the parts of a body on a picture.
#pragma once

#include "hosts/mrvcharacter/mrvPicture.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mrv {
class GenericSpecificConverterMappingV8;
}

namespace mrvcharacter {

struct PartLabel
{
    std::string text;
    size_t bone; ///< where it belongs, a specific index
    double size; ///< of the text
};

/// The parts that have names: limbs at the middle of their chains, and then effectors at their ends.
std::vector<PartLabel> findPartLabels(const mrv::GenericSpecificConverterMappingV8& mapping);

/// A rectangle in pixels.
struct Box
{
    double left, top, right, bottom;
};

/// Writes labels beside the points of their bones, as near as there is room in the panel: beside the lines
/// from fathers (-1 for none) to bones if that can be, and never over another label. Those without room are
/// left out, the last ones first.
void drawPartLabels(Picture& picture, const std::vector<PartLabel>& labels, const std::vector<Point>& bones,
                    const std::vector<int>& fathers, const Box& panel, const Colour& colour);

} // namespace mrvcharacter
