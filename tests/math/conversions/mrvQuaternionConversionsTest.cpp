// tests/math/conversions/mrvQuaternionConversionsTest.cpp
#include "mrvCore/math/conversions/mrvQuaternionConversions.h"

#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

namespace {

// Rotations of every kind: about many axes, by angles from none to a half turn, where the trace is not
// positive and each diagonal element is the greatest in turn.
std::vector<Quaternion> manyRotations()
{
    std::vector<Quaternion> rotations;
    for (int x = -2; x <= 2; ++x)
        for (int y = -2; y <= 2; ++y)
            for (int z = -2; z <= 2; ++z)
                for (const Angle angle : { 0.0f, 1e-3f, 1.0f, 2.0f, 2.2f, 3.1f, PI_ANGLE })
                {
                    const Vector3 axis(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
                    if (!axis.isNull())
                        rotations.push_back(Quaternion(angle, axis / axis.norm()));
                }
    return rotations;
}

} // namespace

TEST(QuaternionConversions, everyFormGivesTheRotationBack)
{
    for (const Quaternion& q : manyRotations())
    {
        RotationMatrix m;
        toRotationMatrix(m, q);
        Matrix4 m4(5.0f);
        fromQuaternion(m4, q);
        AxisAngle axisAngle;
        toAxisAngle(axisAngle, q);
        Quaternion back[4];
        toQuaternion(back[0], m);
        toQuaternion(back[1], m4);
        toQuaternion(back[2], axisAngle);
        toQuaternion(back[3], q.getColumnX(), q.getColumnY(), q.getColumnZ());
        for (const Quaternion& result : back)
            EXPECT_TRUE(isSameRotation(result, q)) << testing::PrintToString(floatsOf(q));

        RotationMatrix rodrigues;
        toRotationMatrix(rodrigues, axisAngle);
        EXPECT_TRUE(isNear(rodrigues, m, 1e-5f));
        toRotationMatrix(rodrigues, AxisAngle(axisAngle._axis, axisAngle._angle + 2.0f * TWO_PI_ANGLE));
        EXPECT_TRUE(isNear(rodrigues, m, 1e-5f));
    }
}

TEST(QuaternionConversions, matricesOfAnyLengthAreNormalised)
{
    for (const Quaternion& q : manyRotations())
    {
        RotationMatrix unit, scaled;
        toRotationMatrix(unit, q);
        fromQuaternion(scaled, q * -3.0f);
        EXPECT_TRUE(isNear(scaled, unit));
        toRotationMatrix(scaled, q * 2.0f);
        EXPECT_TRUE(isNear(scaled, unit * 4.0f, 1e-5f));
        const Matrix4 m = MatrixFromQuaternion(q * 0.5f);
        EXPECT_TRUE(isNear(m.up(), unit[1]));
        EXPECT_TRUE(isSame(m[3], Matrix4::identity[3]));
        EXPECT_EQ(m[0].w + m[1].w + m[2].w, 0.0f);
    }
    RotationMatrix m;
    fromQuaternion(m, Quaternion());
    EXPECT_TRUE(std::isnan(m[0][0]));
}

TEST(QuaternionConversions, branchIsChosenByTheDiagonal)
{
    // Half turns: ties go to the first axis, and w is 0 with the sign of the greatest component positive.
    struct Case
    {
        Vector3 diagonal;
        Quaternion expected;
    };
    const Case cases[] = { { { 1, -1, -1 }, { 1, 0, 0, 0 } },
                           { { -1, 1, -1 }, { 0, 1, 0, 0 } },
                           { { -1, -1, 1 }, { 0, 0, 1, 0 } },
                           { { 0, 0, 0 }, { 0.5f, 0, 0, 0 } },
                           { { -1, 0.25f, 0.25f }, { 0.0f, std::sqrt(2.0f) / 2.0f, 0.0f, 0.0f } } };
    for (const Case& c : cases)
    {
        const RotationMatrix m(c.diagonal.x, 0, 0, 0, c.diagonal.y, 0, 0, 0, c.diagonal.z);
        Quaternion q;
        toQuaternion(q, m);
        EXPECT_TRUE(isSame(q, c.expected));
        toQuaternion(q, m[0], m[1], m[2]);
        EXPECT_TRUE(isSame(q, c.expected));
    }
}

TEST(QuaternionConversions, axisAngleAtItsLimits)
{
    struct Case
    {
        const char* name;
        Quaternion q;
        Vector3 axis;
        Angle angle;
    };
    const Vector3 x(1, 0, 0), z(0.0f, 0.0f, 1.0f);
    const Case cases[] = {
        { "identity", { 0, 0, 0, 1 }, x, 0.0f },
        { "fullTurn", { 0, 0, 0, -1 }, x, TWO_PI_ANGLE },
        { "sineTooSmall", { 0, 0, 0.9e-5f, 1 }, x, 0.0f },
        { "normalisedIfWIsTooGreat", { 0, 0, 3, 4 }, z, 2.0f * std::acos(0.8f) },
        { "notNormalisedOtherwise", { 0, 0, 3, 0.8f }, z * 5.0f, 2.0f * std::acos(0.8f) },
        { "justAboveOne", { 0.0f, 0.0f, 0.0f, std::nextafter(1.0f, 2.0f) }, x, 0.0f },
    };
    for (const Case& c : cases)
    {
        AxisAngle result;
        toAxisAngle(result, c.q);
        EXPECT_TRUE(isNear(result._axis, c.axis, 1e-5f)) << c.name;
        EXPECT_NEAR(result._angle, c.angle, 1e-5f) << c.name;
    }
}

TEST(QuaternionConversions, namedAxes)
{
    Quaternion q;
    toQuaternion(q, 0.5f, Axis::X);
    EXPECT_TRUE(isSame(q, Quaternion(0.5f, Vector3(1, 0, 0))));
    toQuaternion(q, 0.5f, Axis::Y);
    EXPECT_TRUE(isSame(q, Quaternion(0.5f, Vector3(0, 1, 0))));
    toQuaternion(q, 0.5f, Axis::Z);
    EXPECT_TRUE(isSame(q, quaternionFromAngle(0.5f)));
    toQuaternion(q, 0.5f, Axis::END);
    EXPECT_TRUE(isSame(q, quaternionFromAngle(0.5f)));
    // The axis is not normalised.
    toQuaternion(q, AxisAngle(Vector3(0, 2, 0), PI_ANGLE));
    EXPECT_TRUE(isNear(q, Quaternion(0, 2, 0, 0)));
}

} // namespace mrv
