// mrvCore/animation/mrvGenericSpecificConverterMappingRefinement.cpp
// Where the limbs that were found bend and end, and their effectors.
#include "mrvCore/animation/mrvBoneChain.h"
#include "mrvCore/animation/mrvBoneGeometry.h"
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvBoneWalks.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "mrvCore/math/statistics/mrvStatistics.h"

#include <algorithm>
#include <vector>

namespace mrv {

using internal::boneAt;
using internal::BoneChain;
using internal::bonesOf;
using internal::findUpwards;

namespace {

using Bone = HierarchicalBoneV1;

/// A limb as one chain, with the angle by which it bends at each bone; the ends bend by 0.
class LimbRefiner
{
public:
    LimbRefiner(GenericSpecificConverterBoneV1& limb, const PODArray<Bone*>& bones, PODArray<int>& excluded)
        : _limb(limb)
        , _bones(bones)
        , _excluded(excluded)
        , _chain(internal::getChain(boneAt(bones, limb._firstBoneOfChain[0]),
                                    boneAt(bones, limb._lastBoneOfChain[1])))
    {
        for (size_t i = 0; i < _chain.size(); ++i)
        {
            if (_chain[i]->getSpecificBoneIndex() == limb._firstBoneOfChain[1])
                _joint = i;
            _bends.push_back(computeBend(i));
        }
    }

    void refine(float refineThreshold, Angle minBendAngle)
    {
        if (_chain.empty())
            return;
        _limb._firstBoneOfChain[0] = -1;
        _limb._lastBoneOfChain[0] = -1;
        _limb._firstBoneOfChain[1] = indexAt(0);
        _limb._lastBoneOfChain[1] = indexAt(_chain.size() - 1);
        constexpr float largestSpreadOfStraight = 0.5f;
        if (_limb._type == SkeletonPartType::GRASPER ||
            _bends.getStandardDeviation() > largestSpreadOfStraight)
            findJoint(refineThreshold);
        if (_limb._type == SkeletonPartType::GRASPER || _limb._type == SkeletonPartType::LEG)
        {
            trimEnd();
            excludeStraightBones(0, _joint, minBendAngle);
            excludeStraightBones(_joint, _chain.size() - 1, minBendAngle);
            _limb._rollAttributes[1].addOne()._farEndBoneIdx = _limb._lastBoneOfChain[1];
        }
        // Both spans are measured from the start of the chain, also the one beyond the joint: which bones a
        // character leaves out of IK depends on it.
        excludeShortBones(_joint);
        excludeShortBones(_chain.size() - 1 - _joint);
    }

private:
    int indexAt(size_t position) const { return _chain[position]->getSpecificBoneIndex(); }
    float getBend(size_t position) const { return _bends.getValues()[position]; }

    Vector3 getStep(size_t from) const
    {
        return _chain[from + 1]->getWorldPosUnscaled() - _chain[from]->getWorldPosUnscaled();
    }

    Angle computeBend(size_t position) const
    {
        if (position == 0 || position + 1 == _chain.size())
            return 0.0f;
        return AngleUtils::getModuloValue(angle(getStep(position), getStep(position - 1)));
    }

    void findJoint(float refineThreshold)
    {
        const float mean = _bends.getArithmeticMean();
        const float limit = refineThreshold * mean + mean;
        const size_t endsGrandfather = _chain.size() < 3 ? 0 : _chain.size() - 3;
        for (size_t i = 1; i <= endsGrandfather; ++i)
        {
            if (!(getBend(i) > limit))
                continue;
            // At the end's grandfather itself the joint's position stays what it was.
            if (i < endsGrandfather)
                _joint = i;
            _limb._firstBoneOfChain[0] = indexAt(0);
            _limb._lastBoneOfChain[0] = indexAt(i);
            _limb._firstBoneOfChain[1] = indexAt(i);
            return;
        }
    }

    void trimEnd()
    {
        const Bone* trimmed =
            trimEndOfChainFromGeometricMiddle(boneAt(_bones, _limb._firstBoneOfChain[1]), _chain.back());
        const size_t last = static_cast<size_t>(_chain.find(trimmed) - _chain.begin());
        if (last >= _chain.size() || last < 2)
            return;
        _limb._lastBoneOfChain[1] = indexAt(last);
        _chain.resize(last + 1);
        _bends.touchValues().resize(last + 1);
        // From here on the whole limb is one span, even if nothing was cut off.
        _joint = 0;
    }

    bool isEndOfLimb(int bone) const
    {
        return bone == _limb._firstBoneOfChain[0] || bone == _limb._lastBoneOfChain[0] ||
               bone == _limb._firstBoneOfChain[1] || bone == _limb._lastBoneOfChain[1];
    }

    // A span keeps the bone in its middle unless more than three remain and that one is straight too.
    void excludeStraightBones(size_t low, size_t high, Angle minBendAngle)
    {
        if (high < low + 2)
            return;
        const size_t middle =
            internal::findNearest(_chain, low + 1, high, internal::getMidpoint(*_chain[low], *_chain[high]));
        size_t left = high - low + 1;
        for (size_t i = low + 1; i < high; ++i)
        {
            if (i == middle || isEndOfLimb(indexAt(i)) || !(getBend(i) < minBendAngle))
                continue;
            _excluded.push_back(indexAt(i));
            --left;
        }
        if (left > 3 && getBend(middle) < minBendAngle)
            _excluded.push_back(indexAt(middle));
    }

    void excludeShortBones(size_t count)
    {
        constexpr float shortShare = 0.05f;
        Statistics lengths;
        for (size_t i = 0; i < count; ++i)
            lengths.push_back(getStep(i).norm());
        const float mean = lengths.getArithmeticMean();
        const float deviation = lengths.getStandardDeviation();
        const float base = deviation < mean ? mean - deviation : mean;
        for (size_t i = 0; i < count; ++i)
            if (lengths.getValues()[i] < shortShare * base)
                _excluded.push_back(indexAt(i));
    }

    GenericSpecificConverterBoneV1& _limb;
    const PODArray<Bone*>& _bones;
    PODArray<int>& _excluded;
    BoneChain _chain;
    Statistics _bends; ///< by position in the chain
    size_t _joint = 0; ///< position in the chain
};

/// A bone and how far it is below the end of a limb.
struct DeepBone
{
    const Bone* bone;
    int depth;
};

struct Leaf
{
    DeepBone leaf;
    DeepBone top;   ///< where the effector starts
    DeepBone entry; ///< child, on the way to this leaf, of the common ancestor with the leaf before
};

/// The leaves below `end` in the order of the walk, each with the child of `end` above it as its top. Leaves
/// below one bone are neighbours in that order.
std::vector<Leaf> findLeaves(const Bone& end)
{
    std::vector<Leaf> leaves;
    DeepBone entry = {};
    DeepBone top = {};
    bool isEntering = true;
    internal::walkBranch(end, [&](const Bone& bone, int depth) {
        if (depth == 0)
            return;
        if (isEntering)
            entry = { &bone, depth };
        if (depth == 1)
            top = { &bone, depth };
        isEntering = bone.getNbChildren() == 0;
        if (isEntering)
            leaves.push_back({ { &bone, depth }, top, entry });
    });
    return leaves;
}

DeepBone climbTo(int depth, DeepBone bone)
{
    for (; bone.depth > depth; --bone.depth)
        bone.bone = bone.bone->getFather();
    return bone;
}

/// Moves the tops of a leaf and of later ones to right below their lowest common ancestor, pair by pair in
/// their order. The ancestor is searched below the top of the first leaf; one that is its own top searches up
/// to the root, and so may bring tops up again. Effectors depend on just that.
void separateFromLaterOnes(std::vector<Leaf>& leaves, size_t first)
{
    Leaf& own = leaves[first];
    DeepBone other = { nullptr, own.leaf.depth }; // right below the common ancestor
    for (size_t i = first + 1; i < leaves.size(); ++i)
    {
        if (leaves[i].entry.depth <= other.depth)
            other = leaves[i].entry;
        const bool isOwnTop = own.top.bone == own.leaf.bone;
        if (!isOwnTop && other.depth <= own.top.depth)
            break;
        leaves[i].top = other;
        own.top = climbTo(other.depth, own.leaf);
    }
}

/// The bone at which the chain to a leaf is divided, null for a short one or one that stays whole.
const Bone* findEffectorJoint(const Leaf& leaf, const Bone& end, bool isOfGrasper)
{
    const int length = leaf.leaf.depth - leaf.top.depth;
    if (length <= 2)
        return nullptr;
    const Bone* bone = leaf.leaf.bone;
    if (!isOfGrasper)
        return bone->getFather()->getFather();
    const Bone* middle = findGeometricMiddleBone(&end, bone);
    return findUpwards(bone, static_cast<size_t>(length),
                       [middle](const Bone& link) { return &link == middle; });
}

} // namespace

void GenericSpecificConverterMappingV8::refineLimb(GenericSpecificConverterBoneV1& limb,
                                                   float refineThreshold, Angle minBendAngle)
{
    LimbRefiner(limb, bonesOf(_skeletonDescription), _ikExcludedBones).refine(refineThreshold, minBendAngle);
}

void GenericSpecificConverterMappingV8::addEffectors(const GenericSpecificConverterBoneV1& limb,
                                                     PODArray<int>& effectorIndices)
{
    const Bone* end = boneAt(bonesOf(_skeletonDescription), limb._lastBoneOfChain[1]);
    if (end == nullptr)
        return;
    std::vector<Leaf> leaves = findLeaves(*end);
    for (size_t i = 0; i < leaves.size(); ++i)
        separateFromLaterOnes(leaves, i);
    for (const Leaf& leaf : leaves)
    {
        GenericSpecificConverterBoneV1 effector;
        effector._type = limb._type;
        effector._coronalLocation = limb._coronalLocation;
        effector._transverseLocation = limb._transverseLocation;
        effector._sagittalLocation = limb._sagittalLocation;
        const Bone* joint = findEffectorJoint(leaf, *end, limb._type == SkeletonPartType::GRASPER);
        if (joint != nullptr)
        {
            effector._firstBoneOfChain[0] = leaf.top.bone->getSpecificBoneIndex();
            effector._lastBoneOfChain[0] = joint->getSpecificBoneIndex();
        }
        effector._firstBoneOfChain[1] = (joint != nullptr ? joint : leaf.top.bone)->getSpecificBoneIndex();
        effector._lastBoneOfChain[1] = leaf.leaf.bone->getSpecificBoneIndex();
        const int index = addEffector(effector);
        if (index >= 0)
            effectorIndices.push_back(index);
    }
}

} // namespace mrv
