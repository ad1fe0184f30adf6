// hosts/mrvcharacter/mrvCharacterFiles.cpp
#include "hosts/mrvcharacter/mrvCharacterFiles.h"

#include "hosts/mrvcharacter/mrvErrorCodeNames.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"
#include "hosts/mrvcharacter/mrvProgressBar.h"

#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "mrvCore/engine/simulationBatch/mrvMultiThreadProcessor.h"
#include "mrvCore/system/log/mrvLog.h"
#include "mrvCore/system/progress/mrvProgress.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>

namespace mrvcharacter {

namespace {

/// Whether a path is the same in a list of paths, which is cut at ";" and trimmed at its ends.
bool isListable(const std::string& file)
{
    constexpr const char* trimmed = "\t\n\r ;";
    return !file.empty() && file.find(';') == std::string::npos && file.find_first_of(trimmed) != 0 &&
           file.find_last_of(trimmed) != file.size() - 1;
}

/// Whether all messages are about files that failed, which are read once more for the reason anyhow.
bool nameFailedFiles(const std::vector<std::string>& messages, const std::vector<LoadedFile>& loaded)
{
    return std::all_of(messages.begin(), messages.end(), [&](const std::string& message) {
        return std::any_of(loaded.begin(), loaded.end(), [&](const LoadedFile& one) {
            return one.character == nullptr && !one.file.empty() &&
                   message.find(one.file) != std::string::npos;
        });
    });
}

using IsMapping = bool (*)(const std::string& file);

/// The files on the pool, with null for those that failed. Returns whether the others are without messages:
/// those of several files come in a mixed order.
bool loadOnPool(std::vector<LoadedFile>& loaded, IsMapping isMapping)
{
    std::string list;
    std::vector<LoadedFile*> slots;
    for (LoadedFile& one : loaded)
        if (isListable(one.file) && !isMapping(one.file))
        {
            list += (slots.empty() ? "" : ";") + one.file;
            slots.push_back(&one);
        }
    mrv::getLog()->resetTraceCounts();
    const LogMessages messages;
    mrv::PODArray<mrv::MaravoCharacterV24*> characters;
    mrv::loadCharacterFiles(characters, list, false, true, nullptr);
    for (size_t i = 0; i < slots.size(); ++i)
    {
        slots[i]->character.reset(characters[i]);
        if (characters[i] != nullptr)
            slots[i]->version = characters[i]->_fileVersion;
    }
    return nameFailedFiles(messages.get(), loaded);
}

void loadChunk(std::vector<LoadedFile>& loaded, IsMapping isMapping)
{
    const bool isQuiet = loadOnPool(loaded, isMapping);
    for (LoadedFile& one : loaded)
    {
        if (isQuiet && one.character != nullptr)
            continue;
        LoadedFile again = isMapping(one.file) ? loadMapping(one.file) : loadCharacter(one.file);
        // The character of the pool is the one that was prepared for use.
        if (one.character != nullptr)
            again.character = std::move(one.character);
        one = std::move(again);
    }
}

/// Of a mapping in XML both extensions go.
std::string withoutExtension(const std::string& file)
{
    const std::filesystem::path path = std::filesystem::path(file).replace_extension();
    return isMappingFile(file) ? std::filesystem::path(path).replace_extension().string() : path.string();
}

void reportMessages(const std::string& file, const std::vector<std::string>& messages)
{
    for (const std::string& message : messages)
        reportError(file, message);
}

void loadAll(const std::vector<std::string>& files, IsMapping isMapping,
             const std::function<void(LoadedFile& loaded)>& use)
{
    // Enough for each thread to be busy, and not all files in memory at once.
    const size_t chunkSize = static_cast<size_t>(mrv::getMultiThreadProcessor()->getThreadCount()) * 16;
    ProgressBar bar;
    mrv::Progress progress("Loading");
    if (files.size() > 1)
        progress.addListener(bar);
    progress.setOwnTodo(static_cast<unsigned int>(files.size()));
    progress.start();
    for (size_t begin = 0; begin < files.size(); begin += chunkSize)
    {
        std::vector<LoadedFile> loaded(std::min(chunkSize, files.size() - begin));
        for (size_t i = 0; i < loaded.size(); ++i)
            loaded[i].file = files[begin + i];
        loadChunk(loaded, isMapping);
        bar.clear();
        for (LoadedFile& one : loaded)
            use(one);
        progress += static_cast<int>(loaded.size());
    }
    progress.success();
}

} // namespace

void reportError(const std::string& file, const std::string& message)
{
    std::cerr << file << ": " << message << '\n';
}

LoadedFile loadCharacter(const std::string& file)
{
    mrv::getLog()->resetTraceCounts(); // else the messages of one file keep back those of another
    const LogMessages messages;
    LoadedFile loaded;
    loaded.file = file;
    loaded.character = std::make_unique<mrv::MaravoCharacterV24>();
    loaded.character->_fileVersion = -1; // of a file that is not even opened nothing is known
    const auto result = loaded.character->loadCharacterFile(file, false);
    loaded.result = getLoadCharacterFileErrorCodeName(result);
    loaded.version = loaded.character->_fileVersion;
    loaded.messages = messages.get();
    if (result != mrv::LoadCharacterFileErrorCode::SUCCESS)
        loaded.character.reset();
    return loaded;
}

LoadedFile loadMapping(const std::string& file)
{
    mrv::getLog()->resetTraceCounts();
    const LogMessages messages;
    LoadedFile loaded;
    loaded.file = file;
    loaded.mapping = std::make_unique<mrv::GenericSpecificConverterMappingV8>();
    const auto result = readMapping(file, *loaded.mapping, loaded.version);
    loaded.result = getLoadSkeletonMappingErrorCodeName(result);
    loaded.messages = messages.get();
    if (result != mrv::LoadSkeletonMappingErrorCode::SUCCESS)
        loaded.mapping.reset();
    return loaded;
}

void forEachCharacter(const std::vector<std::string>& files,
                      const std::function<void(LoadedFile& loaded)>& use)
{
    loadAll(
        files, [](const std::string&) { return false; }, use);
}

void forEachFile(const std::vector<std::string>& files, const std::function<void(LoadedFile& loaded)>& use)
{
    loadAll(files, &isMappingFile, use);
}

bool reportFailure(const LoadedFile& loaded)
{
    reportMessages(loaded.file, loaded.messages);
    if (!loaded.isGood())
        reportError(loaded.file, loaded.result);
    return loaded.isGood();
}

bool saveCharacter(const std::string& file, mrv::MaravoCharacterV24& character)
{
    const std::string extension = std::filesystem::path(file).extension().string();
    if (extension != ".mvcf" && extension != ".mvc")
    {
        reportError(file, "the extension must be .mvcf (XML) or .mvc (binary)");
        return false;
    }
    const LogMessages messages;
    const mrv::SaveCharacterFileErrorCode::Value result = character.saveCharacterFile(file);
    reportMessages(file, messages.get());
    if (result == mrv::SaveCharacterFileErrorCode::SUCCESS)
        return true;
    reportError(file, getSaveCharacterFileErrorCodeName(result));
    return false;
}

std::string getStem(const std::string& file)
{
    const std::string name = std::filesystem::path(file).filename().string();
    return name.substr(0, name.find('.', 1));
}

std::vector<std::string> getTargets(const std::vector<std::string>& sources, const std::string& target,
                                    const std::function<std::string(const std::string&)>& getExtension)
{
    std::error_code ignored;
    const bool isFolder = std::filesystem::is_directory(target, ignored);
    if (!isFolder && sources.size() > 1)
        reportError(target, "there is no such folder for several files");
    std::vector<std::string> targets;
    std::set<std::string> taken;
    for (const std::string& source : sources)
    {
        if (!isFolder)
        {
            targets.push_back(sources.size() == 1 ? target : "");
            continue;
        }
        const std::string name =
            std::filesystem::path(withoutExtension(source)).filename().string() + getExtension(source);
        const bool isFree = taken.insert(name).second;
        if (!isFree)
            reportError(source, "another file becomes " + name + " already");
        targets.push_back(isFree ? (std::filesystem::path(target) / name).string() : "");
    }
    return targets;
}

} // namespace mrvcharacter
