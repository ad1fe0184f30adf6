// hosts/mrvcharacter/mrvSkeletonDrawing.h
// The bind pose of a character on a picture.
#pragma once

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvcharacter {

class Picture;

/// Fills the picture: a heading, the skeleton from the front, the side and above at one scale, and a legend
/// of the parts of the body. A character with no bone gets empty panels.
void drawSkeleton(Picture& picture, const mrv::MaravoCharacterV24& character);

} // namespace mrvcharacter
