// mrvCore/assetManagement/mrvBlindData.cpp
#include "mrvCore/assetManagement/mrvBlindData.h"

#include "mrvCore/math/interpolations/mrvInterpolation.h"
#include "mrvCore/system/log/mrvLogMacros.h"
#include "mrvCore/system/serialization/mrvPersistentAttributes.h"

#include <cmath>

namespace mrv {

MRV_DEFINE_PERSISTENT_CLASS(BlindDataV1, "mrv::BlindDataV1", "1d928022-9075-483d-b5c8-c3deb3ed29d0")

// This list is the file format: order, names and types stay. A change is a BlindDataV2.
void BlindDataV1::addAttributes()
{
    addAttribute<MrvString>("groupName", &BlindDataV1::_groupName);
    addAttribute<MrvString>("name", &BlindDataV1::_name);
    addAccessorsAttribute<unsigned int>("type", &BlindDataV1::getTypeUInt, &BlindDataV1::setTypeUInt);
    addAttribute<unsigned int>("floatCount", &BlindDataV1::_floatCount);
}

namespace {

// In the order of the record.
constexpr const char* channelSuffixes[] = {
    ".totalAnimWeight", ".tX", ".tY", ".tZ", ".qX", ".qY", ".qZ", ".qW"
};
static_assert(sizeof(channelSuffixes) / sizeof(channelSuffixes[0]) == BlindDataV1::SPECIFIC_ANIMATION_SIZE);

constexpr size_t rotationPlace = 4;

bool holdsRecord(const PODArray<float>& values, size_t index)
{
    return values.size() >= BlindDataV1::SPECIFIC_ANIMATION_SIZE &&
           index <= values.size() - BlindDataV1::SPECIFIC_ANIMATION_SIZE;
}

// A record that nothing was added to yet is all zero.
Quaternion rotationOf(const float* record)
{
    const Quaternion rotation(record + rotationPlace);
    return rotation == Quaternion::getNullVector() ? Quaternion::getIdentity() : rotation;
}

void setRotation(float* record, const Quaternion& rotation)
{
    record[4] = rotation.x;
    record[5] = rotation.y;
    record[6] = rotation.z;
    record[7] = rotation.w;
}

} // namespace

bool BlindDataV1::operator==(const BlindDataV1& other) const
{
    return _type == other._type && _name == other._name && _groupName == other._groupName &&
           _floatCount == other._floatCount;
}

void BlindDataV1::addSpecificAnimationBlindDataInfo(Array<BlindDataV1>& blindData, const MrvString& prefix)
{
    for (const char* suffix : channelSuffixes)
    {
        BlindDataV1& channel = blindData.addOne();
        channel._groupName = "specificAnimation";
        channel._name = prefix + suffix;
        channel._type = Type::SPECIFIC_ANIMATION;
        channel._floatCount = 1;
    }
}

void BlindDataV1::transformValuesToBlindData(PODArray<float>& values, size_t index,
                                             const Vector3& translation, const Quaternion& rotation,
                                             float weight)
{
    if (!holdsRecord(values, index))
        MRV_LOG_LIMITED(SDK, LOG_ERROR,
                        "Blind data size is too small to record specific posture values in blind data.");
    float* const record = values.begin() + index;
    record[0] = weight;
    record[1] = translation.x;
    record[2] = translation.y;
    record[3] = translation.z;
    setRotation(record, rotation);
}

void BlindDataV1::blindDataToTransformValues(Vector3& translation, Quaternion& rotation, float& weight,
                                             const PODArray<float>& values, size_t index)
{
    if (!holdsRecord(values, index))
    {
        MRV_LOG_LIMITED(SDK, LOG_ERROR, "Blind data does not contain specific posture values.");
        weight = 0.0f;
        translation.setNull();
        rotation.setToIdentity();
        return;
    }
    const float* const record = values.begin() + index;
    weight = record[0];
    translation = Vector3(record + 1);
    rotation = Quaternion(record + rotationPlace);
    if (rotation.norm2() > 0.001f)
        rotation.normalizeSelf();
    else
        rotation.setToIdentity();
}

void BlindDataV1::specificAnimationBlindDataClear(PODArray<float>& values, size_t index)
{
    float* const record = values.begin() + index;
    for (size_t i = 0; i < SPECIFIC_ANIMATION_SIZE; ++i)
        record[i] = 0.0f;
    record[7] = 1.0f;
}

void BlindDataV1::specificAnimationBlindDataAdd(PODArray<float>& values, size_t index,
                                                const PODArray<float>& added, size_t addedIndex, float factor)
{
    float* const record = values.begin() + index;
    const float* const addedRecord = added.begin() + addedIndex;
    for (size_t i = 0; i < rotationPlace; ++i)
        record[i] += factor * addedRecord[i];
    Quaternion rotation = rotationOf(record);
    rotation.multiplyAlphaQuat(rotationOf(addedRecord), factor);
    setRotation(record, rotation);
}

void BlindDataV1::specificAnimationBlindDataBlend(PODArray<float>& values, size_t index,
                                                  const PODArray<float>& other, size_t otherIndex,
                                                  float factor)
{
    if (factor == 0.0f)
        return;
    float* const record = values.begin() + index;
    const float* const otherRecord = other.begin() + otherIndex;
    if (factor >= 1.0f)
    {
        for (size_t i = 0; i < SPECIFIC_ANIMATION_SIZE; ++i)
            record[i] = otherRecord[i];
        return;
    }
    for (size_t i = 0; i < rotationPlace; ++i)
        record[i] = (otherRecord[i] - record[i]) * factor + record[i];
    Quaternion rotation;
    interpolate_noFactorRangeCheck(rotation, rotationOf(record), rotationOf(otherRecord), factor);
    setRotation(record, rotation);
}

} // namespace mrv
