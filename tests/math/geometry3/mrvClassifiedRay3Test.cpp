// tests/math/geometry3/mrvClassifiedRay3Test.cpp
#include "mrvCore/math/geometry3/mrvClassifiedRay3.h"

#include "mrvCore/math/geometry3/mrvBoundingBox3.h"
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"
#include "tests/math/types/mrvMathTesting.h"

#include <algorithm>

namespace mrv {
namespace {

TEST(ClassifiedRay3, classesFollowTheSigns)
{
    const char* const names[] = { "MMM", "MMP", "MPM", "MPP", "MOM", "MOP", "MMO", "MPO", "MOO",
                                  "PMM", "PMP", "PPM", "PPP", "POM", "POP", "PMO", "PPO", "POO",
                                  "OMM", "OMP", "OPM", "OPP", "OOM", "OOP", "OMO", "OPO" };
    const auto componentOf = [](char sign) { return sign == 'M' ? -2.0f : sign == 'P' ? 3.0f : 0.0f; };
    ClassifiedRay3 reused;
    for (int i = 0; i < ClassifiedRay3::Classification::END; ++i)
    {
        const Vector3 direction(componentOf(names[i][0]), componentOf(names[i][1]), componentOf(names[i][2]));
        reused = Ray3(Vector3(1.0f), direction);
        EXPECT_EQ(reused.getClassificationInt(), i) << names[i];
        EXPECT_EQ(ClassifiedRay3(Vector3(1.0f), direction).getClassificationInt(), i) << names[i];
    }
    EXPECT_EQ(ClassifiedRay3(Vector3(), Vector3()).getClassification(), ClassifiedRay3::Classification::OPO);
    EXPECT_EQ(ClassifiedRay3(Vector3(), Vector3(0.0f, 0.0f, -1.0f)).getClassification(),
              ClassifiedRay3::Classification::OOM);
    EXPECT_FLOAT_EQ(reused.getDirectionInverses().x, 1.0f / 3.0f); // of an earlier ray: OPO has no x
}

TEST(ClassifiedRay3, slopesAndInterceptsLieOnTheRay)
{
    const ClassifiedRay3 ray(Vector3(1.0f, 2.0f, 4.0f), Vector3(2.0f, -4.0f, 8.0f));
    const Vector3 p = ray.value(3.0f);
    EXPECT_TRUE(isSame(p, Vector3(7.0f, -10.0f, 28.0f)));
    EXPECT_FLOAT_EQ(ray.getSXY() * p.y + ray.getCYX(), p.x);
    EXPECT_FLOAT_EQ(ray.getSYX() * p.x + ray.getCXY(), p.y);
    EXPECT_FLOAT_EQ(ray.getSZY() * p.y + ray.getCYZ(), p.z);
    EXPECT_FLOAT_EQ(ray.getSYZ() * p.z + ray.getCZY(), p.y);
    EXPECT_FLOAT_EQ(ray.getSXZ() * p.z + ray.getCZX(), p.x);
    EXPECT_FLOAT_EQ(ray.getSZX() * p.x + ray.getCXZ(), p.z);
    float t = 0.0f;
    Vector3 offset;
    ray.project(p + Vector3(2.0f, 1.0f, 0.0f), t, offset);
    EXPECT_FLOAT_EQ(t, 3.0f);
    EXPECT_TRUE(isNear(offset, Vector3(2.0f, 1.0f, 0.0f), 1e-5f));
}

const AxisAlignedBox3 box(Vector3(-1.0f, -2.0f, -3.0f), Vector3(1.0f, 2.0f, 3.0f));
const FastBoundingBox fastBox(box.getMin(), box.getMax());

/// Entry and exit by slabs, in double; never 0 / 0.
bool meets(const Vector3& source, const Vector3& direction, double& entry)
{
    entry = 0.0;
    double exit = 1e300;
    for (unsigned int axis = 0; axis < 3; ++axis)
    {
        const double o = double(source[axis]);
        const double d = double(direction[axis]);
        const double low = double(box.getMin()[axis]) - o;
        const double high = double(box.getMax()[axis]) - o;
        if (d == 0.0 && (low > 0.0 || high < 0.0))
            return false;
        if (d == 0.0)
            continue;
        entry = std::max(entry, std::min(low / d, high / d));
        exit = std::min(exit, std::max(low / d, high / d));
    }
    return entry <= exit;
}

TEST(RayBox, answersAsSlabsDoInAllClasses)
{
    RandomNumberGenerator rng(17);
    int hitCount = 0;
    for (int i = 0; i < 26000; ++i)
    {
        Vector3 direction = randomVector(rng);
        const int zeros = i % 7; // no bit, or one or two of them
        for (unsigned int axis = 0; axis < 3; ++axis)
            if ((zeros >> axis & 1) != 0)
                direction[axis] = 0.0f;
        const ClassifiedRay3 ray(randomVector(rng) * 2.0f, direction);
        if (fastBox.contains(ray.getSource(), 0.001f) != box.contains(ray.getSource(), 0.0f))
            continue; // so near that it counts as inside
        double expected = 0.0;
        const bool isHit = meets(ray.getSource(), direction, expected);
        EXPECT_EQ(box.intersect(ray), isHit) << i;
        EXPECT_EQ(fastBox.intersect(ray), isHit) << i;
        float t = -1.0f;
        float fastT = -1.0f;
        ASSERT_EQ(box.intersect(ray, t), isHit) << i;
        ASSERT_EQ(fastBox.intersect(ray, fastT), isHit) << i;
        if (!isHit)
            continue;
        ++hitCount;
        EXPECT_NEAR(double(t), expected, 1e-4 * (1.0 + expected)) << i;
        EXPECT_EQ(t, fastT) << i;
    }
    EXPECT_GT(hitCount, 1500);
}

TEST(RayBox, edgesOfTheAnswer)
{
    struct Case
    {
        const char* name;
        Vector3 source, direction;
        bool isHit, isFastHit;
    };
    const Case cases[] = {
        { "inside, no direction", Vector3(), Vector3(), true, true },
        { "on the face, leaving", Vector3(1.0f, 0.0f, 0.0f), Vector3(1.0f, 0.0f, 0.0f), true, true },
        { "just outside, leaving", Vector3(1.0005f, 0.0f, 0.0f), Vector3(1.0f, 0.0f, 0.0f), false, true },
        { "outside, leaving", Vector3(1.5f), Vector3(1.0f), false, false },
        { "along a face", Vector3(1.0f, -5.0f, 0.0f), Vector3(0.0f, 1.0f, 0.0f), true, true },
        { "through an edge", Vector3(3.0f, 0.0f, 0.0f), Vector3(-1.0f, 1.0f, 0.0f), true, true },
        { "past an edge", Vector3(3.5f, 0.0f, 0.0f), Vector3(-1.0f, 1.0f, 0.0f), false, false },
        { "no number", Vector3(notANumber), Vector3(1.0f, 0.0f, 0.0f), false, false },
    };
    for (const Case& row : cases)
    {
        const ClassifiedRay3 ray(row.source, row.direction);
        EXPECT_EQ(box.intersect(ray), row.isHit) << row.name;
        EXPECT_EQ(fastBox.intersect(ray), row.isFastHit) << row.name;
        float t = -1.0f;
        EXPECT_EQ(box.intersect(ray, t), row.isHit) << row.name;
    }
    const ClassifiedRay3 ray(Vector3(), Vector3(1.0f));
    EXPECT_FALSE(AxisAlignedBox3().intersect(ray));
    EXPECT_FALSE(FastBoundingBox().intersect(ray));
    FastBoundingBox grown; // its flag is outdated, and the test sees to that
    grown.update(Vector3(-1.0f));
    grown.update(Vector3(1.0f));
    ASSERT_TRUE(grown._empty);
    EXPECT_TRUE(grown.intersect(ray));
    EXPECT_FALSE(grown._empty);
}

TEST(AxisAlignedBox3, isEmptyByItsCorners)
{
    struct Case
    {
        Vector3 min, max;
        bool isEmpty;
    };
    const Case cases[] = {
        { Vector3(), Vector3(), true },
        { Vector3(4.0f), Vector3(4.0f), true },
        { Vector3(), Vector3(0.0f, 0.0f, 1.0f), false },
        { Vector3(), Vector3(1.0f, 1.0f, -1.0f), true },
        { Vector3(-1.0f), Vector3(1.0f), false },
    };
    for (const Case& row : cases)
        EXPECT_EQ(AxisAlignedBox3(row.min, row.max).isEmpty(), row.isEmpty);
    EXPECT_FALSE(AxisAlignedBox3().contains(Vector3(), 1.0f));
    AxisAlignedBox3 crossed(Vector3(1.0f, 0.0f, 1.0f), Vector3(0.0f, 1.0f, 2.0f));
    crossed.makeValid();
    EXPECT_TRUE(crossed.isEmpty()); // until it is validated
    crossed.validate();
    EXPECT_TRUE(crossed == AxisAlignedBox3(Vector3(0.0f, 0.0f, 1.0f), Vector3(1.0f, 1.0f, 2.0f)));
}

TEST(AxisAlignedBox3, sumsAndProducts)
{
    const AxisAlignedBox3 a(Vector3(0.0f), Vector3(2.0f, 3.0f, 4.0f));
    const AxisAlignedBox3 b(Vector3(1.0f), Vector3(5.0f));
    const AxisAlignedBox3 away(Vector3(9.0f), Vector3(10.0f));
    EXPECT_TRUE(a * b == AxisAlignedBox3(Vector3(1.0f), Vector3(2.0f, 3.0f, 4.0f)));
    EXPECT_TRUE((a * away).isEmpty());
    EXPECT_TRUE(a * AxisAlignedBox3() == AxisAlignedBox3());
    EXPECT_TRUE(a + b == AxisAlignedBox3(Vector3(0.0f), Vector3(5.0f)));
    EXPECT_TRUE(AxisAlignedBox3() + b == b);
    EXPECT_EQ(a.getVolume(), 24.0f);
    // The tolerance is strict.
    EXPECT_FALSE(a.contains(Vector3(2.0f, 1.0f, 1.0f), 0.0f));
    EXPECT_FALSE(a.contains(Vector3(2.5f, 1.0f, 1.0f), 0.5f));
    EXPECT_TRUE(a.contains(Vector3(2.25f, 1.0f, 1.0f), 0.5f));
    RandomNumberGenerator rng(5), same(5);
    const Vector3 point = a.randomPoint(rng);
    for (unsigned int axis = 0; axis < 3; ++axis)
        EXPECT_EQ(point[axis], same.frand() * a.getMax()[axis]);
}

TEST(BoundingBox3, growsButNotForWhatIsNearby)
{
    BoundingBox3 grown;
    grown.update(Vector3(1.0f));
    EXPECT_FALSE(grown.isEmpty());
    grown.update(Vector3(1.000005f));
    EXPECT_TRUE(isSame(grown.getMax(), Vector3(1.0f)));
    grown.update(Vector3(0.0f, 1.5f, 1.0f));
    EXPECT_TRUE(isSame(grown.getMin(), Vector3(0.0f, 1.0f, 1.0f)));
    EXPECT_TRUE(isSame(grown.getMax(), Vector3(1.0f, 1.5f, 1.0f)));
    const BoundingBox3 a(Vector3(0.0f), Vector3(1.0f));
    const BoundingBox3 b(Vector3(1.5f, 0.0f, 0.0f), Vector3(2.0f, 1.0f, 1.0f));
    EXPECT_TRUE(BoundingBox3::areColliding(a, b, 0.5f)); // inclusive
    EXPECT_FALSE(BoundingBox3::areColliding(b, a, 0.49f));
    EXPECT_FLOAT_EQ(BoundingBox3::distance2(a, b), 0.25f);
    const Volume* const volume = &a;
    const Volume* const copy = volume->clone();
    Vector3 min, max;
    copy->retrieveBoundingBox(min, max);
    EXPECT_NE(dynamic_cast<const BoundingBox3*>(copy), nullptr);
    EXPECT_TRUE(isSame(max, Vector3(1.0f)));
    delete copy;
}

} // namespace
} // namespace mrv
