// fuzz/mrvCsvTablesFuzz.cpp
// Any bytes as each of the tables that the batch host reads, and what its commands make of them.
#include "fuzz/mrvFuzzHook.h"

#include "hosts/mrvcharacter/mrvAssimpSkeletonImporter.h"
#include "hosts/mrvcharacter/mrvPointTable.h"
#include "hosts/mrvcharacter/mrvPoseFile.h"
#include "hosts/mrvcharacter/mrvSkeletonImporter.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/animation/mrvSpecificPosture.h"
#include "mrvCore/math/delaunay/mrvDelaunay2.h"

#include <algorithm>
#include <vector>

// What Assimp reads is not ours to test; the importer never comes here for a table.
bool mrvcharacter::readAssimpSkeleton(const std::string&, ImportedSkeleton&, bool&, std::string&)
{
    std::abort();
}

// A demanded fatal end inside a constructor leaves what the object had taken.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}

namespace {

/// A failure comes with a reason, and only a failure.
bool isRead(bool result, const std::string& failure)
{
    if (result != failure.empty())
        std::abort();
    return result;
}

void useSkeleton(const std::string& file)
{
    mrvcharacter::ImportedSkeleton skeleton;
    std::string failure;
    if (!isRead(mrvcharacter::importSkeleton(file, mrvcharacter::SourceUp::Y, skeleton, failure), failure))
        return;
    mrv::MaravoCharacterV24 character;
    mrvcharacter::buildCharacter(skeleton, mrv::Vector3(1.0f, 0.0f, 0.0f), "fuzz", character);
    mrv::GenericSpecificConverterMappingV8& mapping = character._converterMapping;
    if (mapping.computeAutomaticMapping(0.5f, 0.1f))
        mapping.autoConfigureRagdoll(true);
}

void usePoints(const std::string& file)
{
    std::vector<mrv::Vector3> positions;
    std::string failure;
    if (isRead(mrvcharacter::readPointTable(file, positions, failure), failure))
        return; // a row of three values has no two
    std::vector<mrv::Vector2> points;
    failure.clear();
    if (!isRead(mrvcharacter::readPointTable(file, points, failure), failure))
        return;
    auto* const vertices = new mrv::Vector2[points.size()]; // becomes the triangulation's
    std::copy(points.begin(), points.end(), vertices);
    const mrv::Delaunay2 triangulation(static_cast<unsigned int>(points.size()), vertices, 1e-6f,
                                       mrv::DelaunayQuery::Type::REAL);
    for (const mrv::Vector2& point : points)
        triangulation.getContainingTriangle(point);
}

void usePose(const std::string& file)
{
    static const mrv::HierarchicalSkeletonDescriptionV1* const skeleton = [] {
        auto* description = new mrv::HierarchicalSkeletonDescriptionV1("arm");
        mrv::HierarchicalBoneV1* father = nullptr;
        for (const char* name : { "shoulder", "elbow", "hand" })
        {
            auto* bone = new mrv::HierarchicalBoneV1(name, father, mrv::Vector3(1.0f, 0.5f, 0.0f),
                                                     mrv::Quaternion::getIdentity(),
                                                     description->getBones().sizeInt());
            description->touchBones().push_back(bone);
            father = bone;
        }
        description->setRootBone(description->getBones()[0]);
        description->initSortedBones();
        return description;
    }();
    mrv::SpecificPosture posture;
    std::string failure;
    if (isRead(mrvcharacter::readPose(file, *skeleton, posture, failure), failure) &&
        posture.getBonesCount() != skeleton->getBones().size())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    const std::string name = mrvFuzz::writeFile(data, size, ".csv");
    for (const auto use : { useSkeleton, usePoints, usePose })
    {
        try
        {
            use(name);
        }
        catch (const mrvFuzz::FatalEnd&)
        {}
    }
    std::remove(name.c_str());
    return 0;
}
