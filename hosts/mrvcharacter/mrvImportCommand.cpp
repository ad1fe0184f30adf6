// hosts/mrvcharacter/mrvImportCommand.cpp
#include "hosts/mrvcharacter/mrvImportCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvSkeletonImporter.h"

#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>
#include <CLI/Validators.hpp>

#include <map>
#include <memory>
#include <string>

namespace mrvcharacter {

namespace {

const std::map<std::string, mrv::Vector3> axes = { { "+x", mrv::Vector3(1.0f, 0.0f, 0.0f) },
                                                   { "-x", mrv::Vector3(-1.0f, 0.0f, 0.0f) },
                                                   { "+y", mrv::Vector3(0.0f, 1.0f, 0.0f) },
                                                   { "-y", mrv::Vector3(0.0f, -1.0f, 0.0f) } };

const std::map<std::string, SourceUp> sourceUps = { { "y", SourceUp::Y }, { "z", SourceUp::Z } };

struct ImportOptions
{
    std::string source;
    std::string target;
    std::string front;
    std::string up;
};

bool import(const ImportOptions& options)
{
    const SourceUp up = options.up.empty() ? SourceUp::BY_FORMAT : sourceUps.at(options.up);
    ImportedSkeleton skeleton;
    std::string failure;
    if (!importSkeleton(options.source, up, skeleton, failure))
    {
        reportError(options.source, failure);
        return false;
    }
    const std::string front = !options.front.empty() ? options.front : skeleton.wasYUp ? "-y" : "+x";
    const auto character = std::make_unique<mrv::MaravoCharacterV24>();
    buildCharacter(skeleton, axes.at(front), getStem(options.source), *character);
    return saveCharacter(options.target, *character);
}

} // namespace

void addImportCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("import", "Makes a new character of a rig made elsewhere");
    command->footer(
        "Rigs come from BVH, glTF, FBX, Collada and whatever else Assimp reads: the joints of the first\n"
        "skinned mesh, or the node tree where nothing is skinned. NAME.csv is a table of one joint a row,\n"
        "fathers first, with Z up: index,name,parent,px,py,pz,qx,qy,qz,qw, all relative to the parent.");
    const auto options = std::make_shared<ImportOptions>();
    command->add_option("SKELETON", options->source, "The rig")->required();
    command->add_option("OUT", options->target, "NAME.mvcf for XML, NAME.mvc for binary")->required();
    command
        ->add_option("--front", options->front,
                     "Where the character looks, with Z up (by default -y for a source with Y up, else +x)")
        ->check(CLI::IsMember(&axes));
    command
        ->add_option("--up", options->up,
                     "The axis that is up in the source (by default what the format says)")
        ->check(CLI::IsMember(&sourceUps));
    command->callback([options, &exitCode] { exitCode = import(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
