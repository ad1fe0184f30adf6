// benchmarks/mrvDelaunayBenchmark.cpp
// Our triangulation beside CGAL's with exact predicates. Goals: below 1.0 of CGAL's time in insertion order
// for every input; of its time with the points sorted along a curve first, which we may not do, at most 2.0
// at 1e5 points and 3.0 at 1e6.
#include "benchmarks/mrvBenchmarkInputs.h"
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/math/delaunay/mrvDelaunay2.h"

#include <memory>

#ifdef MRV_HAS_CGAL
#    include <CGAL/Delaunay_triangulation_2.h>
#    include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#endif

using namespace mrvBenchmark;

namespace {

struct Input
{
    std::string name;
    std::vector<Point2> (*make)();
    bool isSlowInOrder; ///< for CGAL, whose walks begin anywhere: minutes for a million points
};

const Input inputs[] = {
    { "uniform_1e3", [] { return uniformPoints(1000); }, false },
    { "uniform_1e4", [] { return uniformPoints(10000); }, false },
    { "uniform_1e5", [] { return uniformPoints(100000); }, false },
    { "uniform_1e6", [] { return uniformPoints(1000000); }, true },
    { "grid_316x316", gridPoints, false },
    { "circle_1e4", circlePoints, false },
};

/// Repeats `build` on what `prepare` makes outside of the timing; what is built is freed there too.
template <class Prepare, class Build>
void measure(State& state, Prepare prepare, Build build)
{
    double triangles = 0;
    for (auto _ : state)
    {
        state.PauseTiming();
        auto prepared = prepare();
        tidyHeap();
        state.ResumeTiming();
        auto built = build(prepared);
        benchmark::ClobberMemory();
        state.PauseTiming();
        triangles = built.second;
        built.first.reset();
        state.ResumeTiming();
    }
    time(state);
    fact(state, triangles, "triangles");
}

void addOurs(const Input& input)
{
    using mrv::Delaunay2;
    using mrv::Vector2;
    add("delaunay/mrvCore/" + input.name, [&input](State& state) {
        const std::vector<Point2> points = input.make();
        measure(
            state,
            [&points] {
                Vector2* const vertices = new Vector2[points.size()]; // becomes the triangulation's
                for (size_t i = 0; i < points.size(); ++i)
                    vertices[i] = Vector2(points[i].x, points[i].y);
                return vertices;
            },
            [&points](Vector2* vertices) {
                auto triangulation =
                    std::make_unique<Delaunay2>(static_cast<unsigned int>(points.size()), vertices, 1e-6f,
                                                mrv::DelaunayQuery::Type::REAL);
                const double count = triangulation->getSimplicesCount();
                return std::make_pair(std::move(triangulation), count);
            });
    });
}

#ifdef MRV_HAS_CGAL

using Triangulation = CGAL::Delaunay_triangulation_2<CGAL::Exact_predicates_inexact_constructions_kernel>;
using Point = Triangulation::Point;

template <class Insert>
void addCgal(const std::string& peer, const Input& input, Insert insert)
{
    auto* const benchmark = add("delaunay/" + peer + "/" + input.name, [&input, insert](State& state) {
        std::vector<Point> points;
        for (const Point2& p : input.make())
            points.emplace_back(p.x, p.y);
        measure(
            state, [] { return nullptr; },
            [&](std::nullptr_t) {
                auto triangulation = std::make_unique<Triangulation>();
                insert(*triangulation, points);
                const double count = static_cast<double>(triangulation->number_of_faces());
                return std::make_pair(std::move(triangulation), count);
            });
    });
    if (peer == "cgal_in_order" && input.make().size() > 50000)
        benchmark->Iterations(1)->Repetitions(3);
}

void addPeers(const Input& input)
{
    addCgal("cgal_sorted", input, [](Triangulation& triangulation, const std::vector<Point>& points) {
        triangulation.insert(points.begin(), points.end());
    });
    if (input.isSlowInOrder)
        return;
    addCgal("cgal_in_order", input, [](Triangulation& triangulation, const std::vector<Point>& points) {
        for (const Point& point : points)
            triangulation.insert(point);
    });
}

#else

void addPeers(const Input&) {}

#endif

} // namespace

int main(int argc, char** argv)
{
    for (const Input& input : inputs)
    {
        addOurs(input);
        addPeers(input);
    }
    return run(argc, argv);
}
