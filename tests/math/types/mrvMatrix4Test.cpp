// tests/math/types/mrvMatrix4Test.cpp
#include "tests/math/types/mrvMathTesting.h"

#include <new>

namespace mrv {

namespace {

// The point with 1 as its fourth component, times the matrix, over the result's fourth component.
Vector3 projectPoint(const Vector3& p, const Matrix4& m)
{
    const Vector4 result = p.x * m[0] + p.y * m[1] + p.z * m[2] + m[3];
    return Vector3(result.x, result.y, result.z) / result.w;
}

} // namespace

TEST(Matrix4Test, constructorsTakeElementsInRowOrder)
{
    float elements[16];
    double doubles[16];
    for (int i = 0; i < 16; ++i)
    {
        elements[i] = static_cast<float>(i) + 0.1f;
        doubles[i] = i + 0.1;
    }
    const Matrix4 m(elements);
    EXPECT_TRUE(isSame(m[2], Vector4(8.1f, 9.1f, 10.1f, 11.1f)));
    EXPECT_TRUE(isSame(Matrix4(doubles), m));
    EXPECT_TRUE(isSame(Matrix4(m[0], m[1], m[2], m[3]), m));
    EXPECT_TRUE(isSame(Matrix4(2.5f)[3], Vector4(2.5f)));
    EXPECT_TRUE(isSame(Matrix4(), Matrix4::identity) && Matrix4(true) == Matrix4::identity);
    EXPECT_TRUE(isSame(Matrix4::nullMatrix, Matrix4(0.0f)));

    Matrix4 n;
    n = 3.0f;
    EXPECT_TRUE(n == Matrix4(3.0f) && n != m);
    const float rows[4][4] = { { 0, 1, 2, 3 }, { 4, 5, 6, 7 }, { 8, 9, 10, 11 }, { 12, 13, 14, 15 } };
    n.set(rows);
    EXPECT_TRUE(isSame(n, Matrix4(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15)));
    Vector4 column;
    n.column(1, column);
    EXPECT_TRUE(isSame(column, Vector4(1, 5, 9, 13)));
    EXPECT_TRUE(isSame(n.right(), Vector3(0, 1, 2)));
    EXPECT_TRUE(isSame(n.up(), Vector3(4, 5, 6)));
    EXPECT_TRUE(isSame(n.dir(), Vector3(8, 9, 10)));
    EXPECT_TRUE(isSame(n.position(), Vector3(12, 13, 14)));
    n.setPosition(Vector3(1.0f));
    EXPECT_TRUE(isSame(n[3], Vector4(1, 1, 1, 15)));
}

TEST(Matrix4Test, withFalseTheMemoryIsLeftAsItWas)
{
    alignas(Matrix4) float memory[16];
    for (int i = 0; i < 16; ++i)
        memory[i] = static_cast<float>(i);
    const Matrix4* matrix = new (memory) Matrix4(false);
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(matrix->const_floats()[i], static_cast<float>(i));
}

TEST(Matrix4Test, productsSumUpAlongTheRow)
{
    RandomNumberGenerator rng(4);
    for (int i = 0; i < 50; ++i)
    {
        const Matrix4 a = randomMatrix(rng);
        const Matrix4 b = randomMatrix(rng);
        const Vector3 p = randomVector(rng);
        Matrix4 product = Matrix4::nullMatrix;
        Vector3 point;
        for (unsigned int c = 0; c < 4; ++c)
        {
            for (unsigned int r = 0; r < 4; ++r)
                product[r][c] = a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c] + a[r][3] * b[3][c];
            if (c < 3)
                point[c] = p.x * a[0][c] + p.y * a[1][c] + p.z * a[2][c] + a[3][c];
        }
        EXPECT_TRUE(isSame(a * b, product));
        EXPECT_TRUE(isSame(transformPoint(p, a), point));
    }
}

TEST(Matrix4Test, arithmeticReachesEveryElement)
{
    RandomNumberGenerator rng(5);
    const Matrix4 a = randomMatrix(rng);
    const Matrix4 b = randomMatrix(rng);
    Matrix4 sum = a;
    sum += b;
    Matrix4 transposed(false);
    transposed.transpose(a);
    for (unsigned int r = 0; r < 4; ++r)
    {
        for (unsigned int c = 0; c < 4; ++c)
        {
            EXPECT_EQ(sum[r][c], a[r][c] + b[r][c]);
            EXPECT_EQ((a - b)[r][c], a[r][c] - b[r][c]);
            EXPECT_EQ((a * 3.0f)[r][c], a[r][c] * 3.0f);
            EXPECT_EQ((a / 3.0f)[r][c], a[r][c] / 3.0f);
            EXPECT_EQ(transposed[r][c], a[c][r]);
            Matrix4 other = a;
            other[r][c] += 0.5f;
            EXPECT_TRUE(a != other);
            EXPECT_FALSE(Matrix4::approxEqual(a, other, 0.4999f));
            other[r][c] = notANumber;
            EXPECT_FALSE(Matrix4::approxEqual(a, other, infinity));
        }
    }
    transposed.transpose();
    EXPECT_TRUE(isSame(transposed, a));
    EXPECT_TRUE(Matrix4::approxEqual(Matrix4(1.0f), Matrix4(1.25f), 0.25f));
}

TEST(Matrix4Inverse, undoesTheMatrixFromBothSides)
{
    RandomNumberGenerator rng(6);
    for (int i = 0; i < 200; ++i)
    {
        const Matrix4 m = randomMatrix(rng);
        Matrix4 inverse(false);
        const float determinant = inverse.inverse(m, false);
        EXPECT_TRUE(isNear(m * inverse, Matrix4::identity, 1e-5f));
        EXPECT_TRUE(isNear(inverse * m, Matrix4::identity, 1e-5f));
        EXPECT_EQ(m.GetDeterminant(), determinant);
        Matrix4 transposed(false);
        transposed.transpose(m);
        EXPECT_NEAR(transposed.GetDeterminant(), determinant, 1e-5f * std::abs(determinant));
        Matrix4 self = m;
        self.inverse(self, false);
        EXPECT_TRUE(isSame(self, inverse));
    }
}

TEST(Matrix4Inverse, affineInvertsTheBlockAndTheTranslation)
{
    RandomNumberGenerator rng(7);
    for (int i = 0; i < 200; ++i)
    {
        Matrix4 m = randomMatrix(rng);
        for (unsigned int row = 0; row < 3; ++row)
            m[row].w = 0.0f;
        m[3].w = 1.0f;
        Matrix4 whole(false), affine(false);
        const float determinant = whole.inverse(m, false);
        EXPECT_NEAR(affine.inverse(m, true), determinant, 1e-5f * std::abs(determinant));
        EXPECT_TRUE(isNear(affine, whole, 1e-5f));
        const Matrix4 expected = affine;
        for (unsigned int row = 0; row < 4; ++row)
            m[row].w = infinity; // the last column counts as (0, 0, 0, 1)
        m.inverse(m, true);
        EXPECT_TRUE(isSame(m, expected));
    }
}

TEST(Matrix4Inverse, determinantsOfKnownMatrices)
{
    Matrix4 m, inverse;
    m.scale(Vector3(2, 3, -4));
    EXPECT_EQ(inverse.inverse(m, true), -24.0f);
    EXPECT_EQ(m.GetDeterminant(), -24.0f);
    EXPECT_TRUE(isNear(inverse[2], Vector4(0, 0, -0.25f, 0)));
    // An odd permutation of the rows.
    EXPECT_EQ(Matrix4(m[1], m[0], m[2], m[3]).GetDeterminant(), 24.0f);
    EXPECT_EQ(Matrix4(m[3], m[0], m[1], m[2]).GetDeterminant(), 24.0f);
    m[3].w = 5.0f;
    EXPECT_EQ(m.GetDeterminant(), -120.0f);
    for (const bool affine : { false, true })
    {
        EXPECT_EQ(inverse.inverse(Matrix4(1.0f), affine), 0.0f);
        EXPECT_FALSE(inverse.right().isFinite());
    }
}

TEST(Matrix4Builders, projectionsMapTheirVolume)
{
    // Of the frustum or the box that is seen: a near and a far corner.
    Matrix4 m;
    m.frustum(-1.0f, 3.0f, -2.0f, 6.0f, 2.0f, 10.0f);
    EXPECT_TRUE(isNear(projectPoint(Vector3(-1, -2, -2), m), Vector3(-1, -1, -1)));
    EXPECT_TRUE(isNear(projectPoint(Vector3(15, 30, -10), m), Vector3(1.0f)));
    EXPECT_EQ(m[3].w, 0.0f);

    Matrix4 perspective;
    perspective.perspective(90.0f, 2.0f, 0.5f, 8.0f);
    m.frustum(-1.0f, 1.0f, -0.5f, 0.5f, 0.5f, 8.0f);
    EXPECT_TRUE(isNear(perspective, m));

    // Depths grow with z, and from 0.
    m.ortho(-1.0f, 3.0f, -2.0f, 6.0f, 2.0f, 10.0f);
    EXPECT_TRUE(isNear(projectPoint(Vector3(-1, -2, 2), m), Vector3(-1, -1, 0)));
    EXPECT_TRUE(isNear(projectPoint(Vector3(3, 6, 10), m), Vector3(1.0f)));
}

TEST(Matrix4Builders, placementLooksAtTheTarget)
{
    const Vector3 eye(1, 2, 3);
    const Vector3 target(4, -2, 3);
    Matrix4 m;
    m.lookAt(eye, target, Vector3(0, 1, 5));
    EXPECT_TRUE(isNear(m.dir(), Vector3(0.6f, -0.8f, 0)));
    EXPECT_TRUE(isSame(m.position(), eye));
    EXPECT_GT(m.up().z, 0.9f);
    EXPECT_NEAR(scalarTripleProduct(m.right(), m.up(), m.dir()), 1.0f, 1e-6f);
    Vector4 last;
    m.column(3, last);
    EXPECT_TRUE(isSame(last, Vector4(0, 0, 0, 1)));

    Matrix4 view, other;
    view.lookAtLH(eye, target, Vector3(0, 0, 3));
    EXPECT_TRUE(isNear(transformPoint(eye, view), Vector3(), 1e-5f));
    EXPECT_TRUE(isNear(transformPoint(target, view), Vector3(0, 0, -5), 1e-5f));
    EXPECT_TRUE(isNear(transformPoint(eye + Vector3(0, 0, 2), view), Vector3(0, 2, 0), 1e-5f));
    EXPECT_TRUE(isNear(transformPoint(eye + Vector3(-0.8f, -0.6f, 0), view), Vector3(1, 0, 0), 1e-5f));
    view.column(3, last);
    EXPECT_TRUE(isSame(last, Vector4(0, 0, 0, 1)));
    other.lookAtRH(eye, target, Vector3(0, 0, 3));
    EXPECT_TRUE(isSame(view, other));
}

TEST(Matrix4Builders, rotationAxisIsDirectAndSetRotationIsInverse)
{
    RandomNumberGenerator rng(8);
    for (int i = 0; i < 100; ++i)
    {
        const Vector3 axis = randomVector(rng);
        const Angle angle = rng.frand(-4.0f, 4.0f);
        const Quaternion q(angle, axis.computeNormalize());
        const Vector3 v = randomVector(rng);
        Matrix4 m;
        m.rotationAxis(axis, angle);
        EXPECT_TRUE(isNear(transformPoint(v, m), q * v, 1e-5f));

        Matrix4 filled(7.0f);
        filled.setRotation(q);
        EXPECT_TRUE(isNear(transformPoint(v, filled) - Vector3(7.0f), q.computeInverse() * v, 1e-5f));
        EXPECT_EQ(filled[0].w + filled[1].w + filled[2].w, 21.0f);
        RotationMatrix rotation;
        toRotationMatrix(rotation, q);
        Matrix4 copied(7.0f);
        copied.setRotation(rotation);
        EXPECT_TRUE(isSame(copied, filled));
    }
}

TEST(Matrix4Builders, scalesStretchTheOwnAxes)
{
    Matrix4 m;
    m.rotationAxis(Vector3(1, 2, 3), 0.7f);
    m.setPosition(Vector3(5, 6, 7));
    Matrix4 scale;
    scale.scale(Vector3(2, 3, 4));
    const Matrix4 product = scale * m;
    m.addScale(Vector3(2, 3, 4));
    EXPECT_TRUE(isNear(m, product));
    EXPECT_TRUE(isNear(m.computeScale(), Vector3(2, 3, 4)));
    scale.scale(Vector3(infinity));
    EXPECT_EQ(scale[0].y, 0.0f); // no product of infinity and 0
    scale.translation(Vector3(5, 6, 7));
    EXPECT_TRUE(isSame(transformPoint(Vector3(1, 2, 3), scale), Vector3(6, 8, 10)));
}

} // namespace mrv
