// hosts/mrvcharacter/mrvInfoCommand.cpp
#include "hosts/mrvcharacter/mrvInfoCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvJson.h"
#include "hosts/mrvcharacter/mrvRunOptions.h"
#include "hosts/mrvcharacter/mrvTextTable.h"
#include "hosts/mrvcharacter/mrvUprightPose.h"

#include "mrvCore/animation/mrvHierarchicalBone.h"
#include "mrvCore/animation/mrvHierarchicalSkeletonDescription.h"
#include "mrvCore/animation/mrvMaravoCharacter.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrvcharacter {

namespace {

struct InfoOptions
{
    std::vector<std::string> files;
    bool asJson = false;
};

/// From the lowest bone to the highest one, in the units of the skeleton.
float getHeight(const mrv::GenericSpecificConverterMappingV8& mapping)
{
    const std::vector<mrv::Vector3> pose = getUprightPose(mapping);
    const auto [lowest, highest] = std::minmax_element(
        pose.begin(), pose.end(), [](const mrv::Vector3& a, const mrv::Vector3& b) { return a.z < b.z; });
    return pose.empty() ? 0.0f : highest->z - lowest->z;
}

/// Name of the pelvis, null for a mapping without one.
Json getPelvisName(const mrv::GenericSpecificConverterMappingV8& mapping)
{
    const auto& bones = mapping.getSkeletonDescription()->getBones();
    const int pelvis = mapping.getPelvisBone();
    if (pelvis < 0 || static_cast<size_t>(pelvis) >= bones.size())
        return nullptr;
    return bones[static_cast<size_t>(pelvis)]->getName().c_str();
}

Json countParts(const mrv::GenericSpecificConverterMappingV8& mapping)
{
    return { { "spines", mapping.getSpineBonesSize() },
             { "limbs", mapping.getLimbBonesSize() },
             { "effectors", mapping.getEffectorBonesSize() } };
}

Json summarize(const std::string& file, int version, const mrv::GenericSpecificConverterMappingV8& mapping)
{
    return {
        { "file", file },
        { "version", version },
        { "bones", mapping.getSkeletonDescription()->getBones().size() },
        { "height", toJsonNumber(getHeight(mapping)) },
        { "pelvis", getPelvisName(mapping) },
        { "parts", countParts(mapping) },
    };
}

Json summarize(const std::string& file, const mrv::MaravoCharacterV24& character)
{
    const mrv::GenericSpecificConverterMappingV8& mapping = character.getConverterMapping();
    Json geometry = Json::object();
    for (auto entry = character._geometryAssetsPerTags.begin();
         entry != character._geometryAssetsPerTags.end(); ++entry)
        geometry[std::to_string(entry.getKey())] = entry.getValue().size();
    return {
        { "file", file },
        { "name", character._name.c_str() },
        { "version", character._fileVersion },
        { "bones", mapping.getSkeletonDescription()->getBones().size() },
        { "height", toJsonNumber(getHeight(mapping)) },
        { "pelvis", getPelvisName(mapping) },
        { "parts", countParts(mapping) },
        { "meshes", character._meshAssets.size() },
        { "groups", character._allAssetGroups.size() },
        { "geometry", geometry },
        { "shaders",
          { { "groups", character._shadingGroups.size() },
            { "assets", character._shaderAssets.size() },
            { "attributes", character._shaderAttributes.size() } } },
        { "renderingTypes", character._renderingTypes.size() },
        { "overrides",
          { { "skeleton", character._skeletonOverrides.size() },
            { "blindData", character._blindDataOverrides.size() },
            { "physics", character._physicsOverrides.size() } } },
        { "deepDeformers", character._deepDeformerAssets.size() },
    };
}

/// The members of an object as one cell: their values by slashes, or "key:value" by blanks.
std::string joinMembers(const Json& object, bool withKeys)
{
    std::string text;
    for (const auto& [key, value] : object.items())
    {
        text += text.empty() ? "" : withKeys ? " " : "/";
        text += withKeys ? key + ':' + value.dump() : value.dump();
    }
    return text.empty() ? "-" : text;
}

/// "-" for what a mapping has not.
std::string getCell(const Json& summary, const char* key)
{
    if (!summary.contains(key) || summary[key].is_null())
        return "-";
    const Json& value = summary[key];
    if (value.is_object())
        return joinMembers(value, std::string_view(key) == "geometry");
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string toText(float number)
{
    char text[32];
    std::snprintf(text, sizeof(text), "%.2f", static_cast<double>(number));
    return text;
}

void printTable(const std::vector<Json>& summaries)
{
    const auto right = TextTable::Alignment::RIGHT;
    TextTable table({ { "File" },
                      { "Name" },
                      { "Version", right },
                      { "Bones", right },
                      { "Height", right },
                      { "Pelvis" },
                      { "Parts", right },
                      { "Meshes", right },
                      { "Groups", right },
                      { "Geometry" },
                      { "Shaders", right },
                      { "Types", right },
                      { "Overrides", right } });
    for (const Json& summary : summaries)
        table.addRow({ getCell(summary, "file"), getCell(summary, "name"), getCell(summary, "version"),
                       getCell(summary, "bones"), toText(summary["height"]), getCell(summary, "pelvis"),
                       getCell(summary, "parts"), getCell(summary, "meshes"), getCell(summary, "groups"),
                       getCell(summary, "geometry"), getCell(summary, "shaders"),
                       getCell(summary, "renderingTypes"), getCell(summary, "overrides") });
    table.print(std::cout);
}

bool printInfo(const InfoOptions& options)
{
    std::vector<Json> summaries;
    forEachFile(options.files, [&](const LoadedFile& loaded) {
        if (!reportFailure(loaded))
            return;
        summaries.push_back(loaded.mapping != nullptr
                                ? summarize(loaded.file, loaded.version, *loaded.mapping)
                                : summarize(loaded.file, *loaded.character));
        if (options.asJson)
            std::cout << toLine(summaries.back());
    });
    if (!options.asJson && !summaries.empty())
        printTable(summaries);
    return summaries.size() == options.files.size();
}

} // namespace

void addInfoCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("info", "Tells what characters and mappings are made of");
    command->footer("Columns of several numbers: Parts are spines/limbs/effectors, Geometry is tag:files,\n"
                    "Shaders are groups/assets/attributes, Types are rendering types, and Overrides are\n"
                    "skeleton/blind data/physics. The height is that of the bones, in their units.");
    const auto options = std::make_shared<InfoOptions>();
    command->add_option("FILES", options->files, "Character and mapping files")->required();
    command->add_flag("--json", options->asJson, "One JSON object a line and file");
    addThreadsOption(*command);
    command->callback([options, &exitCode] { exitCode = printInfo(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
