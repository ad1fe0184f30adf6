// hosts/mrvcharacter/mrvChooseCommand.cpp
#include "hosts/mrvcharacter/mrvChooseCommand.h"

#include "hosts/mrvcharacter/mrvCharacterFiles.h"
#include "hosts/mrvcharacter/mrvCrowd.h"
#include "hosts/mrvcharacter/mrvLogMessages.h"
#include "hosts/mrvcharacter/mrvTextTable.h"

#include "mrvCore/assetManagement/mrvAssetManagementUtils.h"
#include "mrvCore/system/utils/mrvIdsFilter.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace mrvcharacter {

namespace {

constexpr size_t maximumCount = 10000000;

struct ChooseOptions
{
    std::string file;
    size_t count = 0;
    uint32_t seed = 0;
    std::string renderingType;
    std::string ids = "*";
};

/// One cell; in quotation marks where it must be.
std::string toCell(const mrv::MrvString& text)
{
    std::string cell = text.c_str();
    if (cell.find_first_of(",\"\r\n") == std::string::npos)
        return cell;
    for (size_t place = cell.find('"'); place != std::string::npos; place = cell.find('"', place + 2))
        cell.insert(place, 1, '"');
    return '"' + cell + '"';
}

std::string getMeshName(const mrv::MaravoCharacterV24& character, int mesh)
{
    const bool isMesh = mesh >= 0 && mesh < character._meshAssets.sizeInt();
    return isMesh ? toCell(character._meshAssets[static_cast<size_t>(mesh)]._name) : "";
}

void printChoices(const mrv::MaravoCharacterV24& character, const Crowd& crowd,
                  const mrv::IdsFilter& isPicked)
{
    std::cout << "entity,group,child,mesh,name\n";
    for (size_t entity = 0; entity < crowd.getChoices().size(); ++entity)
    {
        if (!isPicked(static_cast<int64_t>(entity)))
            continue;
        for (const auto& [group, child] : crowd.getChoices()[entity])
        {
            const mrv::AssetGroupV4& asset = character._allAssetGroups[static_cast<size_t>(group)];
            const int mesh = asset._children[static_cast<size_t>(child)]._meshAssetIdx;
            std::cout << entity << ',' << toCell(asset._name) << ',' << child << ',' << mesh << ','
                      << getMeshName(character, mesh) << '\n';
        }
    }
}

std::string toPercent(double share)
{
    char text[32];
    std::snprintf(text, sizeof(text), "%.2f", share);
    return text;
}

/// What a child is called: its mesh or its group.
std::string getChildName(const mrv::MaravoCharacterV24& character, const mrv::AssetUnitV3& child)
{
    const int group = child._assetGroupIdx;
    if (group >= 0 && group < character._allAssetGroups.sizeInt())
        return character._allAssetGroups[static_cast<size_t>(group)]._name.c_str();
    const std::string mesh = getMeshName(character, child._meshAssetIdx);
    return mesh.empty() ? "-" : mesh;
}

void printSummary(const mrv::MaravoCharacterV24& character, const Crowd& crowd)
{
    const auto right = TextTable::Alignment::RIGHT;
    TextTable table({ { "Group" },
                      { "Child", right },
                      { "Name" },
                      { "Weight %", right },
                      { "Share %", right },
                      { "Entities", right } });
    const std::map<GroupChild, size_t>& counts = crowd.getCounts();
    for (auto row = counts.begin(); row != counts.end();)
    {
        const int group = row->first.first;
        const mrv::AssetGroupV4& asset = character._allAssetGroups[static_cast<size_t>(group)];
        const std::vector<float> weights = crowd.getWeights(group);
        mrv::PODArray<float> weightArray, percents;
        weightArray.assign(weights.size(), weights.data());
        mrv::computePercents(percents, weightArray);
        size_t total = 0;
        auto end = row;
        for (; end != counts.end() && end->first.first == group; ++end)
            total += end->second;
        for (; row != end; ++row)
        {
            const size_t child = static_cast<size_t>(row->first.second);
            const double share = total != 0 ? 100.0 * double(row->second) / double(total) : 0.0;
            table.addRow(
                { asset._name.c_str(), std::to_string(child), getChildName(character, asset._children[child]),
                  toPercent(double(percents[child])), toPercent(share), std::to_string(row->second) });
        }
    }
    table.print(std::cerr);
}

bool choose(const ChooseOptions& options)
{
    bool isDone = false;
    forEachCharacter({ options.file }, [&](const LoadedFile& loaded) {
        if (!reportFailure(loaded))
            return;
        const mrv::MaravoCharacterV24& character = *loaded.character;
        const bool isAnyType = options.renderingType.empty();
        const int type = isAnyType ? -1 : character.findRenderingTypeIdx(options.renderingType);
        if (!isAnyType && type == -1)
            return reportError(options.file, "there is no rendering type " + options.renderingType);
        const Crowd crowd(character, type, options.count, options.seed);
        const LogMessages messages;
        const mrv::IdsFilter filter(options.ids);
        for (const std::string& message : messages.get())
            reportError("--ids", message);
        for (const std::string& warning : crowd.getWarnings())
            reportError(options.file, warning);
        printChoices(character, crowd, filter);
        printSummary(character, crowd);
        isDone = true;
    });
    return isDone;
}

} // namespace

void addChooseCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command =
        app.add_subcommand("choose", "Chooses the meshes of a crowd by the weights of a character");
    command->footer(
        "Prints a CSV table with a row for each entity and choice, mesh -1 for a choice of no mesh, and on\n"
        "standard error the shares beside the weights. Groups that an attribute chooses in go by their\n"
        "weights too; a weight that is negative or no number counts as 0.");
    const auto options = std::make_shared<ChooseOptions>();
    command->add_option("FILE", options->file, "Character file")->required();
    command->add_option("--count", options->count, "Number of entities")
        ->required()
        ->check(CLI::Range(size_t(0), maximumCount));
    command->add_option("--seed", options->seed, "Another order for another number")->required();
    command->add_option("--rendering-type", options->renderingType,
                        "Takes the weights of this rendering type");
    command
        ->add_option("--ids", options->ids,
                     "Prints these entities only, such as \"0-9,20-100-10\"; the shares are those of all")
        ->capture_default_str();
    command->callback([options, &exitCode] { exitCode = choose(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
