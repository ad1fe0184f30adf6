// benchmarks/mrvRayCastBenchmark.cpp
// Single rays on height fields beside Embree 3 with its default build, and CGAL's AABB tree. Goals: at least
// 0.4 of the rays a second of Embree held to SSE4.2, at least 2 of those of CGAL, and a build in at most 1.0
// of Embree's time.
//
// Our rays are 1000 long, so that no triangle falls under the limit on the determinant; the cases named
// mrvCore_short show what a length of 2 loses by it.
#include "benchmarks/mrvBenchmarkInputs.h"
#include "benchmarks/mrvBenchmarkReport.h"
#include "mrvCore/math/geometry3/mrvPinMesh.h"

#include <limits>
#include <memory>

#ifdef MRV_HAS_EMBREE
#    include <embree3/rtcore.h>
#endif

#ifdef MRV_HAS_CGAL
#    include <CGAL/AABB_traits.h>
#    include <CGAL/AABB_tree.h>
#    include <CGAL/AABB_triangle_primitive.h>
#    include <CGAL/Simple_cartesian.h>
#endif

using namespace mrvBenchmark;

namespace {

constexpr double million = 1e6;

std::string caseName(const char* what, uint32_t n)
{
    return std::string(what) + "_N" + std::to_string(n);
}

const char* const rayKinds[] = { "vertical", "oblique" };

std::vector<Ray> makeRays(const char* kind)
{
    return kind == rayKinds[0] ? verticalRays() : obliqueRays();
}

/// Casts all rays; `cast` tells whether one hits.
template <class Cast>
void measureRays(State& state, const char* kind, Cast cast)
{
    const std::vector<Ray> rays = makeRays(kind);
    int hits = 0;
    for (auto _ : state)
    {
        hits = 0;
        for (const Ray& ray : rays)
            hits += cast(ray) ? 1 : 0;
    }
    rate(state, rayCount / million, "Mrays/s");
    fact(state, hits, "hits");
}

/// Repeats `build` on what `prepare` makes outside of the timing; what is built is freed there too.
template <class Prepare, class Build>
void measureBuild(State& state, Prepare prepare, Build build)
{
    for (auto _ : state)
    {
        state.PauseTiming();
        auto built = prepare();
        state.ResumeTiming();
        build(*built);
        benchmark::ClobberMemory();
        state.PauseTiming();
        built.reset();
        state.ResumeTiming();
    }
    time(state);
}

// Ours

mrv::Vector3 toVector(const Float3& values)
{
    return mrv::Vector3(values.data());
}

/// All but the hierarchy.
std::unique_ptr<mrv::PinMesh> fillMesh(const Mesh& input)
{
    auto mesh = std::make_unique<mrv::PinMesh>();
    mesh->initialize(static_cast<int>(input.triangles.size()));
    mrv::RayCastVertex* vertex = mesh->touchMeshVertices();
    for (size_t t = 0; t < input.triangles.size(); ++t)
        for (const uint32_t corner : input.triangles[t])
        {
            vertex->_position = toVector(input.vertices[corner]);
            vertex->_faceIndex = static_cast<int>(t);
            ++vertex;
        }
    return mesh;
}

void addOurRays(const char* peer, uint32_t n, const char* kind, float length)
{
    add(std::string("raycast/") + peer + "/" + caseName(kind, n), [n, kind, length](State& state) {
        const auto mesh = fillMesh(heightfield(n));
        mesh->finalize();
        measureRays(state, kind, [&](const Ray& ray) {
            mrv::Vector3 hit;
            int slot = -1;
            const bool isHit =
                mesh->rayCast(toVector(ray.origin), toVector(ray.direction) * length, hit, slot);
            benchmark::DoNotOptimize(hit);
            return isHit;
        });
    });
}

void addOurs(uint32_t n)
{
    add("raycast/mrvCore/" + caseName("build", n), [n](State& state) {
        const Mesh input = heightfield(n);
        measureBuild(
            state, [&input] { return fillMesh(input); }, [](mrv::PinMesh& mesh) { mesh.finalize(); });
    });
    for (const char* const kind : rayKinds)
    {
        addOurRays("mrvCore", n, kind, 1000.0f);
        addOurRays("mrvCore_short", n, kind, 2.0f);
    }
}

#ifdef MRV_HAS_EMBREE

/// A scene over borrowed arrays.
class EmbreeField
{
public:
    EmbreeField(const char* configuration, const Mesh& mesh)
        : _mesh(mesh)
        , _device(rtcNewDevice(configuration))
    {}
    EmbreeField(const EmbreeField&) = delete;
    EmbreeField& operator=(const EmbreeField&) = delete;
    ~EmbreeField()
    {
        rtcReleaseScene(_scene);
        rtcReleaseDevice(_device);
    }

    void build()
    {
        _scene = rtcNewScene(_device);
        RTCGeometry geometry = rtcNewGeometry(_device, RTC_GEOMETRY_TYPE_TRIANGLE);
        rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3,
                                   _mesh.vertices.data(), 0, sizeof(Float3),
                                   _mesh.vertices.size() - paddingCount);
        rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3,
                                   _mesh.triangles.data(), 0, 3 * sizeof(uint32_t), _mesh.triangles.size());
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(_scene, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(_scene);
    }

    bool cast(const Ray& ray) const
    {
        RTCIntersectContext context;
        rtcInitIntersectContext(&context);
        RTCRayHit hit = {};
        hit.ray.org_x = ray.origin[0];
        hit.ray.org_y = ray.origin[1];
        hit.ray.org_z = ray.origin[2];
        hit.ray.dir_x = ray.direction[0];
        hit.ray.dir_y = ray.direction[1];
        hit.ray.dir_z = ray.direction[2];
        hit.ray.tfar = std::numeric_limits<float>::infinity();
        hit.ray.mask = ~0u;
        hit.hit.geomID = RTC_INVALID_GEOMETRY_ID;
        hit.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;
        rtcIntersect1(_scene, &context, &hit);
        benchmark::DoNotOptimize(hit.ray.tfar);
        return hit.hit.geomID != RTC_INVALID_GEOMETRY_ID;
    }

    /// Embree reads 16 bytes a vertex.
    static Mesh pad(Mesh mesh)
    {
        mesh.vertices.resize(mesh.vertices.size() + paddingCount);
        return mesh;
    }

private:
    static constexpr size_t paddingCount = 2;

    const Mesh& _mesh;
    RTCDevice _device;
    RTCScene _scene = nullptr;
};

void addEmbree(uint32_t n)
{
    static constexpr const char* configuration = "threads=1,set_affinity=0,isa=sse4.2";
    add("raycast/embree_sse42/" + caseName("build", n), [n](State& state) {
        const Mesh mesh = EmbreeField::pad(heightfield(n));
        measureBuild(
            state, [&mesh] { return std::make_unique<EmbreeField>(configuration, mesh); },
            [](EmbreeField& field) { field.build(); });
    });
    for (const char* const kind : rayKinds)
        add("raycast/embree_sse42/" + caseName(kind, n), [n, kind](State& state) {
            const Mesh mesh = EmbreeField::pad(heightfield(n));
            EmbreeField field(configuration, mesh);
            field.build();
            measureRays(state, kind, [&field](const Ray& ray) { return field.cast(ray); });
        });
}

#endif

#ifdef MRV_HAS_CGAL

using Kernel = CGAL::Simple_cartesian<double>;
using Triangles = std::vector<Kernel::Triangle_3>;
using Primitive = CGAL::AABB_triangle_primitive<Kernel, Triangles::const_iterator>;
using Tree = CGAL::AABB_tree<CGAL::AABB_traits<Kernel, Primitive>>;

Kernel::Point_3 toPoint(const Float3& values)
{
    return Kernel::Point_3(double(values[0]), double(values[1]), double(values[2]));
}

Triangles toTriangles(const Mesh& mesh)
{
    Triangles triangles;
    for (const auto& corners : mesh.triangles)
        triangles.emplace_back(toPoint(mesh.vertices[corners[0]]), toPoint(mesh.vertices[corners[1]]),
                               toPoint(mesh.vertices[corners[2]]));
    return triangles;
}

void addCgal(uint32_t n)
{
    for (const char* const kind : rayKinds)
        add("raycast/cgal_aabb/" + caseName(kind, n), [n, kind](State& state) {
            const Triangles triangles = toTriangles(heightfield(n));
            Tree tree(triangles.begin(), triangles.end());
            tree.build();
            measureRays(state, kind, [&tree](const Ray& ray) {
                const Kernel::Vector_3 direction(double(ray.direction[0]), double(ray.direction[1]),
                                                 double(ray.direction[2]));
                const Kernel::Ray_3 cgalRay(toPoint(ray.origin), direction);
                return static_cast<bool>(tree.first_intersected_primitive(cgalRay));
            });
        });
}

#endif

} // namespace

int main(int argc, char** argv)
{
    for (const uint32_t n : { 64u, 256u, 707u })
    {
        addOurs(n);
#ifdef MRV_HAS_EMBREE
        addEmbree(n);
#endif
#ifdef MRV_HAS_CGAL
        addCgal(n);
#endif
    }
    return run(argc, argv);
}
