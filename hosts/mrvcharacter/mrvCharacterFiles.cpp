// hosts/mrvcharacter/mrvCharacterFiles.cpp
#include "hosts/mrvcharacter/mrvCharacterFiles.h"

#include "hosts/mrvcharacter/mrvErrorCodeNames.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"
#include "hosts/mrvcharacter/mrvProgressCounter.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <filesystem>
#include <iostream>

namespace mrvcharacter {

namespace {

void reportMessages(const std::string& file, const LogMessages& messages)
{
    for (const std::string& message : messages.get())
        reportError(file, message);
}

} // namespace

void reportError(const std::string& file, const std::string& message)
{
    std::cerr << file << ": " << message << '\n';
}

bool loadCharacter(const std::string& file, mrv::MaravoCharacterV24& character, ProgressCounter* progress)
{
    const LogMessages messages;
    const mrv::LoadCharacterFileErrorCode::Value result = character.loadCharacterFile(file, false);
    if (progress != nullptr)
        progress->clear();
    reportMessages(file, messages);
    if (result == mrv::LoadCharacterFileErrorCode::SUCCESS)
        return true;
    reportError(file, getLoadCharacterFileErrorCodeName(result));
    return false;
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
    reportMessages(file, messages);
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

} // namespace mrvcharacter
