// hosts/mrvcharacter/mrvTerrainDrawing.h
// A ground with positions on a picture.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"

#include <string>
#include <vector>

namespace mrv {
class PinMesh;
}

namespace mrvcharacter {

/// Where a position came to lie; off the ground it stays where it was.
struct PinnedPosition
{
    mrv::Vector3 position;
    mrv::Vector3 normal;
    int triangle = -1; ///< -1 off the ground
};

/// Writes a PNG file: the mesh from above with x to the right and y upwards, coloured by height and lit from
/// the upper left, and the positions. False with a `failure` for the user.
bool drawTerrain(const mrv::PinMesh& mesh, const std::vector<PinnedPosition>& positions,
                 const std::string& file, std::string& failure);

} // namespace mrvcharacter
