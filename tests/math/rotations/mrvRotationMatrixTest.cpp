// tests/math/rotations/mrvRotationMatrixTest.cpp
#include "mrvCore/math/rotations/mrvRotationMatrix.h"

#include "tests/math/types/mrvMathTesting.h"

#include <new>

namespace mrv {

namespace {

const RotationMatrix identity(1, 0, 0, 0, 1, 0, 0, 0, 1);
const RotationMatrix null(0, 0, 0, 0, 0, 0, 0, 0, 0);

RotationMatrix randomElements(RandomNumberGenerator& rng)
{
    RotationMatrix m;
    for (Vector3& row : m._matrix)
        row = randomVector(rng);
    return m;
}

} // namespace

TEST(RotationMatrixTest, newOneHasClearFillingsOnly)
{
    alignas(RotationMatrix) float memory[12];
    for (float& f : memory)
        f = 5.0f;
    const RotationMatrix* m = new (memory) RotationMatrix;
    for (const Vector3& row : m->_matrix)
        EXPECT_EQ(bitsOf(row._alignmentValue), 0u);
    RotationMatrix set;
    set = 2.0f;
    EXPECT_TRUE(isSame(set, RotationMatrix(2, 2, 2, 2, 2, 2, 2, 2, 2)));
    set.setIdentity();
    EXPECT_TRUE(isSame(set, identity));
}

TEST(RotationMatrixTest, arithmeticActsOnColumns)
{
    RandomNumberGenerator rng(1);
    for (int n = 0; n < 50; ++n)
    {
        const RotationMatrix a = randomElements(rng);
        const RotationMatrix b = randomElements(rng);
        const Vector3 v = randomVector(rng);
        for (unsigned int r = 0; r < 3; ++r)
        {
            for (unsigned int c = 0; c < 3; ++c)
            {
                EXPECT_EQ((a * b)[r][c], a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c]);
                EXPECT_EQ((a + b)[r][c], a[r][c] + b[r][c]);
                EXPECT_EQ((a - b)[r][c], a[r][c] - b[r][c]);
                EXPECT_EQ((a * 3.0f)[r][c], a[r][c] * 3.0f);
                EXPECT_EQ((a / 3.0f)[r][c], a[r][c] / 3.0f);
                EXPECT_EQ(a.transpose()[r][c], a[c][r]);
                EXPECT_EQ(a.timesDiagonal(v)[r][c], a[r][c] * v[c]);
                RotationMatrix other = a;
                other[r][c] += 0.5f;
                EXPECT_TRUE(a != other && !RotationMatrix::approxEqual(a, other, 0.4999f));
            }
        }
        Vector3 column;
        a.column(1, column);
        EXPECT_TRUE(isSame(column, a * Vector3(0, 1, 0)));
    }
    EXPECT_TRUE(RotationMatrix::approxEqual(identity, identity * 1.25f, 0.25f));
}

TEST(RotationMatrixTest, rotatesAsItsQuaternionDoes)
{
    RandomNumberGenerator rng(2);
    for (int n = 0; n < 100; ++n)
    {
        const Quaternion q = randomRotation(rng);
        const Quaternion p = randomRotation(rng);
        const Vector3 v = randomVector(rng);
        RotationMatrix m, other, product;
        toRotationMatrix(m, q);
        toRotationMatrix(other, p);
        toRotationMatrix(product, q * p);
        EXPECT_TRUE(isNear(m * v, q * v, 1e-5f));
        EXPECT_TRUE(isNear(m * other, product, 1e-5f));
        EXPECT_TRUE(isNear(m.inverse(), m.transpose(), 1e-5f));
        Vector3 column;
        m.column(2, column);
        EXPECT_TRUE(isNear(column, q.getColumnZ()));
    }
}

TEST(RotationMatrixTest, inverseOfAnyMatrixUnlessSingular)
{
    RandomNumberGenerator rng(3);
    for (int n = 0; n < 100; ++n)
    {
        const RotationMatrix m = randomElements(rng) + identity * 9.0f;
        EXPECT_TRUE(isNear(m * m.inverse(), identity, 1e-5f));
        EXPECT_TRUE(isNear(m.inverse() * m, identity, 1e-5f));
    }
    EXPECT_TRUE(isSame(null.inverse(), null));
    // The bound of the determinant, 1e-6, is singular itself; the sign does not matter.
    const auto diagonal = [](float z) { return identity.timesDiagonal(Vector3(1, 1, z)); };
    EXPECT_TRUE(isSame(diagonal(1e-6f).inverse(), null));
    EXPECT_TRUE(isSame(diagonal(-1e-6f).inverse(), null));
    EXPECT_NEAR(diagonal(-1.1e-6f).inverse()[2][2] * -1.1e-6f, 1.0f, 1e-6f);
}

TEST(RotationMatrixTest, frameOfTwoAxesIsOrthonormal)
{
    RotationMatrix m;
    m.setAxis_Zy(Vector3(0, 0, 5), Vector3(0, 2, 2));
    EXPECT_TRUE(isNear(m, identity));
    RandomNumberGenerator rng(4);
    for (int n = 0; n < 100; ++n)
    {
        const Vector3 z = randomVector(rng);
        const Vector3 y = randomVector(rng);
        m.setAxis_Zy(z, y);
        EXPECT_TRUE(isNear(m * m.transpose(), identity, 1e-5f));
        Vector3 column;
        m.column(2, column);
        EXPECT_TRUE(isSame(column, z.computeNormalize()));
        m.column(1, column);
        EXPECT_GT(column.dot(y), 0.0f);
        EXPECT_GT(scalarTripleProduct(m[0], m[1], m[2]), 0.0f);
    }
}

} // namespace mrv
