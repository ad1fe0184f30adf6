// mrvCore/assetManagement/mrvAssetManagementUtils.h
// Operations over the assets of characters: choice by weights, batches of files, blind data.
#pragma once

#include "mrvCore/assetManagement/mrvAssetOverride.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/assetManagement/mrvRenderingType.h"
#include "mrvCore/assetManagement/mrvShaderOverride.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvMap.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"

namespace mrv {

class MaravoCharacterV24;
class MeshAssetV8;
class RandomNumberGenerator;
struct ProcessingBatch;

/// How automapBlindData pairs channels.
struct BlindDataMappingMode
{
    enum Value { BY_POSITION, BY_NAME, END };
};

/// For each source channel the index of the target channel that it feeds, -1 for none.
///
/// By position the first channels are paired as far as both go. By name a channel takes the first target
/// of its type and name whose group matches; an empty group on either side matches any. `types` limits the
/// pairing by name to some types; all take part if it is empty. A target may be taken twice. Any other mode
/// pairs nothing.
MRV_CORE_API void automapBlindData(PODArray<int>& mapping, const Array<BlindDataV1>& source,
                                   const Array<BlindDataV1>& target, int mode,
                                   const Array<BlindDataV1::Type::Value>& types);

/// Whether a mesh is shown at any of these levels of detail in the geometry of this tag. The tag 0 stands
/// for every geometry, and so does a mesh without tags or with the tag 0.
MRV_CORE_API bool mrvMeshAssetIsInGeoAsset(const MeshAssetV8& mesh, unsigned int lodFlags, short geometryTag);

// Choice by weights. The shares of each prefix of a sequence of choices lie as near to the weights as whole
// counts allow, so a small crowd has the told mix too. Weights may have any scale. The results follow from
// float operations in a fixed order, and equal arguments give equal choices everywhere.
// Threads: functions of their arguments alone; calls with separate data may run side by side.

/// The weights that are in force for a group or a shader attribute of a character: those of the nearest
/// override, from `renderingTypeIdx` (-1 for none) upwards, else the stored ones. `weights` stays as it was
/// for any other type, and for an asset that does not exist.
MRV_CORE_API void computeWeights(PODArray<float>& weights, const MaravoCharacterV24& character,
                                 int renderingTypeIdx, int assetIndex, WeightOverrideType::Value type);

/// Fills `sequence` with `count` of the values, in shares by the weights, one weight a value; another number
/// of them is fatal. Without values it stays empty.
///
/// Each entry is the one that brings the shares so far nearest to the weights, the first of equally good
/// ones. Where nothing is better than to have chosen nothing, as with weights that are all 0 or no numbers,
/// it is the first of the largest weight. With `shuffle` the order is drawn from the seed and the values, so
/// that two lists with one seed are shuffled differently.
/// Time: count * values.size()^2.
MRV_CORE_API void computeWeightedSequence(PODArray<int>& sequence, const PODArray<int>& values,
                                          const PODArray<float>& weights, unsigned long count, bool shuffle,
                                          unsigned int seed);

/// The same with weights[i] times values[i], for weights that are not negative; a sum below 0 counts as 0.
MRV_CORE_API void computeWeightedSequence(PODArray<int>& sequence, const PODArray<int>& values,
                                          const PODArray<int>& weights, bool shuffle, unsigned int seed);

/// One choice after the other: returns the index of the next, and counts it in `counts`, which has one entry
/// a weight and begins with zeros. -1, with nothing counted, without counts or without a positive sum of
/// weights. If one of the two is longer, what it has more is never chosen.
///
/// Takes numbers from `rng` where candidates that were chosen equally often meet, so how many depends on the
/// data.
MRV_CORE_API int computeNextIndex(PODArray<int>& counts, const PODArray<float>& weights,
                                  RandomNumberGenerator& rng);

/// Weights as percentages whose sum is 100: the last weight that is not 0 takes what rounding has left, and
/// may be negative for that. Where the sum of the weights is 0, entries that are there stay, new ones are 0.
MRV_CORE_API void computePercents(PODArray<int>& percents, const PODArray<float>& weights);
/// The same without rounding.
MRV_CORE_API void computePercents(PODArray<float>& percents, const PODArray<float>& weights);

/// Adds the attributes that choose in groups of the characters, null for none, as keys with empty arrays,
/// which the caller may fill. Other keys stay.
MRV_CORE_API void getAssetGroupWeightAttributeNames(const PODArray<MaravoCharacterV24*>& characters,
                                                    MrvMap<MrvString, PODArray<int>>& attributeNames);

// Batches of character files.

/// The shared input of one batch.
struct LoadCharacterFilesBatchData
{
    PODArray<MaravoCharacterV24*>* _characters = nullptr; ///< one slot a file; its size does not change
    Array<MrvString> _characterFilesList;                 ///< paths as they are opened
    Array<MrvString> _shadingNamespacesList;              ///< by file; may be shorter
    bool _resolveRelativePaths = false;
};

/// Loads the characters of a list of paths, separated by ";", one slot a path.
///
/// Blanks, tabs, line ends and ";" are dropped around the list, not around a path inside it. A slot is null
/// for an empty path and for a file that could not be loaded, whose reason is in the log; the others are
/// loaded all the same. The i-th of the namespaces, separated by ";" too, goes before the shader names of
/// the i-th character. Where `dirmaps` is not null each path goes through findDirmappedFile first.
/// Ownership: the characters that the array held are deleted, whatever happens, and those that come are the
/// caller's, to delete, or to give to a later call.
/// Threads: with `multiThreaded` the pool loads, a file a job, else the calling thread.
MRV_CORE_API void loadCharacterFiles(PODArray<MaravoCharacterV24*>& characters,
                                     const MrvString& characterFiles, const MrvString& shadingNamespaces,
                                     bool resolveRelativePaths, bool multiThreaded,
                                     const Array<MrvString>* dirmaps);
/// The same without namespaces.
MRV_CORE_API void loadCharacterFiles(PODArray<MaravoCharacterV24*>& characters,
                                     const MrvString& characterFiles, bool resolveRelativePaths,
                                     bool multiThreaded, const Array<MrvString>* dirmaps);

/// Loads the files of one range of a batch; its user data is a LoadCharacterFilesBatchData.
MRV_CORE_API void loadCharacterFilesBatch(ProcessingBatch& batch);

/// Finds a file that may lie elsewhere: as `file` says, with %NAME% replaced, else with the start of its path
/// mapped by the first pair of `dirmaps` (from, to, from, to, ...) that leads to a file.
///
/// False, with `file` as the result, if there is none. `result` may be `file`.
MRV_CORE_API bool findDirmappedFile(MrvString& result, const MrvString& file,
                                    const Array<MrvString>& dirmaps);

} // namespace mrv
