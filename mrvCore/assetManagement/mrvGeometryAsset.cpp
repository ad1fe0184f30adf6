// mrvCore/assetManagement/mrvGeometryAsset.cpp
#include "mrvCore/assetManagement/mrvGeometryAsset.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/utils/mrvFileName.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(GeometryAssetV4, "GeometryAssetV4", "e61a7136-7931-41a6-bc4c-7c5c7a32b740")

// This list is the file format: order, names and types stay. A change is a GeometryAssetV5.
void GeometryAssetV4::addAttributes()
{
    addAttribute<MrvString>("filename", &GeometryAssetV4::_filename);
    addAttribute<Vector3>("halfExtents", &GeometryAssetV4::_halfExtentsYUp);
    addAttribute<uint32_t>("LODLevel", &GeometryAssetV4::_lodLevel);
    addAttribute<float>("LODMinDistance", &GeometryAssetV4::_LODMinDistance);
    addAttribute<float>("LODMaxDistance", &GeometryAssetV4::_LODMaxDistance);
}

GeometryFileType::Value GeometryAssetV4::getGeometryFileType() const
{
    const bool isMvg = toLower(FileName(_filename).extension()) == "mvg";
    return isMvg ? GeometryFileType::MVG : GeometryFileType::QMX;
}

void GeometryAssetV4::getAbsoluteFile(const MrvString& file, MrvString& absoluteFile,
                                      const char* rootPath) const
{
    mrv::getAbsoluteFile(file, absoluteFile, rootPath);
}

void GeometryAssetV4::getAbsoluteGeometryFile(MrvString& absoluteFile, const char* rootPath) const
{
    getAbsoluteFile(_filename, absoluteFile, rootPath);
}

void getAbsoluteFile(const MrvString& file, MrvString& absoluteFile, const char* rootPath)
{
    if (file.size() < 2)
        absoluteFile.clear();
    else if (file[1] != ':' && file[0] != '/' && rootPath != nullptr)
        absoluteFile = MrvString(rootPath) + "/" + file;
    else
        absoluteFile = file;
}

} // namespace mrv
