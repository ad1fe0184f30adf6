// hosts/mrvcharacter/mrvMeshImporter.h
// Meshes in the files of 3D packages, as far as Assimp reads them.
#pragma once

#include <string>

namespace mrv {
class PinMesh;
}

namespace mrvcharacter {

/// Fills the mesh with all triangles of the scene, in the order of the file and placed as its nodes say, and
/// makes it ready for rays. Polygons are cut into triangles; points and lines are left out. Axes stay as they
/// are. False with a `failure` for the user, also for a scene without triangles.
bool readMesh(const std::string& file, mrv::PinMesh& mesh, std::string& failure);

} // namespace mrvcharacter
