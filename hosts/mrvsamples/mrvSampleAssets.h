// hosts/mrvsamples/mrvSampleAssets.h
// Catalogues of assets from short tables.
#pragma once

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <string>
#include <vector>

namespace mrvsamples {

/// A child of a group: the name of a mesh or of a group that stands before it, or "=" and the name of a
/// skeleton override.
struct Child
{
    const char* name;
    float weight;
};

/// Adds a group and returns its index. Children are chosen at random, or by an attribute if it is not null.
int addGroup(mrv::MaravoCharacterV24& character, const char* name, const std::vector<Child>& children,
             const char* attribute = nullptr);

/// Adds a mesh that is shown in the geometry of these tags, in all if there are none.
mrv::MeshAssetV8& addMesh(mrv::MaravoCharacterV24& character, const char* name, const char* shadingGroup,
                          const std::vector<short>& tags = {});

/// Adds one geometry file for each end of a range of distances, "FILE_lod0.mvg" on; each range begins where
/// the one before ends.
void addGeometry(mrv::MaravoCharacterV24& character, short tag, const char* file,
                 const mrv::Vector3& halfExtentsYUp, const std::vector<float>& maxDistances);

/// Adds a shading group with one shader.
void addShading(mrv::MaravoCharacterV24& character, const char* name, const char* category);

/// Adds an attribute with bounds as texts, and gives it to a shading group, or to the whole character if that
/// is null.
mrv::ShaderAttributeV3& addAttribute(mrv::MaravoCharacterV24& character, const char* name,
                                     mrv::ShaderAttributeType::Value type, const char* minValue,
                                     const char* maxValue, const char* shadingGroup);

/// Other weights for a group in a rendering type.
struct GroupWeights
{
    const char* group;
    std::vector<float> weights;
};

/// Adds a rendering type below a parent, or at the top if that is null.
void addRenderingType(mrv::MaravoCharacterV24& character, const char* name, const char* parent,
                      const std::vector<GroupWeights>& groupWeights);

/// Adds the channel of a blend shape.
void addBlendShape(mrv::MaravoCharacterV24& character, const char* group, const char* name);

/// Adds a skeleton override that scales the positions of bones, by a weight from 0 to 1.
void addBoneScales(mrv::MaravoCharacterV24& character, const char* name,
                   const std::vector<std::string>& bones, float scale, unsigned int seed);

} // namespace mrvsamples
