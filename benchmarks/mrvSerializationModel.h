// benchmarks/mrvSerializationModel.h
// The character that the serialization benchmarks save and load: for the library, and for cereal.
#pragma once

#include "benchmarks/mrvBenchmarkInputs.h"

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <memory>

namespace mrvBenchmark {

/// Bones are held by plain pointers, as the library's characters hold them.
class Bone
{
public:
    MRV_PERSISTENT_CLASS(Bone)

    mrv::MrvString _name;
    mrv::Vector3 _position;
    mrv::Quaternion _rotation;
    Bone* _father = nullptr;
    mrv::Array<Bone*> _children;
    int _index = 0;
};

class Asset
{
public:
    MRV_PERSISTENT_CLASS(Asset)

    mrv::MrvString _name;
    mrv::MrvString _path;
    mrv::MrvString _type;
    int _id = 0;
    mrv::PODArray<int> _values;
};

class Character
{
public:
    MRV_PERSISTENT_CLASS(Character)

    Character() = default;
    Character(const Character&) = delete;
    Character& operator=(const Character&) = delete;
    ~Character();

    mrv::Array<Bone*> _bones; ///< owned
    mrv::Array<Asset> _assets;
};

/// The same bones held by value. As no bone's element lies in its father's, the XML form has no blanks in
/// front of its lines beyond a few tabs, where that of a Character has hundreds.
class FlatCharacter
{
public:
    MRV_PERSISTENT_CLASS(FlatCharacter)

    mrv::Array<Bone> _bones;
    mrv::Array<Asset> _assets;
};

void registerCharacter();
void removeCharacter();

/// So many skeletons of so many bones, and the assets once for each.
void fillCharacter(Character& character, int skeletons, int bones);
void fillCharacter(FlatCharacter& character, int skeletons, int bones);

/// Ends the process where the two differ.
void requireEqual(const Character& a, const Character& b);
void requireEqual(const FlatCharacter& a, const FlatCharacter& b);

/// The same for cereal, which tracks shared pointers.
struct SharedBone
{
    std::string name;
    Float3 position{};
    Float4 rotation{};
    std::weak_ptr<SharedBone> father;
    std::vector<std::shared_ptr<SharedBone>> children;
    int32_t index = 0;

    template <class Archive>
    void serialize(Archive& archive);
};

struct SharedAsset
{
    std::string name, path, type;
    int32_t id = 0;
    std::vector<int32_t> values;

    template <class Archive>
    void serialize(Archive& archive);
};

struct SharedCharacter
{
    std::vector<std::shared_ptr<SharedBone>> bones;
    std::vector<SharedAsset> assets;

    template <class Archive>
    void serialize(Archive& archive);
};

void fillCharacter(SharedCharacter& character, int bones);

} // namespace mrvBenchmark
