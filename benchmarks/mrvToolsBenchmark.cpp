// benchmarks/mrvToolsBenchmark.cpp
// Predecessors in graphs of growing size, and base64.
#include "benchmarks/mrvBenchmarkReport.h"

#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalContainerNode.h"
#include "mrvCore/graphicalEditorNodes/mrvAbstractGraphicalNode.h"
#include "mrvCore/utils/mrvBase64.h"

#include <cmath>
#include <random>

using namespace mrvBenchmark;

namespace {

using Node = mrv::AbstractGraphicalNode;

/// A chain with one more edge from each node to some later one.
void fill(mrv::AbstractGraphicalContainerNode& box, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        box.addChildNode(new Node);
    const auto& nodes = box.getChildrenNodes();
    std::mt19937 random(1);
    for (size_t i = 0; i + 1 < count; ++i)
    {
        nodes[i]->addNextNode(nodes[i + 1].getImpl());
        nodes[i]->addNextNode(nodes[i + 1 + random() % (count - i - 1)].getImpl());
    }
}

void addPredecessors(size_t count)
{
    add("tools/mrvCore/predecessors_" + std::to_string(count), [count](State& state) {
        mrv::AbstractGraphicalContainerNode box;
        fill(box, count);
        for (auto _ : state)
        {
            mrv::MrvMap<Node*, Node*> predecessors;
            box.computePredecessorsMap(predecessors);
            if (predecessors.size() != count - 1)
                state.SkipWithError("nodes without a predecessor");
        }
        // Level where the time grows as n log n.
        perItem(state, double(count) * std::log2(double(count)), "ns/nlogn");
    });
}

} // namespace

int main(int argc, char** argv)
{
    for (const size_t count : { 1000, 10000, 100000 })
        addPredecessors(count);

    static const std::vector<unsigned char> bytes(3 << 20, 0xa7);
    static const mrv::MrvString text = mrv::base64_encode(bytes.data(), unsigned(bytes.size()));
    add("tools/mrvCore/base64_encode_3MiB", [](State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(mrv::base64_encode(bytes.data(), unsigned(bytes.size())).size());
        rate(state, double(bytes.size()) / 1e6, "MB/s");
    });
    add("tools/mrvCore/base64_decode_3MiB", [](State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(
                mrv::base64_decode(reinterpret_cast<const unsigned char*>(text.data()), unsigned(text.size()))
                    .size());
        rate(state, double(bytes.size()) / 1e6, "MB/s");
    });
    return run(argc, argv);
}
