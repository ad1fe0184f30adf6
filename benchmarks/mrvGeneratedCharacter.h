// benchmarks/mrvGeneratedCharacter.h
// Characters of any size, the same at every run.
#pragma once

#include <cstddef>

namespace mrv {
class MaravoCharacterV24;
}

namespace mrvBenchmark {

struct CharacterSize
{
    int bones;
    int meshes;
    int groups;
    int renderingTypes;
};

/// Fills an empty character: a skeleton with its records, groups with meshes, shading, geometry with three
/// levels of detail a tag, and rendering types that override the weights of ten groups each. Returns the
/// number of its objects.
size_t fillCharacter(mrv::MaravoCharacterV24& character, const CharacterSize& size);

} // namespace mrvBenchmark
