// mrvCore/animation/mrvMaravoCharacter.h
// A character as files hold it. Older forms: _compatibility/.
#pragma once

#include "mrvCore/animation/mrvBlindDataOverride.h"
#include "mrvCore/animation/mrvBoneDisplayConfiguration.h"
#include "mrvCore/animation/mrvCharacterUserData.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvLODLevelFlags.h"
#include "mrvCore/animation/mrvMaravoCharacterInterface.h"
#include "mrvCore/animation/mrvPhysicsOverride.h"
#include "mrvCore/animation/mrvSkeletonOverride.h"
#include "mrvCore/assetManagement/mrvAssetGroup.h"
#include "mrvCore/assetManagement/mrvDeepDeformerAsset.h"
#include "mrvCore/assetManagement/mrvGeometryAsset.h"
#include "mrvCore/assetManagement/mrvMeshAsset.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderAsset.h"
#include "mrvCore/assetManagement/mrvShaderAttribute.h"
#include "mrvCore/assetManagement/mrvShadingGroup.h"
#include "mrvCore/system/containers/mrvMap.h"

/// The version of the character files that are written.
#define MRV_MVC_VERSION 24

namespace mrv {

class MaravoCharacterV23;

/// How reading a character file ended.
struct LoadCharacterFileErrorCode
{
    enum Value {
        SUCCESS,
        FILE_NOT_FOUND,
        INCORRECT_VERSION,
        INVALID_FILE,
        INVALID_SKELETON_DESCRIPTION,
        END
    };
};

/// How writing a character file ended.
struct SaveCharacterFileErrorCode
{
    enum Value { SUCCESS, FILE_CREATION_FAILED, END };
};

/// A character: its skeleton mapping, the catalogue of its assets, and what alters and shows its skeleton.
///
/// Classes refer to one another by index into the arrays below, -1 for none; the operations check what they
/// follow, since a file may hold any index.
/// Ownership: everything is held by value. The mapping borrows the display array for life, so a character
/// stays where it is: to copy one, load it into another by loadCharacter().
/// Threads: built by one thread, read by many afterwards; different characters are independent, files
/// included.
class MRV_CORE_API MaravoCharacterV24 : public MaravoCharacterInterface
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(MaravoCharacterV24)

    using GeometryAssets = Array<GeometryAssetV4>;

    MaravoCharacterV24();
    ~MaravoCharacterV24();

    // Files: XML for the extension "mvcf", spelt exactly so, binary for any other.

    /// Replaces the whole content by that of a file of this or an older version, whose number is then in
    /// `_fileVersion`.
    ///
    /// With `updateRelativePaths`, see there, paths of assets that begin with "./" become absolute.
    /// What is left where it fails: after FILE_NOT_FOUND, INCORRECT_VERSION and INVALID_FILE the former
    /// content, with `_fileVersion` as far as it was read (-1 for a binary file without the magic); after
    /// INVALID_SKELETON_DESCRIPTION, whose reasons are in the log, the content of the file, to be thrown
    /// away. An object of a class that the file tells with a wrong attribute count is fatal.
    LoadCharacterFileErrorCode::Value loadCharacterFile(const MrvString& fileName, bool updateRelativePaths);

    /// Takes over what a character of the version before holds, or copies it.
    void createFromV23(MaravoCharacterV23& old);
    void createFromV23(const MaravoCharacterV23& old);

    /// Copies all that files hold. File version and path stay.
    void loadCharacter(const MaravoCharacterV24& other);
    /// The same from a character that may only be destroyed afterwards.
    void takeCharacter(MaravoCharacterV24& other);

    /// Writes the character in place of a former file, which stays whole if this fails.
    ///
    /// Blind data of specific animations are left out of the file, not out of the character, which is why it
    /// changes for the time of the call.
    SaveCharacterFileErrorCode::Value saveCharacterFile(const MrvString& fileName);
    /// @{
    /// All there is, in one form whatever the extension; the path of the character stays.
    SaveCharacterFileErrorCode::Value saveCharacterFileXML(const MrvString& fileName) const;
    SaveCharacterFileErrorCode::Value saveCharacterFileBinary(const MrvString& fileName) const;
    /// @}

    static int getCurrentVersionNumber() { return MRV_MVC_VERSION; }
    /// The version of the product that brought a file version; empty where there is no name.
    static MrvString getCharacterVersionName(int version);

    // Mapping and user data.

    const GenericSpecificConverterMappingV8& getConverterMapping() const { return _converterMapping; }
    void setConverterMapping(const GenericSpecificConverterMappingV8& mapping);
    /// The same from a mapping that may only be destroyed afterwards.
    void takeConverterMapping(GenericSpecificConverterMappingV8& mapping);
    const CharacterUserDataV0& getCharacterUserData() const { return _characterUserData; }
    void setCharacterUserData(const CharacterUserDataV0& userData) { _characterUserData = userData; }

    // Geometry. A tag that is absent has no assets: null, 0.

    size_t getGeometryAssetsCount() const;
    size_t getGeometryAssetsCount(short tag) const;
    const GeometryAssets* getGeometryAssets(short tag) const;

    /// The asset of a tag for a camera distance, and its place in `lodIndex`: the first one whose range holds
    /// the distance, ends included, else the one with the nearest range. A negative distance asks for the
    /// asset at `lodIndex`. Null, with `lodIndex` untouched, if there is none.
    /// The overrides, null for none, replace the ends of the ranges as far as they go.
    const GeometryAssetV4* getGeometryAsset(short tag, size_t& lodIndex, float distance,
                                            const PODArray<float>* minOverrides,
                                            const PODArray<float>* maxOverrides) const;
    /// The first of the assets of a tag that begin nearest to the camera, null if there is none.
    const GeometryAssetV4* getGeometryAssetFirstLOD(short tag) const;
    /// The file of the first asset of the lowest tag; `result` is untouched if that has none.
    void getFirstAvailableAbsoluteGeometryFile(MrvString& result, const char* directory) const;

    /// @{
    /// The first index of that exact name, -1 for none.
    int findAssetGroupIdx(const MrvString& name) const;
    int findDeepDeformerAssetIdx(const MrvString& name) const;
    int findShadingGroupIdx(const MrvString& name) const;
    int findShaderAssetIdx(const MrvString& name) const;
    int findRenderingTypeIdx(const MrvString& name) const;
    int findShaderAttributeIdx(const MrvString& name) const;
    /// @}
    /// Where there is no mesh of that name, the first one that differs in a namespace, ended by ":", which
    /// either of the names has.
    int findMeshAssetIdx(const MrvString& name) const;

    /// The first shader of the group that has the category, -1 for none.
    int findShaderAsset(const ShadingGroupV1& group, const MrvString& category) const;

    /// The override of a group or shader attribute that is in force in a rendering type: its own first, then
    /// those of its parents. Returns the rendering type that has it, -1 with a null `result` for none.
    static int findWeightOverride(const WeightOverrideV1*& result,
                                  const Array<RenderingTypeV4>& renderingTypes, int renderingType,
                                  int assetIndex, WeightOverrideType::Value type);

    /// The meshes that carry a fur, and for each whether it is on. Names that are no mesh are left out;
    /// nothing for a mesh that is no fur.
    void getFurMeshes(const MeshAssetV8& mesh, PODArray<int>& meshIndices, PODArray<bool>& enabled) const;

    // Operations over the whole character.

    /// Gives every shading group the shader attributes of the character that it does not have yet.
    void expandMainShaderAttributes();
    /// Puts the prefix and ":" before the names of shading groups and shaders; nothing for an empty prefix.
    void setShadingNamespace(const MrvString& prefix);
    /// Puts the folder of `characterFile` in place of a dot that a path of an asset begins with: "./a" is
    /// beside the file, while "../a" is not understood. All are corrected as by FileDir::correctPath.
    void updateRelativePaths(const MrvString& characterFile);
    /// Makes the perception box that of trunk, legs and head; the unit box where there is no skeleton.
    void autoComputePerceptionShape();
    /// Gives one display record to every bone, and fits the boxes of the listed ones to the distances of
    /// their children. The bones above the pelvis, and those without length, are hidden.
    void autoComputeSkeletonDisplay(const PODArray<int>& bones);

    MrvString _name = "Character";
    int _fileVersion = MRV_MVC_VERSION;  ///< of the file read last; not stored
    PODArray<int> _mainAssetGroups;      ///< the groups at the top
    PODArray<int> _mainShaderAttributes; ///< those that apply to every shading group
    Array<AssetGroupV4> _allAssetGroups;
    Array<MeshAssetV8> _meshAssets;
    Array<DeepDeformerAssetV0> _deepDeformerAssets;
    MrvMap<short, GeometryAssets> _geometryAssetsPerTags;
    Array<ShadingGroupV1> _shadingGroups;
    Array<ShaderAttributeV3> _shaderAttributes;
    Array<ShaderAssetV2> _shaderAssets;
    Array<RenderingTypeV4> _renderingTypes;
    GenericSpecificConverterMappingV8 _converterMapping;
    CharacterUserDataV0 _characterUserData;
    Array<SkeletonOverrideV0> _skeletonOverrides;
    Array<BlindDataOverrideV0> _blindDataOverrides;
    Array<PhysicsOverrideV0> _physicsOverrides;
    Vector3 _perceptionShapeExtents{ 1.0f, 1.0f, 1.0f }; ///< full size of the box
    Vector3 _perceptionShapeOffset;                      ///< its centre, relative to the root bone
    Array<BoneDisplayConfigurationV0> _skeletonDisplay;  ///< by specific bone index
    MrvString _runtimeFilePath; ///< where it was read from or written to last; not stored
};

/// The version that the rest of the library works with.
using MaravoCharacter = MaravoCharacterV24;

} // namespace mrv
