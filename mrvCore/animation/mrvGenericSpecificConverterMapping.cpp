// mrvCore/animation/mrvGenericSpecificConverterMapping.cpp
// Life, persistence and plain access; the rest is in mrvGenericSpecificConverterMapping*.cpp.
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"

#include "mrvCore/animation/mrvBoneLookup.h"
#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/assetManagement/mrvBlindData.h"
#include "mrvCore/math/conversions/mrvAxisConversions.h"
#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

namespace mrv {

namespace {

// A bone's scale modes share one int, two bits an axis, x lowest.
constexpr unsigned int bitsPerMode = 2;
constexpr unsigned int modeMask = (1u << bitsPerMode) - 1;

unsigned int modeShift(Axis::Value axis)
{
    return bitsPerMode * static_cast<unsigned int>(axis);
}

void getName(MrvString& result, const Array<MrvString>& names, size_t index)
{
    result.clear();
    if (index < names.size())
        result = names[index];
}

void setName(Array<MrvString>& names, size_t partCount, size_t index, const MrvString& name)
{
    if (index >= names.size())
    {
        if (index >= partCount)
            return;
        names.resize(partCount);
    }
    names[index] = name;
}

size_t atLeastNone(int count)
{
    return count > 0 ? static_cast<size_t>(count) : 0;
}

// Unsigned, so that counts from a damaged file may overflow.
int sumFloatCounts(const Array<BlindDataV1>& blindData, bool withSpecificAnimations)
{
    unsigned int sum = 0;
    for (const BlindDataV1& record : blindData)
    {
        if (withSpecificAnimations || record._type != BlindDataV1::Type::SPECIFIC_ANIMATION)
            sum += record._floatCount;
    }
    return static_cast<int>(sum);
}

} // namespace

MRV_DEFINE_PERSISTENT_CLASS(GenericSpecificConverterMappingV8, "mrv::GenericSpecificConverterMappingV8",
                            "05C7B16A-E5CF-45EB-ABF1-2C5B1A9AB1D3")

// This list is the file format: order, names and types stay. The axes go through their setters, so that
// loading computes the orientations.
void GenericSpecificConverterMappingV8::addAttributes()
{
    using Mapping = GenericSpecificConverterMappingV8;
    using Part = GenericSpecificConverterBoneV1;
    addAttribute<HierarchicalSkeletonDescriptionV1*>("skeletonDescription", &Mapping::_skeletonDescription);
    addAttribute<int>("pelvisBoneIndex", &Mapping::_pelvisBoneIndex);
    addAttribute<Array<Part>>("spineBones", &Mapping::_spineBones);
    addAttribute<Array<Part>>("limbBones", &Mapping::_limbBones);
    addAttribute<Array<Part>>("effectorBones", &Mapping::_effectorBones);
    addAttribute<Array<MrvString>>("spineBoneNames", &Mapping::_spineBoneNames);
    addAttribute<Array<MrvString>>("limbBoneNames", &Mapping::_limbBoneNames);
    addAttribute<Array<MrvString>>("effectorBoneNames", &Mapping::_effectorBoneNames);
    addAttribute<PODArray<int>>("ikExcludedBones", &Mapping::_ikExcludedBones);
    addAccessorsAttribute<const Vector3&>("upAxis", &Mapping::getUpAxis, &Mapping::setUpAxis);
    addAccessorsAttribute<const Vector3&>("frontAxis", &Mapping::getFrontAxis, &Mapping::setFrontAxis);
    addAttribute<Array<BonePhysicConfigurationV1>>("boneConfigurations", &Mapping::_boneConfigurations);
    addAttribute<PODArray<int>>("channelMirrorSources", &Mapping::_channelMirrorSources);
    addAttribute<Array<EffectorMirrorSourceV0>>("effectorMirrorSources", &Mapping::_effectorMirrorSources);
    addAttribute<PODArray<int>>("spineMirrorSources", &Mapping::_spineMirrorSources);
    addAttribute<PODArray<float>>("groundHeightArray", &Mapping::_groundHeightArray);
    addAttribute<Array<BlindDataV1>>("blindDataInfo", &Mapping::_blindDataInfo);
    addAttribute<PODArray<float>>("squashStretchWeightsArray", &Mapping::_squashStretchWeightsArray);
    addAttribute<PODArray<bool>>("cacheAllowed", &Mapping::_cacheAllowed);
    addAttribute<PODArray<int>>("bonesSnsScaleModes", &Mapping::_bonesSnsScaleModes);
}

GenericSpecificConverterMappingV8::GenericSpecificConverterMappingV8() = default;

GenericSpecificConverterMappingV8::GenericSpecificConverterMappingV8(
    const GenericSpecificConverterMappingV8& other)
{
    createFromConst(other);
}

GenericSpecificConverterMappingV8&
GenericSpecificConverterMappingV8::operator=(const GenericSpecificConverterMappingV8& other)
{
    createFromConst(other);
    return *this;
}

GenericSpecificConverterMappingV8::~GenericSpecificConverterMappingV8()
{
    finish();
}

void GenericSpecificConverterMappingV8::finish()
{
    _cacheAllowed.clear();
    clearMappingPart();
    _pelvisBoneIndex = -1;
    _ikExcludedBones.clear();
    _boneConfigurations.clear();
    delete _skeletonDescription;
    _skeletonDescription = nullptr;
    // Not by the setters: callers rely on the orientations staying as they were.
    _upAxis = Vector3(0.0f, 0.0f, 1.0f);
    _frontAxis = Vector3(1.0f, 0.0f, 0.0f);
    _blindDataInfo.clear();
    updateBlindDataFloatCount();
    _squashStretchWeightsArray.clear();
    _bonesSnsScaleModes.clear();
}

void GenericSpecificConverterMappingV8::clearMappingPart()
{
    _effectorBones.clear();
    _limbBones.clear();
    _spineBones.clear();
    _spineBoneNames.clear();
    _limbBoneNames.clear();
    _effectorBoneNames.clear();
    _channelMirrorSources.clear();
    _effectorMirrorSources.clear();
    _spineMirrorSources.clear();
    _groundHeightArray.clear();
}

void GenericSpecificConverterMappingV8::duplicateHierarchicalSkeletonDescription(
    const HierarchicalSkeletonDescriptionV1& source)
{
    HierarchicalSkeletonDescriptionV1* copy = new HierarchicalSkeletonDescriptionV1(source);
    finish(); // deletes the own description, which the source may be
    _skeletonDescription = copy;
    setPelvis(copy->getRootBone());
    const size_t boneCount = copy->getBones().size();
    _boneConfigurations.resize(boneCount);
    _squashStretchWeightsArray.assign(boneCount, 1.0f);
    _bonesSnsScaleModes.assign(boneCount, 0);
}

void GenericSpecificConverterMappingV8::createFromConst(const GenericSpecificConverterMappingV8& other)
{
    if (this == &other)
        return;
    _cacheAllowedGlobal = other._cacheAllowedGlobal;
    delete _skeletonDescription;
    _skeletonDescription = nullptr;
    if (other._skeletonDescription != nullptr)
        _skeletonDescription = new HierarchicalSkeletonDescriptionV1(*other._skeletonDescription);
    _pelvisBoneIndex = other._pelvisBoneIndex;
    _spineBones = other._spineBones;
    _limbBones = other._limbBones;
    _effectorBones = other._effectorBones;
    _spineBoneNames = other._spineBoneNames;
    _limbBoneNames = other._limbBoneNames;
    _effectorBoneNames = other._effectorBoneNames;
    _ikExcludedBones = other._ikExcludedBones;
    _upAxis = other._upAxis;
    _frontAxis = other._frontAxis;
    _orientationToZUpXFront = other._orientationToZUpXFront;
    _orientationToZUpXFrontInverse = other._orientationToZUpXFrontInverse;
    _boneConfigurations = other._boneConfigurations;
    _channelMirrorSources = other._channelMirrorSources;
    _effectorMirrorSources = other._effectorMirrorSources;
    _spineMirrorSources = other._spineMirrorSources;
    _groundHeightArray = other._groundHeightArray;
    _blindDataInfo = other._blindDataInfo;
    updateBlindDataFloatCount();
    _squashStretchWeightsArray = other._squashStretchWeightsArray;
    _bonesSnsScaleModes = other._bonesSnsScaleModes;
    _maxIterations = other._maxIterations;
    _quality = other._quality;
    _cacheAllowed = other._cacheAllowed;
}

void GenericSpecificConverterMappingV8::setUpAxis(const Vector3& axis)
{
    _upAxis = axis.computeNormalize();
    updateOrientations();
}

void GenericSpecificConverterMappingV8::setFrontAxis(const Vector3& axis)
{
    _frontAxis = axis.computeNormalize();
    updateOrientations();
}

void GenericSpecificConverterMappingV8::updateOrientations()
{
    // The axis pair gives the rotation from Z and X to the two axes; wanted is the way back.
    _orientationToZUpXFront = Axis_Zx_toQuaternion(_upAxis, _frontAxis).computeConjugate();
    _orientationToZUpXFrontInverse = _orientationToZUpXFront.computeConjugate();
}

void GenericSpecificConverterMappingV8::getSpineBoneName(MrvString& result, size_t index) const
{
    getName(result, _spineBoneNames, index);
}

void GenericSpecificConverterMappingV8::getLimbBoneName(MrvString& result, size_t index) const
{
    getName(result, _limbBoneNames, index);
}

void GenericSpecificConverterMappingV8::getEffectorBoneName(MrvString& result, size_t index) const
{
    getName(result, _effectorBoneNames, index);
}

void GenericSpecificConverterMappingV8::setSpineBoneName(size_t index, const MrvString& name)
{
    setName(_spineBoneNames, _spineBones.size(), index, name);
}

void GenericSpecificConverterMappingV8::setLimbBoneName(size_t index, const MrvString& name)
{
    setName(_limbBoneNames, _limbBones.size(), index, name);
}

void GenericSpecificConverterMappingV8::setEffectorBoneName(size_t index, const MrvString& name)
{
    setName(_effectorBoneNames, _effectorBones.size(), index, name);
}

void GenericSpecificConverterMappingV8::initChannelMirrorSources(int count)
{
    _channelMirrorSources.assign(atLeastNone(count), -1);
    _effectorMirrorSources.clear();
    _effectorMirrorSources.resize(atLeastNone(count));
}

void GenericSpecificConverterMappingV8::initSpineMirrorSources(int count)
{
    _spineMirrorSources.assign(atLeastNone(count), -1);
}

size_t GenericSpecificConverterMappingV8::getBoneConfigurationsCount() const
{
    return _boneConfigurations.size();
}

bool GenericSpecificConverterMappingV8::isBoneUsingSnSScale(int bone) const
{
    for (const Axis::Value axis : { Axis::X, Axis::Y, Axis::Z })
    {
        if (getBoneSnsScaleMode(bone, axis) != SnsScaleMode::NO_SCALE)
            return true;
    }
    return false;
}

SnsScaleMode::Value GenericSpecificConverterMappingV8::getBoneSnsScaleMode(int bone, Axis::Value axis) const
{
    MRV_ASSERT(axis >= Axis::BEGIN && axis < Axis::END, "%d is no axis", static_cast<int>(axis));
    if (bone < 0 || static_cast<size_t>(bone) >= _bonesSnsScaleModes.size())
        return SnsScaleMode::UNIFORM_SCALE;
    const unsigned int modes = static_cast<unsigned int>(_bonesSnsScaleModes[static_cast<size_t>(bone)]);
    const unsigned int mode = (modes >> modeShift(axis)) & modeMask;
    return mode < SnsScaleMode::END ? static_cast<SnsScaleMode::Value>(mode) : SnsScaleMode::UNIFORM_SCALE;
}

void GenericSpecificConverterMappingV8::setBoneSnsScaleMode(int bone, Axis::Value axis,
                                                            SnsScaleMode::Value mode)
{
    MRV_ASSERT(axis >= Axis::BEGIN && axis < Axis::END, "%d is no axis", static_cast<int>(axis));
    MRV_ASSERT(mode >= SnsScaleMode::UNIFORM_SCALE && mode < SnsScaleMode::END, "%d is no scale mode",
               static_cast<int>(mode));
    if (bone < 0)
        return;
    const size_t index = static_cast<size_t>(bone);
    if (index >= _bonesSnsScaleModes.size())
    {
        const size_t boneCount = internal::bonesOf(_skeletonDescription).size();
        if (index >= boneCount)
            return;
        _bonesSnsScaleModes.resize(boneCount, 0);
    }
    const unsigned int others =
        static_cast<unsigned int>(_bonesSnsScaleModes[index]) & ~(modeMask << modeShift(axis));
    _bonesSnsScaleModes[index] =
        static_cast<int>(others | static_cast<unsigned int>(mode) << modeShift(axis));
}

bool GenericSpecificConverterMappingV8::isCacheAllowedOn(const GenericSpecificConverterBoneV1* bone,
                                                         int chain) const
{
    const int first = bone != nullptr ? bone->_firstBoneOfChain[chain] : -1;
    if (first < 0 || static_cast<size_t>(first) >= _cacheAllowed.size())
        return _cacheAllowedGlobal;
    return _cacheAllowed[static_cast<size_t>(first)];
}

void GenericSpecificConverterMappingV8::setCacheAllowedOn(const GenericSpecificConverterBoneV1* bone,
                                                          int chain, bool allowed)
{
    const int first = bone != nullptr ? bone->_firstBoneOfChain[chain] : -1;
    if (first < 0)
        return;
    const size_t index = static_cast<size_t>(first);
    if (index >= _cacheAllowed.size())
        _cacheAllowed.resize(index + 1, true);
    _cacheAllowed[index] = allowed;
}

Array<BlindDataV1>& GenericSpecificConverterMappingV8::touchBlindDataInfo()
{
    _updateBlindDataFloatCount = true;
    return _blindDataInfo;
}

int GenericSpecificConverterMappingV8::getBlindDataTotalFloatCount() const
{
    if (!_updateBlindDataFloatCount)
        return _blindDataFloatCount;
    // Not stored: this may be one of many readers.
    return sumFloatCounts(_blindDataInfo, true);
}

void GenericSpecificConverterMappingV8::updateBlindDataFloatCount()
{
    unsigned int count = 0;
    for (BlindDataV1& record : _blindDataInfo)
    {
        record._firstValueIndex = count;
        count += record._floatCount;
    }
    _blindDataFloatCount = static_cast<int>(count);
    _updateBlindDataFloatCount = false;
}

int GenericSpecificConverterMappingV8::countExportedBlindData() const
{
    return sumFloatCounts(_blindDataInfo, false);
}

void GenericSpecificConverterMappingV8::clearSpecificAnimationBlindData()
{
    clearSpecificAnimationBlindData(_blindDataInfo);
    updateBlindDataFloatCount();
}

void GenericSpecificConverterMappingV8::clearSpecificAnimationBlindData(Array<BlindDataV1>& blindData)
{
    size_t kept = 0;
    for (size_t i = 0; i < blindData.size(); ++i)
    {
        if (blindData[i]._type == BlindDataV1::Type::SPECIFIC_ANIMATION)
            continue;
        if (kept != i)
            blindData[kept] = blindData[i];
        ++kept;
    }
    blindData.resize(kept);
}

void GenericSpecificConverterMappingV8::setGroundHeights(float height)
{
    _groundHeightArray.assign(_limbBones.size(), height);
}

float GenericSpecificConverterMappingV8::getGroundHeight(int limb) const
{
    return limb >= 0 && static_cast<size_t>(limb) < _groundHeightArray.size()
               ? _groundHeightArray[static_cast<size_t>(limb)]
               : 0.0f;
}

} // namespace mrv
