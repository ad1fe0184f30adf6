// mrvCore/animation/mrvGenericSpecificConverterMappingAutomatic.cpp
// Finding the limbs, the pelvis and the spines of a skeleton.
#include "mrvCore/animation/mrvBoneGeometry.h"
#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvBoneWalks.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/system/log/mrvLogMacros.h"

#include <algorithm>
#include <map>
#include <unordered_set>
#include <vector>

namespace mrv {

using internal::boneAt;
using internal::bonesOf;

namespace {

using Bone = HierarchicalBoneV1;
using BoneSet = MrvSet<const Bone*>;
using KnownBones = std::unordered_set<const Bone*>;

bool isReady(const HierarchicalSkeletonDescriptionV1* skeleton)
{
    if (skeleton == nullptr || !skeleton->hasSoundHierarchy())
        return false;
    const PODArray<Bone*>& bones = skeleton->getBones();
    for (size_t i = 0; i < bones.size(); ++i)
        if (bones[i]->getSpecificBoneIndex() != static_cast<int>(i))
            return false;
    return true;
}

/// One of the three axes of the body.
struct Span
{
    float average;
    float min;
    float max;
};

/// Where a branch lies. Positive along `side` is the right.
struct Place
{
    Place(const Bone* top, const Vector3& frontAxis, const Vector3& upAxis, const Vector3& sideAxis)
    {
        getPlanesValuesOnHierarchy(front.average, front.min, front.max, up.average, up.min, up.max,
                                   side.average, side.min, side.max, top, frontAxis, upAxis, sideAxis);
    }

    Span front;
    Span up;
    Span side;
};

struct Range
{
    void add(float value)
    {
        min = isEmpty ? value : std::min(min, value);
        max = isEmpty ? value : std::max(max, value);
        isEmpty = false;
    }
    float getLow(float share) const { return min + share * (max - min); }
    float getHigh(float share) const { return max - share * (max - min); }

    float min = 0.0f;
    float max = 0.0f;
    bool isEmpty = true;
};

/// Tells limbs apart by where they lie among the others. Up is not cut alike at both ends on purpose.
struct PlaceLimits
{
    PlaceLimits(const Range& front, const Range& up, const Range& side)
        : lowFront(front.getLow(0.4f))
        , highFront(front.getHigh(0.4f))
        , lowUp(up.getLow(0.4f))
        , highUp(up.getHigh(0.3f))
        , lowestUp(up.min)
        , lowSide(side.getLow(0.4f))
        , highSide(side.getHigh(0.4f))
    {}

    CoronalPlaneLocation::Value getCoronal(const Place& place) const
    {
        if (place.front.average < lowFront)
            return CoronalPlaneLocation::BACK;
        return place.front.average > highFront ? CoronalPlaneLocation::FRONT : CoronalPlaneLocation::CENTER;
    }
    TransversePlaneLocation::Value getTransverse(const Place& place) const
    {
        if (place.up.min < lowUp && place.up.average < highUp)
            return TransversePlaneLocation::BOTTOM;
        return place.up.max > highUp && place.up.average > lowUp ? TransversePlaneLocation::TOP
                                                                 : TransversePlaneLocation::CENTER;
    }
    SagittalPlaneLocation::Value getSagittal(const Place& place) const
    {
        if (place.side.average < lowSide)
            return SagittalPlaneLocation::LEFT;
        return place.side.average > highSide ? SagittalPlaneLocation::RIGHT : SagittalPlaneLocation::CENTER;
    }
    SkeletonPartType::Value getType(const Place& place) const
    {
        if (getTransverse(place) != TransversePlaneLocation::BOTTOM)
            return SkeletonPartType::GRASPER;
        // A leg reaches below the mean of the lowest group.
        return lowestUp > place.up.min ? SkeletonPartType::LEG : SkeletonPartType::GENERIC;
    }

    float lowFront, highFront;
    float lowUp, highUp, lowestUp;
    float lowSide, highSide;
};

/// The bones of a group by depth, in the order in which the depths come.
std::vector<BoneSet> splitByDepth(const BoneSet& group)
{
    std::vector<BoneSet> parts;
    std::map<int, size_t> partOfDepth;
    for (const Bone* bone : group)
    {
        const size_t part = partOfDepth.emplace(bone->depth(), parts.size()).first->second;
        if (part == parts.size())
            parts.emplace_back();
        parts[part].insert(bone);
    }
    return parts;
}

/// Splits groups whose bones are not equally deep. Behind the first parts of all groups come the second ones
/// of those that have one, and so on.
std::vector<BoneSet> splitByDepth(const Array<BoneSet>& groups)
{
    std::vector<std::vector<BoneSet>> rounds;
    for (const BoneSet& group : groups)
    {
        const std::vector<BoneSet> parts = splitByDepth(group);
        rounds.resize(std::max(rounds.size(), parts.size()));
        for (size_t i = 0; i < parts.size(); ++i)
            rounds[i].push_back(parts[i]);
    }
    std::vector<BoneSet> result;
    for (const std::vector<BoneSet>& round : rounds)
        result.insert(result.end(), round.begin(), round.end());
    return result;
}

/// Leaves are no limbs, however many.
bool isGroupOfLimbs(const BoneSet& group)
{
    return group.size() > 1 && (*group.begin())->getNbChildren() > 0;
}

/// The end of a limb: the bone with the most children, a hand or a foot, and the last met of equal ones.
/// Depths count from the top.
struct LimbEnd
{
    LimbEnd(const Bone& top, int minDepth) : bone(&top)
    {
        unsigned int mostChildren = 0;
        internal::walkBranch(top, [&](const Bone& below, int belowDepth) {
            const unsigned int children = below.getNbChildren();
            // A leaf counts as one child against the others, but leaves none as the number to reach.
            if (std::max(children, 1u) < mostChildren && minDepth <= depth)
                return;
            mostChildren = children;
            depth = belowDepth;
            bone = &below;
        });
    }

    const Bone* bone;
    int depth = 0;
};

/// A limb of at most three bones below its top is one chain; a longer one bends at the end's grandfather,
/// until it is refined.
void setChains(GenericSpecificConverterBoneV1& limb, const Bone& top, const LimbEnd& end)
{
    const bool hasJoint = end.depth > 2;
    const int joint = hasJoint ? end.bone->getFather()->getFather()->getSpecificBoneIndex() : -1;
    limb._firstBoneOfChain[0] = hasJoint ? top.getSpecificBoneIndex() : -1;
    limb._lastBoneOfChain[0] = joint;
    limb._firstBoneOfChain[1] = hasJoint ? joint : top.getSpecificBoneIndex();
    limb._lastBoneOfChain[1] = end.bone->getSpecificBoneIndex();
}

PODArray<const Bone*> getTops(const Array<GenericSpecificConverterBoneV1>& limbs,
                              const PODArray<Bone*>& bones)
{
    PODArray<const Bone*> tops;
    for (const GenericSpecificConverterBoneV1& limb : limbs)
        tops.push_back(boneAt(bones, limb.getTopBone()));
    return tops;
}

/// The bones that limbs hang on, from the root downwards.
PODArray<const Bone*> getSpineEnds(const PODArray<const Bone*>& tops)
{
    BoneSet fathers;
    for (const Bone* top : tops)
        if (top->getFather() != nullptr)
            fathers.insert(top->getFather());
    std::map<int, std::vector<const Bone*>> byDepth;
    for (const Bone* father : fathers)
        byDepth[father->depth()].push_back(father);
    PODArray<const Bone*> ends;
    for (const auto& [depth, bones] : byDepth)
        ends.insert(ends.end(), bones.data(), bones.data() + bones.size());
    return ends;
}

/// A spine and what it is made of.
struct Spine
{
    const Bone* first;
    const Bone* last;
};

/// Each runs from right above the pelvis, or above the end of the one before it on its way, to a spine end.
std::vector<Spine> findSpines(const PODArray<const Bone*>& ends, const Bone* pelvis)
{
    std::vector<Spine> spines;
    KnownBones borders = { pelvis };
    for (const Bone* end : ends)
    {
        if (end == pelvis)
            continue;
        const Bone* first = end;
        while (first->getFather() != nullptr && borders.count(first->getFather()) == 0)
            first = first->getFather();
        spines.push_back({ first, end });
        borders.insert(end);
    }
    return spines;
}

} // namespace

bool GenericSpecificConverterMappingV8::computeAutomaticMapping(float refineThreshold, Angle minBendAngle)
{
    // The mirrors stay: callers that add parts of their own rely on them.
    _spineBones.clear();
    _limbBones.clear();
    _effectorBones.clear();
    _spineBoneNames.clear();
    _limbBoneNames.clear();
    _effectorBoneNames.clear();
    if (!isReady(_skeletonDescription))
    {
        MRV_LOG(SDK, LOG_WARNING, "There is no sound skeleton to map.");
        return false;
    }
    const Vector3 sideAxis = _frontAxis.cross(_upAxis);
    const Bone* root = _skeletonDescription->getRootBone();
    Array<BoneSet> shapes;
    if (!Bone::isomorphicSubBranches(root, shapes))
        return false;
    const std::vector<BoneSet> groups = splitByDepth(shapes);

    Range front;
    Range up;
    for (const BoneSet& group : groups)
    {
        if (!isGroupOfLimbs(group))
            continue;
        float frontSum = 0.0f;
        float upSum = 0.0f;
        for (const Bone* bone : group)
        {
            const Place place(bone, _frontAxis, _upAxis, sideAxis);
            frontSum += place.front.average;
            upSum += place.up.average;
        }
        front.add(frontSum / static_cast<float>(group.size()));
        up.add(upSum / static_cast<float>(group.size()));
    }
    for (const BoneSet& group : groups)
        if (isGroupOfLimbs(group))
            addLimbs(group, sideAxis, front.min, front.max, up.min, up.max, 0.0f, 0.0f, refineThreshold,
                     minBendAngle, false, 2);

    const Bone* pelvis =
        Bone::findLowestCommonAncester(nullptr, getTops(_limbBones, bonesOf(_skeletonDescription)));
    setPelvis(pelvis != nullptr ? pelvis : root);
    addSpines(sideAxis, front.min, front.max, up.min, up.max, refineThreshold, minBendAngle);
    computeAutomaticNames();
    computeSimpleBipedIkNormalPlanes();
    return true;
}

void GenericSpecificConverterMappingV8::addLimbs(const MrvSet<const HierarchicalBoneV1*>& bones,
                                                 const Vector3& sideAxis, float minFront, float maxFront,
                                                 float minUp, float maxUp, float, float,
                                                 float refineThreshold, Angle minBendAngle, bool allGeneric,
                                                 int minChainDepth)
{
    std::vector<Place> places;
    Range side;
    for (const Bone* top : bones)
    {
        places.emplace_back(top, _frontAxis, _upAxis, sideAxis);
        side.add(places.back().side.average);
    }
    const PlaceLimits limits({ minFront, maxFront, false }, { minUp, maxUp, false }, side);
    PODArray<size_t> effectorCounts;
    size_t position = 0;
    for (const Bone* top : bones)
    {
        const Place& place = places[position++];
        if (top == nullptr)
            continue;
        const LimbEnd end(*top, minChainDepth);
        if (end.depth < minChainDepth)
            continue;
        GenericSpecificConverterBoneV1 limb;
        limb._coronalLocation = limits.getCoronal(place);
        limb._transverseLocation = limits.getTransverse(place);
        limb._sagittalLocation = limits.getSagittal(place);
        limb._type = allGeneric ? SkeletonPartType::GENERIC : limits.getType(place);
        setChains(limb, *top, end);
        if (limb._firstBoneOfChain[0] >= 0)
            refineLimb(limb, refineThreshold, minBendAngle);
        if (addLimb(limb) < 0)
            continue;
        PODArray<int> effectors;
        addEffectors(limb, effectors);
        effectorCounts.push_back(effectors.size());
    }
    mirrorLastLimbs(effectorCounts);
}

void GenericSpecificConverterMappingV8::mirrorLastLimbs(const PODArray<size_t>& effectorCounts)
{
    const size_t count = _limbBones.size();
    if (_channelMirrorSources.size() < count)
        _channelMirrorSources.resize(count, -1);
    if (_effectorMirrorSources.size() < count)
        _effectorMirrorSources.resize(count);
    const size_t added = effectorCounts.size();
    if (added != 1 && added != 2)
        return;
    for (size_t i = 0; i < added; ++i)
    {
        const size_t limb = count - added + i;
        _channelMirrorSources[limb] = static_cast<int>(count - 1 - i);
        EffectorMirrorSourceV0& sources = _effectorMirrorSources[limb];
        sources.allocateSources(effectorCounts[i]);
        for (size_t k = 0; k < effectorCounts[i]; ++k)
            sources.setSourceIdx(k, static_cast<int>(k));
    }
}

void GenericSpecificConverterMappingV8::addSpines(const Vector3& sideAxis, float minFront, float maxFront,
                                                  float minUp, float maxUp, float refineThreshold,
                                                  Angle minBendAngle)
{
    const PODArray<Bone*>& bones = bonesOf(_skeletonDescription);
    const Bone* pelvis = boneAt(bones, _pelvisBoneIndex);
    const PODArray<const Bone*> tops = getTops(_limbBones, bones);
    const std::vector<Spine> spines = findSpines(getSpineEnds(tops), pelvis);

    KnownBones known(tops.begin(), tops.end());
    for (const Spine& spine : spines)
        known.insert(spine.first);
    BoneSet leftOvers;
    const auto gather = [&](const Bone& bone) {
        for (const Bone* child : bone.getChildren())
            if (known.count(child) == 0)
                leftOvers.insert(child);
    };
    for (const Spine& spine : spines)
    {
        addSpine(GenericSpecificConverterBoneV1(SkeletonPartType::SPINE, nullptr, nullptr, spine.first,
                                                spine.last, Vector3(), Vector3(), false, false));
        gather(*spine.last);
    }
    // Without a spine the pelvis keeps its further children to itself.
    if (!spines.empty())
        gather(*pelvis);
    addLimbs(leftOvers, sideAxis, minFront, maxFront, minUp, maxUp, 0.0f, 0.0f, refineThreshold, minBendAngle,
             true, 1);

    initSpineMirrorSources(_spineBones.sizeInt());
    for (int i = 0; i < _spineBones.sizeInt(); ++i)
        _spineMirrorSources[static_cast<size_t>(i)] = i;
}

} // namespace mrv
