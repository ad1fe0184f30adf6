// mrvCore/assetManagement/mrvCharacterBatch.cpp
// Batches of character files.
#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/progress/mrvScopedPerfAnalysis.h"
#include "mrvCore/system/utils/mrvFileDir.h"
#include "mrvCore/system/utils/mrvFileName.h"
#include "mrvCore/system/utils/mrvStringOperators.h"

#include <memory>

namespace mrv {

namespace {

// By LoadCharacterFileErrorCode.
constexpr const char* reasons[] = { "", "The file does not exist!", "The file version is incorrect!",
                                    "The file is invalid!", "The skeleton description is invalid!" };
static_assert(sizeof(reasons) / sizeof(reasons[0]) == LoadCharacterFileErrorCode::END);

std::unique_ptr<MaravoCharacterV24> loadOne(const MrvString& path, bool resolveRelativePaths)
{
    auto character = std::make_unique<MaravoCharacterV24>();
    const LoadCharacterFileErrorCode::Value result = character->loadCharacterFile(path, resolveRelativePaths);
    if (result == LoadCharacterFileErrorCode::SUCCESS)
        return character;
    MRV_LOG(SDK, LOG_ERROR, "Failed to open character file '" << path << "'. " << reasons[result]);
    return nullptr;
}

} // namespace

void loadCharacterFiles(PODArray<MaravoCharacterV24*>& characters, const MrvString& characterFiles,
                        const MrvString& shadingNamespaces, bool resolveRelativePaths, bool multiThreaded,
                        const Array<MrvString>* dirmaps)
{
    const ScopedPerfAnalysis scope("loadCharacters", 0.0, 0);
    for (const MaravoCharacterV24* character : characters)
        delete character;
    characters.clear();

    LoadCharacterFilesBatchData data;
    data._characters = &characters;
    data._resolveRelativePaths = resolveRelativePaths;
    MrvString list = characterFiles;
    list.trim("\t\n\r ;");
    // An empty list has no path, while split() would find an empty one in it.
    if (!list.empty())
        split(list, ";", data._characterFilesList);
    if (dirmaps != nullptr)
        for (MrvString& path : data._characterFilesList)
            findDirmappedFile(path, path, *dirmaps); // what is not found fails when it is opened
    characters.resize(data._characterFilesList.size(), nullptr);
    split(shadingNamespaces, ";", data._shadingNamespacesList);

    const int64_t lastIndex = static_cast<int64_t>(characters.size()) - 1;
    if (multiThreaded)
    {
        getMultiThreadProcessor()->processThreadable(loadCharacterFilesBatch, &data, lastIndex, 1, 0.0);
        return;
    }
    ProcessingBatch batch;
    batch._userData = &data;
    batch._firstIndex = 0;
    batch._lastIndex = lastIndex;
    loadCharacterFilesBatch(batch);
}

void loadCharacterFiles(PODArray<MaravoCharacterV24*>& characters, const MrvString& characterFiles,
                        bool resolveRelativePaths, bool multiThreaded, const Array<MrvString>* dirmaps)
{
    loadCharacterFiles(characters, characterFiles, MrvString(), resolveRelativePaths, multiThreaded, dirmaps);
}

void loadCharacterFilesBatch(ProcessingBatch& batch)
{
    const auto& data = *static_cast<const LoadCharacterFilesBatchData*>(batch._userData);
    for (int64_t i = batch._firstIndex; i <= batch._lastIndex; ++i)
    {
        const size_t slot = static_cast<size_t>(i);
        const MrvString& path = data._characterFilesList[slot];
        if (path.empty())
            continue;
        const ScopedPerfAnalysis scope(FileName(path).filenameNoExt().c_str(), 0.0, 0);
        std::unique_ptr<MaravoCharacterV24> character = loadOne(path, data._resolveRelativePaths);
        if (character != nullptr)
        {
            character->expandMainShaderAttributes();
            if (slot < data._shadingNamespacesList.size())
                character->setShadingNamespace(data._shadingNamespacesList[slot]);
        }
        (*data._characters)[slot] = character.release();
    }
}

bool findDirmappedFile(MrvString& result, const MrvString& file, const Array<MrvString>& dirmaps)
{
    MrvString candidate = replaceEnvVars(file, "%", "%");
    // Each pair is applied to the path as it was given: the first that leads to a file wins.
    for (size_t pair = 0; !FileDir::exist(candidate); pair += 2)
    {
        if (pair + 1 >= dirmaps.size())
        {
            result = file;
            return false;
        }
        candidate = dirmap(file, dirmaps[pair], dirmaps[pair + 1]);
    }
    result = FileDir::correctPath(candidate);
    return true;
}

} // namespace mrv
