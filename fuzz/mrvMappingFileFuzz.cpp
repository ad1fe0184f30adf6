// fuzz/mrvMappingFileFuzz.cpp
// Any bytes as a mapping file: as XML if they begin like it, else as the binary form. Stored files serve as
// seeds as they are.
#include "fuzz/mrvFuzzHook.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvGenericSpecificConverterMapping.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvSpecificPosture.h"
#include "mrvCore/assetManagement/mrvBlindData.h"

namespace {

/// Walks what was read: a wild pointer or index would show here.
void use(mrv::GenericSpecificConverterMappingV8& mapping)
{
    using namespace mrv;
    PODArray<int> rigidBodyBones;
    PODArray<int> boneRigidBodies;
    mapping.autoConfigureRagdoll(true);
    GenericSpecificConverterMappingV8::findRigidBodiesBoneCorrespondances(rigidBodyBones, boneRigidBodies,
                                                                          &mapping);
    const auto& bones = mapping.getSkeletonDescription()->getBones();
    SpecificPosture posture;
    posture.initFromRestRelativesOrientation(bones, Vector3(), Quaternion::getIdentity(),
                                             Array<Quaternion>(bones.size()), 1.0f);
}

} // namespace

// Bones that a damaged file lists nowhere have no owner and are left.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    mrvFuzz::startOnce();
    if (size == 0)
        return 0;
    const std::string name = mrvFuzz::writeFile(data, size, ".mvsm");
    try
    {
        using namespace mrv;
        GenericSpecificConverterMappingV8 mapping;
        const LoadSkeletonMappingErrorCode::Value result =
            data[0] == '<' ? mapping.loadMappingXML(name.c_str()) : mapping.loadMapping(name.c_str());
        if (result == LoadSkeletonMappingErrorCode::SUCCESS)
            use(mapping);
        mapping.saveMapping("/dev/null");
    }
    catch (const mrvFuzz::FatalEnd&)
    {}
    std::remove(name.c_str());
    return 0;
}
