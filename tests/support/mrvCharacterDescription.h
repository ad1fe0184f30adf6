// tests/support/mrvCharacterDescription.h
// What a character file or a mapping file must come out as: a description in JSON beside it, compared with
// all that there is.
#pragma once

#include <string>

namespace mrv {

class GenericSpecificConverterMappingV8;
class MaravoCharacterV24;

/// A description: the files that it holds for, and what loading them gives.
struct CharacterDescription
{
    explicit CharacterDescription(const std::string& fileName);

    std::string result; ///< name of the error code
    int versionRead = -1;
    std::string text; ///< the JSON itself
};

/// Fails the running test for each value of the object that differs from the description, or that stands
/// in only one of the two. The object is walked by its attributes; numbers may differ by the tolerance
/// that the description names.
void expectDescribed(const MaravoCharacterV24& character, const CharacterDescription& description);
void expectDescribed(const GenericSpecificConverterMappingV8& mapping,
                     const CharacterDescription& description);

} // namespace mrv
