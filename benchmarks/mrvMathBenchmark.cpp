// benchmarks/mrvMathBenchmark.cpp
// Our value types beside GLM and Eigen. Goal for rotations, products and the matrix inverse over 1e5
// elements: at most 1.0 of the time of the fastest peer.
#include "benchmarks/mrvMathCases.h"
#include "mrvCore/math/random/mrvRandomNumberGenerator.h"
#include "mrvCore/math/rotations/mrvQuaternion.h"
#include "mrvCore/math/types/mrvMatrix4.h"

#include <Eigen/Dense>
#include <Eigen/Geometry>

#define GLM_FORCE_INTRINSICS
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_aligned.hpp>
#include <glm/gtc/type_ptr.hpp>

#include <random>

using namespace mrvBenchmark;

namespace {

struct MrvLibrary
{
    using Quaternion = mrv::Quaternion;
    using Vector = mrv::Vector3;
    using Matrix = mrv::Matrix4;
    static Quaternion make(const Float4& q) { return Quaternion(q.data()); }
    static Vector make(const Float3& v) { return Vector(v.data()); }
    static Matrix make(const Float16& m) { return Matrix(m.data()); }
    static Vector rotate(const Quaternion& q, const Vector& v) { return q * v; }
    static Quaternion multiply(const Quaternion& a, const Quaternion& b) { return a * b; }
    static Quaternion slerp(const Quaternion& a, const Quaternion& b, float t)
    {
        return Quaternion::slerp(a, b, t);
    }
    static Matrix multiply(const Matrix& a, const Matrix& b) { return a * b; }
    static void invert(Matrix& out, const Matrix& m) { out.inverse(m, false); }
    static Vector normalise(const Vector& v) { return v.computeNormalize(); }
};

/// With packed types GLM as it comes, with aligned ones its SSE code.
template <glm::qualifier Qualifier>
struct GlmLibrary
{
    using Quaternion = glm::qua<float, Qualifier>;
    using Vector = glm::vec<3, float, Qualifier>;
    using Matrix = glm::mat<4, 4, float, Qualifier>;
    static Quaternion make(const Float4& q) { return Quaternion(q[3], q[0], q[1], q[2]); }
    static Vector make(const Float3& v) { return Vector(v[0], v[1], v[2]); }
    static Matrix make(const Float16& m)
    {
        Matrix out;
        for (int i = 0; i < 16; ++i)
            out[i / 4][i % 4] = m[static_cast<size_t>(i)];
        return out;
    }
    static Vector rotate(const Quaternion& q, const Vector& v) { return q * v; }
    static Quaternion multiply(const Quaternion& a, const Quaternion& b) { return a * b; }
    static Quaternion slerp(const Quaternion& a, const Quaternion& b, float t) { return glm::slerp(a, b, t); }
    static Matrix multiply(const Matrix& a, const Matrix& b) { return a * b; }
    static void invert(Matrix& out, const Matrix& m) { out = glm::inverse(m); }
    static Vector normalise(const Vector& v) { return glm::normalize(v); }
};

struct EigenLibrary
{
    using Quaternion = Eigen::Quaternionf;
    using Vector = Eigen::Vector3f;
    using Matrix = Eigen::Matrix4f;
    static Quaternion make(const Float4& q) { return Quaternion(q[3], q[0], q[1], q[2]); }
    static Vector make(const Float3& v) { return Vector(v[0], v[1], v[2]); }
    static Matrix make(const Float16& m) { return Matrix(m.data()); }
    static Vector rotate(const Quaternion& q, const Vector& v) { return q * v; }
    static Quaternion multiply(const Quaternion& a, const Quaternion& b) { return a * b; }
    static Quaternion slerp(const Quaternion& a, const Quaternion& b, float t) { return a.slerp(t, b); }
    static Matrix multiply(const Matrix& a, const Matrix& b) { return a * b; }
    static void invert(Matrix& out, const Matrix& m) { out = m.inverse(); }
    static Vector normalise(const Vector& v) { return v.normalized(); }
};

/// 1e6 words, added up.
template <class Draw>
void addWords(const std::string& name, Draw draw)
{
    constexpr int wordCount = 1000000;
    add("rng/" + name + "/words_1e6", [draw](State& state) mutable {
        for (auto _ : state)
        {
            uint64_t sum = 0;
            for (int i = 0; i < wordCount; ++i)
                sum += draw();
            benchmark::DoNotOptimize(sum);
        }
        rate(state, wordCount / 1e6, "Mnumbers/s");
    });
}

} // namespace

int main(int argc, char** argv)
{
    addMathLibrary<MrvLibrary>("mrvCore");
    addMathLibrary<GlmLibrary<glm::packed_highp>>("glm");
    addMathLibrary<GlmLibrary<glm::aligned_highp>>("glm_simd");
    addMathLibrary<EigenLibrary>("eigen");
    addWords("mrvCore",
             [generator = mrv::RandomNumberGenerator(5489u)]() mutable { return generator.rand(); });
    addWords("std_mt19937", std::mt19937(5489u));
    return run(argc, argv);
}
