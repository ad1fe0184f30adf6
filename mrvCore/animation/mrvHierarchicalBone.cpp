// mrvCore/animation/mrvHierarchicalBone.cpp
#include "mrvCore/animation/mrvHierarchicalBone.h"

#include "mrvCore/animation/mrvBoneWalks.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <cmath>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(HierarchicalBoneV1, "mrv::HierarchicalBoneV1",
                            "6672f096-b5ec-4aa2-9aa0-d22c546913f3")

// Reading goes through the setters: it normalizes orientations and builds the links from both sides.
void HierarchicalBoneV1::addAttributes()
{
    using Bone = HierarchicalBoneV1;
    addAttribute<MrvString>("name", &Bone::_name);
    addAccessorsAttribute<const Vector3&>("relativePos", &Bone::getLocalPosUnscaled, &Bone::setLocalPos);
    addAccessorsAttribute<const Quaternion&>("localOri", &Bone::getLocalOri, &Bone::setLocalOri);
    addAccessorsAttribute<Bone*>("father", &Bone::touchFather, &Bone::setFather);
    addAccessorsAttribute<const PODArray<Bone*>&>("children", &Bone::getChildren, &Bone::setChildren);
    addAttribute<int>("specificBoneIndex", &Bone::_specificBoneIndex);
}

namespace {

/// The bone and those above it, the topmost last.
PODArray<const HierarchicalBoneV1*> getChain(const HierarchicalBoneV1* bone)
{
    constexpr size_t usualDepth = 64;
    PODArray<const HierarchicalBoneV1*> chain;
    chain.reserve(usualDepth);
    for (internal::FatherClimb climb(bone); climb.get() != nullptr; climb.climb())
        chain.push_back(climb.get());
    return chain;
}

/// Valid skeletons may hold a negative index, and arrays may be too short.
template <typename T>
const T& getEntry(const Array<T>& array, const HierarchicalBoneV1* bone, const T& otherwise)
{
    const size_t index = static_cast<size_t>(bone->getSpecificBoneIndex());
    return index < array.size() ? array[index] : otherwise;
}

Vector3 getScaledPos(const HierarchicalBoneV1* bone, const Array<Vector3>& scales)
{
    static constexpr Vector3 unscaled(1.0f);
    Vector3 position = bone->getLocalPosUnscaled();
    position.mulSelf(getEntry(scales, bone, unscaled));
    return position;
}

bool areNear(const Vector3& a, const Vector3& b)
{
    constexpr float tolerance = 1e-5f;
    return tolerance >= std::abs(a.x - b.x) && tolerance >= std::abs(a.y - b.y) &&
           tolerance >= std::abs(a.z - b.z);
}

bool areNear(const Quaternion& a, const Quaternion& b)
{
    constexpr float tolerance = 1e-5f;
    return tolerance >= std::abs(a.x - b.x) && tolerance >= std::abs(a.y - b.y) &&
           tolerance >= std::abs(a.z - b.z) && tolerance >= std::abs(a.w - b.w);
}

} // namespace

HierarchicalBoneV1::HierarchicalBoneV1(const char* name) : _name(name) {}

HierarchicalBoneV1::HierarchicalBoneV1(const char* name, HierarchicalBoneV1* father, int specificBoneIndex)
    : _name(name)
    , _specificBoneIndex(specificBoneIndex)
{
    setFather(father);
}

HierarchicalBoneV1::HierarchicalBoneV1(const char* name, HierarchicalBoneV1* father, const Vector3& localPos,
                                       const Quaternion& localOri, int specificBoneIndex)
    : _name(name)
    , _localPos(localPos)
    , _localOri(localOri)
    , _specificBoneIndex(specificBoneIndex)
{
    setFather(father);
}

HierarchicalBoneV1::HierarchicalBoneV1(const HierarchicalBoneV1& other, HierarchicalBoneV1* father)
    : _name(other._name)
    , _localPos(other._localPos)
    , _localOri(other._localOri)
    , _father(father)
    , _specificBoneIndex(other._specificBoneIndex)
{
    struct Pair
    {
        const HierarchicalBoneV1* source;
        HierarchicalBoneV1* copy;
    };
    PODArray<Pair> waiting(1, Pair{ &other, this });
    while (waiting.any())
    {
        const Pair pair = waiting.back();
        waiting.pop_back();
        pair.copy->_children.reserve(pair.source->_children.size());
        for (const HierarchicalBoneV1* child : pair.source->_children)
        {
            if (!internal::isLinked(pair.source, child) || child == &other)
                continue;
            HierarchicalBoneV1* const copy = new HierarchicalBoneV1(
                "", pair.copy, child->_localPos, child->_localOri, child->_specificBoneIndex);
            copy->_name = child->_name;
            waiting.push_back({ child, copy });
        }
    }
}

void HierarchicalBoneV1::setFather(HierarchicalBoneV1* father)
{
    if (_father != nullptr)
        _father->removeChild(this);
    _father = father;
    if (father != nullptr)
        father->_children.push_back(this);
}

void HierarchicalBoneV1::setChildren(const PODArray<HierarchicalBoneV1*>& children)
{
    const PODArray<HierarchicalBoneV1*> listed(children); // which may be the own list
    _children.clear();
    // Those that were children have left the list just now. Told here, since otherwise setFather() would
    // search for each of them, and that of a bone with n children takes the square of n.
    for (HierarchicalBoneV1* child : listed)
        if (isParentOf(child))
            child->_father = nullptr;
    for (HierarchicalBoneV1* child : listed)
        if (child != nullptr)
            child->setFather(this);
}

void HierarchicalBoneV1::removeChild(HierarchicalBoneV1* child)
{
    if (child != nullptr && _children.eraseIfExists(child))
        child->_father = nullptr;
}

void HierarchicalBoneV1::setLocalPos(const Vector3& position)
{
    _localPos = position;
    setCacheDirty();
}

void HierarchicalBoneV1::setLocalOri(const Quaternion& orientation)
{
    _localOri = orientation.computeNormalize();
    setCacheDirty();
}

void HierarchicalBoneV1::setWorldPos(const Vector3& position)
{
    setLocalPos(_father == nullptr
                    ? position
                    : _father->getWorldOri().computeInverse() * (position - _father->getWorldPosUnscaled()));
}

void HierarchicalBoneV1::setWorldOri(const Quaternion& orientation)
{
    setLocalOri(_father == nullptr ? orientation : _father->getWorldOri().computeInverse() * orientation);
}

void HierarchicalBoneV1::rewriteLocalTransform(const Vector3& position, const Quaternion& orientation)
{
    _localPos = position;
    _localOri = orientation;
}

void HierarchicalBoneV1::computeCache() const
{
    // A bone counts as clean from here on, so that the climb ends on a ring too.
    _cacheIsDirty = false;
    PODArray<const HierarchicalBoneV1*> dirtyBones;
    for (const HierarchicalBoneV1* bone = _father; bone != nullptr && bone->_cacheIsDirty;
         bone = bone->_father)
    {
        bone->_cacheIsDirty = false;
        dirtyBones.push_back(bone);
    }
    for (; dirtyBones.any(); dirtyBones.pop_back())
        dirtyBones.back()->computeCacheBelowFather();
    computeCacheBelowFather();
}

void HierarchicalBoneV1::computeCacheBelowFather() const
{
    if (_father == nullptr)
    {
        _worldPos = _localPos;
        _worldOri = _localOri;
        return;
    }
    _worldPos = _father->_worldPos + _father->_worldOri * _localPos;
    _worldOri = _father->_worldOri * _localOri;
}

void HierarchicalBoneV1::setCacheDirty()
{
    // The whole branch: a clean bone that came below a dirty one by setFather() is clean still.
    _cacheIsDirty = true;
    if (_children.empty())
        return;
    PODArray<HierarchicalBoneV1*> waiting(1, this);
    while (waiting.any())
    {
        HierarchicalBoneV1* const bone = waiting.back();
        waiting.pop_back();
        for (HierarchicalBoneV1* child : bone->_children)
        {
            if (!internal::isLinked(bone, child) || child == this)
                continue;
            child->_cacheIsDirty = true;
            waiting.push_back(child);
        }
    }
}

Vector3 HierarchicalBoneV1::computeWorldPosWithScales(const Array<Vector3>& scales) const
{
    const PODArray<const HierarchicalBoneV1*> chain = getChain(this);
    Vector3 position = getScaledPos(chain.back(), scales);
    for (size_t i = chain.size() - 1; i-- > 0;)
        position += chain[i + 1]->getWorldOri() * getScaledPos(chain[i], scales);
    return position;
}

Vector3 HierarchicalBoneV1::computeWorldPosWithScalesAndOriOffsets(const Array<Vector3>& scales,
                                                                   const Array<Quaternion>& oriOffsets) const
{
    const PODArray<const HierarchicalBoneV1*> chain = getChain(this);
    Vector3 position = getScaledPos(chain.back(), scales);
    for (size_t i = chain.size() - 1; i-- > 0;)
    {
        const HierarchicalBoneV1* const father = chain[i + 1];
        const Quaternion& offset = getEntry(oriOffsets, father, Quaternion::getIdentity());
        position += father->getWorldOri() * offset * getScaledPos(chain[i], scales);
    }
    return position;
}

Vector3
HierarchicalBoneV1::computeWorldPosWithLocalOverrides(const Array<Vector3>& localPositions,
                                                      const Array<Quaternion>& localOrientations) const
{
    const PODArray<const HierarchicalBoneV1*> chain = getChain(this);
    const HierarchicalBoneV1* bone = chain.back();
    Vector3 position = getEntry(localPositions, bone, bone->_localPos);
    Quaternion orientation = getEntry(localOrientations, bone, bone->_localOri);
    for (size_t i = chain.size() - 1; i-- > 0;)
    {
        bone = chain[i];
        position += orientation * getEntry(localPositions, bone, bone->_localPos);
        orientation *= getEntry(localOrientations, bone, bone->_localOri);
    }
    return position;
}

Quaternion
HierarchicalBoneV1::computeWorldOriWithLocalOverrides(const Array<Quaternion>& localOrientations) const
{
    const PODArray<const HierarchicalBoneV1*> chain = getChain(this);
    Quaternion orientation = getEntry(localOrientations, chain.back(), chain.back()->_localOri);
    for (size_t i = chain.size() - 1; i-- > 0;)
        orientation *= getEntry(localOrientations, chain[i], chain[i]->_localOri);
    return orientation;
}

bool HierarchicalBoneV1::similar(const HierarchicalBoneV1& other) const
{
    if (_name != other._name || !areNear(_localPos, other._localPos))
        return false;
    if (!areNear(_localOri, other._localOri) && !areNear(_localOri, -other._localOri))
        return false;
    if (_father != nullptr && other._father != nullptr && _father->_name != other._father->_name)
        return false;
    // Children are counted and nothing more: the comparison of existing characters relies on differences
    // further down not making two skeletons different.
    return _children.size() == other._children.size();
}

} // namespace mrv
