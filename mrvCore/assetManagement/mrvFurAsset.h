// mrvCore/assetManagement/mrvFurAsset.h
// The fur settings of a mesh asset: one text, and what takes it apart.
#pragma once

#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

/// The settings stay one text, so that the file format does not change with them.
class MRV_CORE_API FurAssetV0
{
public:
    MRV_PERSISTENT_CLASS(FurAssetV0)

    MrvString _furInformation; ///< see FurInformationManipulator
};

/// Reads and changes the text of a FurAssetV0: "key=value" entries between semicolons.
///
/// The keys are "furFile", the fur cache file that makes a mesh fur, "meshNames" and "enabledMeshes", the
/// meshes that carry it and which of them are on, and "furFileContentDescription". A value holds neither
/// "=" nor ";".
class MRV_CORE_API FurInformationManipulator
{
public:
    FurInformationManipulator() = default;
    explicit FurInformationManipulator(const MrvString& furInformation) { init(furInformation); }

    /// Adds the properties of a text to those that are there.
    void init(const MrvString& furInformation);

    /// False, with `value` untouched, if there is no such property.
    bool getFurProperty(const MrvString& name, MrvString& value) const;
    /// Ignored for a name that is not one of the keys.
    void setFurProperty(const MrvString& name, const MrvString& value);

    /// The properties as a text in normal form: in the order of the keys, without what was not understood,
    /// without a closing semicolon.
    const MrvString& getModifiedFurInformation();

    /// Adds the entries of a text to a map. An entry that is not one of the keys with one value is skipped;
    /// of a repeated key the last value counts.
    static void parseFurInfo(const MrvString& furInformation, MrvMap<MrvString, MrvString>& attributes);

private:
    MrvString _furInformation; ///< the text built last
    MrvMap<MrvString, MrvString> _furAttributes;
    bool _furInformationDirty = true; ///< the text does not show the properties
};

} // namespace mrv
