// mrvCore/assetManagement/mrvDeepDeformerAsset.cpp
#include "mrvCore/assetManagement/mrvDeepDeformerAsset.h"

#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(DeepDeformerAssetV0, "DeepDeformerAssetV0",
                            "dcad6cab-a5e7-4bc8-af5b-0e13d48542ae")

// This list is the file format: order, names and types stay. A change is a DeepDeformerAssetV1.
void DeepDeformerAssetV0::addAttributes()
{
    addAttribute<MrvString>("name", &DeepDeformerAssetV0::_name);
    addAttribute<uint32_t>("LODLevel", &DeepDeformerAssetV0::_lodLevel);
    addAttribute<PODArray<short>>("geometryTags", &DeepDeformerAssetV0::_geometryTags);
    addAttribute<MrvString>("deepFilename", &DeepDeformerAssetV0::_deepFilename);
}

void DeepDeformerAssetV0::getAbsoluteFile(const MrvString& file, MrvString& absoluteFile,
                                          const char* rootPath) const
{
    mrv::getAbsoluteFile(file, absoluteFile, rootPath);
}

void DeepDeformerAssetV0::getAbsoluteDeepFile(MrvString& absoluteFile, const char* rootPath) const
{
    getAbsoluteFile(_deepFilename, absoluteFile, rootPath);
}

} // namespace mrv
