// benchmarks/mrvBenchmarkInputs.h
// Inputs of the benchmarks, the same bit for bit on every machine and for every peer.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace mrvBenchmark {

/// Random draws straight from the words of a Mersenne Twister (Matsumoto and Nishimura, 1998).
class Draw
{
public:
    explicit Draw(uint32_t seed) : _engine(seed) {}

    uint32_t word() { return static_cast<uint32_t>(_engine()); }
    uint32_t below(uint32_t n) { return word() % n; }
    /// In [0,1): the top 24 bits, without rounding.
    float unit() { return static_cast<float>(word() >> 8) * (1.0f / 16777216.0f); }
    /// In [-1,1), without rounding.
    float signedUnit() { return 2.0f * unit() - 1.0f; }

private:
    std::mt19937 _engine;
};

/// The numbers 0 to n-1, shuffled by Fisher and Yates from the back.
inline std::vector<int> permutation(int n, uint32_t seed)
{
    std::vector<int> order(static_cast<size_t>(n));
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = static_cast<int>(i);
    Draw draw(seed);
    for (size_t i = order.size() - 1; i > 0; --i)
        std::swap(order[i], order[draw.below(static_cast<uint32_t>(i + 1))]);
    return order;
}

// Containers

constexpr int vectorCount = 1000000;
constexpr int mapCount = 100000;
constexpr uint32_t seedMapInsert = 1;
constexpr uint32_t seedMapFind = 2;
constexpr uint32_t seedHaystack = 3;

/// Even keys; a key that is missing is a key plus one.
inline std::vector<int> mapKeys(uint32_t seed)
{
    std::vector<int> keys = permutation(mapCount, seed);
    for (int& key : keys)
        key *= 2;
    return keys;
}

struct Haystack
{
    std::string text;   // 1e6 letters of 'a' to 'p', then the needle
    std::string needle; // the next 8 letters of the same draw
};

inline Haystack haystack()
{
    Draw draw(seedHaystack);
    Haystack h;
    for (int i = 0; i < 1000000; ++i)
        h.text += static_cast<char>('a' + draw.below(16));
    for (int i = 0; i < 8; ++i)
        h.needle += static_cast<char>('a' + draw.below(16));
    h.text += h.needle;
    return h;
}

// XML

constexpr uint32_t seedXml = 4;

inline void appendBoneXml(std::string& text, uint32_t i, Draw& draw)
{
    char line[256];
    auto put = [&](auto... arguments) {
        std::snprintf(line, sizeof line, arguments...);
        text += line;
    };
    const uint32_t id = 1000 + i;
    const uint32_t father = i == 0 ? 0 : 1000 + draw.below(i);
    const uint32_t children = draw.below(4);

    put("  <Bone pointerID=\"%u\" index=\"%u\">\n", id, i);
    put("    <Name value=\"bone_%06u\"/>\n", i);
    put("    <Father pointerID=\"%u\"/>\n", father);
    double v[4];
    for (int k = 0; k < 3; ++k)
        v[k] = draw.signedUnit();
    put("    <LocalPosition x=\"%.6g\" y=\"%.6g\" z=\"%.6g\"/>\n", v[0], v[1], v[2]);
    for (int k = 0; k < 4; ++k)
        v[k] = draw.signedUnit();
    put("    <LocalRotation x=\"%.6g\" y=\"%.6g\" z=\"%.6g\" w=\"%.6g\"/>\n", v[0], v[1], v[2], v[3]);
    put("    <Children count=\"%u\">\n", children);
    for (uint32_t k = 0; k < children; ++k)
        put("      <Child pointerID=\"%u\"/>\n", 1000 + i + 1 + k);
    text += "    </Children>\n    <Weights>\n";
    for (int k = 0; k < 4; ++k)
        put("      <Weight value=\"%.6g\"/>\n", static_cast<double>(draw.unit()));
    text += "    </Weights>\n";
    if (i % 16 == 0)
        text += "    <Note>left &amp; right &lt;mirror&gt;</Note>\n";
    text += "  </Bone>\n";
}

/// A character of as many bones as it takes for at least `target` bytes.
inline std::string characterXml(size_t target)
{
    Draw draw(seedXml);
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                       "<Character pointerID=\"1\" value=\"actor\">\n";
    text.reserve(target + 2048);
    for (uint32_t i = 0; text.size() < target; ++i)
        appendBoneXml(text, i, draw);
    text += "</Character>\n";
    return text;
}

// Serialization

constexpr uint32_t seedSkeleton = 5;
constexpr uint32_t seedAssets = 6;
constexpr size_t assetCount = 200;

using Float3 = std::array<float, 3>;
using Float4 = std::array<float, 4>;

/// Four signed draws x, y, z, w, normalised in double; the identity when they are too short.
inline Float4 drawQuaternion(Draw& draw)
{
    std::array<double, 4> q = {};
    double squaredLength = 0;
    for (double& c : q)
    {
        c = draw.signedUnit();
        squaredLength += c * c;
    }
    if (squaredLength < 1e-4)
        return { 0, 0, 0, 1 };
    const double length = std::sqrt(squaredLength);
    Float4 result = {};
    for (size_t k = 0; k < 4; ++k)
        result[k] = static_cast<float>(q[k] / length);
    return result;
}

struct BoneInput
{
    std::string name;
    Float3 position;
    Float4 rotation;
    int father; // -1 for the root
    std::vector<int> children;
    int index;
};

/// The father of a bone is one of the up to eight before it, so that the tree is about 220 deep for 1000.
inline std::vector<BoneInput> skeletonInput(int count)
{
    Draw draw(seedSkeleton);
    std::vector<BoneInput> bones(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        BoneInput& bone = bones[static_cast<size_t>(i)];
        char name[32];
        std::snprintf(name, sizeof name, "bone_%04d", i);
        bone.name = name;
        bone.index = i;
        bone.father =
            i == 0 ? -1 : i - 1 - static_cast<int>(draw.below(static_cast<uint32_t>(i < 8 ? i : 8)));
        for (float& c : bone.position)
            c = draw.signedUnit();
        bone.rotation = drawQuaternion(draw);
        if (bone.father >= 0)
            bones[static_cast<size_t>(bone.father)].children.push_back(i);
    }
    return bones;
}

struct AssetInput
{
    std::string name, path, type;
    int32_t id;
    std::vector<int32_t> values;
};

inline std::vector<AssetInput> assetInput()
{
    static const char* const types[4] = { "mesh", "texture", "motion", "cloth" };
    Draw draw(seedAssets);
    std::vector<AssetInput> assets(assetCount);
    int number = 0;
    for (AssetInput& asset : assets)
    {
        char text[64];
        std::snprintf(text, sizeof text, "asset_%04d", number);
        asset.name = text;
        std::snprintf(text, sizeof text, "characters/actor_%03d/part_%04d.bin", number / 10, number);
        asset.path = text;
        asset.type = types[draw.below(4)];
        asset.id = 5000 + number++;
        asset.values.resize(8 + draw.below(57));
        for (int32_t& value : asset.values)
            value = static_cast<int32_t>(draw.below(100000));
    }
    return assets;
}

// Triangulation

constexpr uint32_t seedPoints = 10;
constexpr int gridSide = 316;
constexpr int circleCount = 10000;

struct Point2
{
    float x, y;
};

/// x, then y, for each point: a shorter input is the start of a longer one.
inline std::vector<Point2> uniformPoints(size_t count)
{
    Draw draw(seedPoints);
    std::vector<Point2> points(count);
    for (Point2& p : points)
    {
        p.x = draw.unit();
        p.y = draw.unit();
    }
    return points;
}

/// Whole-number coordinates 0 to 315, x fastest.
inline std::vector<Point2> gridPoints()
{
    std::vector<Point2> points;
    for (int j = 0; j < gridSide; ++j)
        for (int i = 0; i < gridSide; ++i)
            points.push_back({ static_cast<float>(i), static_cast<float>(j) });
    return points;
}

/// Radius 1/2 round (1/2, 1/2) in angular order, computed in double.
inline std::vector<Point2> circlePoints()
{
    std::vector<Point2> points;
    for (int k = 0; k < circleCount; ++k)
    {
        const double angle = 2.0 * 3.14159265358979323846 * k / circleCount;
        points.push_back({ static_cast<float>(0.5 + 0.5 * std::cos(angle)),
                           static_cast<float>(0.5 + 0.5 * std::sin(angle)) });
    }
    return points;
}

// Rays

constexpr uint32_t seedVerticalRays = 20;
constexpr uint32_t seedObliqueRays = 21;
constexpr size_t rayCount = 100000;

struct Mesh
{
    std::vector<Float3> vertices;
    std::vector<std::array<uint32_t, 3>> triangles;
};

/// n * n squares over the unit square, two triangles each, square and vertex x fastest, with
/// z(x,y) = 0.1 sin(12.9 x) cos(7.3 y) + 0.02 sin(53 x + 31 y) in double.
inline Mesh heightfield(uint32_t n)
{
    Mesh mesh;
    for (uint32_t j = 0; j <= n; ++j)
    {
        for (uint32_t i = 0; i <= n; ++i)
        {
            const double x = double(i) / n, y = double(j) / n;
            const double z =
                0.1 * std::sin(12.9 * x) * std::cos(7.3 * y) + 0.02 * std::sin(53.0 * x + 31.0 * y);
            mesh.vertices.push_back({ static_cast<float>(x), static_cast<float>(y), static_cast<float>(z) });
        }
    }
    const uint32_t row = n + 1;
    for (uint32_t j = 0; j < n; ++j)
    {
        for (uint32_t i = 0; i < n; ++i)
        {
            const uint32_t v = j * row + i;
            mesh.triangles.push_back({ v, v + 1, v + row });
            mesh.triangles.push_back({ v + 1, v + row + 1, v + row });
        }
    }
    return mesh;
}

struct Ray
{
    Float3 origin, direction; // direction of length 1
};

inline Float3 unitVector(double x, double y, double z)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    return { static_cast<float>(x / length), static_cast<float>(y / length), static_cast<float>(z / length) };
}

/// From (u, v, 1) along ((a - 1/2) / 10, (b - 1/2) / 10, -1) for the draws u, v, a, b.
inline std::vector<Ray> verticalRays()
{
    Draw draw(seedVerticalRays);
    std::vector<Ray> rays(rayCount);
    for (Ray& ray : rays)
    {
        const float u = draw.unit(), v = draw.unit(), a = draw.unit(), b = draw.unit();
        ray.origin = { u, v, 1.0f };
        ray.direction = unitVector(0.1 * (double(a) - 0.5), 0.1 * (double(b) - 0.5), -1.0);
    }
    return rays;
}

/// From (2u - 1/2, 2v - 1/2, 0.15 + 0.35 w) towards (a, b, 0) and on, for the draws u, v, w, a, b.
inline std::vector<Ray> obliqueRays()
{
    Draw draw(seedObliqueRays);
    std::vector<Ray> rays(rayCount);
    for (Ray& ray : rays)
    {
        const double u = draw.unit(), v = draw.unit(), w = draw.unit(), a = draw.unit(), b = draw.unit();
        ray.origin = { static_cast<float>(2 * u - 0.5), static_cast<float>(2 * v - 0.5),
                       static_cast<float>(0.15 + 0.35 * w) };
        const double x = ray.origin[0], y = ray.origin[1], z = ray.origin[2];
        ray.direction = unitVector(a - x, b - y, 0.0 - z);
    }
    return rays;
}

// Worker pool

constexpr int poolCount = 1000000; // indices of the cheap body
constexpr int workCount = 10000;   // indices of the heavier body
constexpr int poolRounds = 1000;

// Both bodies run a batch [begin, end). They are never inlined, so that every pool runs the same code.
[[gnu::noinline]] inline void cheapBatch(uint32_t* out, int begin, int end)
{
    for (int i = begin; i < end; ++i)
    {
        const uint32_t x = static_cast<uint32_t>(i);
        out[i] = x * 2654435761u ^ (x >> 7);
    }
}

[[gnu::noinline]] inline void workBatch(uint32_t* out, int begin, int end)
{
    for (int i = begin; i < end; ++i)
    {
        uint32_t x = static_cast<uint32_t>(i) + 1;
        for (int k = 0; k < 256; ++k)
        {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
        }
        out[i] = x;
    }
}

// Mathematics

constexpr uint32_t seedMath = 40;
using Float16 = std::array<float, 16>;

struct MathInput
{
    std::vector<Float4> left, right;    // unit quaternions x, y, z, w
    std::vector<Float3> vectors;        // 10 * signed unit
    std::vector<Float16> first, second; // signed units, 4 added on the diagonal
};

inline Float16 drawMatrix(Draw& draw)
{
    Float16 m = {};
    for (size_t k = 0; k < m.size(); ++k)
        m[k] = draw.signedUnit() + (k % 5 == 0 ? 4.0f : 0.0f);
    return m;
}

/// Drawn element by element: quaternion, quaternion, vector, matrix, matrix.
inline MathInput mathInput(size_t count)
{
    Draw draw(seedMath);
    MathInput in;
    for (size_t i = 0; i < count; ++i)
    {
        in.left.push_back(drawQuaternion(draw));
        in.right.push_back(drawQuaternion(draw));
        in.vectors.emplace_back();
        for (float& c : in.vectors.back())
            c = 10.0f * draw.signedUnit();
        in.first.push_back(drawMatrix(draw));
        in.second.push_back(drawMatrix(draw));
    }
    return in;
}

} // namespace mrvBenchmark
