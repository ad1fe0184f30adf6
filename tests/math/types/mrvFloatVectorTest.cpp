// tests/math/types/mrvFloatVectorTest.cpp
#include "tests/math/types/mrvMathTesting.h"

#include <type_traits>

namespace mrv {

template <typename T>
class FloatVectorTest : public testing::Test
{
protected:
    static unsigned int count() { return static_cast<unsigned int>(floatsOf(T()).size()); }

    // `first`, then `step` more for each component.
    static T make(float first, float step)
    {
        T result(0.0f);
        for (unsigned int i = 0; i < count(); ++i)
            result[i] = first + static_cast<float>(i) * step;
        return result;
    }
};

using Types = testing::Types<Vector2, Vector3, Vector4, Quaternion>;
TYPED_TEST_SUITE(FloatVectorTest, Types, );

TYPED_TEST(FloatVectorTest, isAPlainValueThatStartsAsNull)
{
    static_assert(std::is_trivially_copyable_v<TypeParam> && std::is_standard_layout_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), this->count() == 2 ? 8u : 16u);
    EXPECT_EQ(alignof(TypeParam), this->count() == 2 ? alignof(float) : 16u);
    EXPECT_TRUE(TypeParam().isNull());
    EXPECT_EQ(TypeParam(), TypeParam::getNullVector());
    EXPECT_EQ(TypeParam::getClassMemoryStatId(), MemoryStatIds::MaravoShared);
}

TYPED_TEST(FloatVectorTest, arithmeticReachesEveryComponent)
{
    const TypeParam a = this->make(4.0f, 2.0f);
    const TypeParam b = this->make(1.0f, -8.0f);
    EXPECT_TRUE(isSame(a + b, this->make(5.0f, -6.0f)));
    EXPECT_TRUE(isSame(a - b, this->make(3.0f, 10.0f)));
    EXPECT_TRUE(isSame(-a, this->make(-4.0f, -2.0f)));
    EXPECT_TRUE(isSame(a * 0.5f, this->make(2.0f, 1.0f)));
    EXPECT_TRUE(isSame(0.5f * a, this->make(2.0f, 1.0f)));
    EXPECT_TRUE(isSame(a / 4.0f, this->make(1.0f, 0.5f)));
    // 5/3 is not 5 times the rounded third.
    EXPECT_EQ((TypeParam(5.0f) / 3.0f)[1], 5.0f / 3.0f);

    TypeParam c = a;
    c += b;
    c -= this->make(1.0f, 0.0f);
    c *= 4.0f;
    c /= 2.0f;
    EXPECT_TRUE(isSame(c, this->make(8.0f, -12.0f)));
    c.fill(3.0f);
    EXPECT_TRUE(isSame(c, TypeParam(3.0f)));
    EXPECT_EQ(c.getFloatValues()[this->count() - 1], 3.0f);
}

TYPED_TEST(FloatVectorTest, sumsOfProductsRunFromTheFirstComponent)
{
    RandomNumberGenerator rng(2);
    for (int i = 0; i < 100; ++i)
    {
        const TypeParam a = this->make(rng.frand(-9.0f, 9.0f), rng.frand(-9.0f, 9.0f));
        const TypeParam b = this->make(rng.frand(-9.0f, 9.0f), rng.frand(-9.0f, 9.0f));
        float sum = a[0] * b[0];
        for (unsigned int k = 1; k < this->count(); ++k)
            sum += a[k] * b[k];
        EXPECT_EQ(a.dot(b), sum);
        EXPECT_EQ(a.norm2(), a.dot(a));
        EXPECT_EQ(a.norm(), std::sqrt(a.norm2()));
    }
}

TYPED_TEST(FloatVectorTest, comparisonLooksAtEveryComponent)
{
    const TypeParam a = this->make(1.0f, 1.0f);
    for (unsigned int i = 0; i < this->count(); ++i)
    {
        TypeParam greater = a;
        greater[i] += 1.0f;
        if (i + 1 < this->count())
            greater[i + 1] = -5.0f;
        EXPECT_TRUE(a != greater && !(a == greater)) << i;
        EXPECT_TRUE(a < greater && !(greater < a)) << i;

        TypeParam notNull(0.0f);
        EXPECT_TRUE((-notNull).isNull() && notNull == -notNull);
        notNull[i] = 1e-45f;
        EXPECT_FALSE(notNull.isNull()) << i;
        TypeParam broken = a;
        broken[i] = notANumber;
        EXPECT_FALSE(broken == broken) << i;
    }
    EXPECT_FALSE(a < a);
}

TYPED_TEST(FloatVectorTest, toleranceOfTheNormIsInclusive)
{
    TypeParam v(0.0f);
    v[1] = 1.25f;
    EXPECT_TRUE(v.isNormalized(0.25f));
    EXPECT_FALSE(v.isNormalized(0.2499f));
    v[1] = -0.75f;
    EXPECT_TRUE(v.isNormalized(0.25f));
    EXPECT_FALSE(TypeParam(notANumber).isNormalized(infinity));
}

TYPED_TEST(FloatVectorTest, normalisingGivesUnitLengthAndNeverDividesByZero)
{
    RandomNumberGenerator rng(3);
    for (int i = 0; i < 1000; ++i)
    {
        TypeParam v(0.0f);
        for (unsigned int k = 0; k < this->count(); ++k)
            v[k] = std::ldexp(rng.frand(-1.0f, 1.0f), i % 80 - 30);
        const TypeParam unit = v.computeNormalize();
        EXPECT_NEAR(unit.norm(), 1.0f, 5e-7f);
        EXPECT_TRUE(isNear(v / v.norm(), unit, 5e-7f));
        v.normalizeSelf();
        EXPECT_TRUE(isSame(v, unit));
    }
    EXPECT_TRUE(isSame(TypeParam(0.0f).computeNormalize(), TypeParam(0.0f)));
    // The added amount outweighs what is shorter than about 3e-19.
    TypeParam tiny(0.0f);
    tiny[0] = 1e-20f;
    EXPECT_NEAR(tiny.computeNormalize()[0], 1e-20 / std::sqrt(1e-37 + 1e-40), 1e-6);
    EXPECT_FALSE(std::isfinite(TypeParam(infinity).computeNormalize()[0]));
    EXPECT_TRUE(std::isnan(TypeParam(notANumber).computeNormalize()[0]));
}

TEST(Vector4Test, normalisingTakesTheAddedAmount)
{
    EXPECT_TRUE(isNear(Vector4(0, 3, 0, 0).computeNormalize(16.0f), Vector4(0, 0.6f, 0, 0)));
    Vector2 v(0, 3);
    v.normalizeSelf(16.0f);
    EXPECT_TRUE(isNear(v, Vector2(0, 0.6f)));
}

} // namespace mrv
