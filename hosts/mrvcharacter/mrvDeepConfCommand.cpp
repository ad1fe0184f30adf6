// hosts/mrvcharacter/mrvDeepConfCommand.cpp
#include "hosts/mrvcharacter/mrvDeepConfCommand.h"

#include "hosts/mrvcharacter/mrvJson.h"

#include "mrvCore/deep/mrvDeepIOConf.h"

#include <CLI/App.hpp>

#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace mrvcharacter {

namespace {

using mrv::DeepIOConf;

struct DeepConfOptions
{
    std::string source;
    std::string target;
    std::vector<std::string> settings;
};

template <class... T>
using MemberOf = std::variant<T DeepIOConf::*...>;

struct Field
{
    const char* key;
    MemberOf<std::string, std::vector<std::string>, std::vector<int>, float, bool, int, unsigned int,
             DeepIOConf::SamplingMode::Value>
        member;
};

const Field fields[] = {
    { "assetRootName", &DeepIOConf::_assetName },
    { "rigJoints", &DeepIOConf::_rigJoints },
    { "rigMatrices", &DeepIOConf::_rigMatrices },
    { "rigFloats", &DeepIOConf::_rigFloats },
    { "outputs", &DeepIOConf::_outputs },
    { "baseOutputs", &DeepIOConf::_baseOutputs },
    { "outputRefs", &DeepIOConf::_outputRefs },
    { "mainDirectory", &DeepIOConf::_outputDir },
    { "displacementTreshold", &DeepIOConf::_displacementTreshold },
    { "epochs", &DeepIOConf::_epochs },
    { "epochsSubspace", &DeepIOConf::_epochsSubspace },
    { "batchDivider", &DeepIOConf::_batchDivider },
    { "anchorPointsRatio", &DeepIOConf::_anchorPointsRatio },
    { "customAnchorIndices", &DeepIOConf::_anchorPointsIndicesOverride },
    { "validationPercent", &DeepIOConf::_validationPercent },
    { "trainingSeed", &DeepIOConf::_trainingSeed },
    { "learningRate", &DeepIOConf::_learningRate },
    { "learningRateDecayEpochs", &DeepIOConf::_learningRateDecayEpochs },
    { "learningRateDecayDivider", &DeepIOConf::_learningRateDecayDivider },
    { "earlyExitCount", &DeepIOConf::_earlyExitCount },
    { "cpuThreads", &DeepIOConf::_cpuThreads },
    { "cudaForDifferential", &DeepIOConf::_useCudaForDifferential },
    { "cudaForSubspaces", &DeepIOConf::_useCudaForSubspaces },
    { "samplingDirectory", &DeepIOConf::_samplingDirectory },
    { "samplingModeIndex", &DeepIOConf::_samplingModeIndex },
    { "startFrame", &DeepIOConf::_startFrame },
    { "endFrame", &DeepIOConf::_endFrame },
    { "discardIdentical", &DeepIOConf::_discardIdentical },
    { "useBinary", &DeepIOConf::_useBinary },
    { "apiVersion", &DeepIOConf::_apiVersion },
};

/// Takes "KEY=VALUE": the value as JSON, or as a text where a text is asked for.
void apply(const std::string& setting, DeepIOConf& conf)
{
    const size_t equals = setting.find('=');
    const std::string key = setting.substr(0, equals);
    for (const Field& field : fields)
    {
        if (equals == std::string::npos || key != field.key)
            continue;
        const std::string value = setting.substr(equals + 1);
        if (const auto* text = std::get_if<std::string DeepIOConf::*>(&field.member))
            conf.*(*text) = value;
        else
            std::visit([&](auto member) { Json::parse(value).get_to(conf.*member); }, field.member);
        return;
    }
    throw std::invalid_argument("'" + setting + "' sets no key of a deep configuration");
}

void print(const DeepIOConf& conf)
{
    for (const Field& field : fields)
        std::visit(
            [&](auto member) {
                if constexpr (std::is_same_v<decltype(member), float DeepIOConf::*>)
                    std::cout << field.key << ": " << toLine(toJsonNumber(conf.*member));
                else
                    std::cout << field.key << ": " << toLine(conf.*member);
            },
            field.member);
}

bool run(const DeepConfOptions& options)
{
    DeepIOConf conf;
    try
    {
        if (!conf.load(options.source.c_str()))
            throw std::runtime_error("cannot be read");
        for (const std::string& setting : options.settings)
            apply(setting, conf);
        print(conf);
        if (!options.target.empty() && !conf.save(options.target.c_str()))
            throw std::runtime_error("'" + options.target + "' cannot be written");
    }
    catch (const std::exception& exception)
    {
        std::cerr << "mrvcharacter: " << options.source << ": " << exception.what() << '\n';
        return false;
    }
    return true;
}

} // namespace

void addDeepConfCommand(CLI::App& app, int& exitCode)
{
    CLI::App* command = app.add_subcommand("deepconf", "Shows and rewrites a deep configuration");
    command->footer(
        "Values are JSON, such as 12, true or [\"a\",\"b\"]; those of text keys are taken as they\n"
        "stand. FILE stays as it is unless it is OUT as well.");
    const auto options = std::make_shared<DeepConfOptions>();
    command->add_option("FILE", options->source, "Deep configuration file")->required();
    command->add_option("OUT", options->target, "File to write the result to");
    command->add_option("--set", options->settings, "KEY=VALUE, any number of times")
        ->allow_extra_args(false); // OUT may follow
    command->callback([options, &exitCode] { exitCode = run(*options) ? 0 : 1; });
}

} // namespace mrvcharacter
