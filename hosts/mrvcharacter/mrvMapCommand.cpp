// hosts/mrvcharacter/mrvMapCommand.cpp
#include "hosts/mrvcharacter/mrvMapCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvMappingFiles.h"
#include "hosts/mrvcharacter/mrvMappingTable.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"
#include "mrvCore/math/rotations/mrvAngleUtils.h"

#include <CLI/App.hpp>
#include <CLI/Validators.hpp>

#include <iostream>
#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

using Mapping = mrv::GenericSpecificConverterMappingV8;

struct MapOptions
{
    std::string source;
    std::string target;
    float refineThreshold = 0.5f;
    float minBendDegrees = 5.0f;
};

bool map(const MapOptions& options)
{
    const LoadedFile loaded = loadCharacter(options.source);
    if (!reportFailure(loaded))
        return false;
    mrv::MaravoCharacterV24& character = *loaded.character;
    Mapping mapping = character.getConverterMapping();
    // Mapping twice must give what mapping once gives.
    mapping.clearMappingPart();
    mapping.touchIkExcludedBones().clear();
    if (!mapping.computeAutomaticMapping(options.refineThreshold,
                                         mrv::AngleUtils::degreeToRadian(options.minBendDegrees)))
    {
        reportError(options.source, "no branch of the skeleton has a twin of the same shape");
        return false;
    }
    character.setConverterMapping(mapping);
    const bool isSaved = isMappingFile(options.target) ? saveMapping(options.target, mapping)
                                                       : saveCharacter(options.target, character);
    if (isSaved)
        printMapping(mapping, std::cout);
    return isSaved;
}

} // namespace

void addMapCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("map", "Finds pelvis, spines, limbs and effectors by the shape of the skeleton");
    command->footer(
        "What was mapped before is replaced. A chain is written from its first bone to its last, by way of\n"
        "the bone where the part bends if it has a chain that leads to it. Nothing is written for a\n"
        "skeleton in which no branch repeats.");
    const auto options = std::make_shared<MapOptions>();
    command->add_option("IN", options->source, "Character file")->required();
    command
        ->add_option(
            "OUT", options->target,
            "NAME.mvcf or NAME.mvc for the character, NAME.mvsm or NAME.mvsm.xml for the mapping alone")
        ->required();
    command
        ->add_option("--refine", options->refineThreshold,
                     "A limb bends where its angle is above the mean by this times the mean")
        ->capture_default_str();
    command
        ->add_option("--min-bend", options->minBendDegrees,
                     "Bones that bend by fewer degrees are left out of IK")
        ->capture_default_str();
    command->callback([options, &exitCode] { exitCode = map(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
