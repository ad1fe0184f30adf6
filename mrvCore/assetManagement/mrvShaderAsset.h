// mrvCore/assetManagement/mrvShaderAsset.h
// A shader that the host's renderer knows by name.
#pragma once

#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class ShaderAssetV1;

/// Names of a shader; the category may hold several words in one text.
class MRV_CORE_API ShaderAssetV2
{
public:
    MRV_PERSISTENT_CLASS(ShaderAssetV2)

    /// Takes over a version-1 shader, which had no preview.
    void createFromV1(ShaderAssetV1 old);

    /// Whether the text is part of the category, in any case; an empty text always is.
    bool hasCategory(const MrvString& category) const;

    MrvString _name;
    MrvString _category;
    MrvString _previewName;
};

} // namespace mrv
