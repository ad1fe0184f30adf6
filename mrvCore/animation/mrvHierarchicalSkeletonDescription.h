// mrvCore/animation/mrvHierarchicalSkeletonDescription.h
// The bones of one skeleton, an order of them that does not depend on the export, and altered poses.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

class HierarchicalBoneV1;
class HierarchicalSkeletonDescriptionV0;

/// Owns the bones of a skeleton.
///
/// Orders: getBones() is that of the file, and a copy numbers its bones by it. getSortedBones() is the same
/// for all exports of one skeleton, which makes their caches comparable: level by level, siblings by name.
/// It is not stored: call initSortedBones() when the bones have been built or loaded.
/// Links: a bone without a father that is not the root is allowed and starts a tree of its own.
/// What comes from a file may hold anything: ask isSkeletonDescriptionValid() before any work with the bones.
/// Threads: one at a time.
class MRV_CORE_API HierarchicalSkeletonDescriptionV1
{
public:
    MRV_PERSISTENT_CLASS_VIRTUAL(HierarchicalSkeletonDescriptionV1)

    /// An altered pose. One entry per bone, by specific index.
    struct Override
    {
        float _rootHeightUnscaled = 0.0f;
        Array<Vector3> _boneslocalPos;
        Array<Quaternion> _boneslocalOri;
        Array<Vector3> _bonesSkinningScale;
    };

    /// An altered pose as differences from the bind pose: pairs of a list of specific indices and a list of
    /// values of the same size.
    struct MRV_CORE_API OverrideScales
    {
        bool empty() const;

        PODArray<unsigned int> _bonesLocalPosScalesIndices;
        Array<Vector3> _bonesLocalPosScales;
        PODArray<unsigned int> _bonesLocalOriOffsetsIndices;
        Array<Quaternion> _bonesLocalOriOffsets;
        PODArray<unsigned int> _bonesAdditionalSkinningScalesIndices;
        Array<Vector3> _bonesAdditionalSkinningScales;
    };

    HierarchicalSkeletonDescriptionV1() = default;
    explicit HierarchicalSkeletonDescriptionV1(const char* name) : _name(name) {}
    HierarchicalSkeletonDescriptionV1(const HierarchicalSkeletonDescriptionV1& other);
    /// Copies the bones and gives each its position as specific index. Children come in the order of
    /// getBones(). The new root is the bone at the position that the index of the other's root names.
    HierarchicalSkeletonDescriptionV1& operator=(const HierarchicalSkeletonDescriptionV1& other);
    virtual ~HierarchicalSkeletonDescriptionV1();
    /// The step from the version before, with new bones: a copy of that kind, and both orders. The rotations
    /// that the old bones had before the bind pose are left out.
    void createFrom(const HierarchicalSkeletonDescriptionV0& old);

    /// Becomes what a copy of it would be. Keeps the bones where they need no new numbers or links.
    void becomeOwnCopy();

    /// Deletes the bones and empties everything.
    virtual void clear();

    const MrvString& getName() const { return _name; }
    void setName(const char* name) { _name = name; }
    /// One of the bones, or null.
    HierarchicalBoneV1* getRootBone() const { return _rootBone; }
    void setRootBone(HierarchicalBoneV1* bone) { _rootBone = bone; }
    const PODArray<HierarchicalBoneV1*>& getBones() const { return _bones; }
    /// A bone put in here belongs to the description.
    PODArray<HierarchicalBoneV1*>& touchBones() { return _bones; }

    /// From sorted position to specific index.
    const PODArray<unsigned long>& getSortedBones() const { return _cacheToSpecificSortedBones; }
    /// From specific index to sorted position.
    const PODArray<unsigned long>& getSpecificToCacheBoneIndices() const
    {
        return _specificToCacheBoneIndices;
    }
    /// Builds both orders. Bones on a ring of fathers, which have no place, are left out. An index beyond the
    /// bones keeps its place in the sorted order but gets no entry in the inverse; of bones with one index
    /// the last one counts.
    void initSortedBones();

    bool operator==(const HierarchicalSkeletonDescriptionV1& other) const
    {
        return equals(other, true, true, true, true);
    }
    /// The hierarchies are compared by HierarchicalBoneV1::similar() of the roots, which does not look at
    /// deeper levels. With different names the numbers of bones do not matter any more.
    bool equals(const HierarchicalSkeletonDescriptionV1& other, bool compareName, bool compareBoneCount,
                bool compareHierarchy, bool compareSortedIndices) const;

    /// True for unique specific indices below the number of bones, a root without a father, and a sound
    /// hierarchy. A negative index passes, as older exports rely on. Each fault is told to the log if
    /// `logErrors`.
    bool isSkeletonDescriptionValid(bool logErrors) const;

    /// True if there is no null among the bones and none twice, fathers and children name each other, none of
    /// them is from outside, the root is one of the bones or null, and no chain of fathers is a ring.
    bool hasSoundHierarchy() const;

    /// Length of the longest chain from a leaf up to the root, whose own position does not count.
    float getMaxBonesHierarchyLength() const;

    /// Writes the local transforms of an override into the bones, by their place in getBones(), and computes
    /// their caches in that order. With the wrong number of either it logs an error and changes nothing.
    void bakeSkeletonOverride(const Override& skeletonOverride);

private:
    bool isLikeOwnCopy() const;
    bool hasSoundLinks(bool logErrors) const;
    void linkBones(const PODArray<int>& fatherPositions, int rootPosition);
    void computeCaches();

    MrvString _name;
    HierarchicalBoneV1* _rootBone = nullptr;
    PODArray<HierarchicalBoneV1*> _bones;
    PODArray<unsigned long> _cacheToSpecificSortedBones;
    PODArray<unsigned long> _specificToCacheBoneIndices;
};

} // namespace mrv
