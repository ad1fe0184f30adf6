// mrvCore/animation/mrvGenericSpecificConverterMapping.h
// How a character's skeleton corresponds to the generic body. Older forms: _compatibility/.
#pragma once

#include "mrvCore/animation/mrvEffectorMirrorSource.h"
#include "mrvCore/animation/mrvGenericSpecificConverterBone.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvSkeletonPartTypes.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvAngle.h"
#include "mrvCore/math/types/mrvAxis.h"
#include "mrvCore/math/types/mrvVector3.h"
#include "mrvCore/mrvCoreApi.h"
#include "mrvCore/system/containers/mrvArray.h"
#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"
#include "mrvCore/system/thread/mrvRWSpinLock.h"

#include <cstddef>
#include <iosfwd>

namespace mrv {

class BinaryStream;
class BlindDataV1;
class BoneDisplayConfigurationV0;
class BonePhysicConfigurationV1;
class DataItem;
class FastBoundingBox;
class GenericSpecificConverterMappingV0;
class GenericSpecificConverterMappingV1;
class GenericSpecificConverterMappingV2;
class GenericSpecificConverterMappingV3;
class GenericSpecificConverterMappingV4;
class GenericSpecificConverterMappingV5;
class GenericSpecificConverterMappingV6;
class GenericSpecificConverterMappingV7;
class HierarchicalSkeletonDescriptionV1;
class XMLStream;
namespace internal {
class VersionSteps;
}

/// How reading a mapping file ended.
struct LoadSkeletonMappingErrorCode
{
    enum Value {
        SUCCESS = 0,
        FILE_NOT_FOUND = 1,
        INCORRECT_VERSION = 2,
        INVALID_FILE = 3,
        INVALID_SKELETON_DESCRIPTION = 4,
        END = 5
    };
};

/// How writing a mapping file ended.
struct SaveSkeletonMappingErrorCode
{
    enum Value { SUCCESS = 0, FILE_CREATION_FAILED = 1, END = 2 };
};

/// Which bones of a character are its pelvis, spines, limbs and effectors, how they mirror each other, and
/// what each bone has beyond its place in the skeleton.
///
/// Indices: bones are specific bone indices, positions in the description's bones; -1 is no bone. Spines,
/// limbs and effectors are positions in their arrays. "Chain" is 0 for the auxiliary chain of a part and 1
/// for its extension. An index from a damaged file finds nothing: no operation reads beyond an array.
/// Ownership: the description is owned; the display configurations are borrowed from the character.
/// Units: those of the skeleton; heights are along the up axis.
/// Threads: built by one thread, read by many afterwards; it takes no lock itself. World positions come from
/// a cache of the bones that the first reader fills.
class MRV_CORE_API GenericSpecificConverterMappingV8
{
public:
    MRV_PERSISTENT_CLASS(GenericSpecificConverterMappingV8)

    static constexpr int _currentVersionNumber = 8; ///< in the head of mapping files

    using ConverterBones = Array<GenericSpecificConverterBoneV1>;

    // Life.

    GenericSpecificConverterMappingV8();
    GenericSpecificConverterMappingV8(const GenericSpecificConverterMappingV8& other);
    GenericSpecificConverterMappingV8& operator=(const GenericSpecificConverterMappingV8& other);
    /// Takes over what the copy would copy; the other one may only be destroyed afterwards.
    GenericSpecificConverterMappingV8& operator=(GenericSpecificConverterMappingV8&& other) noexcept;
    ~GenericSpecificConverterMappingV8();

    /// Empties the mapping and deletes the description. Quality, iterations, the global answer on caches
    /// and the orientation to Z up stay as they were.
    void finish();
    /// Empties what the automatic mapping writes; the pelvis, skeleton and configurations stay.
    void clearMappingPart();
    /// Starts again from a skeleton, of which a copy is made: the root becomes the pelvis, and every bone
    /// gets the default configurations.
    void duplicateHierarchicalSkeletonDescription(const HierarchicalSkeletonDescriptionV1& source);
    /// Becomes a copy of `other`, its description included. The display configurations stay those of the
    /// own character.
    void createFromConst(const GenericSpecificConverterMappingV8& other);
    /// Becomes the same from a mapping that may only be destroyed afterwards.
    void takeOver(GenericSpecificConverterMappingV8& other);
    /// @{
    /// Becomes what a mapping of an older version holds, in one step and with a skeleton of its own. The old
    /// one may only be destroyed afterwards.
    void createFromV0(GenericSpecificConverterMappingV0& old);
    void createFromV1(GenericSpecificConverterMappingV1& old);
    void createFromV2(GenericSpecificConverterMappingV2& old);
    void createFromV3(GenericSpecificConverterMappingV3& old);
    void createFromV4(GenericSpecificConverterMappingV4& old);
    void createFromV5(GenericSpecificConverterMappingV5& old);
    void createFromV6(GenericSpecificConverterMappingV6& old);
    /// @}
    /// Makes `old` a copy of this mapping, as far as that version goes: of blind data the names of the blend
    /// shapes, and no mirrors of spines.
    void exportToV5(GenericSpecificConverterMappingV5& old) const;
    /// Takes over what a mapping of the version before holds, or copies it.
    void createFromV7(GenericSpecificConverterMappingV7& old);
    void createFromV7(const GenericSpecificConverterMappingV7& old);

    // Files. A mapping whose load failed is empty or filled in part.

    /// Reads the binary form: the version, 4 bytes, and the object. A stream is read from its position and is
    /// behind the object afterwards. What is cut off counts as a file without a skeleton.
    LoadSkeletonMappingErrorCode::Value loadMapping(const char* fileName);
    LoadSkeletonMappingErrorCode::Value loadMapping(std::ifstream& stream);
    /// Reads the XML form, from an item its child. The order of the skeleton's bones is left to the caller,
    /// by initSortedBones().
    LoadSkeletonMappingErrorCode::Value loadMappingXML(const char* fileName);
    LoadSkeletonMappingErrorCode::Value loadMappingXML(XMLStream& stream, DataItem& item);
    /// @{
    /// Writes the binary form or the XML form. A file that cannot be written stays as it was; a stream tells
    /// by its state.
    SaveSkeletonMappingErrorCode::Value saveMapping(const char* fileName) const;
    void saveMapping(std::ofstream& stream) const;
    SaveSkeletonMappingErrorCode::Value saveMappingXML(const char* fileName) const;
    SaveSkeletonMappingErrorCode::Value saveMappingXMLStream(XMLStream& stream, DataItem& item) const;
    /// @}

    // Building. A part that cannot be added is logged and changes nothing: the result is then -1 without a
    // description, -2 for a bone that is none, -3 for a part at a wrong place, else the index of the part.

    /// Null leaves the mapping without a pelvis.
    void setPelvis(const HierarchicalBoneV1* bone);
    /// The first bone of that name; false, with a message, if there is none.
    bool setPelvis(const char* name);

    /// Adds the part without any check.
    int addSpine(const GenericSpecificConverterBoneV1& bone);
    /// Plane and flag count for both chains, though only the extension has bones.
    int addSpine(int firstBone, int lastBone, bool computeFullExtentLength, const Vector3& ikNormalPlane);

    /// Adds the part at the end of the limbs.
    int addLimb(const GenericSpecificConverterBoneV1& bone);
    /// Auxiliary bones that are none count as -1.
    int addLimb(SkeletonPartType::Value type, int firstAux, int lastAux, int firstExt, int lastExt,
                CoronalPlaneLocation::Value coronalLocation,
                TransversePlaneLocation::Value transverseLocation,
                SagittalPlaneLocation::Value sagittalLocation, const Vector3& planeAux,
                const Vector3& planeExt, bool fullAux, bool fullExt);

    /// Adds the part at the end of the effectors.
    int addEffector(const GenericSpecificConverterBoneV1& bone);
    /// Auxiliary bones that are none count as -1.
    int addEffector(SkeletonPartType::Value type, int firstAux, int lastAux, int firstExt, int lastExt,
                    bool fullAux, bool fullExt, const Vector3& planeAux, const Vector3& planeExt);

    /// For each name the first bone that has it; unknown and null ones are skipped, repeated ones repeated.
    void addIkExcludedBonesByBoneName(const char* const* names, int count);
    /// For each bone the description's bone of the same specific index, if there is one.
    void addIkExcludedBonesByBoneId(const PODArray<const HierarchicalBoneV1*>& bones);

    // Automatic mapping: the parts are told by the shape of the bone tree and by where the bones lie in the
    // bind pose, never by names. Sets of bones go by specific index, so that one file is always mapped alike.

    /// Replaces spines, limbs and effectors with their names, and the pelvis, by what the skeleton shows.
    ///
    /// Branches that have a twin of the same shape are limbs; what else hangs at the pelvis and at the ends
    /// of the spines becomes generic limbs. Mirrors and the bones excluded from IK are added to those that
    /// are there: call clearMappingPart() and empty touchIkExcludedBones() first to map anew. A limb bends
    /// where the angle of its bones exceeds the mean by `refineThreshold` times the mean; bones that bend
    /// less than `minBendAngle`, in radians, are left out of IK. False, with all parts gone and the pelvis as
    /// it was, if no shape repeats, and for a skeleton that is missing or not sound.
    bool computeAutomaticMapping(float refineThreshold, Angle minBendAngle);

    /// Adds a limb with its effectors for each bone of a set, its top, that leads at least `minChainDepth`
    /// bones down, and the mirrors of the limbs added: a limb alone is its own mirror, two are each other's,
    /// more have none.
    ///
    /// The ranges are those that the means of the groups of limbs span along the front and the up axis. A
    /// positive value along `sideAxis` is the right. Two values that callers hand along are not read.
    void addLimbs(const MrvSet<const HierarchicalBoneV1*>& bones, const Vector3& sideAxis, float minFront,
                  float maxFront, float minUp, float maxUp, float, float, float refineThreshold,
                  Angle minBendAngle, bool allGeneric, int minChainDepth);
    /// Moves the joint between the two chains of a limb to where it bends, trims its end, and excludes bones
    /// that are straight or short from IK. A limb without an auxiliary chain stays as it is.
    void refineLimb(GenericSpecificConverterBoneV1& limb, float refineThreshold, Angle minBendAngle);
    /// Adds an effector for each leaf below the end of a limb and appends its index to `effectorIndices`.
    void addEffectors(const GenericSpecificConverterBoneV1& limb, PODArray<int>& effectorIndices);
    /// Names limbs by side and kind, effectors by what the bones at their ends have in common.
    void computeAutomaticNames();
    /// The bending planes and locations of the one shape that is known: two legs, two arms, one more limb. It
    /// changes nothing for any other.
    void computeSimpleBipedIkNormalPlanes();
    /// The normal of the plane in which a chain of world positions bends, in the frame of its first bone:
    /// (0, -1, 0) for a straight one. Only a chain of two bones needs the `hint`, a direction in that plane.
    static Vector3 computeIkNormalPlane(const PODArray<const HierarchicalBoneV1*>& chain,
                                        const Vector3& hint);
    /// The axis of the first bone's frame, with its sign, that is nearest to the normal of the plane in which
    /// a chain bends to the side `bendingSide`, a direction of the world. X without the bones.
    Vector3 getIkNormalPlaneFromWorldBendingSide(const Vector3& bendingSide, int firstBone,
                                                 int lastBone) const;

    // Skeleton and axes.

    /// Null before there is a skeleton.
    const HierarchicalSkeletonDescriptionV1* getSkeletonDescription() const { return _skeletonDescription; }
    HierarchicalSkeletonDescriptionV1* touchSkeletonDescription() { return _skeletonDescription; }
    const Array<BoneDisplayConfigurationV0>* getSkeletonDisplay() const { return _skeletonDisplay; }
    Array<BoneDisplayConfigurationV0>* touchSkeletonDisplay() { return _skeletonDisplay; }
    /// Called by the character that the mapping is in; the array must outlive the mapping.
    void setSkeletonDisplay(Array<BoneDisplayConfigurationV0>* display) { _skeletonDisplay = display; }

    const Vector3& getUpAxis() const { return _upAxis; }
    /// Normalises, by the fast reciprocal square root, and recomputes the orientations below.
    void setUpAxis(const Vector3& axis);
    const Vector3& getFrontAxis() const { return _frontAxis; }
    void setFrontAxis(const Vector3& axis);
    /// Turns the up axis to Z and the front axis towards X. Null until an axis is set.
    const Quaternion& getOrientationToZUpXFront() const { return _orientationToZUpXFront; }
    const Quaternion& getOrientationToZUpXFrontInverse() const { return _orientationToZUpXFrontInverse; }

    // Parts of the body.

    int getPelvisBone() const { return _pelvisBoneIndex; }
    size_t getSpineBonesSize() const { return _spineBones.size(); }
    const ConverterBones& getSpineBones() const { return _spineBones; }
    ConverterBones& touchSpineBones() { return _spineBones; }
    size_t getLimbBonesSize() const { return _limbBones.size(); }
    const ConverterBones& getLimbBones() const { return _limbBones; }
    ConverterBones& touchLimbBones() { return _limbBones; }
    size_t getEffectorBonesSize() const { return _effectorBones.size(); }
    const ConverterBones& getEffectorBones() const { return _effectorBones; }
    ConverterBones& touchEffectorBones() { return _effectorBones; }
    const PODArray<int>& getIkExcludedBones() const { return _ikExcludedBones; }
    PODArray<int>& touchIkExcludedBones() { return _ikExcludedBones; }

    /// The name of a part, empty for one that has none.
    void getSpineBoneName(MrvString& result, size_t index) const;
    void getLimbBoneName(MrvString& result, size_t index) const;
    void getEffectorBoneName(MrvString& result, size_t index) const;
    /// Names a part; does nothing for a part that does not exist and never had a name.
    void setSpineBoneName(size_t index, const MrvString& name);
    void setLimbBoneName(size_t index, const MrvString& name);
    void setEffectorBoneName(size_t index, const MrvString& name);
    const Array<MrvString>& getSpineBoneNames() const { return _spineBoneNames; }
    const Array<MrvString>& getLimbBoneNames() const { return _limbBoneNames; }
    const Array<MrvString>& getEffectorBoneNames() const { return _effectorBoneNames; }
    /// The names of the bones at the ends of the extension chains: of the spines, the limbs, the effectors,
    /// one per part, empty for a part without such a bone.
    void getEndOfChainBoneNames(Array<MrvString>& result) const;

    // Mirrors.

    size_t getChannelMirrorSourcesCount() const { return _channelMirrorSources.size(); }
    const PODArray<int>& getChannelMirrorSources() const { return _channelMirrorSources; }
    PODArray<int>& touchChannelMirrorSources() { return _channelMirrorSources; }
    size_t getEffectorMirrorSourcesCount() const { return _effectorMirrorSources.size(); }
    const Array<EffectorMirrorSourceV0>& getEffectorMirrorSources() const { return _effectorMirrorSources; }
    Array<EffectorMirrorSourceV0>& touchEffectorMirrorSources() { return _effectorMirrorSources; }
    size_t getSpineMirrorSourcesCount() const { return _spineMirrorSources.size(); }
    const PODArray<int>& getSpineMirrorSources() const { return _spineMirrorSources; }
    PODArray<int>& touchSpineMirrorSources() { return _spineMirrorSources; }
    /// `count` limbs without mirrors, with effector records to match.
    void initChannelMirrorSources(int count);
    /// `count` spines without mirrors.
    void initSpineMirrorSources(int count);

    // Per bone.

    size_t getBoneConfigurationsCount() const;
    const Array<BonePhysicConfigurationV1>& getBoneConfigurations() const { return _boneConfigurations; }
    Array<BonePhysicConfigurationV1>& touchBoneConfigurations() { return _boneConfigurations; }
    const PODArray<float>& getSquashStretchWeightsArray() const { return _squashStretchWeightsArray; }
    PODArray<float>& touchSquashStretchWeightsArray() { return _squashStretchWeightsArray; }

    /// True if the bone follows squash and stretch on one axis at least, as bones do by default.
    bool isBoneUsingSnSScale(int bone) const;
    /// UNIFORM_SCALE for a bone without an entry.
    SnsScaleMode::Value getBoneSnsScaleMode(int bone, Axis::Value axis) const;
    /// Does nothing for an index that is no bone; anything but an axis and a mode is fatal.
    void setBoneSnsScaleMode(int bone, Axis::Value axis, SnsScaleMode::Value mode);

    // Ragdoll: the bodies of the bones in getBoneConfigurations(), which has one entry per bone.

    /// Gives the pelvis a body as wide as the limbs are apart, and sizes all bodies. A full setup takes all
    /// bodies away before that, and gives one to each bone of the limbs and to both ends of each spine; then
    /// it sets the joint limits. Of limbs that share a bone only the first one gets bodies.
    void autoConfigureRagdoll(bool fullSetup);
    /// Sizes the bodies of automatic dimensions, or all if `force`, by the distances to the bones below.
    /// `ratio` is that of a body's radius to half its length.
    void computeAutomaticBoneConfigurationSizes(bool force, float ratio);
    /// Sets the joint limits of the bones of all parts; of a bone in several chains the last one counts.
    void computeAutomaticJointLimits();
    /// The same for one part. Inside a chain a joint bends to the side of the chain's normal, by
    /// `interiorAngle` at most; its ends turn to all sides. Angles are in radians, the limits in degrees.
    void computeAutomaticJointLimits(GenericSpecificConverterBoneV1& bone, float interiorAngle,
                                     float auxiliaryEndAngle, float extensionEndAngle);
    /// Appends the bones that have a body, from the pelvis outwards, to `rigidBodyBones`, and writes the
    /// places of the bodies to `boneRigidBodies`, by bone. Returns the number of bodies; what follows them is
    /// stale. Callers that need an entry for each bone pass `boneRigidBodies` filled: without a body of the
    /// pelvis, the bone of the first body has none.
    static int findRigidBodiesBoneCorrespondances(PODArray<int>& rigidBodyBones,
                                                  PODArray<int>& boneRigidBodies,
                                                  const GenericSpecificConverterMappingV8* mapping);

    /// Whether the animation of a chain may be cached: told by its first bone, or for all bones without an
    /// entry of their own by one answer, which is yes at first.
    bool isCacheAllowedOn(const GenericSpecificConverterBoneV1* bone, int chain) const;
    void setCacheAllowedOn(const GenericSpecificConverterBoneV1* bone, int chain, bool allowed);
    bool isCacheAllowedGlobal() const { return _cacheAllowedGlobal; }
    void setCacheAllowedGlobal(bool allowed) { _cacheAllowedGlobal = allowed; }

    // Blind data.

    const Array<BlindDataV1>& getBlindDataInfo() const { return _blindDataInfo; }
    /// Whoever changes the records calls updateBlindDataFloatCount() afterwards.
    Array<BlindDataV1>& touchBlindDataInfo();
    /// Floats of all records, counted afresh while the stored total is out of date.
    int getBlindDataTotalFloatCount() const;
    /// Stores the total, and in each record the sum of the floats before it.
    void updateBlindDataFloatCount();
    /// Floats of all records but those of specific animations.
    int countExportedBlindData() const;
    /// Removes the records of specific animations.
    void clearSpecificAnimationBlindData();
    static void clearSpecificAnimationBlindData(Array<BlindDataV1>& blindData);

    // Settings of the application.

    void setGroundHeights(float height);
    /// Height of a limb's end above the ground, 0 for a limb that has none.
    float getGroundHeight(int limb) const;
    void setQuality(float quality) { _quality = quality; }
    float getQuality() const { return _quality; }
    void setMaxIteration(const unsigned int& count) { _maxIterations = count; }
    unsigned int getMaxIteration() const { return _maxIterations; }
    /// Held by the application around the caches that it builds on demand.
    RWSpinLock& touchBuildCacheDataLock() const { return _buildCacheDataLock; }

    // Look-ups.

    /// Appends the bones of a chain, from its last up to its first; reversed if told, along with all that
    /// `result` held before. A first bone that is not met leaves the way up to the root.
    static void buildBoneChain(PODArray<const HierarchicalBoneV1*>& result,
                               const PODArray<HierarchicalBoneV1*>& bones,
                               const GenericSpecificConverterBoneV1& bone, int chain, bool reverse);
    /// The first spine that ends above the part `bone`, -1 for none. A part that ends at the root is not
    /// found.
    static int findFatherIndexInSpines(const GenericSpecificConverterBoneV1& bone,
                                       const GenericSpecificConverterMappingV8& mapping);
    /// The same among the limbs.
    static int findFatherIndexInLimbs(const GenericSpecificConverterBoneV1& bone,
                                      const GenericSpecificConverterMappingV8& mapping);
    /// The part that has a generic bone index, null for none, and if wanted which chain of it: the extension
    /// if both have. Spines come before limbs, and these before effectors.
    static const GenericSpecificConverterBoneV1*
    findGenericSpecificConverterBone(int genericIndex, const GenericSpecificConverterMappingV8& mapping,
                                     int* chain);
    /// The last bone of the extension of that part, -1 for none.
    static int findExtensionEOCSpecificBoneIndex(int genericIndex,
                                                 const GenericSpecificConverterMappingV8& mapping);

    // Questions on the whole.

    /// True if there is a pelvis and no chain begins or ends with it. Writes what is wrong to `out`, which
    /// may be null.
    bool checkSkeletonMapping(std::ostream* out) const;
    /// Height of the pelvis above the ground, in the bind pose, or in the pose of the two arrays if both
    /// have one entry per bone. 1 if no height of at least 0.001 can be told.
    float computeRootHeight(const Array<Vector3>& localPositions,
                            const Array<Quaternion>& localOrientations) const;
    /// The lowest bone at or below the end of a limb, -1 for no such limb. Its height, in the bind pose, goes
    /// to `height`, which may be null.
    int computeLowestBoneIndexOnLimb(int limb, float* height) const;
    /// The bone at the same place of the mirror chain, -1 for none. The pelvis mirrors itself, and bones
    /// before it have no mirror.
    int getEstimatedMirrorBoneIndex(int bone) const;
    /// Makes `box` the bounds of the bones of trunk, legs and head: an arm held out does not count. Empty
    /// without a pelvis.
    void computePerceptionBoundingBox(FastBoundingBox& box) const;

private:
    friend class internal::VersionSteps;

    void updateOrientations();
    void addSpines(const Vector3& sideAxis, float minFront, float maxFront, float minUp, float maxUp,
                   float refineThreshold, Angle minBendAngle);
    void mirrorLastLimbs(const PODArray<size_t>& effectorCounts);
    template <int version, class Old>
    void createFromOlder(Old& old);
    LoadSkeletonMappingErrorCode::Value loadBinary(int version, BinaryStream& stream);
    LoadSkeletonMappingErrorCode::Value checkLoaded(int version);
    BonePhysicConfigurationV1* touchBoneConfiguration(const HierarchicalBoneV1* bone);
    float computePelvisWidth() const;
    void setBodyOfPelvis(float width);
    void addBodiesOfLimb(const GenericSpecificConverterBoneV1& limb);
    void addBodiesOfSpine(const GenericSpecificConverterBoneV1& spine);
    Vector3 sizeOfLeaf(const HierarchicalBoneV1& bone, float fallback);
    void makeBodiesOfSpineRound(const GenericSpecificConverterBoneV1& spine, bool force);
    int addChecked(ConverterBones& parts, const GenericSpecificConverterBoneV1& bone);

    bool _cacheAllowedGlobal = true;
    HierarchicalSkeletonDescriptionV1* _skeletonDescription = nullptr;
    Array<BoneDisplayConfigurationV0>* _skeletonDisplay = nullptr;
    int _pelvisBoneIndex = -1;
    ConverterBones _spineBones;
    ConverterBones _limbBones;
    ConverterBones _effectorBones;
    Array<MrvString> _spineBoneNames;
    Array<MrvString> _limbBoneNames;
    Array<MrvString> _effectorBoneNames;
    PODArray<int> _ikExcludedBones;
    Vector3 _upAxis = Vector3(0.0f, 0.0f, 1.0f);
    Vector3 _frontAxis = Vector3(1.0f, 0.0f, 0.0f);
    Array<BonePhysicConfigurationV1> _boneConfigurations;
    PODArray<int> _channelMirrorSources; ///< by limb, a limb or -1
    Array<EffectorMirrorSourceV0> _effectorMirrorSources;
    PODArray<int> _spineMirrorSources;  ///< by spine, a spine or -1
    PODArray<float> _groundHeightArray; ///< by limb
    Array<BlindDataV1> _blindDataInfo;
    PODArray<float> _squashStretchWeightsArray;
    PODArray<int> _bonesSnsScaleModes; ///< two bits an axis, x lowest
    PODArray<bool> _cacheAllowed;
    float _quality = 1.0f;
    unsigned int _maxIterations = 1000;
    Quaternion _orientationToZUpXFront;
    Quaternion _orientationToZUpXFrontInverse;
    bool _updateBlindDataFloatCount = true; ///< the count below is out of date
    int _blindDataFloatCount = 0;
    mutable RWSpinLock _buildCacheDataLock;
};

/// Whether a new part fits among `others`, which the skeleton's limbs or effectors already are: it must not
/// hang below the end of one of them, and its auxiliary chain must lead to its extension. Logs why not.
MRV_CORE_API bool isConverterBoneHierarchyCorrect(const GenericSpecificConverterBoneV1& bone,
                                                  const HierarchicalSkeletonDescriptionV1* skeleton,
                                                  const Array<GenericSpecificConverterBoneV1>& others);

} // namespace mrv
