// hosts/mrvcharacter/mrvBodyOutlines.cpp
#include "hosts/mrvcharacter/mrvBodyOutlines.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvSpecificPosture.h"

#include <algorithm>
#include <cmath>

namespace mrvcharacter {

namespace {

using Body = mrv::BonePhysicConfigurationV1;
using Shape = mrv::RagdollRigidBodyShape;
using mrv::Vector3;

/// From a bone to the middle of its children, or from its father to it; null where there is neither.
Vector3 getBoneDirection(const mrv::HierarchicalBoneV1& bone, const mrv::Array<Vector3>& positions)
{
    const auto at = [&positions](const mrv::HierarchicalBoneV1& other) {
        return positions[static_cast<size_t>(other.getSpecificBoneIndex())];
    };
    if (bone.getNbChildren() == 0)
        return bone.getFather() != nullptr ? at(bone) - at(*bone.getFather()) : Vector3();
    Vector3 sum;
    for (const mrv::HierarchicalBoneV1* child : bone.getChildren())
        sum += at(*child) - at(bone);
    return sum;
}

bool hasOffset(const Body& body)
{
    return body._localOrientationOffset != mrv::Quaternion::getIdentity() ||
           body._localPositionOffset != Vector3();
}

PlacedBody place(const mrv::HierarchicalBoneV1& bone, const Body& body, const mrv::SpecificPosture& posture)
{
    const size_t index = static_cast<size_t>(bone.getSpecificBoneIndex());
    const mrv::Array<Vector3>& positions = posture.getWorldPositions();
    PlacedBody placed = { bone.getSpecificBoneIndex(), body._bodyShape, body._halfExtents, positions[index],
                          mrv::Quaternion::getIdentity() };
    if (hasOffset(body))
    {
        body.getRigidBodyWordTransformsFromPosture(placed.position, placed.orientation,
                                                   bone.getWorldOri().computeConjugate(), positions[index],
                                                   posture.getWorldOrientations()[index]);
        return placed;
    }
    const Vector3 direction = getBoneDirection(bone, positions);
    if (direction.norm() > 0.0f)
        placed.orientation = mrv::Quaternion::getRotationBetweenUnitVectors(Vector3::getZUpVector(),
                                                                            direction / direction.norm());
    placed.position += placed.orientation * Vector3(0.0f, 0.0f, body._halfExtents.z);
    return placed;
}

template <class AddPoint>
void addRing(AddPoint addPoint)
{
    constexpr int count = 48;
    for (int i = 0; i < count; ++i)
    {
        const float angle = static_cast<float>(i) * 6.2831853f / static_cast<float>(count);
        addPoint(std::cos(angle), std::sin(angle));
    }
}

} // namespace

std::vector<PlacedBody> placeBodies(const mrv::GenericSpecificConverterMappingV8& mapping,
                                    const mrv::SpecificPosture& posture)
{
    std::vector<PlacedBody> bodies;
    const auto& bones = mapping.getSkeletonDescription()->getBones();
    const mrv::Quaternion& toZUp = mapping.getOrientationToZUpXFront();
    const size_t count = std::min(bones.size(), mapping.getBoneConfigurationsCount());
    for (size_t i = 0; i < count; ++i)
    {
        if (!mapping.getBoneConfigurations()[i]._inUse)
            continue;
        bodies.push_back(place(*bones[i], mapping.getBoneConfigurations()[i], posture));
        bodies.back().position = toZUp * bodies.back().position;
        bodies.back().orientation = toZUp * bodies.back().orientation;
    }
    return bodies;
}

std::vector<Vector3> getOutlinePoints(const PlacedBody& body, const Vector3& right, const Vector3& up)
{
    std::vector<Vector3> points;
    const Vector3& size = body.halfExtents;
    const auto addLocal = [&](const Vector3& point) {
        points.push_back(body.position + body.orientation * point);
    };
    for (const float end : { -size.z, size.z })
    {
        const Vector3 centre = body.position + body.orientation * Vector3(0.0f, 0.0f, end);
        if (body.shape == Shape::CYLINDER)
            addRing([&](float x, float y) { addLocal(Vector3(x * size.x, y * size.x, end)); });
        else if (body.shape == Shape::CAPSULE || body.shape == Shape::SPHERE)
            addRing([&](float x, float y) { points.push_back(centre + (right * x + up * y) * size.x); });
        else
            for (const float x : { -size.x, size.x })
                for (const float y : { -size.y, size.y })
                    addLocal(Vector3(x, y, end));
    }
    return points;
}

} // namespace mrvcharacter
