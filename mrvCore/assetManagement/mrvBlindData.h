// mrvCore/assetManagement/mrvBlindData.h
// Named scalar channels of a character that no bone carries, and the record of a specific animation.
#pragma once

#include "mrvCore/system/containers/mrvPODArray.h"
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/inspection/mrvPersistentClass.h"

namespace mrv {

template <typename T>
class Array;
class BlindDataV0;
class Quaternion;
class Vector3;

/// Description of one channel: a blend shape weight, a free channel of the application, or one of the eight
/// channels that hold the transform of a specific animation. The values lie in a flat array of the caller.
///
/// The record of a specific animation is eight floats: the weight, the translation x, y, z, and the rotation
/// as a quaternion x, y, z, w. The static operations work on such a record at `index` of an array; they
/// allocate nothing, and a record that they read and write must lie inside its array.
/// Threads: a plain value; the operations may run for different arrays on different threads.
class MRV_CORE_API BlindDataV1
{
public:
    MRV_PERSISTENT_CLASS(BlindDataV1)

    /// What a channel is for.
    struct Type
    {
        enum Value : unsigned int { BLENDSHAPE, BLIND, SPECIFIC_ANIMATION, END };
    };

    /// Floats in the record of a specific animation.
    static constexpr size_t SPECIFIC_ANIMATION_SIZE = 8;

    /// Takes over a version-0 channel, which had one float. The name differs from those of the other steps,
    /// and callers know it so.
    void createfromPreviousVersion(BlindDataV0 old);

    /// Place in the value array does not count.
    bool operator==(const BlindDataV1& other) const;
    bool operator!=(const BlindDataV1& other) const { return !(*this == other); }

    unsigned int getTypeUInt() const { return _type; }
    void setTypeUInt(unsigned int type) { _type = static_cast<Type::Value>(type); }

    /// Appends the eight channels of a record, named `prefix` plus ".totalAnimWeight", ".tX" and so on.
    static void addSpecificAnimationBlindDataInfo(Array<BlindDataV1>& blindData, const MrvString& prefix);

    /// Writes a record. An array that is too short is only reported: sizing it is the caller's task.
    static void transformValuesToBlindData(PODArray<float>& values, size_t index, const Vector3& translation,
                                           const Quaternion& rotation, float weight);

    /// Reads a record, with the rotation normalised; a quaternion whose squares add up to 0.001 or less, such
    /// as that of an accumulation of nothing, is no rotation. An array that is too short is reported and
    /// reads as weight 0 without a transform.
    static void blindDataToTransformValues(Vector3& translation, Quaternion& rotation, float& weight,
                                           const PODArray<float>& values, size_t index);

    /// Weight 0, no translation, no rotation.
    static void specificAnimationBlindDataClear(PODArray<float>& values, size_t index);

    /// Adds `factor` times another record: weight and translation by sum, the rotation by its fraction.
    static void specificAnimationBlindDataAdd(PODArray<float>& values, size_t index,
                                              const PODArray<float>& added, size_t addedIndex, float factor);

    /// Moves a record towards another one: not at all at 0, wholly from 1 on, without extrapolation. A
    /// negative factor does extrapolate.
    static void specificAnimationBlindDataBlend(PODArray<float>& values, size_t index,
                                                const PODArray<float>& other, size_t otherIndex,
                                                float factor);

    MrvString _groupName; ///< may be empty
    MrvString _name;
    Type::Value _type = Type::BLENDSHAPE;
    unsigned int _floatCount = 0;
    unsigned int _firstValueIndex =
        0; ///< place of its first value, given by who lays out the array; not stored
};

} // namespace mrv
