// hosts/mrvcharacter/mrvCrowd.h
// A crowd whose entities take their meshes from the groups of one character.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvcharacter {

/// Which child of which group; indices into the arrays of the character.
using GroupChild = std::pair<int, int>;

/// Walks from the main groups down: in each group the entities that came there take its children in a
/// weighted sequence, shuffled, and go on into the group that their child leads to, if any.
class Crowd
{
public:
    /// Choices are the same for the same character, rendering type (-1 for none), seed and count.
    Crowd(const mrv::MaravoCharacterV24& character, int renderingType, size_t count, uint32_t seed);

    /// For each entity the children that lead no further, in the order of the walk.
    const std::vector<std::vector<GroupChild>>& getChoices() const { return _choices; }
    /// How many entities took each child of the groups that were reached.
    const std::map<GroupChild, size_t>& getCounts() const { return _counts; }
    /// The weights that were in force in a group, one a child.
    std::vector<float> getWeights(int group) const;
    /// What was odd about the character.
    const std::vector<std::string>& getWarnings() const { return _warnings; }

private:
    /// A group on the way from a main group, with those that came there.
    struct Visit
    {
        int group;
        size_t former; ///< the visit that led here; its own number for a main group
        std::vector<size_t> entities;
    };

    void visit(size_t number, uint32_t seed);
    bool isInside(size_t number, int group) const;
    bool isGroup(int group) const;

    const mrv::MaravoCharacterV24& _character;
    int _renderingType;
    std::vector<Visit> _visits;
    std::vector<std::vector<GroupChild>> _choices;
    std::map<GroupChild, size_t> _counts;
    std::vector<std::string> _warnings;
};

} // namespace mrvcharacter
