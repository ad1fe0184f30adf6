// hosts/mrvcharacter/mrvCharacterFiles.h
// Reading character and mapping files and writing character files, with the failures told to the user.
#pragma once

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

/// Writes "FILE: message" to standard error.
void reportError(const std::string& file, const std::string& message);

/// What became of one file: a character, or a mapping that stands alone, or neither if it could not be
/// loaded.
struct LoadedFile
{
    bool isGood() const { return character != nullptr || mapping != nullptr; }

    std::string file;
    std::unique_ptr<mrv::MaravoCharacterV24> character;
    std::unique_ptr<mrv::GenericSpecificConverterMappingV8> mapping;
    const char* result = "SUCCESS";    ///< name of the error code
    int version = -1;                  ///< of the file, -1 where it could not be told
    std::vector<std::string> messages; ///< what the library logged about it
};

/// Reads one character as it is stored. Paths inside it stay as they are.
LoadedFile loadCharacter(const std::string& file);
/// Reads one mapping file.
LoadedFile loadMapping(const std::string& file);

/// Loads characters on the pool, a few at a time, with a progress bar, and calls `use` for each in their
/// order, for those that failed too. Shading groups have the shader attributes of the whole character.
void forEachCharacter(const std::vector<std::string>& files,
                      const std::function<void(LoadedFile& loaded)>& use);
/// The same for characters and mappings, told apart by their names.
void forEachFile(const std::vector<std::string>& files, const std::function<void(LoadedFile& loaded)>& use);

/// Writes messages and failure to standard error. Returns whether the file is good.
bool reportFailure(const LoadedFile& loaded);

/// The form follows the extension: XML for ".mvcf", binary for ".mvc", and any other is refused, so that a
/// slip does not write a binary file under a wrong name. False if the file was not written, with the reason
/// on standard error.
bool saveCharacter(const std::string& file, mrv::MaravoCharacterV24& character);

/// The file name without folder and without what follows its first dot, to name things after.
std::string getStem(const std::string& file);

/// Where the result of each source goes: one source to `target` itself, or, where `target` is a folder, each
/// into a file there with its own name and the extension that the function gives for it. An empty text stands
/// for a source without a place, whose reason is on standard error.
std::vector<std::string> getTargets(const std::vector<std::string>& sources, const std::string& target,
                                    const std::function<std::string(const std::string&)>& getExtension);

} // namespace mrvcharacter
