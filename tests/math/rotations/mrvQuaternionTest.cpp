// tests/math/rotations/mrvQuaternionTest.cpp
#include "mrvCore/math/rotations/mrvQuaternion.h"

#include "tests/math/types/mrvMathTesting.h"

namespace mrv {

namespace {

const Quaternion i(1, 0, 0, 0);
const Quaternion j(0, 1, 0, 0);
const Quaternion k(0, 0, 1, 0);

} // namespace

TEST(QuaternionTest, unitsMultiplyByHamiltonsRules)
{
    const Quaternion minusOne(0, 0, 0, -1);
    EXPECT_TRUE(isSame(i * j, k) && isSame(j * k, i) && isSame(k * i, j));
    EXPECT_TRUE(isSame(j * i, -k) && isSame(k * j, -i) && isSame(i * k, -j));
    EXPECT_TRUE(isSame(i * i, minusOne) && isSame(j * j, minusOne) && isSame(k * k, minusOne));
    EXPECT_TRUE(isSame(Quaternion::getIdentity() * j, j) && isSame(j * Quaternion::getIdentity(), j));
    EXPECT_TRUE(isSame(Quaternion::getNullVector(), Quaternion(0, 0, 0, 0)));
}

TEST(QuaternionTest, productAppliesTheRightFactorFirst)
{
    RandomNumberGenerator rng(1);
    for (int n = 0; n < 200; ++n)
    {
        const Quaternion a = randomRotation(rng);
        const Quaternion b = randomRotation(rng);
        const Quaternion c = randomRotation(rng);
        const Vector3 v = randomVector(rng);
        EXPECT_TRUE(isNear((a * b) * v, a * (b * v), 1e-5f));
        EXPECT_TRUE(isNear((a * b) * c, a * (b * c)));
        EXPECT_TRUE(isNear(a.computeInverse() * (a * v), v, 1e-5f));
        EXPECT_NEAR((a * v).norm(), v.norm(), 1e-5f);

        Quaternion product = a;
        product *= b;
        EXPECT_TRUE(isSame(product, a * b));
        product.multiplySelfNoReturn(c);
        Quaternion out;
        Quaternion::mulmul(out, a, b, c);
        EXPECT_TRUE(isSame(product, out));
        Vector3 rotated, sum = v, difference = v;
        rotateVecByQuat(rotated, a, v);
        EXPECT_TRUE(isSame(rotated, a * v));
        Quaternion::mul(rotated, a, v);
        Quaternion::mulAdd(sum, sum, a, v);
        Quaternion::mulSub(difference, difference, a, v);
        EXPECT_TRUE(isSame(sum, v + rotated) && isSame(difference, v - rotated));
    }
}

TEST(QuaternionTest, rotationIsTheSumOfTheAxesImagesForAnyLength)
{
    RandomNumberGenerator rng(2);
    for (const float length : { 1.0f, 0.0f, 0.5f, 3.0f })
    {
        const Quaternion q = randomRotation(rng) * length;
        const Vector3 v = randomVector(rng);
        EXPECT_TRUE(isNear(q * v, q.getColumnX() * v.x + q.getColumnY() * v.y + q.getColumnZ() * v.z, 1e-4f));
        EXPECT_TRUE(isNear(q * Vector3(1, 0, 0), q.mulByUnitVectorX(), 1e-5f));
        for (unsigned int row = 0; row < 3; ++row)
        {
            const Vector3 rows[] = { q.getRow0(), q.getRow1(), q.getRow2() };
            EXPECT_TRUE(
                isSame(rows[row], Vector3(q.getColumnX()[row], q.getColumnY()[row], q.getColumnZ()[row])));
        }
    }
}

TEST(QuaternionTest, fourProductsAtOnceAreTheSameToTheBit)
{
    RandomNumberGenerator rng(3);
    for (int n = 0; n < 100; ++n)
    {
        Quaternion a[4], b[4], expected[4];
        for (int m = 0; m < 4; ++m)
        {
            a[m] = randomRotation(rng);
            b[m] = randomRotation(rng);
            expected[m] = a[m] * b[m];
        }
        Quaternion::mul_4(b, a, b);
        for (int m = 0; m < 4; ++m)
            EXPECT_TRUE(isSame(b[m], expected[m]));
    }
}

TEST(QuaternionTest, anglesTurnCounterclockwiseAboutTheirAxis)
{
    struct Case
    {
        void (Quaternion::*pivot)(Angle);
        Vector3 axis, from, to;
    };
    const Vector3 x(1, 0, 0), y(0.0f, 1.0f, 0.0f), z(0.0f, 0.0f, 1.0f);
    for (const Case& c : { Case{ &Quaternion::setPivotX, x, y, z }, Case{ &Quaternion::setPivotY, y, z, x },
                           Case{ &Quaternion::setPivotZ, z, x, y } })
    {
        Quaternion q(5.0f);
        (q.*c.pivot)(HALF_PI_ANGLE);
        EXPECT_TRUE(isNear(q * c.from, c.to));
        EXPECT_TRUE(isSame(q, Quaternion(HALF_PI_ANGLE, c.axis)));
        (q.*c.pivot)(-0.5f); // no component is -0, which texts would show
        EXPECT_EQ(std::signbit(q.x) + std::signbit(q.y) + std::signbit(q.z) + std::signbit(q.w), 1);
    }
    const Quaternion aboutZ = quaternionFromAngle(-2.5f);
    EXPECT_TRUE(isSame(aboutZ, Quaternion(0.0f, 0.0f, std::sin(-1.25f), std::cos(-1.25f))));
    EXPECT_NEAR(aboutZ.extractOld2DOrientation(), -2.5f, 1e-6f);
    EXPECT_NEAR((-aboutZ).extractOld2DOrientation(), -2.5f, 1e-6f);
    const Quaternion tilted(0.5f, x);
    EXPECT_TRUE(isNear(tilted.computeRotateZ(0.75f) * y, (tilted * y).computeRotateZ(0.75f)));
}

TEST(QuaternionTest, conjugateNegatesW)
{
    Quaternion q(1, 2, 3, 4);
    EXPECT_TRUE(isSame(q.computeConjugate(), Quaternion(1, 2, 3, -4)));
    EXPECT_TRUE(isSame(q.computeInverse(), q.computeConjugate()));
    q.conjugateSelf();
    EXPECT_EQ(q.w, -4.0f);
    q.inverseSelf();
    EXPECT_EQ(q.w, 4.0f);
}

TEST(QuaternionTest, divisionScalesByTheReceiversNormOnly)
{
    RandomNumberGenerator rng(4);
    const Quaternion a = randomRotation(rng);
    const Quaternion b = randomRotation(rng);
    EXPECT_TRUE(isNear((a * b) / b, a));
    EXPECT_TRUE(isNear((a * 3.0f) / b, a / b));
    EXPECT_TRUE(isNear(a / (b * 3.0f), (a / b) * 3.0f));
    // A squared norm of 0.8e-5 is below the bound, one of 1.2e-5 is not.
    EXPECT_NEAR((a * std::sqrt(0.8e-5f) / b).norm2(), 0.8e-5f, 1e-9f);
    EXPECT_NEAR((a * std::sqrt(1.2e-5f) / b).norm2(), 1.0f, 1e-5f);
    EXPECT_TRUE(isSame(Quaternion() / b, Quaternion()));
    Quaternion quotient = a;
    quotient /= b;
    EXPECT_TRUE(isSame(quotient, a / b));
    quotient /= 2.0f;
    EXPECT_TRUE(isSame(quotient, (a / b) / 2.0f));
}

TEST(QuaternionSlerp, takesTheArcThatTheSignsGive)
{
    const Quaternion a = quaternionFromAngle(0.2f);
    const Quaternion b = quaternionFromAngle(1.8f);
    EXPECT_TRUE(isNear(Quaternion::slerp(a, b, 0.0f), a));
    EXPECT_TRUE(isNear(Quaternion::slerp(a, b, 1.0f), b));
    EXPECT_TRUE(isNear(Quaternion::slerp(a, b, 0.25f), quaternionFromAngle(0.6f)));
    // -b is the same rotation as b, 2 pi further: the long way round.
    EXPECT_TRUE(
        isNear(Quaternion::slerp(a, -b, 0.25f), quaternionFromAngle(0.2f + 0.25f * (1.6f - TWO_PI_ANGLE))));

    EXPECT_TRUE(isSame(Quaternion::slerp(i, -i, 0.7f), i));
    EXPECT_TRUE(isSame(Quaternion::slerp(i, i, 0.7f), i));
    EXPECT_TRUE(isSame(Quaternion::slerp(2.0f * i, i, 0.7f), 2.0f * i));
    const Quaternion close(0.9995f, 0.0005f, 0, 0); // too short for its angle to matter
    EXPECT_NEAR(Quaternion::slerp(i, close, 0.5f).norm(), 1.0f, 1e-6f);
    const Quaternion closer(std::cos(0.0009f), std::sin(0.0009f), 0.0f, 0.0f);
    EXPECT_TRUE(isSame(Quaternion::slerp(i, closer, 0.1f), 0.5f * i + 0.5f * closer));
    const Quaternion notSoClose(std::cos(0.005f), std::sin(0.005f), 0, 0);
    EXPECT_NEAR(Quaternion::slerp(i, notSoClose, 0.1f).y, 0.0005f, 1e-5f);
}

TEST(QuaternionFraction, appliesAShareOfARotation)
{
    RandomNumberGenerator rng(5);
    const Quaternion start = randomRotation(rng);
    const Vector3 axis(0.6f, 0, -0.8f);
    const auto fraction = [&start](const Quaternion& rotation, float alpha) {
        Quaternion result = start;
        result.multiplyAlphaQuat(rotation, alpha);
        return result;
    };
    for (const Angle angle : { 0.001f, 0.02f, 1.0f, -2.0f, 3.0f })
    {
        const Quaternion rotation(angle, axis);
        EXPECT_TRUE(isNear(fraction(rotation, 0.25f), start * Quaternion(0.25f * angle, axis), 1e-5f))
            << angle;
        // The same rotation by the other sign goes the short way too.
        EXPECT_TRUE(isSame(fraction(-rotation, 0.25f), fraction(rotation, 0.25f))) << angle;
    }
    const Quaternion other(2, axis);
    EXPECT_TRUE(isSame(fraction(other, 0.0f), start));
    EXPECT_TRUE(isSame(fraction(other, -1.0f), start));
    EXPECT_TRUE(isSame(fraction(other, 1.0f), other));
    EXPECT_TRUE(isSame(fraction(other, 2.0f), other));
    // From a w of 0.9999 on the weights are linear, and nothing is normalised.
    EXPECT_TRUE(isNear(fraction(Quaternion(0, 0, 0, 5), 0.5f), start * 3.0f));
    EXPECT_TRUE(isNear(fraction(Quaternion(0, 0, 0, 0.99995f), 0.5f), start * 0.999975f, 2e-6f));
}

TEST(QuaternionBetween, turnsOneUnitVectorIntoTheOther)
{
    RandomNumberGenerator rng(6);
    for (int n = 0; n < 200; ++n)
    {
        const Vector3 a = randomVector(rng);
        const Vector3 b = randomVector(rng);
        const Vector3 from = a / a.norm();
        const Vector3 to = b / b.norm();
        const Quaternion q = Quaternion::getRotationBetweenUnitVectors(from, to);
        EXPECT_TRUE(isNear(q * from, to, 1e-5f));
        EXPECT_TRUE(isNear(q * from.cross(to), from.cross(to), 1e-5f));
        const Quaternion half = Quaternion::getRotationBetweenUnitVectors(from, -from);
        EXPECT_TRUE(isNear(half * from, -from, 1e-5f));
        EXPECT_NEAR(half.norm(), 1.0f, 1e-6f);
    }
    const Vector3 x(1, 0, 0);
    const auto fromX = [x](const Vector3& to) { return Quaternion::getRotationBetweenUnitVectors(x, to); };
    EXPECT_TRUE(isSame(fromX(-x), Quaternion(0, 0, 1, -4.371139e-8f)));
    EXPECT_TRUE(isSame(fromX(Vector3(0.999999f, 0.001f, 0)), Quaternion::getIdentity()));
    EXPECT_NE(fromX(Vector3(0.99999f, 0.0045f, 0)), Quaternion::getIdentity());
    // Just beside x, but far enough for an axis of its own.
    const Vector3 beside(0.998f, 0.0f, std::sqrt(1.0f - 0.998f * 0.998f));
    EXPECT_TRUE(isNear(Quaternion::getRotationBetweenUnitVectors(beside, -beside), Quaternion(0, 1, 0, 0)));
}

TEST(QuaternionTest, distanceIsTheAngleOfTheShortWay)
{
    const Quaternion a(0.3f, Vector3(0, 1, 0));
    const Quaternion b(1.8f, Vector3(0, 1, 0));
    EXPECT_NEAR(Quaternion::angularDistance(a, b), 1.5f, 1e-6f);
    EXPECT_NEAR(Quaternion::angularDistance(a, -b), 1.5f, 1e-6f);
    EXPECT_NEAR(Quaternion::angularDistance(i, j), PI_ANGLE, 1e-6f);
    EXPECT_EQ(Quaternion::angularDistance(2.0f * a, a), 0.0f);
}

TEST(QuaternionTest, dualPartIsHalfOfRotationTimesTranslation)
{
    RandomNumberGenerator rng(7);
    const Quaternion q = randomRotation(rng);
    const Vector3 t = randomVector(rng);
    Quaternion dual[2];
    Quaternion::quaternionTranslationToDualQuaternion(q, t, dual);
    EXPECT_TRUE(isSame(dual[0], q));
    EXPECT_TRUE(isNear(dual[1], 0.5f * (q * Quaternion(t.x, t.y, t.z, 0))));
    dual[1] = q; // in place
    Quaternion::quaternionTranslationToDualQuaternion(dual[0], t, dual);
    EXPECT_TRUE(isSame(dual[0], q));
}

} // namespace mrv
