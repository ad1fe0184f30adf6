// hosts/mrvcharacter/mrvMappingFiles.h
// Reading and writing mapping files, with the failures told to the user.
#pragma once

#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include <string>

namespace mrvcharacter {

/// True for the names that mapping files have: ".mvsm" is the binary form and ".mvsm.xml" is XML.
bool isMappingFile(const std::string& file);

/// Reads a file of either form, with the order of the bones. `version` is that of the file, -1 where it could
/// not be told. What the library says goes to its log.
mrv::LoadSkeletonMappingErrorCode::Value
readMapping(const std::string& file, mrv::GenericSpecificConverterMappingV8& mapping, int& version);

/// The form follows the name, which must be that of a mapping file. False, and told, if it is not written.
bool saveMapping(const std::string& file, const mrv::GenericSpecificConverterMappingV8& mapping);

} // namespace mrvcharacter
