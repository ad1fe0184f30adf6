// hosts/mrvcharacter/mrvSkeletonDrawing.h
// A pose of a character on a picture.
#pragma once

namespace mrv {
class MaravoCharacterV24;
class SpecificPosture;
} // namespace mrv

namespace mrvcharacter {

class Picture;

/// Fills the picture: a heading, the skeleton from the front, the side and above at one scale, and a legend
/// of the parts of the body; and the outlines of the rigid bodies, if told. A character with no bone gets
/// empty panels.
void drawSkeleton(Picture& picture, const mrv::MaravoCharacterV24& character,
                  const mrv::SpecificPosture& posture, bool withBodies);

} // namespace mrvcharacter
