// hosts/mrvcharacter/mrvSkeletonImporter.cpp
#include "hosts/mrvcharacter/mrvSkeletonImporter.h"

#include "hosts/mrvcharacter/mrvAssimpSkeletonImporter.h"
#include "hosts/mrvcharacter/mrvCsvSkeletonImporter.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <filesystem>

namespace mrvcharacter {

namespace {

// The quarter turn about X that makes Z of Y.
void turnToZUp(ImportedSkeleton& skeleton)
{
    const mrv::Quaternion turn(0.70710678f, 0.0f, 0.0f, 0.70710678f);
    for (ImportedBone& bone : skeleton.bones)
    {
        if (bone.father >= 0)
            continue;
        bone.position = mrv::Vector3(bone.position.x, 0.0f - bone.position.z, bone.position.y);
        bone.orientation = (turn * bone.orientation).computeNormalize();
    }
    skeleton.wasYUp = true;
}

} // namespace

bool importSkeleton(const std::string& file, SourceUp up, ImportedSkeleton& skeleton, std::string& failure)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
    {
        failure = error || !std::filesystem::exists(file) ? "there is no such file" : "this is no file";
        return false;
    }
    const bool isCsv = std::filesystem::path(file).extension() == ".csv";
    bool isYUp = false;
    const bool isRead =
        isCsv ? readCsvSkeleton(file, skeleton, failure) : readAssimpSkeleton(file, skeleton, isYUp, failure);
    if (!isRead)
        return false;
    if (up == SourceUp::Y || (up == SourceUp::BY_FORMAT && isYUp))
        turnToZUp(skeleton);
    return true;
}

void buildCharacter(const ImportedSkeleton& skeleton, const mrv::Vector3& front, const std::string& name,
                    mrv::MaravoCharacterV24& character)
{
    mrv::HierarchicalSkeletonDescriptionV1 description(name.c_str());
    mrv::PODArray<mrv::HierarchicalBoneV1*>& bones = description.touchBones();
    for (const ImportedBone& bone : skeleton.bones)
    {
        mrv::HierarchicalBoneV1* father =
            bone.father >= 0 ? bones[static_cast<size_t>(bone.father)] : nullptr;
        bones.push_back(new mrv::HierarchicalBoneV1(bone.name.c_str(), father, bone.position,
                                                    bone.orientation, static_cast<int>(bones.size())));
    }
    // Fathers come first, and so does a root.
    description.setRootBone(bones.empty() ? nullptr : bones[0]);
    description.initSortedBones();

    character._name = name;
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    mapping.duplicateHierarchicalSkeletonDescription(description);
    mapping.setUpAxis(mrv::Vector3::getZUpVector());
    mapping.setFrontAxis(front);
    character.autoComputeSkeletonDisplay(mrv::PODArray<int>());
}

} // namespace mrvcharacter
