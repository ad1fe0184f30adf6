// hosts/mrvcharacter/mrvCharacterFacts.h
// All that a character file would hold, as a flat list of paths and values.
#pragma once

#include <string>
#include <vector>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvcharacter {

/// One value: "meshAssets[2].name" is "body".
struct Fact
{
    std::string path;
    std::string value;
};

/// The facts of a character in the order of its attributes. Paths are unique.
///
/// Bones are named, bones[spine1], and so are references to them; "#" and the specific index follow where a
/// name is not unique. Entries of other arrays go by index, those of maps by key; each container also has its
/// ".count". Numbers have as many digits as tell them from their neighbours.
std::vector<Fact> listFacts(const mrv::MaravoCharacterV24& character);

} // namespace mrvcharacter
