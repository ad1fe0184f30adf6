// tests/math/geometry3/mrvFastBoundingBoxTest.cpp
#include "mrvCore/math/geometry3/mrvFastBoundingBox.h"

#include "tests/math/types/mrvMathTesting.h"

namespace mrv {
namespace {

const FastBoundingBox unitBox(Vector3(0.0f), Vector3(1.0f));

TEST(FastBoundingBox, isEmptyUntilAPointComesIn)
{
    FastBoundingBox box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_FALSE(box.contains(Vector3(), 1.0f));
    EXPECT_EQ(box.getVolume(), 0.0f);
    EXPECT_TRUE(isSame(box.getDelta(), Vector3()));
    box.update(Vector3(notANumber));
    EXPECT_TRUE(box.isEmpty());
    box.update(Vector3(1.0f, 2.0f, 3.0f));
    EXPECT_FALSE(box.isEmpty());
    box.update(Vector3(3.0f, -2.0f, 8.0f));
    EXPECT_TRUE(box == FastBoundingBox(Vector3(1.0f, -2.0f, 3.0f), Vector3(3.0f, 2.0f, 8.0f)));
    EXPECT_TRUE(isSame(box.getCenter(), Vector3(2.0f, 0.0f, 5.5f)));
    EXPECT_EQ(box.getVolume(), 40.0f);
    box.clear();
    EXPECT_TRUE(box == FastBoundingBox());
    EXPECT_TRUE(FastBoundingBox(Vector3(0.0f, 1.0f, 0.0f), Vector3(1.0f, 0.0f, 1.0f)).isEmpty());
}

TEST(FastBoundingBox, theSumHoldsBothAndIgnoresEmptyOnes)
{
    const FastBoundingBox empty;
    EXPECT_TRUE(empty + unitBox == unitBox);
    EXPECT_TRUE(unitBox + empty == unitBox);
    EXPECT_TRUE((empty + empty).isEmpty());
    const FastBoundingBox crossed(Vector3(5.0f, 1.0f, 0.0f), Vector3(9.0f, 0.0f, 1.0f));
    EXPECT_TRUE(unitBox + crossed == unitBox);
    EXPECT_TRUE(unitBox + FastBoundingBox(Vector3(-1.0f, 0.5f, 2.0f), Vector3(0.5f, 0.6f, 3.0f)) ==
                FastBoundingBox(Vector3(-1.0f, 0.0f, 0.0f), Vector3(1.0f, 1.0f, 3.0f)));
}

TEST(FastBoundingBox, containsIsStrict)
{
    EXPECT_TRUE(unitBox.contains(Vector3(0.5f), 0.0f));
    EXPECT_FALSE(unitBox.contains(Vector3(0.5f, 1.0f, 0.5f), 0.0f));
    EXPECT_TRUE(unitBox.contains(Vector3(0.5f, 1.0f, 0.0f), 0.25f));
    EXPECT_FALSE(unitBox.contains(Vector3(0.5f, 0.5f, -0.25f), 0.25f));
}

struct PairCase
{
    const char* name;
    FastBoundingBox other;
    float tolerance;
    bool colliding;
    float distance2;
};

TEST(FastBoundingBox, collisionAndDistanceOfTwoAreSymmetric)
{
    const PairCase cases[] = {
        { "inside", FastBoundingBox(Vector3(0.25f), Vector3(0.75f)), 0.0f, true, 0.0f },
        { "touching", FastBoundingBox(Vector3(1.0f), Vector3(2.0f)), 0.0f, true, 0.0f },
        { "gapAtTolerance", FastBoundingBox(Vector3(1.5f, 0, 0), Vector3(2.0f, 1, 1)), 0.5f, true, 0.25f },
        { "gap", FastBoundingBox(Vector3(1.75f, 0, 0), Vector3(2.0f, 1, 1)), 0.5f, false, 0.5625f },
        { "corners", FastBoundingBox(Vector3(-4.0f, 3, 0), Vector3(-2.0f, 5, 9)), 2.0f, true, 8.0f },
        { "empty", FastBoundingBox(), 1000.0f, false, 0.0f },
    };
    for (const PairCase& row : cases)
    {
        EXPECT_EQ(FastBoundingBox::areColliding(unitBox, row.other, row.tolerance), row.colliding)
            << row.name;
        EXPECT_EQ(FastBoundingBox::areColliding(row.other, unitBox, row.tolerance), row.colliding)
            << row.name;
        EXPECT_EQ(FastBoundingBox::distance2(unitBox, row.other), row.distance2) << row.name;
        EXPECT_EQ(FastBoundingBox::distance2(row.other, unitBox), row.distance2) << row.name;
    }
    EXPECT_EQ(FastBoundingBox::distance2(FastBoundingBox(), FastBoundingBox(Vector3(3.0f), Vector3(5.0f))),
              27.0f);
}

} // namespace
} // namespace mrv
