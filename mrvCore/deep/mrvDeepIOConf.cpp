// mrvCore/deep/mrvDeepIOConf.cpp
#include "mrvCore/deep/mrvDeepIOConf.h"

#include "mrvCore/system/debug/mrvAssert.h"
#include "mrvCore/system/utils/mrvSafeFileWriter.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <type_traits>

namespace mrv {

namespace {

using Json = nlohmann::ordered_json;

/// Whether a T can hold a number once its fraction is dropped or rounded.
template <class T>
bool isInRange(double number)
{
    if constexpr (std::is_same_v<T, float>)
        return std::abs(number) < 0x1.ffffffp127; // from there on it would round to infinity
    else
        return number > static_cast<double>(std::numeric_limits<T>::min()) - 1.0 &&
               number < static_cast<double>(std::numeric_limits<T>::max()) + 1.0;
}

/// Throws for a number with a point or an exponent that no T can hold: the library's conversion leaves that
/// undefined.
template <class T>
void checkRange(const Json& value)
{
    if constexpr (std::is_enum_v<T>)
        checkRange<std::underlying_type_t<T>>(value);
    else if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>)
        if (value.is_number_float() && !isInRange<T>(value.get<double>()))
            throw Json::out_of_range::create(406, "number overflow: " + value.dump(), &value);
}

template <class T>
void read(const Json& json, const char* key, T& field)
{
    const auto found = json.find(key);
    if (found == json.end())
        return;
    if constexpr (std::is_same_v<T, std::vector<int>>)
        for (const Json& element : *found)
            checkRange<int>(element);
    else
        checkRange<T>(*found);
    found->get_to(field);
}

void readFields(const Json& json, DeepIOConf& conf)
{
    // The order counts: what stands before a value of the wrong type is kept.
    read(json, "assetRootName", conf._assetName);
    read(json, "rigJoints", conf._rigJoints);
    read(json, "rigMatrices", conf._rigMatrices);
    read(json, "rigFloats", conf._rigFloats);
    read(json, "outputs", conf._outputs);
    read(json, "baseOutputs", conf._baseOutputs);
    read(json, "outputRefs", conf._outputRefs);
    read(json, "mainDirectory", conf._outputDir);
    read(json, "displacementTreshold", conf._displacementTreshold);
    read(json, "enablePCA", conf._enablePCA);
    read(json, "PCACount", conf._PCACount);
    read(json, "trainingSeed", conf._trainingSeed);
    read(json, "layerCount", conf._layerCount);
    read(json, "neuronCount ", conf._neuronCount); // the blank belongs to the format
    read(json, "epochs", conf._epochs);
    // A file that does not tell trains the subspaces as long as the rest.
    conf._epochsSubspace = conf._epochs;
    read(json, "epochsSubspace", conf._epochsSubspace);
    read(json, "batchDivider", conf._batchDivider);
    read(json, "anchorPointsRatio", conf._anchorPointsRatio);
    read(json, "customAnchorIndices", conf._anchorPointsIndicesOverride);
    read(json, "validationPercent", conf._validationPercent);
    read(json, "learningRate", conf._learningRate);
    read(json, "learningRateDecayEpochs", conf._learningRateDecayEpochs);
    read(json, "learningRateDecayDivider", conf._learningRateDecayDivider);
    read(json, "earlyExitCount", conf._earlyExitCount);
    read(json, "cpuThreads", conf._cpuThreads);
    read(json, "cudaForDifferential", conf._useCudaForDifferential);
    read(json, "cudaForSubspaces", conf._useCudaForSubspaces);
    read(json, "samplingDirectory", conf._samplingDirectory);
    read(json, "samplingModeIndex", conf._samplingModeIndex);
    read(json, "startFrame", conf._startFrame);
    read(json, "endFrame", conf._endFrame);
    read(json, "discardIdentical", conf._discardIdentical);
    read(json, "useBinary", conf._useBinary);
    read(json, "apiVersion", conf._apiVersion);
}

Json toJson(const DeepIOConf& conf)
{
    return {
        { "assetRootName", conf._assetName },
        { "rigJoints", conf._rigJoints },
        { "rigMatrices", conf._rigMatrices },
        { "rigFloats", conf._rigFloats },
        { "outputs", conf._outputs },
        { "baseOutputs", conf._baseOutputs },
        { "outputRefs", conf._outputRefs },
        { "mainDirectory", conf._outputDir },
        { "type", "DeepInOutConfiguration" },
        { "displacementTreshold", static_cast<double>(conf._displacementTreshold) },
        { "epochs", conf._epochs },
        { "epochsSubspace", conf._epochsSubspace },
        { "batchDivider", conf._batchDivider },
        { "anchorPointsRatio", static_cast<double>(conf._anchorPointsRatio) },
        { "customAnchorIndices", conf._anchorPointsIndicesOverride },
        { "validationPercent", conf._validationPercent },
        { "trainingSeed", conf._trainingSeed },
        { "learningRate", static_cast<double>(conf._learningRate) },
        { "learningRateDecayEpochs", conf._learningRateDecayEpochs },
        { "learningRateDecayDivider", conf._learningRateDecayDivider },
        { "earlyExitCount", conf._earlyExitCount },
        { "cpuThreads", conf._cpuThreads },
        { "cudaForDifferential", conf._useCudaForDifferential },
        { "cudaForSubspaces", conf._useCudaForSubspaces },
        { "samplingDirectory", conf._samplingDirectory },
        { "samplingModeIndex", static_cast<int>(conf._samplingModeIndex) },
        { "startFrame", conf._startFrame },
        { "endFrame", conf._endFrame },
        { "discardIdentical", conf._discardIdentical },
        { "useBinary", conf._useBinary },
        { "apiVersion", conf._apiVersion },
    };
}

std::string withSlashes(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

bool beginsWith(const std::string& text, const std::string& prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

bool DeepIOConf::load(const char* filePath)
{
    _filePath = filePath;
    std::ifstream file(filePath);
    file.peek(); // a directory opens, but cannot be read
    if (!file.is_open() || file.bad())
        return false;
    Json json;
    file >> json;
    if (json.is_object())
        readFields(json, *this);

    _outputDir = withSlashes(_outputDir);
    if (!beginsWith(_outputDir, "./"))
        return true;
    const std::string path = withSlashes(filePath);
    _outputDir = path.substr(0, path.rfind('/') + 1) + _outputDir.substr(2);
    // "./." is the directory of the file. Any other name loses a dot at its end as well.
    if (!_outputDir.empty() && _outputDir.back() == '.')
        _outputDir.pop_back();
    return true;
}

bool DeepIOConf::save(const char* filePath)
{
    _filePath = filePath;
    SafeFileWriter file(filePath);
    if (!file.isOpen())
        return false;
    const std::string path = withSlashes(filePath);
    const size_t slash = path.rfind('/');
    const std::string directory = slash == std::string::npos ? path : path.substr(0, slash + 1);
    if (beginsWith(_outputDir, directory))
        _outputDir = "./" + _outputDir.substr(directory.size());

    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setw(4) << toJson(*this) << '\n';
    const std::string bytes = text.str();
    return file.write(bytes.data(), bytes.size()) && file.commit();
}

std::string DeepIOConf::getModelRootPath(const std::string& modelName) const
{
    MRV_ASSERT(!_outputDir.empty());
    std::string path = _outputDir;
    if (path.back() != '/')
        path += '/';
    if (!modelName.empty())
        path += modelName + '/';
    return path + sanitizeName(_assetName);
}

std::string sanitizeName(const std::string& name)
{
    std::string sanitized = name;
    for (char& character : sanitized)
        if (std::string(":;,/\\|*").find(character) != std::string::npos)
            character = '_';
    return sanitized;
}

} // namespace mrv
