// mrvCore/animation/mrvHierarchicalBone.h
// One bone of a skeleton in its bind pose, and sets of bones.
#pragma once

#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvSet.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

#include <set>

namespace mrv {

/// A node of the bind-pose tree: a transform relative to the father, links, and the place of the bone in the
/// arrays of its character (the specific index).
///
/// Owner: the skeleton description that holds the bone; father and children are borrowed both ways. A child
/// is a bone that stands in the list of children and has this bone as father. That is what setFather(),
/// setChildren() and the copies make, and what every walk goes by: a walk ends on any links that these have
/// made, even on a ring of them, which a damaged file can bring in. No walk needs stack for the depth.
/// Units: positions in those of the skeleton, without scales unless an operation says so.
/// Threads: one at a time. Reading a world transform fills the cache of the bone and of those above it; a
/// bone whose cache is fresh, as are those above it, may be read by many threads.
class MRV_CORE_API HierarchicalBoneV1
{
public:
    MRV_PERSISTENT_CLASS(HierarchicalBoneV1)

    HierarchicalBoneV1() : HierarchicalBoneV1("") {}
    /// Null position, identity, no father, index 0.
    explicit HierarchicalBoneV1(const char* name);
    HierarchicalBoneV1(const char* name, HierarchicalBoneV1* father, int specificBoneIndex);
    /// The orientation is taken as it is, unlike that of setLocalOri().
    HierarchicalBoneV1(const char* name, HierarchicalBoneV1* father, const Vector3& localPos,
                       const Quaternion& localOri, int specificBoneIndex);

    /// A copy of the whole branch. The copy names the father without being in its list of children; the new
    /// bones below it belong to the caller.
    HierarchicalBoneV1(const HierarchicalBoneV1& other) : HierarchicalBoneV1(other, other._father) {}
    HierarchicalBoneV1(const HierarchicalBoneV1& other, HierarchicalBoneV1* father);
    HierarchicalBoneV1& operator=(const HierarchicalBoneV1&) = delete;
    /// Leaves father and children alone.
    ~HierarchicalBoneV1() = default;

    const MrvString& getName() const { return _name; }
    void setName(const MrvString& name) { _name = name; }
    /// Null for a root.
    const HierarchicalBoneV1* getFather() const { return _father; }
    HierarchicalBoneV1* touchFather() const { return _father; }
    unsigned int getNbChildren() const { return static_cast<unsigned int>(_children.size()); }
    const PODArray<HierarchicalBoneV1*>& getChildren() const { return _children; }
    /// Whoever changes the list keeps the fathers in step.
    PODArray<HierarchicalBoneV1*>& touchChildren() { return _children; }
    /// The index is not checked.
    const HierarchicalBoneV1* getChild(unsigned int index) const { return _children[index]; }
    HierarchicalBoneV1* touchChild(unsigned int index) { return _children[index]; }
    /// True if this bone is the direct father.
    bool isParentOf(const HierarchicalBoneV1* bone) const { return bone != nullptr && bone->_father == this; }

    const Vector3& getLocalPosUnscaled() const { return _localPos; }
    const Quaternion& getLocalOri() const { return _localOri; }
    int getSpecificBoneIndex() const { return _specificBoneIndex; }
    void setSpecificBoneIndex(int index) { _specificBoneIndex = index; }

    /// Leaves the children of the former father and enters those of the new one at the end; null makes a
    /// root. The cache keeps the world transform of the former place until something makes it dirty.
    void setFather(HierarchicalBoneV1* father);
    /// setFather(this) for each of the list in order, nulls aside. Former children that are not listed keep
    /// this bone as their father.
    void setChildren(const PODArray<HierarchicalBoneV1*>& children);
    /// Keeps the order of the others. What is not a child is left as it is.
    void removeChild(HierarchicalBoneV1* child);

    void setLocalPos(const Vector3& position);
    /// Stores the orientation normalized; a null one stays null.
    void setLocalOri(const Quaternion& orientation);
    /// The local transform that gives this world transform below the father as it is now. The inverse of the
    /// father's orientation being (x, y, z, -w), what comes back may be the negative of the same rotation.
    void setWorldPos(const Vector3& position);
    void setWorldOri(const Quaternion& orientation);
    /// Without normalizing and without a walk over the branch: for whoever rewrites a whole skeleton and then
    /// calls computeCache() on each bone once.
    void rewriteLocalTransform(const Vector3& position, const Quaternion& orientation);

    const Vector3& getWorldPosUnscaled() const
    {
        refreshCache();
        return _worldPos;
    }
    const Quaternion& getWorldOri() const
    {
        refreshCache();
        return _worldOri;
    }
    /// Computes the world transform anew, and before it those of dirty bones right above.
    void computeCache() const;
    /// Marks the whole branch.
    void setCacheDirty();

    // World transforms of altered poses. The arrays go by specific index; what an array does not hold stays
    // as in the bind pose. The bone's own cache is neither read nor written.

    /// Each local position times its scale, in the orientations of the bind pose.
    Vector3 computeWorldPosWithScales(const Array<Vector3>& scales) const;
    /// The offset of a bone turns the positions of its direct children only.
    Vector3 computeWorldPosWithScalesAndOriOffsets(const Array<Vector3>& scales,
                                                   const Array<Quaternion>& oriOffsets) const;
    /// By other local positions and orientations.
    Vector3 computeWorldPosWithLocalOverrides(const Array<Vector3>& localPositions,
                                              const Array<Quaternion>& localOrientations) const;
    /// By other local orientations.
    Quaternion computeWorldOriWithLocalOverrides(const Array<Quaternion>& localOrientations) const;

    /// Number of bones above this one.
    int depth() const;
    /// Number of bones on the longest way down; 0 for a leaf.
    int height() const;
    /// The bones of the branch level by level, this bone alone first; no level is empty.
    void getSubNodes(Array<MrvSet<const HierarchicalBoneV1*>>& levels) const;
    /// Replaces the bones of the set by the leaves below them; a leaf stands for itself.
    static void getLeaves(MrvSet<const HierarchicalBoneV1*>& bones);
    /// The number of children of each child; what two bones have in common that look alike from above.
    std::multiset<unsigned int> getMorphSignature() const;

    /// True if the branches have the same height and on each level the same morph signatures.
    static bool isomorphic(const HierarchicalBoneV1* a, const HierarchicalBoneV1* b);

    /// Finds groups of branches below `root` that have the same shape, each named by its topmost bone, and
    /// writes them over `result`. Returns whether there are any.
    ///
    /// Groups are grown from the leaves up: of two bones whose fathers differ but have equal depths and morph
    /// signatures, the fathers take the place. Groups of more than three are split by signature.
    static bool isomorphicSubBranches(const HierarchicalBoneV1* root,
                                      Array<MrvSet<const HierarchicalBoneV1*>>& result);

    /// The lowest bone, `root` at the highest, on the ways from all the bones up to `root`, which may be
    /// null. Null for fewer than two bones, and where the ways do not meet.
    static const HierarchicalBoneV1*
    findLowestCommonAncester(const HierarchicalBoneV1* root,
                             const PODArray<const HierarchicalBoneV1*>& bones);

    /// True if name, local transform (within 1e-5), father's name and number of children agree. Differences
    /// deeper down do not count.
    bool similar(const HierarchicalBoneV1& other) const;

private:
    void refreshCache() const
    {
        if (_cacheIsDirty)
            computeCache();
    }
    void computeCacheBelowFather() const;

    MrvString _name;
    Vector3 _localPos;
    Quaternion _localOri = Quaternion::getIdentity();
    HierarchicalBoneV1* _father = nullptr;
    PODArray<HierarchicalBoneV1*> _children;
    int _specificBoneIndex = 0;
    mutable bool _cacheIsDirty = true;
    mutable Vector3 _worldPos;
    mutable Quaternion _worldOri = Quaternion::getIdentity();
};

namespace internal {

/// A bone as member of a set: by the specific index that it had when it entered, then by address.
class BoneInSet
{
public:
    BoneInSet(const HierarchicalBoneV1* bone = nullptr)
        : _bone(bone)
        , _index(bone != nullptr ? bone->getSpecificBoneIndex() : -1)
    {}
    operator const HierarchicalBoneV1*() const { return _bone; }
    const HierarchicalBoneV1* operator->() const { return _bone; }
    friend bool operator<(const BoneInSet& a, const BoneInSet& b)
    {
        return a._index != b._index ? a._index < b._index : a._bone < b._bone;
    }

private:
    const HierarchicalBoneV1* _bone;
    int _index;
};

} // namespace internal

/// Sets of bones go by the specific index, bones of one index by address. The first bone of a set decides in
/// the search for equal branches, and so in the automatic mapping: by address, which pointers otherwise go
/// by, one file would be mapped differently from run to run.
template <>
class MrvSet<const HierarchicalBoneV1*> : public MrvSet<internal::BoneInSet>
{
public:
    using MrvSet<internal::BoneInSet>::MrvSet;
};

} // namespace mrv
