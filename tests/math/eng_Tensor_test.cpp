#include "platform/math/eng_Tensor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Code = eng_DataType;

std::ifstream openReference(const char* name)
{
    return std::ifstream(std::filesystem::path(YLD_REFERENCE) / name, std::ios::binary);
}

std::vector<double> readDoubles(const char* name)
{
    std::ifstream file = openReference(name);
    std::vector<double> values;
    for (double value; file.read(reinterpret_cast<char*>(&value), sizeof value);) values.push_back(value);
    return values;
}

// The generator of reference/tensors.py.
class Generator
{
public:
    explicit Generator(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t bits()
    {
        m_state += 0x9E3779B97F4A7C15u;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    double unit() { return std::ldexp(static_cast<double>(bits() >> 11), -52) - 1.0; }

    std::vector<double> tensor(int index)
    {
        std::vector<double> c;
        for (int i = 0; i < 6; ++i) c.push_back(unit());
        switch (index % 5) {
        case 1: {
            const int scale = static_cast<int>(bits() % 201) - 100;
            for (double& x : c) x = std::ldexp(x, scale);
            break;
        }
        case 2:
            for (double& x : c) x = std::ldexp(x, static_cast<int>(bits() % 31) - 15);
            break;
        case 3: {
            const int small = -static_cast<int>(bits() % 24);
            const double p = unit();
            for (int i = 0; i < 6; ++i) c[i] = i < 3 ? p + std::ldexp(c[i], small) : std::ldexp(c[i], small);
            break;
        }
        case 4: {
            const int small = -static_cast<int>(bits() % 20);
            const double v0 = unit();
            const double v1 = unit();
            const double v2 = unit();
            const double outer[6] = {v0 * v0, v1 * v1, v2 * v2, v0 * v1, v0 * v2, v1 * v2};
            for (int i = 0; i < 6; ++i) c[i] = outer[i] + std::ldexp(c[i], small);
            break;
        }
        default:
            break;
        }
        return c;
    }

private:
    std::uint64_t m_state;
};

double sizeOf(const std::vector<double>& c)
{
    double size = 0;
    for (double x : c) size = std::max(size, std::fabs(x));
    return size;
}

// Relative error of a result; a reference of zero is met by anything that vanishes beside the components.
double relativeError(double found, double expected, double size)
{
    if (expected == 0) return std::fabs(found) <= 1e-30 * size ? 0 : std::numeric_limits<double>::infinity();
    return std::fabs(found - expected) / std::fabs(expected);
}

template<class Real>
void expectAll(const std::vector<double>& c, const double* expected, double tolerance, int code = Code::TENSOR_3D_FULL)
{
    std::vector<Real> row(c.begin(), c.end());
    const eng_Tensor<Real> tensor(code, row.data(), false);
    const double found[9] = {tensor.maxPrincipal(),
                             tensor.midPrincipal(),
                             tensor.minPrincipal(),
                             tensor.tresca(),
                             tensor.mises(),
                             tensor.pressure(),
                             tensor.inv3(),
                             tensor.maxInplanePrincipal(),
                             tensor.minInplanePrincipal()};
    const char* const names[9] = {"max",      "mid",  "min",         "tresca",     "mises",
                                  "pressure", "inv3", "max inplane", "min inplane"};
    for (int i = 0; i < 9; ++i) {
        double reference = expected[i];
        // Below the normal range a float has fewer digits; above it, none.
        if (sizeof(Real) == sizeof(float)) {
            if (std::fabs(reference) > std::numeric_limits<float>::max()) {
                EXPECT_TRUE(std::isinf(found[i])) << names[i];
                continue;
            }
            if (std::fabs(reference) < std::numeric_limits<float>::min()) {
                EXPECT_LE(std::fabs(found[i] - reference), std::numeric_limits<float>::denorm_min()) << names[i];
                continue;
            }
        }
        EXPECT_LE(relativeError(found[i], reference, sizeOf(c)), tolerance)
            << names[i] << " found " << found[i] << " expected " << reference;
    }
}

} // namespace

TEST(eng_Tensor, tenThousandFloatTensorsHaveTheirPrincipalValues)
{
    const std::vector<double> reference = readDoubles("tensors_float.bin");
    ASSERT_EQ(reference.size(), 90000u);
    Generator generator(1);
    double worst = 0;
    for (int index = 0; index < 10000; ++index) {
        std::vector<float> row;
        for (double x : generator.tensor(index)) row.push_back(static_cast<float>(x));
        const eng_TensorFloat tensor(Code::TENSOR_3D_FULL, row.data(), false);
        float found[3];
        tensor.principals(found);
        EXPECT_EQ(found[0], tensor.maxPrincipal());
        EXPECT_EQ(found[1], tensor.midPrincipal());
        EXPECT_EQ(found[2], tensor.minPrincipal());
        for (int i = 0; i < 3; ++i) worst = std::max(worst, relativeError(found[i], reference[9 * index + i], 1));
    }
    // Half a unit in the last place of a float, and the calculation's own 1e-8 on top.
    EXPECT_LE(worst, 7.1e-8);
}

TEST(eng_Tensor, theSameTensorsInDoubleAreGoodToTwelveDigits)
{
    const std::vector<double> reference = readDoubles("tensors_float.bin");
    ASSERT_EQ(reference.size(), 90000u);
    Generator generator(1);
    double worst = 0;
    for (int index = 0; index < 10000; ++index) {
        std::vector<double> row;
        for (double x : generator.tensor(index)) row.push_back(static_cast<float>(x));
        double found[3];
        eng_TensorDouble(Code::TENSOR_3D_FULL, row.data(), false).principals(found);
        for (int i = 0; i < 3; ++i)
            worst = std::max(worst, relativeError(found[i], reference[9 * index + i], sizeOf(row)));
    }
    EXPECT_LE(worst, 2e-13);
}

TEST(eng_Tensor, allInvariantsOfTenThousandTensorsInBothPrecisions)
{
    const std::vector<double> reference = readDoubles("tensors_float.bin");
    ASSERT_EQ(reference.size(), 90000u);
    Generator generator(1);
    for (int index = 0; index < 10000; ++index) {
        SCOPED_TRACE(index);
        std::vector<double> row;
        for (double x : generator.tensor(index)) row.push_back(static_cast<float>(x));
        expectAll<float>(row, &reference[9 * index], 1.2e-7);
        expectAll<double>(row, &reference[9 * index], 1e-12);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(eng_Tensor, allInvariantsOfPlanarAndSurfaceTensors)
{
    const std::vector<double> reference = readDoubles("tensors_plane.bin");
    ASSERT_EQ(reference.size(), 18000u);
    Generator generator(3);
    for (int index = 0; index < 1000; ++index) {
        SCOPED_TRACE(index);
        std::vector<double> c;
        for (double x : generator.tensor(index)) c.push_back(static_cast<float>(x));
        const std::vector<double> planar = {c[0], c[1], c[2], c[3]};
        const std::vector<double> surface = {c[0], c[1], c[3]};
        for (int code : {Code::TENSOR_3D_PLANAR, Code::TENSOR_2D_PLANAR}) {
            expectAll<float>(planar, &reference[18 * index], 1.2e-7, code);
            expectAll<double>(planar, &reference[18 * index], 1e-12, code);
        }
        for (int code : {Code::TENSOR_3D_SURFACE, Code::TENSOR_2D_SURFACE}) {
            expectAll<float>(surface, &reference[18 * index + 9], 1.2e-7, code);
            expectAll<double>(surface, &reference[18 * index + 9], 1e-12, code);
        }
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(eng_Tensor, allInvariantsOfDoubleTensors)
{
    const std::vector<double> reference = readDoubles("tensors_double.bin");
    ASSERT_EQ(reference.size(), 9u * 1500u);
    Generator generator(2);
    for (int index = 0; index < 1500; ++index) {
        SCOPED_TRACE(index);
        expectAll<double>(generator.tensor(index), &reference[9 * index], 1e-12);
    }
}

TEST(eng_Tensor, specialTensors)
{
    std::ifstream file = openReference("tensors_special.txt");
    int count = 0;
    for (std::string text; std::getline(file, text); ++count) {
        SCOPED_TRACE(text);
        std::istringstream line(text);
        std::vector<double> numbers;
        for (std::string word; line >> word;) numbers.push_back(std::strtod(word.c_str(), nullptr));
        ASSERT_EQ(numbers.size(), 15u);
        const std::vector<double> c(numbers.begin(), numbers.begin() + 6);
        expectAll<double>(c, &numbers[6], 1e-12);
        std::vector<float> narrow(c.begin(), c.end());
        if (std::vector<double>(narrow.begin(), narrow.end()) == c) expectAll<float>(c, &numbers[6], 1e-7);
    }
    EXPECT_EQ(count, 50);
}

TEST(eng_Tensor, uniaxialTensionByHand)
{
    const float row[6] = {90, 0, 0, 0, 0, 0};
    const eng_TensorFloat tensor(Code::TENSOR_3D_FULL, row, false);
    EXPECT_EQ(tensor.mises(), 90);
    EXPECT_EQ(tensor.tresca(), 90);
    EXPECT_EQ(tensor.pressure(), -30);
    EXPECT_EQ(tensor.inv3(), 90);
    EXPECT_EQ(tensor.maxPrincipal(), 90);
    EXPECT_EQ(tensor.midPrincipal(), 0);
    EXPECT_EQ(tensor.minPrincipal(), 0);
}

TEST(eng_Tensor, compressionTurnsTheSignOfTheThirdInvariant)
{
    const double row[6] = {0, -90, 0, 0, 0, 0};
    const eng_TensorDouble tensor(Code::TENSOR_3D_FULL, row, false);
    EXPECT_NEAR(tensor.inv3(), -90, 1e-12);
    EXPECT_EQ(tensor.pressure(), 30);
}

TEST(eng_Tensor, pureShearByHand)
{
    const double row[6] = {0, 0, 0, 10, 0, 0};
    const eng_TensorDouble tensor(Code::TENSOR_3D_FULL, row, false);
    EXPECT_NEAR(tensor.mises(), 10 * std::sqrt(3.0), 1e-14);
    EXPECT_EQ(tensor.tresca(), 20);
    EXPECT_EQ(tensor.inv3(), 0);
    EXPECT_EQ(tensor.pressure(), 0);
    EXPECT_EQ(tensor.maxPrincipal(), 10);
    EXPECT_EQ(tensor.midPrincipal(), 0);
    EXPECT_EQ(tensor.minPrincipal(), -10);
}

TEST(eng_Tensor, engineeringShearsCountHalf)
{
    const double doubled[6] = {1, 2, 3, 8, 10, 12};
    const double plain[6] = {1, 2, 3, 4, 5, 6};
    const eng_TensorDouble engineering(Code::TENSOR_3D_FULL, doubled, true);
    const eng_TensorDouble tensor(Code::TENSOR_3D_FULL, plain, false);
    EXPECT_EQ(engineering.component(4), 5);
    EXPECT_EQ(engineering.mises(), tensor.mises());
    EXPECT_EQ(engineering.tresca(), tensor.tresca());
    EXPECT_EQ(engineering.inv3(), tensor.inv3());
    EXPECT_EQ(engineering.maxPrincipal(), tensor.maxPrincipal());
    EXPECT_EQ(engineering.maxInplanePrincipal(), tensor.maxInplanePrincipal());
    EXPECT_NE(engineering.mises(), eng_TensorDouble(Code::TENSOR_3D_FULL, doubled, false).mises());
}

TEST(eng_Tensor, planarTypesHoldFourComponents)
{
    const float row[4] = {3, 1, 5, 1};
    const double root = std::sqrt(2.0);
    for (int code : {Code::TENSOR_3D_PLANAR, Code::TENSOR_2D_PLANAR}) {
        const eng_TensorFloat tensor(code, row, false);
        EXPECT_FLOAT_EQ(tensor.maxInplanePrincipal(), static_cast<float>(2 + root));
        EXPECT_FLOAT_EQ(tensor.minInplanePrincipal(), static_cast<float>(2 - root));
        EXPECT_EQ(tensor.outOfPlanePrincipal(), 5);
        EXPECT_EQ(tensor.maxPrincipal(), 5);
        EXPECT_FLOAT_EQ(tensor.midPrincipal(), static_cast<float>(2 + root));
        EXPECT_FLOAT_EQ(tensor.minPrincipal(), static_cast<float>(2 - root));
        EXPECT_FLOAT_EQ(tensor.pressure(), -3);
    }
}

TEST(eng_Tensor, surfaceTypesHoldThreeComponentsAndNothingAcross)
{
    const float row[3] = {3, 1, 1};
    const double root = std::sqrt(2.0);
    for (int code : {Code::TENSOR_3D_SURFACE, Code::TENSOR_2D_SURFACE}) {
        const eng_TensorFloat tensor(code, row, false);
        EXPECT_EQ(tensor.component(3), 1);
        EXPECT_EQ(tensor.outOfPlanePrincipal(), 0);
        EXPECT_FLOAT_EQ(tensor.maxPrincipal(), static_cast<float>(2 + root));
        EXPECT_FLOAT_EQ(tensor.midPrincipal(), static_cast<float>(2 - root));
        EXPECT_EQ(tensor.minPrincipal(), 0);
        EXPECT_FLOAT_EQ(tensor.tresca(), static_cast<float>(2 + root));
        EXPECT_FLOAT_EQ(tensor.pressure(), -4.0f / 3);
    }
}

TEST(eng_Tensor, inplanePrincipalsIgnoreWhatPointsAcross)
{
    const double row[6] = {3, 1, 50, 1, 20, -30};
    const eng_TensorDouble tensor(Code::TENSOR_3D_FULL, row, false);
    EXPECT_NEAR(tensor.maxInplanePrincipal(), 2 + std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(tensor.minInplanePrincipal(), 2 - std::sqrt(2.0), 1e-15);
    EXPECT_EQ(tensor.outOfPlanePrincipal(), 50);
}

TEST(eng_Tensor, anUnknownCodeIsATensorOfZeros)
{
    const float row[6] = {1, 2, 3, 4, 5, 6};
    for (int code : {0, 3, 4, 6, 8, 14, -1}) {
        EXPECT_EQ(Code::numTensorComponents(code), 0);
        EXPECT_EQ(eng_TensorFloat(code, row, false).mises(), 0);
        EXPECT_EQ(eng_TensorFloat(code, row, false).maxPrincipal(), 0);
    }
}

TEST(eng_Tensor, axesTurnTheDiagonalBackIntoTheTensor)
{
    Generator generator(3);
    for (int index = 0; index < 2000; ++index) {
        const std::vector<double> c = generator.tensor(index);
        double value[3];
        double n[9];
        eng_TensorDouble(Code::TENSOR_3D_FULL, c.data(), false).principalAxes(value, n);
        const int place[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
        for (int i = 0; i < 6; ++i) {
            const int j = place[i][0];
            const int k = place[i][1];
            double sum = 0;
            double unit = 0;
            for (int p = 0; p < 3; ++p) {
                sum += value[p] * n[3 * p + j] * n[3 * p + k];
                unit += n[3 * p + j] * n[3 * p + k];
            }
            EXPECT_NEAR(sum, c[i], 5e-15 * sizeOf(c)) << index;
            EXPECT_NEAR(unit, j == k ? 1 : 0, 2e-15) << index;
        }
        const double volume = n[0] * (n[4] * n[8] - n[5] * n[7]) - n[1] * (n[3] * n[8] - n[5] * n[6]) +
                              n[2] * (n[3] * n[7] - n[4] * n[6]);
        EXPECT_NEAR(volume, 1, 1e-14);
    }
}

TEST(eng_Tensor, axesOfADiagonalTensorAreSortedAxes)
{
    const float row[6] = {1, 3, 2, 0, 0, 0};
    float value[3];
    float n[9];
    eng_TensorFloat(Code::TENSOR_3D_FULL, row, false).principalAxes(value, n);
    EXPECT_EQ(value[0], 3);
    EXPECT_EQ(value[1], 2);
    EXPECT_EQ(value[2], 1);
    const float expected[9] = {0, 1, 0, 0, 0, 1, 1, 0, 0};
    for (int i = 0; i < 9; ++i) EXPECT_EQ(n[i], expected[i]) << i;
}

TEST(eng_Tensor, finiteExtremesNeverGiveNaN)
{
    const double sizes[] = {0, 5e-324, 1e-310, 1e-200, 1, 1e200, 1.7976931348623157e308};
    Generator generator(4);
    for (int trial = 0; trial < 5000; ++trial) {
        double row[6];
        float narrow[6];
        for (int i = 0; i < 6; ++i) {
            row[i] = sizes[generator.bits() % 7] * (generator.bits() % 2 ? 1 : -1);
            narrow[i] = static_cast<float>(std::fmax(std::fmin(row[i], 3.4028235e38), -3.4028235e38));
        }
        const eng_TensorDouble wide(Code::TENSOR_3D_FULL, row, trial % 2 == 1);
        const eng_TensorFloat small(Code::TENSOR_3D_FULL, narrow, trial % 2 == 1);
        for (double value :
             {wide.mises(), wide.tresca(), wide.pressure(), wide.inv3(), wide.maxPrincipal(), wide.midPrincipal(),
              wide.minPrincipal(), wide.maxInplanePrincipal(), wide.minInplanePrincipal(), wide.outOfPlanePrincipal()})
            ASSERT_FALSE(std::isnan(value));
        for (float value : {small.mises(), small.tresca(), small.pressure(), small.inv3(), small.maxPrincipal(),
                            small.midPrincipal(), small.minPrincipal(), small.maxInplanePrincipal(),
                            small.minInplanePrincipal(), small.outOfPlanePrincipal()})
            ASSERT_FALSE(std::isnan(value));
        double value[3];
        double axes[9];
        wide.principalAxes(value, axes);
        for (double x : axes) ASSERT_FALSE(std::isnan(x));
    }
}

TEST(eng_Tensor, misesOfRowsEqualsMisesOfEach)
{
    Generator generator(5);
    struct Case
    {
        int code;
        int width;
    };
    for (const Case& one : {Case{9, 6}, Case{10, 4}, Case{11, 3}, Case{12, 4}, Case{13, 3}})
        for (bool engineering : {false, true}) {
            const int rows = 101;
            std::vector<float> data;
            std::vector<double> wide;
            for (int i = 0; i < rows * one.width; ++i) {
                data.push_back(static_cast<float>(300 * generator.unit()));
                wide.push_back(data.back());
            }
            std::vector<float> out(rows);
            std::vector<float> outWide(rows);
            eng_mises(one.code, data.data(), rows, engineering, out.data());
            eng_mises(one.code, wide.data(), rows, engineering, outWide.data());
            for (int i = 0; i < rows; ++i) {
                EXPECT_FLOAT_EQ(out[i], eng_TensorFloat(one.code, &data[i * one.width], engineering).mises());
                EXPECT_FLOAT_EQ(out[i], outWide[i]);
                EXPECT_FLOAT_EQ(outWide[i], static_cast<float>(
                                                eng_TensorDouble(one.code, &wide[i * one.width], engineering).mises()));
            }
        }
}

TEST(eng_Tensor, misesOfASurfaceRowTakesAThirdOfTwoComponentsAsMean)
{
    // mean 3, deviators 3 - 3, 6 - 3 and -3, shear 2: sqrt(1.5 (0 + 9 + 9 + 8)) = sqrt(39).
    const float row[3] = {3, 6, 2};
    float out = 0;
    eng_mises(Code::TENSOR_3D_SURFACE, row, 1, false, &out);
    EXPECT_FLOAT_EQ(out, std::sqrt(39.0f));
    // Halved shear: sqrt(1.5 (18 + 2)) = sqrt(30).
    eng_mises(Code::TENSOR_3D_SURFACE, row, 1, true, &out);
    EXPECT_FLOAT_EQ(out, std::sqrt(30.0f));
}

TEST(eng_Tensor, misesOfRowsKeepsItsDigitsAtBothEndsOfFloat)
{
    const float row[12] = {1e30f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1e-30f};
    float out[2];
    eng_mises(Code::TENSOR_3D_FULL, row, 2, false, out);
    EXPECT_FLOAT_EQ(out[0], 1e30f);
    EXPECT_FLOAT_EQ(out[1], 1.7320508e-30f);
}

TEST(eng_Tensor, misesOfRowsAtTheEndsOfFloatAmongOthers)
{
    // Rows that single precision cannot square, each beside rows that it can, at each of four places.
    const double sizes[] = {1e-30, 1, 1e30, 0, 1e18, 1e-13};
    Generator generator(7);
    std::vector<float> data;
    std::vector<double> expected;
    for (int i = 0; i < 600; ++i) {
        const double size = sizes[(i * 7 + i / 5) % 6];
        std::vector<double> wide;
        for (int c = 0; c < 6; ++c) {
            data.push_back(static_cast<float>(size * generator.unit()));
            wide.push_back(data.back());
        }
        expected.push_back(eng_TensorDouble(Code::TENSOR_3D_FULL, wide.data(), false).mises());
    }
    std::vector<float> out(600);
    eng_mises(Code::TENSOR_3D_FULL, data.data(), 600, false, out.data());
    for (int i = 0; i < 600; ++i) EXPECT_NEAR(out[i], expected[i], 3e-7 * expected[i]) << i;
}

TEST(eng_Tensor, misesOfRowsUnderPressureKeepsItsDigits)
{
    // A thousand rows of a million in each normal component and a few units beside.
    Generator generator(11);
    std::vector<float> data;
    std::vector<double> expected;
    for (int i = 0; i < 1000; ++i) {
        std::vector<double> wide;
        for (int c = 0; c < 6; ++c) {
            data.push_back(static_cast<float>((c < 3 ? 1e6 : 0.0) + 8 * generator.unit()));
            wide.push_back(data.back());
        }
        expected.push_back(eng_TensorDouble(Code::TENSOR_3D_FULL, wide.data(), false).mises());
    }
    std::vector<float> out(1000);
    eng_mises(Code::TENSOR_3D_FULL, data.data(), 1000, false, out.data());
    for (int i = 0; i < 1000; ++i) EXPECT_NEAR(out[i], expected[i], 3e-7 * expected[i]) << i;
}

TEST(eng_Tensor, misesOfAnUnknownCodeWritesZeros)
{
    const float row[3] = {1, 2, 3};
    float out[2] = {5, 5};
    eng_mises(4, row, 2, false, out);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[1], 0);
}
