// mrvCore/assetManagement/mrvGeometryAsset.h
// One geometry file of a character at one level of detail.
#pragma once

#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <cstdint>

namespace mrv {

class GeometryAssetV3;

/// The two kinds of geometry files.
struct GeometryFileType
{
    enum Value : int { MVG, QMX, END };
};

/// A geometry file and the range of camera distances, in scene units, at which it is shown.
class MRV_CORE_API GeometryAssetV4
{
public:
    MRV_PERSISTENT_CLASS(GeometryAssetV4)

    /// Takes over a version-3 file, which stood for every level of detail; its deformer is dropped.
    void createFromV3(GeometryAssetV3 old);

    /// By the extension, in any case: "mvg", and all else is QMX.
    GeometryFileType::Value getGeometryFileType() const;

    /// See mrv::getAbsoluteFile.
    void getAbsoluteFile(const MrvString& file, MrvString& absoluteFile, const char* rootPath) const;
    void getAbsoluteGeometryFile(MrvString& absoluteFile, const char* rootPath) const;

    MrvString _filename;
    Vector3 _halfExtentsYUp{ 0.5f, 0.5f, 0.5f }; ///< of the bounding box, with Y up
    uint32_t _lodLevel = 0xFFFFFFFF;             ///< see LODLevelFlags
    float _LODMinDistance = 0.0f;
    float _LODMaxDistance = 10000.0f;
};

/// A path of an asset as it is opened: `rootPath`, "/" and the file where the file is relative.
///
/// Relative is what has neither ":" in second place nor "/" in first, on any platform. A file of fewer than
/// two characters gives an empty path; with a null root a relative file stays as it is.
MRV_CORE_API void getAbsoluteFile(const MrvString& file, MrvString& absoluteFile, const char* rootPath);

} // namespace mrv
