// tests/math/conversions/mrvAxisConversionsTest.cpp
#include "mrvCore/math/conversions/mrvAxisConversions.h"

#include "mrvCore/math/conversions/mrvDistanceUnit.h"
#include "mrvCore/math/conversions/mrvQuaternionConversions.h"
#include "tests/math/types/mrvMathTesting.h"

#include <csignal>

namespace mrv {

TEST(AxisConversions, theFirstAxisIsExactAndTheSecondAsNearAsItCanBe)
{
    struct Builder
    {
        const char* name;
        Quaternion (*build)(const Vector3&, const Vector3&);
        unsigned int exact, near;
    };
    const Builder builders[] = {
        { "Xy", Axis_Xy_toQuaternion, 0, 1 }, { "Xz", Axis_Xz_toQuaternion, 0, 2 },
        { "Yx", Axis_Yx_toQuaternion, 1, 0 }, { "Yz", Axis_Yz_toQuaternion, 1, 2 },
        { "Zx", Axis_Zx_toQuaternion, 2, 0 }, { "Zy", Axis_Zy_toQuaternion, 2, 1 },
    };
    RandomNumberGenerator rng(1);
    for (int i = 0; i < 100; ++i)
    {
        const Vector3 p = randomVector(rng);
        const Vector3 q = randomVector(rng);
        for (const Builder& builder : builders)
        {
            const Quaternion rotation = builder.build(p, q);
            const Vector3 columns[] = { rotation.getColumnX(), rotation.getColumnY(), rotation.getColumnZ() };
            EXPECT_NEAR(rotation.norm(), 1.0f, 1e-6f) << builder.name;
            EXPECT_TRUE(isNear(columns[builder.exact], p.computeNormalize(), 1e-5f)) << builder.name;
            EXPECT_TRUE(
                isNear(columns[builder.near], (q - p * (q.dot(p) / p.norm2())).computeNormalize(), 1e-4f))
                << builder.name;
        }
        Quaternion out, ofMatrix;
        Axis_Zx_toQuaternion(out, p, q);
        EXPECT_TRUE(isSame(out, Axis_Zx_toQuaternion(p, q)));
        Axis_Zy_toQuaternion(out, p, q);
        EXPECT_TRUE(isSame(out, Axis_Zy_toQuaternion(p, q)));
        RotationMatrix m;
        m.setAxis_Zy(p, q);
        toQuaternion(ofMatrix, m);
        EXPECT_TRUE(isSame(out, ofMatrix));
    }
}

TEST(DistanceUnits, convertByTheirMetres)
{
    EXPECT_FLOAT_EQ(convert(1.0f, distanceUnit::FEET, distanceUnit::INCH), 12.0f);
    EXPECT_FLOAT_EQ(convert(1.0f, distanceUnit::YARD, distanceUnit::FEET), 3.0f);
    EXPECT_FLOAT_EQ(convert(2.5f, distanceUnit::METER, distanceUnit::MILLIMETER), 2500.0f);
    EXPECT_FLOAT_EQ(convert(5.0f, distanceUnit::DECIMETER, distanceUnit::CENTIMETER), 50.0f);
    EXPECT_EQ(getScaleFactor(distanceUnit::INCH), 0.0254f);
    EXPECT_EXIT(getScaleFactor(distanceUnit::END), testing::KilledBySignal(SIGTRAP),
                "7 is no unit of distance");
}

} // namespace mrv
