// hosts/mrvcharacter/mrvAssimpSkeletonImporter.cpp
#include "hosts/mrvcharacter/mrvAssimpSkeletonImporter.h"

#include "hosts/mrvcharacter/mrvSkeletonImporter.h"

#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mrvcharacter {

namespace {

using Matrix = aiMatrix4x4t<double>;
using Rotation = aiQuaterniont<double>;
using Position = aiVector3t<double>;

/// A node of the scene; fathers stand before their children, in the order of the file.
struct Node
{
    const aiNode* node;
    int father;
    Matrix world;
};

// With a stack of its own: how deep the scene is, the file decides.
std::vector<Node> listNodes(const aiScene& scene)
{
    struct Task
    {
        const aiNode* node;
        int father;
    };
    std::vector<Node> nodes;
    std::vector<Task> tasks = { { scene.mRootNode, -1 } };
    while (!tasks.empty())
    {
        const Task task = tasks.back();
        tasks.pop_back();
        const Matrix local(task.node->mTransformation);
        const int index = static_cast<int>(nodes.size());
        nodes.push_back({ task.node, task.father,
                          task.father < 0 ? local : nodes[static_cast<size_t>(task.father)].world * local });
        for (unsigned int i = task.node->mNumChildren; i > 0; --i)
            tasks.push_back({ task.node->mChildren[i - 1], index });
    }
    return nodes;
}

using Names = std::unordered_set<std::string_view>;

Names getBoneNames(const aiMesh& mesh)
{
    Names names;
    for (unsigned int i = 0; i < mesh.mNumBones; ++i)
        names.insert(mesh.mBones[i]->mName.C_Str());
    return names;
}

// A mesh may have the name of a bone: the bone is the one without geometry, and above all the one among
// bones.
int rateAsBone(const aiNode& node, const Names& boneNames)
{
    const auto isNamed = [&](const aiNode* other) {
        return other != nullptr && boneNames.count(other->mName.C_Str()) != 0;
    };
    const bool isAmongBones =
        isNamed(node.mParent) || std::any_of(node.mChildren, node.mChildren + node.mNumChildren, isNamed);
    return (isAmongBones ? 2 : 0) + (node.mNumMeshes == 0 ? 1 : 0);
}

/// For each node whether it is a bone of the first skinned mesh; empty if there is no such mesh.
std::vector<bool> findSkinJoints(const aiScene& scene, const std::vector<Node>& nodes)
{
    const aiMesh* const* const begin = scene.mMeshes;
    const aiMesh* const* const end = begin + scene.mNumMeshes;
    const aiMesh* const* const mesh =
        std::find_if(begin, end, [](const aiMesh* candidate) { return candidate->HasBones(); });
    if (mesh == end)
        return {};
    const Names boneNames = getBoneNames(**mesh);
    std::unordered_map<std::string_view, const Node*> boneOfName;
    for (const Node& node : nodes)
    {
        if (boneNames.count(node.node->mName.C_Str()) == 0)
            continue;
        const Node*& bone = boneOfName[node.node->mName.C_Str()];
        if (bone == nullptr || rateAsBone(*node.node, boneNames) > rateAsBone(*bone->node, boneNames))
            bone = &node;
    }
    std::vector<bool> isJoint(nodes.size(), false);
    for (const auto& [name, bone] : boneOfName)
        isJoint[static_cast<size_t>(bone - nodes.data())] = true;
    return isJoint;
}

/// All nodes without geometry, but for the one that importers put over those of the file.
std::vector<bool> findBareNodes(const std::vector<Node>& nodes)
{
    std::vector<bool> isJoint(nodes.size());
    for (size_t i = 0; i < nodes.size(); ++i)
        isJoint[i] = nodes[i].node->mNumMeshes == 0;
    const std::string_view top = nodes[0].node->mName.C_Str();
    if (top == "ROOT" || top == "RootNode")
        isJoint[0] = false;
    return isJoint;
}

/// The smallest tree that holds all joints, as places in `nodes`; it begins with its root.
std::vector<size_t> connectJoints(const std::vector<Node>& nodes, const std::vector<bool>& isJoint)
{
    std::vector<int> countBelow(nodes.size(), 0);
    int total = 0;
    for (size_t i = nodes.size(); i-- > 0;)
    {
        countBelow[i] += isJoint[i] ? 1 : 0;
        total += isJoint[i] ? 1 : 0;
        if (nodes[i].father >= 0)
            countBelow[static_cast<size_t>(nodes[i].father)] += countBelow[i];
    }
    // Of the nodes that have all joints below, the last one is the lowest.
    size_t root = 0;
    for (size_t i = 0; i < nodes.size(); ++i)
        if (countBelow[i] == total)
            root = i;
    std::vector<size_t> places;
    for (size_t i = root; i < nodes.size() && total > 0; ++i)
        if (countBelow[i] > 0)
            places.push_back(i);
    return places;
}

/// Ends of chains have no name in BVH; they take that of the joint before.
std::string getJointName(const aiNode& node)
{
    const std::string name = node.mName.C_Str();
    const std::string mark = "EndSite_";
    return name.compare(0, mark.size(), mark) == 0 ? name.substr(mark.size()) + "_end" : name;
}

struct Transform
{
    Rotation rotation;
    Position position;
};

Transform decompose(const Matrix& world)
{
    Position scale;
    Transform transform;
    world.Decompose(scale, transform.rotation, transform.position);
    transform.rotation.Normalize();
    return transform;
}

Transform relativeTo(const Transform& father, const Transform& child)
{
    Rotation inverse = father.rotation;
    inverse.Conjugate();
    return { inverse * child.rotation, inverse.Rotate(child.position - father.position) };
}

// A rotation has two quaternions; the one with w >= 0 is taken.
ImportedBone makeBone(const aiNode& node, int father, const Transform& local)
{
    const double sign = local.rotation.w < 0.0 ? -1.0 : 1.0;
    const auto narrow = [](double value) { return static_cast<float>(value); };
    return { getJointName(node), father,
             mrv::Vector3(narrow(local.position.x), narrow(local.position.y), narrow(local.position.z)),
             mrv::Quaternion(narrow(sign * local.rotation.x), narrow(sign * local.rotation.y),
                             narrow(sign * local.rotation.z), narrow(sign * local.rotation.w))
                 .computeNormalize() };
}

/// False if a transform is nothing that a bone can have.
bool addBones(const std::vector<Node>& nodes, const std::vector<size_t>& places,
              std::vector<ImportedBone>& bones)
{
    std::vector<int> boneOfNode(nodes.size(), -1);
    std::vector<Transform> worlds;
    for (const size_t place : places)
    {
        const int father = bones.empty() ? -1 : boneOfNode[static_cast<size_t>(nodes[place].father)];
        worlds.push_back(decompose(nodes[place].world));
        const Transform local =
            father < 0 ? worlds.back() : relativeTo(worlds[static_cast<size_t>(father)], worlds.back());
        boneOfNode[place] = static_cast<int>(bones.size());
        bones.push_back(makeBone(*nodes[place].node, father, local));
        const ImportedBone& bone = bones.back();
        // NaN fails this too.
        if (!bone.position.isFinite() || !(std::abs(bone.orientation.norm2() - 1.0f) < 1e-3f))
            return false;
    }
    return true;
}

// Trunk and limbs of what stands on the ground go up and down more than forwards and back.
bool standsAlongY(const std::vector<ImportedBone>& bones)
{
    float alongY = 0.0f;
    float alongZ = 0.0f;
    for (const ImportedBone& bone : bones)
    {
        alongY += bone.father < 0 ? 0.0f : std::abs(bone.position.y);
        alongZ += bone.father < 0 ? 0.0f : std::abs(bone.position.z);
    }
    return alongY >= alongZ;
}

bool hasYUp(const aiScene& scene, const std::string& file, const std::vector<ImportedBone>& bones)
{
    int32_t axis = 1;
    if (scene.mMetaData != nullptr && scene.mMetaData->Get("UpAxis", axis))
        return axis != 2;
    const std::string_view extension = std::string_view(file).substr(std::min(file.rfind('.'), file.size()));
    return extension == ".bvh" || extension == ".BVH" ? standsAlongY(bones) : true;
}

} // namespace

bool readAssimpSkeleton(const std::string& file, ImportedSkeleton& skeleton, bool& isYUp,
                        std::string& failure)
{
    Assimp::Importer importer;
    // Otherwise each joint of an FBX file comes as a chain of helper nodes.
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    const aiScene* scene = importer.ReadFile(file, 0);
    if (scene == nullptr || scene->mRootNode == nullptr)
    {
        failure = importer.GetErrorString();
        return false;
    }
    const std::vector<Node> nodes = listNodes(*scene);
    std::vector<bool> isJoint = findSkinJoints(*scene, nodes);
    if (isJoint.empty())
        isJoint = findBareNodes(nodes);
    if (!addBones(nodes, connectJoints(nodes, isJoint), skeleton.bones))
    {
        failure = "the transform of '" + skeleton.bones.back().name + "' cannot be that of a joint";
        return false;
    }
    if (skeleton.bones.empty())
    {
        failure = "there are no joints in the scene";
        return false;
    }
    isYUp = hasYUp(*scene, file, skeleton.bones);
    return true;
}

} // namespace mrvcharacter
