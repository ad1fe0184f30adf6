// hosts/mrvcharacter/mrvTriangulationDrawing.h
// A triangulation on a picture.
#pragma once

#include <string>

namespace mrv {
class Delaunay2;
}

namespace mrvcharacter {

/// Writes a PNG file: the triangles in outline, y upwards at one scale for both axes, the
/// hull in bold, and the points. At least one triangle. False with a `failure` for the user.
bool drawTriangulation(const mrv::Delaunay2& triangulation, const std::string& file, std::string& failure);

} // namespace mrvcharacter
