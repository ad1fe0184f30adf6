// hosts/mrvcharacter/mrvRagdollCommand.cpp
#include "hosts/mrvcharacter/mrvRagdollCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvTextTable.h"

#include "mrvCore/animation/mrvBonePhysicConfiguration.h"
#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

using Mapping = mrv::GenericSpecificConverterMappingV8;

constexpr const char* shapeNames[] = { "cylinder", "box", "capsule", "sphere" };

std::string toText(const mrv::Vector3& vector, const char* format)
{
    char text[96];
    std::snprintf(text, sizeof(text), format, static_cast<double>(vector.x), static_cast<double>(vector.y),
                  static_cast<double>(vector.z));
    return text;
}

std::string getShapeName(const mrv::BonePhysicConfigurationV1& body)
{
    const bool isShape = body._bodyShape >= 0 && body._bodyShape < mrv::RagdollRigidBodyShape::END;
    return isShape ? shapeNames[body._bodyShape] : "-";
}

void printBodies(const Mapping& mapping)
{
    const auto right = TextTable::Alignment::RIGHT;
    TextTable table({ { "Bone" },
                      { "Shape" },
                      { "Half extents", right },
                      { "Mass", right },
                      { "Lower limits", right },
                      { "Upper limits", right } });
    const auto& bones = mapping.getSkeletonDescription()->getBones();
    mrv::PODArray<int> rigidBodyBones;
    mrv::PODArray<int> boneRigidBodies;
    const int count = Mapping::findRigidBodiesBoneCorrespondances(rigidBodyBones, boneRigidBodies, &mapping);
    for (int i = 0; i < count; ++i)
    {
        const size_t bone = static_cast<size_t>(rigidBodyBones[static_cast<size_t>(i)]);
        const mrv::BonePhysicConfigurationV1& body = mapping.getBoneConfigurations()[bone];
        char mass[32];
        std::snprintf(mass, sizeof(mass), "%.4g", static_cast<double>(body.getMass()));
        table.addRow({ bones[bone]->getName().c_str(), getShapeName(body),
                       toText(body._halfExtents, "%.4g %.4g %.4g"), mass,
                       toText(body._jointAngularLowerLimit, "%.1f %.1f %.1f"),
                       toText(body._jointAngularUpperLimit, "%.1f %.1f %.1f") });
    }
    table.print(std::cout);
}

bool configure(const std::string& source, const std::string& target)
{
    const LoadedFile loaded = loadCharacter(source);
    if (!reportFailure(loaded))
        return false;
    Mapping& mapping = loaded.character->_converterMapping;
    if (mapping.getLimbBonesSize() == 0 && mapping.getSpineBonesSize() == 0)
    {
        reportError(source, "the character has no limb and no spine: map it first");
        return false;
    }
    mapping.touchBoneConfigurations().resize(mapping.getSkeletonDescription()->getBones().size());
    mapping.autoConfigureRagdoll(true);
    if (!saveCharacter(target, *loaded.character))
        return false;
    printBodies(mapping);
    return true;
}

} // namespace

void addRagdollCommand(CLI::App& app, int& exitCode)
{
    struct Options
    {
        std::string source;
        std::string target;
    };
    CLI::App* command =
        app.add_subcommand("ragdoll", "Gives rigid bodies and joint limits to the mapped bones");
    command->footer(
        "All bodies are made anew. Limits are in degrees about x, y and z. A bone that limbs share\n"
        "belongs to the first of them, and the others get no bodies.");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->source, "Character file")->required();
    command->add_option("OUT", options->target, "NAME.mvcf for XML, NAME.mvc for binary")->required();
    command->callback(
        [options, &exitCode] { exitCode = configure(options->source, options->target) ? 0 : 1; });
}

} // namespace mrvcharacter
