// tests/math/types/mrvBarycentricsTest.cpp
#include "mrvCore/math/types/mrvBarycentrics.h"

#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

TEST(BarycentricsTest, trianglesOfEveryKind)
{
    struct Case
    {
        const char* name;
        Vector2 point, a, b, c;
        Vector3 expected;
    };
    constexpr float third = 0.33333334f;
    const Case cases[] = {
        { "inside", { 0.25f, 0.5f }, { 1, 0 }, { 0, 1 }, { 0, 0 }, { 0.25f, 0.5f, 0.25f } },
        { "outside", { 2, 0 }, { 1, 0 }, { 0, 1 }, { 0, 0 }, { 2, 0, -1 } },
        { "scaled", { 1e6f, 2e6f }, { 4e6f, 0 }, { 0, 4e6f }, { 0, 0 }, { 0.25f, 0.5f, 0.25f } },
        // Scaled down, the thin one counts as flat; where all is below and left of c nothing is scaled.
        { "thin", { 500, 0.25e-3f }, { 1e3f, 0 }, { 1e3f, 1e-3f }, { 0, 0 }, { 0, 0.5f, 0.5f } },
        { "thinBelow",
          { -500, -0.25e-3f },
          { -1e3f, 0 },
          { -1e3f, -1e-3f },
          { 0, 0 },
          { 0.25f, 0.25f, 0.5f } },
        { "tooSmallUnscaled", { 1e-3f, 0 }, { 1e-3f, 0 }, { 0, 1e-3f }, { 0, 0 }, Vector3(third) },
        { "coincident", { 5, 5 }, { 1, 2 }, { 1, 2 }, { 1, 2 }, Vector3(third) },
        { "flatLongestIsAC", { 1, 0 }, { 4, 0 }, { 2, 0 }, { 0, 0 }, { 0.25f, 0, 0.75f } },
        { "flatLongestIsBC", { 1, 0 }, { 2, 0 }, { 4, 0 }, { 0, 0 }, { 0, 0.25f, 0.75f } },
        { "flatLongestIsAB", { 1, 0 }, { 0, 0 }, { 4, 0 }, { 2, 0 }, { 0.75f, 0.25f, 0 } },
        { "equallyLongGoesToAB", { 1, 0 }, { 4, 0 }, { 0, 0 }, { 4, 0 }, { 0.25f, 0.75f, 0 } },
        { "equallyLongGoesToBC", { 1, 0 }, { 4, 0 }, { 4, 0 }, { 0, 0 }, { 0, 0.25f, 0.75f } },
    };
    for (const Case& c : cases)
    {
        Vector3 weights;
        computeBarycentricsCoordinates(c.point, c.a, c.b, c.c, weights);
        EXPECT_TRUE(isNear(weights, c.expected)) << c.name;
    }
}

TEST(BarycentricsTest, tetrahedronWeightsRebuildThePoint)
{
    const Vector3 corners[] = { { 1, 0, 0.5f }, { 0, 2, -1 }, { -1, 0, 0 }, { 0.5f, 1, 3 } };
    const auto weigh = [](const Vector3(&c)[4], const Vector3& point) {
        Vector4 weights;
        computeTetrahedronBarcentricCoords(weights, c[0], c[1], c[2], c[3], point);
        return weights;
    };
    for (unsigned int i = 0; i < 4; ++i)
    {
        Vector4 expected;
        expected[i] = 1.0f;
        EXPECT_TRUE(isNear(weigh(corners, corners[i]), expected));
    }
    const Vector4 weights = weigh(corners, Vector3(3, -2, 1));
    EXPECT_TRUE(isNear(corners[0] * weights.x + corners[1] * weights.y + corners[2] * weights.z +
                           corners[3] * weights.w,
                       Vector3(3, -2, 1), 1e-5f));
    const Vector3 flat[] = { corners[0], corners[1], corners[2], corners[0] };
    EXPECT_FALSE(std::isfinite(weigh(flat, corners[3]).x));
}

} // namespace mrv
