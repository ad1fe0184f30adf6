// tests/math/conversions/mrvEulerConversionsTest.cpp
#include "mrvCore/math/conversions/mrvEulerConversions.h"

#include "mrvCore/math/rotations/mrvAngleUtils.h"
#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

namespace {

struct Order
{
    const char* name;
    void (*toQuaternion)(Quaternion&, const EulerAngles&);
    EulerPolesStatus::Value (*toEuler)(EulerAngles&, const Quaternion&);
    unsigned int axes[3];
    bool isProduct;
};

const Order orders[] = {
    { "XYZ", toQuaternionXYZ, toEulerAnglesXYZ, { 0, 1, 2 }, true },
    { "YZX", toQuaternionYZX, toEulerAnglesYZX, { 1, 2, 0 }, true },
    { "ZXY", toQuaternionZXY, toEulerAnglesZXY, { 2, 0, 1 }, true },
    { "XZY", toQuaternionXZY, toEulerAnglesXZY, { 0, 2, 1 }, false },
    { "ZYX", toQuaternionZYX, toEulerAnglesZYX, { 2, 1, 0 }, false },
    { "YXZ", nullptr, toEulerAnglesYXZ, { 1, 0, 2 }, false },
};

// The one set of formulas for all orders: those of XYZ, with the components exchanged.
Quaternion exchanged(const Order& order, const EulerAngles& angles)
{
    Quaternion xyz, result;
    toQuaternionXYZ(xyz, angles);
    for (unsigned int i = 0; i < 3; ++i)
        result[order.axes[i]] = xyz[i];
    result.w = xyz.w;
    return result;
}

Quaternion about(unsigned int axis, Angle angle)
{
    Vector3 direction;
    direction[axis] = 1.0f;
    return Quaternion(angle, direction);
}

Angle fromDegrees(int degrees)
{
    return AngleUtils::degreeToRadian(static_cast<float>(degrees));
}

template <typename Check>
void forAngles(std::initializer_list<int> attitudes, Check check)
{
    for (const Order& order : orders)
        for (int heading = -170; heading <= 170; heading += 20)
            for (const int attitude : attitudes)
                for (int bank = -165; bank <= 165; bank += 30)
                {
                    SCOPED_TRACE(testing::Message()
                                 << order.name << ' ' << heading << ' ' << attitude << ' ' << bank);
                    const EulerAngles angles(fromDegrees(heading), fromDegrees(attitude), fromDegrees(bank));
                    check(order, angles, exchanged(order, angles));
                }
}

} // namespace

TEST(EulerConversions, quaternionsAreBuiltByOneSetOfFormulas)
{
    forAngles({ -90, -45, 0, 30, 90 }, [](const Order& order, const EulerAngles& e, const Quaternion& q) {
        const Quaternion product =
            about(order.axes[0], e.heading) * about(order.axes[1], e.attitude) * about(order.axes[2], e.bank);
        if (order.isProduct)
        {
            EXPECT_TRUE(isNear(q, product));
        }
        else if (e.attitude == fromDegrees(-45))
        {
            EXPECT_FALSE(isSameRotation(q, product, 1e-3f));
        }
        if (order.toQuaternion == nullptr)
            return;
        Quaternion built;
        order.toQuaternion(built, e);
        EXPECT_TRUE(isSame(built, q));
    });
}

TEST(EulerConversions, anglesComeBackAwayFromThePoles)
{
    forAngles({ -89, -60, -10, 0, 45, 89 },
              [](const Order& order, const EulerAngles& e, const Quaternion& q) {
                  for (const Quaternion& sign : { q, -q })
                  {
                      EulerAngles back;
                      EXPECT_EQ(order.toEuler(back, sign), EulerPolesStatus::NONE);
                      EXPECT_TRUE(EulerAngles::approxEqual(back, e, 2e-4f))
                          << back.heading << ' ' << back.attitude << ' ' << back.bank;
                      if (order.toEuler == toEulerAnglesZYX)
                      {
                          float heading = 9.0f;
                          EXPECT_EQ(toEulerHeadingZYX(heading, sign), EulerPolesStatus::NONE);
                          EXPECT_EQ(heading, back.heading);
                      }
                  }
              });
}

TEST(EulerConversions, polesHaveNoBankAndKeepTheRotation)
{
    forAngles({ -90, 90 }, [](const Order& order, const EulerAngles& e, const Quaternion& q) {
        const EulerPolesStatus::Value pole =
            e.attitude > 0.0f ? EulerPolesStatus::NORTH : EulerPolesStatus::SOUTH;
        EulerAngles back;
        EXPECT_EQ(order.toEuler(back, q), pole);
        EXPECT_EQ(back.bank, 0.0f);
        EXPECT_EQ(back.attitude, pole == EulerPolesStatus::NORTH ? HALF_PI_ANGLE : -HALF_PI_ANGLE);
        EXPECT_TRUE(isSameRotation(exchanged(order, back), q));
        if (order.toEuler == toEulerAnglesZYX)
        {
            float heading = 9.0f;
            EXPECT_EQ(toEulerHeadingZYX(heading, q), pole);
            EXPECT_EQ(heading, back.heading);
        }
    });
    // The pole is a band of 1e-5 about the sine of a half.
    EulerAngles angles;
    EXPECT_EQ(toEulerAnglesXYZ(angles, Quaternion(0, 0.5f - 0.9e-5f, 0, 1)), EulerPolesStatus::NORTH);
    EXPECT_EQ(toEulerAnglesXYZ(angles, Quaternion(0, 0.5f - 1.1e-5f, 0, 1)), EulerPolesStatus::NONE);
}

TEST(EulerConversions, headingAndAttitudeRebuildADirection)
{
    Angle heading, attitude;
    for (int h = -180; h < 180; h += 15)
    {
        for (int a = -85; a <= 85; a += 5)
        {
            const Quaternion q = about(2, fromDegrees(h)) * about(1, fromDegrees(a));
            extractHeadingAndAttitudeFromWorldDirection(q.getColumnX(), heading, attitude);
            EXPECT_TRUE(AngleUtils::approxEqual(heading, fromDegrees(h), 1e-5f)) << h << ' ' << a;
            EXPECT_NEAR(attitude, fromDegrees(a), 1e-5f) << h << ' ' << a;
        }
    }
    extractHeadingAndAttitudeFromWorldDirection(Vector3(0, 0, 1), heading, attitude);
    EXPECT_TRUE(heading == HALF_PI_ANGLE && std::abs(attitude + HALF_PI_ANGLE) < 1e-6f);
    extractHeadingAndAttitudeFromWorldDirection(Vector3(0.001f, 0, -0.99995f), heading, attitude);
    EXPECT_TRUE(heading == -HALF_PI_ANGLE && std::abs(attitude - HALF_PI_ANGLE) < 1e-6f);
    // The heading replaced by that of a vertical direction leaves a part across it.
    extractHeadingAndAttitudeFromWorldDirection(Vector3(2, 0, 1), heading, attitude);
    EXPECT_TRUE(heading == HALF_PI_ANGLE && attitude == -HALF_PI_ANGLE);
}

} // namespace mrv
