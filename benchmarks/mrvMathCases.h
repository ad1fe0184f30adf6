// benchmarks/mrvMathCases.h
// The cases of the math topic, which our library and each peer run on the same inputs.
#pragma once

#include "benchmarks/mrvBenchmarkInputs.h"
#include "benchmarks/mrvBenchmarkReport.h"

namespace mrvBenchmark {

/// Reads one or two arrays and writes one, of 1e3 elements, which the caches close to the core hold, and of
/// 1e5, which they do not.
template <class Out, class MakeLeft, class MakeRight, class Operation>
void addMathCase(const std::string& name, MakeLeft makeLeft, MakeRight makeRight, Operation operation)
{
    for (size_t count : { size_t(1000), size_t(100000) })
    {
        add(name + (count == 1000 ? "_1e3" : "_1e5"), [=](State& state) {
            const MathInput in = mathInput(count);
            const auto left = makeLeft(in);
            const auto right = makeRight(in);
            std::vector<Out> out(count);
            for (auto _ : state)
            {
                for (size_t i = 0; i < count; ++i)
                    operation(out[i], left[i], right[i]);
                benchmark::DoNotOptimize(out.data());
                benchmark::ClobberMemory();
            }
            perItem(state, static_cast<double>(count));
        });
    }
}

/// `Library` gives the types Quaternion, Vector and Matrix, each made by an overload of `make`, and the six
/// operations.
template <class Library>
void addMathLibrary(const std::string& name)
{
    using Q = typename Library::Quaternion;
    using V = typename Library::Vector;
    using M = typename Library::Matrix;
    const auto convert = [](const auto& in) {
        std::vector<decltype(Library::make(in.front()))> out;
        for (const auto& element : in)
            out.push_back(Library::make(element));
        return out;
    };
    const auto left = [=](const MathInput& in) { return convert(in.left); };
    const auto right = [=](const MathInput& in) { return convert(in.right); };
    const auto vectors = [=](const MathInput& in) { return convert(in.vectors); };
    const auto first = [=](const MathInput& in) { return convert(in.first); };
    const auto second = [=](const MathInput& in) { return convert(in.second); };

    const std::string p = "math/" + name + "/";
    addMathCase<V>(p + "quaternion_vector", left, vectors,
                   [](V& out, const Q& q, const V& v) { out = Library::rotate(q, v); });
    addMathCase<Q>(p + "quaternion_quaternion", left, right,
                   [](Q& out, const Q& a, const Q& b) { out = Library::multiply(a, b); });
    addMathCase<Q>(p + "slerp", left, right,
                   [](Q& out, const Q& a, const Q& b) { out = Library::slerp(a, b, 0.3f); });
    addMathCase<M>(p + "matrix_product", first, second,
                   [](M& out, const M& a, const M& b) { out = Library::multiply(a, b); });
    addMathCase<M>(p + "matrix_inverse", first, first,
                   [](M& out, const M& m, const M&) { Library::invert(out, m); });
    addMathCase<V>(p + "vector_normalise", vectors, vectors,
                   [](V& out, const V& v, const V&) { out = Library::normalise(v); });
}

} // namespace mrvBenchmark
