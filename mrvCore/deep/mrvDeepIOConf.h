// mrvCore/deep/mrvDeepIOConf.h
// What a learned deformer is trained from and how, and the JSON file of it.
#pragma once

#include "mrvCore/mrvCoreApi.h"

#include <string>
#include <vector>

namespace mrv {

/// Description of one training. Plain data, with standard strings for the tools that train.
///
/// The names of the keys in a file are the format, with their spelling. Files keep the output directory
/// relative to themselves where it lies below them.
/// Threads: objects are independent.
class MRV_CORE_API DeepIOConf
{
public:
    /// How samples are drawn.
    struct SamplingMode
    {
        // Whatever integer stands in a file is kept.
        enum Value : int { RANDOM, GAUSSIAN, TIME_RANGE };
    };

    /// Reads the keys that a file has; the fields of the others stay, but that `_epochsSubspace` becomes
    /// `_epochs`. A relative output directory ("./...") is put behind the directory of the file.
    ///
    /// False if the file cannot be opened. Throws the JSON library's exception for a text that is no JSON
    /// and for a value of the wrong type or out of range; what was read before it stays.
    bool load(const char* filePath);

    /// Writes all fields but those of `enablePCA`, `PCACount`, `neuronCount ` and `layerCount`, which files
    /// only bring in. `_outputDir` becomes relative, and stays so, if it begins with the file's directory.
    ///
    /// False if the file cannot be written; a former file is then whole. Throws the JSON library's exception
    /// for a text that is no UTF-8.
    bool save(const char* filePath);

    /// Path of the files of a model, without what tells them apart: the output directory, which must not
    /// be empty, the model unless empty, and the asset.
    std::string getModelRootPath(const std::string& modelName) const;

    std::vector<std::string> _rigJoints;
    std::vector<std::string> _rigMatrices;
    std::vector<std::string> _rigFloats;
    std::vector<std::string> _baseOutputs;
    std::vector<std::string> _outputs;
    std::vector<std::string> _outputRefs;
    std::string _outputDir;
    std::string _assetName;
    float _displacementTreshold = 0.001f;
    bool _enablePCA = false;
    unsigned int _PCACount = 0;
    unsigned int _epochs = 2000;
    unsigned int _epochsSubspace = 500;
    unsigned int _batchDivider = 4;
    float _anchorPointsRatio = 0.02f;
    std::vector<int> _anchorPointsIndicesOverride;
    int _validationPercent = 10;
    unsigned int _trainingSeed = 0;
    float _learningRate = 0.001f;
    unsigned int _learningRateDecayEpochs = 100;
    unsigned int _learningRateDecayDivider = 2;
    unsigned int _earlyExitCount = 1;
    unsigned int _neuronCount = 2048;
    unsigned int _layerCount = 6;
    int _cpuThreads = 4;
    bool _useCudaForDifferential = true;
    bool _useCudaForSubspaces = false;
    std::string _samplingDirectory = "extraction";
    SamplingMode::Value _samplingModeIndex = SamplingMode::RANDOM;
    int _startFrame = 0;
    int _endFrame = 0;
    bool _discardIdentical = true;
    bool _useBinary = true;
    std::string _filePath; ///< of the last load or save, also one that failed
    int _apiVersion = 2;
};

/// The name with "_" in place of what file names may not hold: : ; , / \ | *
MRV_CORE_API std::string sanitizeName(const std::string& name);

} // namespace mrv
