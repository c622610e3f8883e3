#include "platform/math/eng_Quaternion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int planar = eng_DataType::QUATERNION_2D;
constexpr int spatial = eng_DataType::QUATERNION_3D;

// Rodrigues' formula: the rotation of v by `angle` about the unit vector n.
void rodrigues(const double* n, double angle, const double* v, double* out)
{
    const double dot = n[0] * v[0] + n[1] * v[1] + n[2] * v[2];
    const double cross[3] = {n[1] * v[2] - n[2] * v[1], n[2] * v[0] - n[0] * v[2], n[0] * v[1] - n[1] * v[0]};
    for (int k = 0; k < 3; ++k)
        out[k] = v[k] * std::cos(angle) + cross[k] * std::sin(angle) + n[k] * dot * (1 - std::cos(angle));
}

struct Turn
{
    double axis[3];
    double angle;

    explicit Turn(std::mt19937& engine)
    {
        std::normal_distribution<double> normal;
        std::uniform_real_distribution<double> turn(0.01, pi - 0.01);
        for (double& x : axis) x = normal(engine);
        const double length = std::sqrt(axis[0] * axis[0] + axis[1] * axis[1] + axis[2] * axis[2]);
        for (double& x : axis) x /= length;
        angle = turn(engine);
    }

    eng_QuaternionDouble quaternion() const
    {
        const double s = std::sin(angle / 2);
        const double row[4] = {s * axis[0], s * axis[1], s * axis[2], std::cos(angle / 2)};
        return {spatial, row};
    }
};

template<class Real> std::vector<Real> componentsOf(const eng_Quaternion<Real>& q)
{
    std::vector<Real> row(q.size());
    q.components(row.data());
    return row;
}

template<class Real>
void expectNear(const std::vector<Real>& found, const std::vector<Real>& expected, double tolerance)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], tolerance) << i;
}

} // namespace

TEST(eng_Quaternion, aQuarterTurnAboutTheThirdAxis)
{
    const float h = std::sqrt(0.5f);
    const float row[4] = {0, 0, h, h};
    const eng_QuaternionFloat q(spatial, row);
    // The first axis goes to the second, the second to minus the first.
    const float expectedCosines[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    const float expectedMatrix[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    float cosines[9];
    float matrix[9];
    q.cosines(cosines);
    q.matrix(matrix);
    for (int i = 0; i < 9; ++i) {
        EXPECT_NEAR(cosines[i], expectedCosines[i], 1e-7) << i;
        EXPECT_NEAR(matrix[i], expectedMatrix[i], 1e-7) << i;
    }
    const float v[3] = {2, 3, 5};
    float turned[3];
    q.rotateVectors(v, turned, 1, 3);
    EXPECT_FLOAT_EQ(turned[0], -3);
    EXPECT_FLOAT_EQ(turned[1], 2);
    EXPECT_FLOAT_EQ(turned[2], 5);
}

TEST(eng_Quaternion, thePlanarFormIsTheLastTwoComponents)
{
    const double angle = 0.8;
    const double two[2] = {std::sin(angle / 2), std::cos(angle / 2)};
    const double four[4] = {0, 0, two[0], two[1]};
    const eng_QuaternionDouble flat(planar, two);
    const eng_QuaternionDouble full(spatial, four);
    EXPECT_EQ(flat.size(), 2);
    EXPECT_EQ(full.size(), 4);
    double a[9];
    double b[9];
    flat.matrix(a);
    full.matrix(b);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(a[i], b[i]);
    EXPECT_NEAR(a[0], std::cos(angle), 1e-15);
    EXPECT_NEAR(a[3], std::sin(angle), 1e-15);
    EXPECT_EQ(componentsOf(flat), (std::vector<double>{two[0], two[1]}));
    EXPECT_EQ(componentsOf(full), (std::vector<double>{0, 0, two[0], two[1]}));
}

TEST(eng_Quaternion, rotationsFollowRodrigues)
{
    std::mt19937 engine(31);
    for (int trial = 0; trial < 200; ++trial) {
        const Turn turn(engine);
        const double v[3] = {1, -2, 0.5};
        double expected[3];
        double found[3];
        rodrigues(turn.axis, turn.angle, v, expected);
        turn.quaternion().rotateVectors(v, found, 1, 3);
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(found[k], expected[k], 1e-14);
    }
}

TEST(eng_Quaternion, cosinesAndMatrixGiveTheQuaternionBack)
{
    std::mt19937 engine(32);
    for (int trial = 0; trial < 500; ++trial) {
        const Turn turn(engine);
        const eng_QuaternionDouble q = turn.quaternion();
        double cosines[9];
        double matrix[9];
        q.cosines(cosines);
        q.matrix(matrix);
        expectNear(componentsOf(eng_QuaternionDouble::fromCosines(cosines, spatial)), componentsOf(q), 1e-14);
        expectNear(componentsOf(eng_QuaternionDouble::fromMatrix(matrix, spatial)), componentsOf(q), 1e-14);
    }
}

TEST(eng_Quaternion, halfTurnsHaveNoPreferredAxis)
{
    std::mt19937 engine(33);
    for (int trial = 0; trial < 200; ++trial) {
        Turn turn(engine);
        turn.angle = pi - 1e-9 * trial;
        double matrix[9];
        double again[9];
        turn.quaternion().matrix(matrix);
        eng_QuaternionDouble::fromMatrix(matrix, spatial).matrix(again);
        for (int i = 0; i < 9; ++i) EXPECT_NEAR(again[i], matrix[i], 1e-14);
    }
    const double aboutSecond[9] = {-1, 0, 0, 0, 1, 0, 0, 0, -1};
    expectNear(componentsOf(eng_QuaternionDouble::fromMatrix(aboutSecond, spatial)), {0, 1, 0, 0}, 1e-15);
}

TEST(eng_Quaternion, fromMatrixNeverHasANegativeLastComponent)
{
    std::mt19937 engine(34);
    for (int trial = 0; trial < 500; ++trial) {
        Turn turn(engine);
        turn.angle = 2 * turn.angle;
        double matrix[9];
        turn.quaternion().matrix(matrix);
        EXPECT_GE(componentsOf(eng_QuaternionDouble::fromMatrix(matrix, spatial))[3], 0);
        EXPECT_GE(componentsOf(eng_QuaternionDouble::fromMatrix(matrix, planar))[1], 0);
    }
}

TEST(eng_Quaternion, axesAsColumnsOfAMatrixOrRowsOfCosinesAreOneSystem)
{
    // Axes e1 -> (0, 0.6, 0.8), e2 -> (1, 0, 0), e3 -> (0, 0.8, -0.6).
    const double rows[9] = {0, 0.6, 0.8, 1, 0, 0, 0, 0.8, -0.6};
    const double columns[9] = {0, 1, 0, 0.6, 0, 0.8, 0.8, 0, -0.6};
    const eng_QuaternionDouble a = eng_QuaternionDouble::fromCosines(rows, spatial);
    const eng_QuaternionDouble b = eng_QuaternionDouble::fromMatrix(columns, spatial);
    expectNear(componentsOf(a), componentsOf(b), 1e-15);
    const double e1[3] = {1, 0, 0};
    double turned[3];
    a.rotateVectors(e1, turned, 1, 3);
    EXPECT_NEAR(turned[0], 0, 1e-15);
    EXPECT_NEAR(turned[1], 0.6, 1e-15);
    EXPECT_NEAR(turned[2], 0.8, 1e-15);
}

TEST(eng_Quaternion, aStoredInverseTurnsGlobalComponentsIntoLocalOnes)
{
    const float axes[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    const eng_QuaternionFloatAdapter adapter(spatial);
    const eng_QuaternionFloat stored = adapter.quaternion(axes).inverse();
    const float alongLocalFirst[3] = {0, 4, 0};
    float local[3];
    stored.rotateVectors(alongLocalFirst, local, 1, 3);
    EXPECT_FLOAT_EQ(local[0], 4);
    EXPECT_NEAR(local[1], 0, 1e-6);
    float again[9];
    stored.inverse().cosines(again);
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(again[i], axes[i], 1e-7);
}

TEST(eng_Quaternion, planarAdapterKeepsTheTurnInThePlane)
{
    const float c = std::cos(0.3f);
    const float s = std::sin(0.3f);
    const float axes[9] = {c, s, 0, -s, c, 0, 0, 0, 1};
    const eng_QuaternionFloat q = eng_QuaternionFloatAdapter(planar).quaternion(axes);
    expectNear(componentsOf(q), {std::sin(0.15f), std::cos(0.15f)}, 1e-7);
}

TEST(eng_Quaternion, rotationVectorIsAxisTimesAngle)
{
    const double half = std::sqrt(0.5);
    const double row[4] = {half, 0, 0, half};
    double vector[3];
    eng_QuaternionDouble(spatial, row).rotationVector(vector);
    EXPECT_NEAR(vector[0], pi / 2, 1e-15);
    EXPECT_EQ(vector[1], 0);
    EXPECT_EQ(vector[2], 0);
    const double two[2] = {-half, half};
    eng_QuaternionDouble(planar, two).rotationVector(vector);
    EXPECT_EQ(vector[0], 0);
    EXPECT_EQ(vector[1], 0);
    EXPECT_NEAR(vector[2], -pi / 2, 1e-15);
}

TEST(eng_Quaternion, rotationVectorAndQuaternionAreAnInversePair)
{
    std::mt19937 engine(35);
    std::uniform_real_distribution<double> angle(0, 2 * pi - 0.01);
    for (int trial = 0; trial < 500; ++trial) {
        Turn turn(engine);
        turn.angle = angle(engine);
        const double vector[3] = {turn.axis[0] * turn.angle, turn.axis[1] * turn.angle, turn.axis[2] * turn.angle};
        const eng_QuaternionDouble q = eng_QuaternionDouble::fromRotationVector(vector, spatial);
        expectNear(componentsOf(q), componentsOf(turn.quaternion()), 1e-15);
        double again[3];
        q.rotationVector(again);
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(again[k], vector[k], 1e-13);
        expectNear(componentsOf(eng_QuaternionDouble::fromRotationVector(again, spatial)), componentsOf(q), 1e-14);
    }
}

TEST(eng_Quaternion, smallRotationsKeepTheirDigits)
{
    for (double tiny : {1e-4, 1e-8, 1e-16, 1e-150, 1e-300}) {
        const double vector[3] = {tiny, -2 * tiny, 0.5 * tiny};
        double again[3];
        eng_QuaternionDouble::fromRotationVector(vector, spatial).rotationVector(again);
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(again[k], vector[k], 1e-14 * tiny);
    }
    const float zero[3] = {0, 0, 0};
    expectNear(componentsOf(eng_QuaternionFloat::fromRotationVector(zero, spatial)), {0, 0, 0, 1}, 0);
    expectNear(componentsOf(eng_QuaternionFloat::fromRotationVector(zero, planar)), {0, 1}, 0);
    float vector[3] = {9, 9, 9};
    eng_QuaternionFloat(spatial).rotationVector(vector);
    EXPECT_EQ(vector[0], 0);
    EXPECT_EQ(vector[1], 0);
    EXPECT_EQ(vector[2], 0);
}

TEST(eng_Quaternion, thePlanarVectorUsesItsThirdComponentAlone)
{
    const double vector[3] = {5, 6, 0.4};
    expectNear(componentsOf(eng_QuaternionDouble::fromRotationVector(vector, planar)), {std::sin(0.2), std::cos(0.2)},
               1e-16);
}

TEST(eng_Quaternion, lengthDoesNotMatter)
{
    const double rows[][4] = {{1, 2, 3, 4}, {1e200, 2e200, 3e200, 4e200}, {1e-310, 2e-310, 3e-310, 4e-310}};
    double expected[9];
    eng_QuaternionDouble(spatial, rows[0]).matrix(expected);
    // (1, 2, 3, 4) has length sqrt(30): first entry 1 - 2 (4 + 9) / 30.
    EXPECT_NEAR(expected[0], 2.0 / 15, 1e-15);
    for (const auto& row : rows) {
        double found[9];
        eng_QuaternionDouble(spatial, row).matrix(found);
        for (int i = 0; i < 9; ++i) EXPECT_NEAR(found[i], expected[i], 1e-12);
    }
}

TEST(eng_Quaternion, zerosAndUnknownCodesAreNoRotation)
{
    const double zeros[4] = {0, 0, 0, 0};
    const double row[4] = {1, 0, 0, 0};
    for (const eng_QuaternionDouble& q :
         {eng_QuaternionDouble(spatial, zeros), eng_QuaternionDouble(planar, zeros), eng_QuaternionDouble(4, row)}) {
        double matrix[9];
        q.matrix(matrix);
        for (int i = 0; i < 9; ++i) EXPECT_EQ(matrix[i], i % 4 == 0 ? 1 : 0);
    }
    EXPECT_EQ(eng_QuaternionDouble(4, row).size(), 0);
    EXPECT_EQ(componentsOf(eng_QuaternionDouble(spatial, zeros).inverse()), (std::vector<double>{0, 0, 0, 0}));
    const double nothing[9] = {};
    expectNear(componentsOf(eng_QuaternionDouble::fromMatrix(nothing, spatial)), {0, 0, 0, 1}, 0);
    expectNear(componentsOf(eng_QuaternionDouble::fromMatrix(nothing, planar)), {0, 1}, 0);
}

TEST(eng_Quaternion, finiteMatricesNeverGiveNaN)
{
    std::mt19937 engine(36);
    std::uniform_real_distribution<double> wide(-1, 1);
    for (int trial = 0; trial < 1000; ++trial) {
        double matrix[9];
        for (double& x : matrix) x = 1.79e308 * wide(engine);
        for (int mode : {planar, spatial})
            for (double part : componentsOf(eng_QuaternionDouble::fromMatrix(matrix, mode)))
                ASSERT_FALSE(std::isnan(part));
    }
}

TEST(eng_Quaternion, inverseAndProductUndoTheTurn)
{
    std::mt19937 engine(37);
    const eng_QuaternionDouble a = Turn(engine).quaternion();
    const eng_QuaternionDouble b = Turn(engine).quaternion();
    expectNear(componentsOf(a * a.inverse()), {0, 0, 0, 1}, 1e-15);
    const double v[3] = {1, 2, 3};
    double once[3];
    double twice[3];
    double both[3];
    b.rotateVectors(v, once, 1, 3);
    a.rotateVectors(once, twice, 1, 3);
    (a * b).rotateVectors(v, both, 1, 3);
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(both[k], twice[k], 1e-14);
}

TEST(eng_Quaternion, vectorsOfTwoComponentsStayInThePlane)
{
    const double two[2] = {std::sqrt(0.5), std::sqrt(0.5)};
    float rows[4] = {1, 0, 0, 2};
    eng_QuaternionFloat(planar, std::vector<float>{float(two[0]), float(two[1])}.data())
        .rotateVectors(rows, rows, 2, 2);
    EXPECT_NEAR(rows[0], 0, 1e-7);
    EXPECT_FLOAT_EQ(rows[1], 1);
    EXPECT_FLOAT_EQ(rows[2], -2);
    EXPECT_NEAR(rows[3], 0, 1e-6);
}

TEST(eng_Quaternion, planeStressTurnsAsMohrSays)
{
    const double angle = 0.35;
    // Components in a system turned by the angle: the components turn back.
    const double two[2] = {std::sin(-angle / 2), std::cos(-angle / 2)};
    const eng_QuaternionDouble toLocal(planar, two);
    const double c = std::cos(2 * angle);
    const double s = std::sin(2 * angle);
    const double s11 = 7;
    const double s22 = -3;
    const double s12 = 2;
    const double expected[3] = {2 + 5 * c + s12 * s, 2 - 5 * c - s12 * s, -5 * s + s12 * c};
    const double surface[3] = {s11, s22, s12};
    double out[4];
    toLocal.rotateTensors(eng_DataType::TENSOR_2D_SURFACE, surface, out, 1, false);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(out[i], expected[i], 1e-14);
    const double plane[4] = {s11, s22, 11, s12};
    toLocal.rotateTensors(eng_DataType::TENSOR_3D_PLANAR, plane, out, 1, false);
    EXPECT_NEAR(out[0], expected[0], 1e-14);
    EXPECT_NEAR(out[2], 11, 1e-14);
    EXPECT_NEAR(out[3], expected[2], 1e-14);
    const double strain[3] = {s11, s22, 2 * s12};
    toLocal.rotateTensors(eng_DataType::TENSOR_3D_SURFACE, strain, out, 1, true);
    EXPECT_NEAR(out[0], expected[0], 1e-14);
    EXPECT_NEAR(out[2], 2 * expected[2], 1e-14);
}

TEST(eng_Quaternion, turnedTensorsActOnTurnedVectors)
{
    std::mt19937 engine(38);
    for (int trial = 0; trial < 100; ++trial) {
        const eng_QuaternionDouble q = Turn(engine).quaternion();
        const double s[6] = {1, 2, 3, 4, 5, 6};
        const double v[3] = {0.3, -1, 2};
        // s v, then turned, against turned s on turned v.
        const double sv[3] = {s[0] * v[0] + s[3] * v[1] + s[4] * v[2], s[3] * v[0] + s[1] * v[1] + s[5] * v[2],
                              s[4] * v[0] + s[5] * v[1] + s[2] * v[2]};
        double expected[3];
        double t[6];
        double w[3];
        q.rotateVectors(sv, expected, 1, 3);
        q.rotateVectors(v, w, 1, 3);
        q.rotateTensors(eng_DataType::TENSOR_3D_FULL, s, t, 1, false);
        const double found[3] = {t[0] * w[0] + t[3] * w[1] + t[4] * w[2], t[3] * w[0] + t[1] * w[1] + t[5] * w[2],
                                 t[4] * w[0] + t[5] * w[1] + t[2] * w[2]};
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(found[k], expected[k], 1e-13);
        double maxBefore[3];
        double maxAfter[3];
        eng_TensorDouble(eng_DataType::TENSOR_3D_FULL, s, false).principals(maxBefore);
        eng_TensorDouble(eng_DataType::TENSOR_3D_FULL, t, false).principals(maxAfter);
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(maxAfter[k], maxBefore[k], 1e-13);
    }
}

TEST(eng_Quaternion, manyRowsTurnInPlace)
{
    const double half = std::sqrt(0.5);
    const double row[4] = {0, 0, half, half};
    const eng_QuaternionDouble q(spatial, row);
    std::vector<double> tensors = {1, 2, 3, 4, 5, 6, 10, 20, 30, 40, 50, 60};
    q.rotateTensors(eng_DataType::TENSOR_3D_FULL, tensors.data(), tensors.data(), 2, false);
    // x to y, y to -x: 11 and 22 change places, 12 its sign, 13 goes to 23 and 23 to -13.
    const double expected[6] = {2, 1, 3, -4, -6, 5};
    for (int i = 0; i < 6; ++i) {
        EXPECT_NEAR(tensors[i], expected[i], 1e-14);
        EXPECT_NEAR(tensors[6 + i], 10 * expected[i], 1e-13);
    }
}
