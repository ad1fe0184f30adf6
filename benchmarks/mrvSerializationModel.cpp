// benchmarks/mrvSerializationModel.cpp
#include "benchmarks/mrvSerializationModel.h"

#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <cstdio>
#include <cstdlib>

namespace mrvBenchmark {

MRV_DEFINE_PERSISTENT_CLASS(Bone, "benchmark::Bone", "6b1d6f3e-5a0c-4d58-9b7e-2f4a8c0d1e01")
MRV_DEFINE_PERSISTENT_CLASS(Asset, "benchmark::Asset", "6b1d6f3e-5a0c-4d58-9b7e-2f4a8c0d1e02")
MRV_DEFINE_PERSISTENT_CLASS(Character, "benchmark::Character", "6b1d6f3e-5a0c-4d58-9b7e-2f4a8c0d1e03")

void Bone::addAttributes()
{
    addAttribute<mrv::MrvString>("name", &Bone::_name);
    addAttribute<mrv::Vector3>("position", &Bone::_position);
    addAttribute<mrv::Quaternion>("rotation", &Bone::_rotation);
    addAttribute<Bone*>("father", &Bone::_father);
    addAttribute<mrv::Array<Bone*>>("children", &Bone::_children);
    addAttribute<int>("index", &Bone::_index);
}

void Asset::addAttributes()
{
    addAttribute<mrv::MrvString>("name", &Asset::_name);
    addAttribute<mrv::MrvString>("path", &Asset::_path);
    addAttribute<mrv::MrvString>("type", &Asset::_type);
    addAttribute<int>("id", &Asset::_id);
    addAttribute<mrv::PODArray<int>>("values", &Asset::_values);
}

MRV_DEFINE_PERSISTENT_CLASS(FlatCharacter, "benchmark::FlatCharacter", "6b1d6f3e-5a0c-4d58-9b7e-2f4a8c0d1e04")

void FlatCharacter::addAttributes()
{
    addAttribute<mrv::Array<Bone>>("bones", &FlatCharacter::_bones);
    addAttribute<mrv::Array<Asset>>("assets", &FlatCharacter::_assets);
}

void Character::addAttributes()
{
    addAttribute<mrv::Array<Bone*>>("bones", &Character::_bones);
    addAttribute<mrv::Array<Asset>>("assets", &Character::_assets);
}

Character::~Character()
{
    for (Bone* bone : _bones)
        delete bone;
}

void registerCharacter()
{
    Bone::createClassRTTI(true);
    Asset::createClassRTTI(true);
    Character::createClassRTTI(true);
    FlatCharacter::createClassRTTI(true);
}

void removeCharacter()
{
    FlatCharacter::destroyClassRTTI(true);
    Character::destroyClassRTTI(true);
    Asset::destroyClassRTTI(true);
    Bone::destroyClassRTTI(true);
}

namespace {

Bone* at(Bone* bone)
{
    return bone;
}
Bone* at(Bone& bone)
{
    return &bone;
}
const Bone* at(const Bone& bone)
{
    return &bone;
}

/// Into the bones from `first` on, which are there already.
template <class Bones>
void fillSkeleton(Bones& bones, size_t first, const std::vector<BoneInput>& input)
{
    for (const BoneInput& in : input)
    {
        Bone* bone = at(bones[first + static_cast<size_t>(in.index)]);
        bone->_name = in.name;
        bone->_position = mrv::Vector3(in.position.data());
        bone->_rotation = mrv::Quaternion(in.rotation[0], in.rotation[1], in.rotation[2], in.rotation[3]);
        bone->_index = in.index;
        if (in.father >= 0)
            bone->_father = at(bones[first + static_cast<size_t>(in.father)]);
        for (const int child : in.children)
            bone->_children.push_back(at(bones[first + static_cast<size_t>(child)]));
    }
}

void appendAssets(mrv::Array<Asset>& assets)
{
    for (const AssetInput& in : assetInput())
    {
        Asset& asset = assets.addOne();
        asset._name = in.name;
        asset._path = in.path;
        asset._type = in.type;
        asset._id = in.id;
        asset._values.assign(in.values.size(), in.values.data());
    }
}

bool areEqual(const Bone& x, const Bone& y)
{
    bool same = x._name == y._name && x._position == y._position && x._rotation == y._rotation &&
                x._index == y._index && x._children.size() == y._children.size() &&
                (x._father == nullptr) == (y._father == nullptr);
    if (same && x._father != nullptr)
        same = x._father->_index == y._father->_index;
    for (size_t k = 0; same && k < x._children.size(); ++k)
        same = x._children[k]->_index == y._children[k]->_index;
    return same;
}

template <class AnyCharacter>
void requireEqualCharacters(const AnyCharacter& a, const AnyCharacter& b)
{
    bool same = a._bones.size() == b._bones.size() && a._assets.size() == b._assets.size();
    for (size_t i = 0; same && i < a._bones.size(); ++i)
        same = areEqual(*at(a._bones[i]), *at(b._bones[i]));
    for (size_t i = 0; same && i < a._assets.size(); ++i)
    {
        const Asset &x = a._assets[i], &y = b._assets[i];
        same = x._name == y._name && x._path == y._path && x._type == y._type && x._id == y._id &&
               x._values == y._values;
    }
    if (!same)
    {
        std::fprintf(stderr, "the loaded character differs from the saved one\n");
        std::abort();
    }
}

} // namespace

void fillCharacter(Character& character, int skeletons, int bones)
{
    const std::vector<BoneInput> input = skeletonInput(bones);
    for (int skeleton = 0; skeleton < skeletons; ++skeleton)
    {
        const size_t first = character._bones.size();
        for (int i = 0; i < bones; ++i)
            character._bones.push_back(new Bone());
        fillSkeleton(character._bones, first, input);
        appendAssets(character._assets);
    }
}

void fillCharacter(FlatCharacter& character, int skeletons, int bones)
{
    const std::vector<BoneInput> input = skeletonInput(bones);
    character._bones.resize(static_cast<size_t>(skeletons) * input.size());
    for (int skeleton = 0; skeleton < skeletons; ++skeleton)
    {
        fillSkeleton(character._bones, static_cast<size_t>(skeleton) * input.size(), input);
        appendAssets(character._assets);
    }
}

void requireEqual(const Character& a, const Character& b)
{
    requireEqualCharacters(a, b);
}

void requireEqual(const FlatCharacter& a, const FlatCharacter& b)
{
    requireEqualCharacters(a, b);
}

void fillCharacter(SharedCharacter& character, int bones)
{
    const std::vector<BoneInput> input = skeletonInput(bones);
    for (const BoneInput& in : input)
    {
        auto bone = std::make_shared<SharedBone>();
        bone->name = in.name;
        bone->position = in.position;
        bone->rotation = in.rotation;
        bone->index = in.index;
        character.bones.push_back(bone);
    }
    for (const BoneInput& in : input)
    {
        SharedBone& bone = *character.bones[static_cast<size_t>(in.index)];
        if (in.father >= 0)
            bone.father = character.bones[static_cast<size_t>(in.father)];
        for (const int child : in.children)
            bone.children.push_back(character.bones[static_cast<size_t>(child)]);
    }
    for (const AssetInput& in : assetInput())
        character.assets.push_back({ in.name, in.path, in.type, in.id, in.values });
}

} // namespace mrvBenchmark
