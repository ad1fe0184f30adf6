// hosts/mrvcharacter/mrvCharacterFiles.h
// Reading and writing character files, with the failures told to the user.
#pragma once

#include <string>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvcharacter {

class ProgressCounter;

/// Writes "FILE: message" to standard error.
void reportError(const std::string& file, const std::string& message);

/// Paths inside the character stay as they are stored. False if the file could not be read; that, and all
/// that the library logs, goes to standard error, from which `progress` is cleared when the file is read.
bool loadCharacter(const std::string& file, mrv::MaravoCharacterV24& character,
                   ProgressCounter* progress = nullptr);

/// The form follows the extension: XML for ".mvcf", binary for ".mvc", and any other is refused, so that a
/// slip does not write a binary file under a wrong name. False if the file was not written, with the reason
/// on standard error.
bool saveCharacter(const std::string& file, mrv::MaravoCharacterV24& character);

/// The file name without folder and without what follows its first dot, to name things after.
std::string getStem(const std::string& file);

} // namespace mrvcharacter
