// tests/math/types/mrvVector3Test.cpp
#include "mrvCore/system/containers/mrvString.h"
#include "mrvCore/system/utils/mrvStringOperators.h"
#include "tests/math/types/mrvMathTesting.h"

#include <csignal>
#include <locale>
#include <sstream>

namespace mrv {

namespace {

const Vector3 axisX(1, 0, 0);
const Vector3 axisY(0, 1, 0);
const Vector3 axisZ(0, 0, 1);

// A locale with a comma as its decimal point, which some hosts run under.
class CommaLocale
{
public:
    CommaLocale() : _former(std::locale::global(std::locale(std::locale::classic(), new Punctuation))) {}
    ~CommaLocale() { std::locale::global(_former); }

private:
    struct Punctuation : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale _former;
};

} // namespace

TEST(Vector3Test, fillingStaysZeroWhateverTheOperands)
{
    for (const float f : { 2.0f, -2.0f, 0.0f, infinity, -infinity, notANumber })
    {
        const Vector3 a(1, f, -3);
        Vector3 changed[] = { a, a, a, a, a, a };
        changed[0].mulSelf(Vector3(f));
        changed[1].divSelf(Vector3(f));
        changed[2].clampSelf(a, Vector3(f));
        changed[3].normalizeSelf();
        changed[4].rotateZSelf(f);
        changed[5].fill(f);
        for (const Vector3& v : changed)
            EXPECT_EQ(bitsOf(v._alignmentValue), 0u) << f;
        for (const Vector3& v :
             { -a, a * f, a / f, a + a, a - a, a.cross(a), a.projectAlong(a), Quaternion(f, f, f, f) * a,
               transformPoint(a, Matrix4(f)), Matrix4(f).right() })
            EXPECT_EQ(bitsOf(v._alignmentValue), 0u) << f;
    }
}

TEST(Vector3Test, productsAreRightHanded)
{
    EXPECT_TRUE(isSame(axisX.cross(axisY), axisZ));
    EXPECT_TRUE(isSame(axisY.cross(axisZ), axisX));
    EXPECT_TRUE(isSame(axisZ.cross(axisX), axisY));
    EXPECT_EQ(scalarTripleProduct(axisX, axisY, axisZ), 1.0f);
    EXPECT_EQ(scalarTripleProduct(axisY, axisX, axisZ), -1.0f);
    RandomNumberGenerator rng(1);
    for (int i = 0; i < 100; ++i)
    {
        const Vector3 a = randomVector(rng);
        const Vector3 b = randomVector(rng);
        const Vector3 c = a.cross(b);
        EXPECT_TRUE(isSame(c, Vector3(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x)));
        EXPECT_EQ(a.dot(b), a.x * b.x + a.y * b.y + a.z * b.z);
    }
}

TEST(Vector3Test, perpendicularComparesSignedComponents)
{
    EXPECT_TRUE(isSame(Vector3().computePerpendicular(), Vector3()));
    EXPECT_TRUE(std::signbit(Vector3().computePerpendicular().y));
    EXPECT_TRUE(isSame(axisX.computePerpendicular(), Vector3(0, -1, 0)));
    EXPECT_TRUE(isSame(axisZ.computePerpendicular(), Vector3(0, -1, 0)));
    EXPECT_TRUE(isSame(Vector3(-5, 2, 1).computePerpendicular(), Vector3(0, -1, 2)));
    EXPECT_TRUE(isSame(Vector3(1, 2, -5).computePerpendicular(), Vector3(2, -1, 0)));
}

TEST(Vector3Test, projectionDropsAnAxis)
{
    const Vector3 v(1, 2, 3);
    EXPECT_TRUE(isSame(v.project(Axis::X), Vector2(2, 3)));
    EXPECT_TRUE(isSame(v.project(Axis::Y), Vector2(1, 3)));
    EXPECT_TRUE(isSame(v.project(Axis::Z), v.projectZ()));
    Vector2 out;
    v.project(Axis::Y, out);
    EXPECT_TRUE(isSame(out, Vector2(1, 3)));
    EXPECT_EXIT(v.project(Axis::END), testing::KilledBySignal(SIGTRAP), "Unknown axis given");

    EXPECT_TRUE(isNear(v.projectAlong(Vector3(0, 0, -7)), Vector3(1, 2, 0)));
    EXPECT_NEAR(v.projectAlong(Vector3(3, -1, 2)).dot(Vector3(3, -1, 2)), 0.0f, 1e-5f);
}

TEST(Vector3Test, boundsIgnoreWhatIsNoNumber)
{
    Vector3 v(1, -2, 3);
    v.minSelf(Vector3(0, notANumber, 9));
    EXPECT_TRUE(isSame(v, Vector3(0, -2, 3)));
    v.maxSelf(Vector3(notANumber, -1, 2));
    EXPECT_TRUE(isSame(v, Vector3(0, -1, 3)));
    v.clampSelf(Vector3(1.0f), Vector3(2.0f));
    EXPECT_TRUE(isSame(v, Vector3(1, 1, 2)));
    v.mulSelf(Vector3(2, 3, 4));
    v.divSelf(Vector3(4, 2, 16));
    EXPECT_TRUE(isSame(v, Vector3(0.5f, 1.5f, 0.5f)));
}

TEST(Vector3Test, rotationAboutZKeepsTheHeight)
{
    EXPECT_TRUE(isNear(Vector3(2, 1, 5).computeRotateZ(HALF_PI_ANGLE), Vector3(-1, 2, 5)));
    EXPECT_TRUE(isSame(Vector3::getZUpVector(), axisZ));
}

TEST(Vector3Test, finitenessTakesAllComponents)
{
    EXPECT_TRUE(Vector3(3e38f).isFinite());
    for (const float f : { infinity, -infinity, notANumber })
        EXPECT_FALSE(Vector3(f, 1, 1).isFinite() || Vector3(1, f, 1).isFinite() ||
                     Vector3(1, 1, f).isFinite());
}

TEST(Vector3Text, wordsAreReadByTheirLengthAndParts)
{
    struct Case
    {
        const char* text;
        Vector3 expected;
    };
    const Vector3 untouched(7, 8, 9);
    const Case cases[] = {
        { "(1,2,3)", { 1, 2, 3 } },
        { "1,2,3", { 1, 2, 3 } },
        { "  \n(-1.5,2e2,.25)", { -1.5f, 200, 0.25f } },
        { "(1,2,3", { 1, 2, 3 } },
        { "1,2,3)", { 1, 2, 3 } },
        { "1x,2y,3z", { 1, 2, 3 } },
        { "(one,2,)", { 0, 2, 0 } },
        { "((1,2,3)", { 0, 2, 3 } },
        { "1e99,-1e99,0", { 3.4028235e38f, -3.4028235e38f, 0 } },
        { "(1,2)", untouched },
        { "(,,1)", untouched },
        { "a,2,3", untouched },
        { "1,,2", untouched },
        { "1", untouched },
        { "(1,2,3,4)", untouched },
        { "(1,2,3,)", untouched },
        { "(1, 2, 3)", untouched },
        { "(123456)", untouched },
        { "(((((()", untouched },
    };
    const CommaLocale locale;
    for (const Case& c : cases)
    {
        Vector3 v = untouched;
        std::istringstream stream(c.text);
        EXPECT_TRUE(static_cast<bool>(stream >> v)) << c.text;
        EXPECT_TRUE(isSame(v, c.expected)) << c.text;
        v = untouched;
        EXPECT_TRUE(fromString(MrvString(c.text), v)) << c.text;
        EXPECT_TRUE(isSame(v, c.expected)) << c.text;
    }
    Vector3 v = untouched;
    for (const char* text : { "", "  \t\n" })
        EXPECT_FALSE(fromString(MrvString(text), v)) << text;
    EXPECT_TRUE(isSame(v, untouched));
}

TEST(Vector3Text, aWordEndsAtABlank)
{
    std::istringstream stream("(1,2,3) (4,5,6)");
    Vector3 first, second, third(7.0f);
    stream >> first >> second;
    EXPECT_TRUE(isSame(first, Vector3(1, 2, 3)));
    EXPECT_TRUE(isSame(second, Vector3(4, 5, 6)));
    EXPECT_FALSE(static_cast<bool>(stream >> third));
    EXPECT_TRUE(isSame(third, Vector3(7.0f)));
}

TEST(Vector3Text, writingFollowsTheStreamButNotTheLocale)
{
    const CommaLocale locale;
    std::ostringstream stream;
    stream << Vector3(1.5f, -20000, 1.0f / 3.0f);
    EXPECT_EQ(stream.str(), "(1.5,-20000,0.333333)");
    stream.str("");
    stream.precision(2);
    stream << std::fixed << Vector3(1.5f, 0, 1.0f / 3.0f);
    EXPECT_EQ(stream.str(), "(1.50,0.00,0.33)");
}

TEST(Vector3Text, bufferIsFilledAsFarAsItGoes)
{
    char buffer[64];
    EXPECT_EQ(toString(Vector3(1.5f, -2, 0.1f), buffer, sizeof(buffer)), buffer);
    EXPECT_STREQ(buffer, "(1.500000,-2.000000,0.100000)");
    EXPECT_STREQ(toString(Vector3(1.5f, -2, 0.1f), buffer, 8), "(1.5000");
    buffer[0] = '#';
    EXPECT_STREQ(toString(Vector3(), buffer, 0), "");
    EXPECT_EQ(buffer[0], '#');
    EXPECT_STREQ(toString(Quaternion(1, 2, 3, -4.5f), buffer, sizeof(buffer)),
                 "(1.000000,2.000000,3.000000,-4.500000)");
}

} // namespace mrv
