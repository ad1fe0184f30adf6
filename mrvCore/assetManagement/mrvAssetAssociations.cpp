// mrvCore/assetManagement/mrvAssetAssociations.cpp
#include "mrvCore/assetManagement/mrvAssetAssociations.h"

#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"
#include "mrvCore/system/serialization/mrvXMLStream.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/xml/mrvXMLDataFileParser.h"

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(AssetAssociationsV0, "AssetAssociationsV0",
                            "0e0a1888-492a-49e3-9dcb-398d9fbbe0d8")

// This list is the file format: order, names and types stay. A change is an AssetAssociationsV1.
void AssetAssociationsV0::addAttributes()
{
    addAttribute<unsigned int>("rngSeed", &AssetAssociationsV0::_rngSeed);
    addAttribute<Array<RenderInfoV0>>("entityRenderInfo", &AssetAssociationsV0::_entityRenderInfo);
}

bool loadCAAFile(AssetAssociationsV0& associations, const MrvString& file)
{
    if (!FileDir::exist(file))
    {
        MRV_LOG(SDK, LOG_ERROR, "Failed to open the asset association file '" << file << "'");
        return false;
    }
    DataItem root;
    MrvString failure;
    if (!XMLDataFileParser().tryRead(file.c_str(), root, failure))
        MRV_LOG(SDK, LOG_ERROR, failure);
    if (root.getChildrenCount() == 0)
        return true;
    DataItem& object = root.touchChild(0u);
    if (object.getAttribute("typeName") != nullptr)
        object.setAttribute("typeName", "AssetAssociationsV0");
    XMLStream().unpack(root, associations);
    return true;
}

void clearAssetAssociation(AssetAssociationsV0& associations)
{
    associations._entityRenderInfo.set_capacity(0);
}

void clearMeshAssetAssociations(MeshAssetAssociation& associations)
{
    associations._meshAssociations.set_capacity(0);
}

} // namespace mrv
