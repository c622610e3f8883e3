#include "platform/sto/sto_FieldDescription.h"
#include "result_model.h"
#include "yld/impl/field/yld_RowArray.h"

using yld_FieldOutputTest = ResultModel;

namespace {

std::string describe(const yld_FieldValue& value)
{
    std::string text = "n" + std::to_string(value.nodeLabel()) + " e" + std::to_string(value.elementLabel()) + " p" +
                       std::to_string(value.integrationPoint()) + ":";
    for (int i = 0; i < value.data().length(); ++i) text += " " + std::to_string(static_cast<int>(value.data()[i]));
    return text;
}

yld_Sequence<yld_Sequence<float>> unitSystem() { return rows({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}); }

// The axes turned by a quarter about the third.

} // namespace

TEST_F(yld_FieldOutputTest, nodalVectorComesBackFromTheFile)
{
    yld_Frame frame = step().Frame(3, 0.25, "third increment");
    yld_FieldOutput& u =
        frame.FieldOutput("U", "displacement", yld_Enum::VECTOR, {}, invariants({yld_Enum::MAGNITUDE}));
    u.addData(yld_Enum::NODAL, instance(), ints({20, 10, 120}), rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    reopen();

    const yld_FieldOutput& read = field("U");
    EXPECT_STREQ(read.name().cStr(), "U");
    EXPECT_STREQ(read.description().cStr(), "displacement");
    EXPECT_EQ(read.type(), yld_Enum::VECTOR);
    EXPECT_EQ(joined(read.componentLabels()), "U1,U2,U3");
    ASSERT_EQ(read.validInvariants().size(), 1);
    EXPECT_EQ(read.validInvariants()[0], yld_Enum::MAGNITUDE);
    EXPECT_FALSE(read.isComplex());
    EXPECT_FALSE(read.hasLocalCoordSystem());
    EXPECT_FALSE(read.IsOrphan());
    EXPECT_EQ(read.frameNumber(), 0);
    ASSERT_EQ(read.values().size(), 3);
    EXPECT_EQ(describe(read.values(0)), "n20 e-1 p-1: 1 2 3");
    EXPECT_EQ(describe(read.values(1)), "n10 e-1 p-1: 4 5 6");
    EXPECT_EQ(describe(read.values(2)), "n120 e-1 p-1: 7 8 9");
    EXPECT_EQ(read.values(0).position(), yld_Enum::NODAL);
    EXPECT_STREQ(read.values(0).instance().name().cStr(), "block-1");
    EXPECT_FLOAT_EQ(read.values(0).magnitude(), 3.7416574F);
    EXPECT_EQ(read.location(0).position(), yld_Enum::NODAL);
    EXPECT_EQ(read.locations().size(), 1);
}

TEST_F(yld_FieldOutputTest, writtenDataAreReadBackWithoutReopening)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "temperature", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{5}, {6}}));
    t.addData(yld_Enum::NODAL, instance(), ints({30}), rows({{7}}));
    ASSERT_EQ(t.values().size(), 3);
    EXPECT_EQ(describe(t.values(0)), "n10 e-1 p-1: 5");
    EXPECT_EQ(describe(t.values(2)), "n30 e-1 p-1: 7");
    EXPECT_EQ(t.SubField().size(), 2);
    EXPECT_EQ(t.locations().size(), 1);
}

TEST_F(yld_FieldOutputTest, elementLabelsOfTwoClassesGiveTwoBlocksAndOneLocation)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("V", "volume", yld_Enum::SCALAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({7, 101, 5, 102}), rows({{1}, {2}, {3}, {4}}));
    reopen();
    const yld_FieldOutput& read = field("V");
    ASSERT_EQ(read.SubField().size(), 2);
    EXPECT_EQ(read.locations().size(), 1);
    EXPECT_EQ(joined(read.baseElementTypes()), "TET4,HEX8");
    ASSERT_EQ(read.values().size(), 4);
    std::string all;
    for (int i = 0; i < 4; ++i) all += describe(read.values(i)) + "; ";
    EXPECT_EQ(all, "n-1 e7 p-1: 1; n-1 e5 p-1: 3; n-1 e101 p-1: 2; n-1 e102 p-1: 4; ");
    EXPECT_STREQ(read.values(0).baseElementType().cStr(), "TET4");
}

TEST_F(yld_FieldOutputTest, rowsOfIntegrationPointsAreCutByClass)
{
    // A tetrahedron has one point, a hexahedron eight: the rows of the first come before and after those of the other.
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p = frame.FieldOutput("P", "", yld_Enum::SCALAR);
    p.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({5, 102, 7}), counted(10));
    reopen();
    const yld_FieldOutput& read = field("P");
    ASSERT_EQ(read.values().size(), 10);
    EXPECT_EQ(describe(read.values(0)), "n-1 e5 p1: 1");
    EXPECT_EQ(describe(read.values(1)), "n-1 e7 p1: 10");
    EXPECT_EQ(describe(read.values(2)), "n-1 e102 p1: 2");
    EXPECT_EQ(describe(read.values(9)), "n-1 e102 p8: 9");
}

TEST_F(yld_FieldOutputTest, elementNodalRowsCarryNodeAndElementLabels)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p = frame.FieldOutput("NF", "", yld_Enum::SCALAR);
    p.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({5}), counted(4));
    reopen();
    const yld_FieldOutput& read = field("NF");
    ASSERT_EQ(read.values().size(), 4);
    EXPECT_EQ(describe(read.values(0)), "n20 e5 p-1: 1");
    EXPECT_EQ(describe(read.values(3)), "n60 e5 p-1: 4");
}

TEST_F(yld_FieldOutputTest, sectionPointIsKeptWithItsText)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{1}, {2}}), yld_SectionPoint(2, "top"));
    s.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{3}, {4}}), yld_SectionPoint(1, "bottom"));
    s.addData(yld_Enum::CENTROID, instance(), ints({7}), rows({{5}}));
    reopen();
    const yld_FieldOutput& read = field("S");
    EXPECT_EQ(read.values(0).sectionPoint().number(), 2);
    EXPECT_STREQ(read.values(0).sectionPoint().description().cStr(), "top");
    EXPECT_EQ(read.values(4).sectionPoint().number(), -1);
    ASSERT_EQ(read.locations().size(), 1);
    ASSERT_EQ(read.location(0).sectionPoints().size(), 2);
    EXPECT_EQ(read.location(0).sectionPoint(0).number(), 2);
    EXPECT_EQ(read.location(0).sectionPoint(1).number(), 1);
}

TEST_F(yld_FieldOutputTest, sectionPointMessages)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    const auto add = [&](yld_Enum::yld_ResultPositionEnum position, int label, const yld_SectionPoint& point) {
        return failureOf([&] { s.addData(position, instance(), ints({label}), rows({{1}}), point); });
    };
    EXPECT_EQ(add(yld_Enum::CENTROID, 301, yld_SectionPoint(3, "top")), "Section Point number 3.");
    EXPECT_EQ(add(yld_Enum::CENTROID, 301, yld_SectionPoint(1, "top")), "Section point not valid for all elements.");
    EXPECT_EQ(add(yld_Enum::NODAL, 10, yld_SectionPoint(1, "top")),
              "The element labels passed into field.addData() method contain some undefined labels.");
    // A bad label comes first.
    EXPECT_EQ(add(yld_Enum::CENTROID, 999, yld_SectionPoint(3, "top")), "Invalid element label 999");
    EXPECT_EQ(s.values().size(), 0);
}

TEST_F(yld_FieldOutputTest, shorterTensorRowsAreFilledUpAndLongerOnesRefused)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    s.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1, 2, 3, 4}}));
    EXPECT_EQ(describe(s.values(0)), "n-1 e101 p-1: 1 2 3 4 0 0");
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({102}), rows({{1, 2, 3, 4, 5, 6, 7}}));
              }),
              "Incorrect tensor data length");
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), rows({{1, 2, 3, 4}, {1, 2, 3}}));
              }),
              "Incorrect tensor data length");
}

TEST_F(yld_FieldOutputTest, lengthMessages)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    const auto add = [&](yld_Enum::yld_ResultPositionEnum position, const yld_Sequence<int>& labels, int count) {
        return failureOf([&] { s.addData(position, instance(), labels, counted(count)); });
    };
    EXPECT_EQ(
        add(yld_Enum::NODAL, ints({10, 20}), 3),
        "Length of data sequence incorrect. Data at 2 locations expected. Data at 3 locations provided. Nodal data "
        "request failed. ");
    EXPECT_EQ(add(yld_Enum::INTEGRATION_POINT, ints({101}), 7),
              "Length of data sequence incorrect. Data at 8 locations expected. Data at 7 locations provided. Element "
              "data request failed. Element type is HEX8. Data at 8 integration points per element expected.");
    EXPECT_EQ(add(yld_Enum::ELEMENT_NODAL, ints({7}), 1),
              "Length of data sequence incorrect. Data at 4 locations expected. Data at 1 locations provided. Element "
              "data request failed. Element type is TET4. Data at 4 nodes per element expected.");
    EXPECT_EQ(add(yld_Enum::WHOLE_ELEMENT, ints({7}), 2),
              "Length of data sequence incorrect. Data at 1 locations expected. Data at 2 locations provided. Element "
              "data request failed. Element type is TET4. Data at 1 location per element expected.");
}

TEST_F(yld_FieldOutputTest, rowsThatDoNotFitSeveralClasses)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), rows({{1}}));
              }),
              "Insufficient data sequences provided.");
    // The block that came before stays.
    EXPECT_EQ(s.values().size(), 1);
    EXPECT_EQ(
        failureOf([&] {
            s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), rows({{1}, {2}, {3}}));
        }),
        "field.addData() request not processed correctly. 2 data sequences written from the 3 supplied. Write data "
        "for each element position, element type, and section definition separately for more detailed error "
        "messages.");
}

TEST_F(yld_FieldOutputTest, widthMessages)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    yld_FieldOutput& b = frame.FieldOutput("B", "", yld_Enum::BOOLEAN);
    EXPECT_EQ(failureOf([&] {
                  t.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2}}));
              }),
              "SCALAR data should be of length 1.");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2}}));
              }),
              "Data items should be of length 3");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1, 2, 3}, {1, 2}}));
              }),
              "Data items should be of length 3");
    EXPECT_EQ(failureOf([&] { b.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}})); }),
              "Invalid results type for field.");
}

TEST_F(yld_FieldOutputTest, refusalsBeforeAnythingIsLookedAt)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3}}), yld_SectionPoint(),
                            yld_Sequence<yld_Sequence<float>>(), rows({{1, 2, 3}, {4, 5, 6}}));
              }),
              "Data and ConjugateData must have the same length.");
    EXPECT_EQ(
        failureOf([&] {
            u.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3}}), yld_SectionPoint(), unitSystem());
        }),
        "Transformation not allowed for scalar data.");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, instance(), ints({10, 11}), rows({{1, 2, 3}}));
              }),
              "Invalid node label 11");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::ELEMENT_FACE, instance(), ints({101}), rows({{1, 2, 3}}));
              }),
              "Invalid results position for field.");
    yld_FieldOutput orphan;
    EXPECT_EQ(failureOf([&] { orphan.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}})); }),
              "addData() not valid for an orphaned object.");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, yld_Instance(), ints({10}), rows({{1, 2, 3}}));
              }),
              "Instance \"\" does not exists in this yld.");
}

TEST_F(yld_FieldOutputTest, wholeModelNeedsNeitherInstanceNorLabels)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& e = frame.FieldOutput("ALLSE", "energy", yld_Enum::SCALAR);
    e.addData(yld_Enum::WHOLE_MODEL, yld_Instance(), ints({}), rows({{42}}));
    reopen();
    const yld_FieldOutput& read = field("ALLSE");
    ASSERT_EQ(read.values().size(), 1);
    EXPECT_EQ(read.values(0).position(), yld_Enum::WHOLE_MODEL);
    EXPECT_EQ(describe(read.values(0)), "n-1 e-1 p-1: 42");
    EXPECT_EQ(read.SubField()[0].meshIndex(), -1);
    EXPECT_EQ(read.bulkDataBlocks()[0].data()[0], 42.0F);
}

TEST_F(yld_FieldOutputTest, conjugateDataMakeAPair)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    u.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1, 2, 3}, {4, 5, 6}}), yld_SectionPoint(),
              yld_Sequence<yld_Sequence<float>>(), rows({{-1, -2, -3}, {-4, -5, -6}}));
    EXPECT_FALSE(u.isComplex());
    reopen();
    const yld_FieldOutput& read = field("U");
    EXPECT_TRUE(read.isComplex());
    EXPECT_EQ(read.values(1).data().floatConjugate()[2], -6.0F);
    EXPECT_EQ(read.bulkDataBlocks()[0].conjugateData()[3], -4.0F);
}

TEST_F(yld_FieldOutputTest, localSystemsComeBackAsCosines)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> systems;
    systems.append(unitSystem());
    systems.append(turnedSystem());
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), rows({{1, 2, 3, 4, 5, 6}, {6, 5, 4, 3, 2, 1}}),
              yld_SectionPoint(), systems);
    s.addData(yld_Enum::CENTROID, instance(), ints({7}), rows({{1, 1, 1, 1, 1, 1}}), yld_SectionPoint(),
              turnedSystem());
    reopen();
    const yld_FieldOutput& read = field("S");
    EXPECT_TRUE(read.hasLocalCoordSystem());
    const auto same = [](const yld_Sequence<yld_Sequence<float>>& a, const yld_Sequence<yld_Sequence<float>>& b) {
        ASSERT_EQ(a.size(), 3);
        for (int i = 0; i < 3; ++i) {
            for (int k = 0; k < 3; ++k) EXPECT_NEAR(a[i][k], b[i][k], 1e-6F) << i << k;
        }
    };
    same(read.values(0).localCoordSystem(), unitSystem());
    same(read.values(1).localCoordSystem(), turnedSystem());
    same(read.values(2).localCoordSystem(), turnedSystem());
    EXPECT_EQ(read.bulkDataBlocks()[0].orientationWidth(), 4);
    // The systems are no field of the frame.
    EXPECT_EQ(joined(step().frames(0).fieldOutputs().getFieldOutputNames()), "S");
    EXPECT_FALSE(step().frames(0).fieldOutputs().isMember("orientation"));
    EXPECT_EQ(step().frames(0).fieldOutputs().size(), 1);
}

TEST_F(yld_FieldOutputTest, planeTensorsHavePlaneSystems)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_2D_PLANAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3, 4}}), yld_SectionPoint(), turnedSystem());
    s.addData(yld_Enum::CENTROID, instance(), ints({302}), rows({{1, 2, 3, 4}}), yld_SectionPoint(),
              rows({{0, 1}, {-1, 0}}));
    reopen();
    for (int i = 0; i < 2; ++i) {
        const yld_FieldValue value = field("S").values(i);
        EXPECT_EQ(value.localCoordSystemData().length(), 2);
        const yld_Sequence<yld_Sequence<float>> system = value.localCoordSystem();
        ASSERT_EQ(system.size(), 2);
        EXPECT_NEAR(system[0][0], 0.0F, 1e-6F);
        EXPECT_NEAR(system[0][1], 1.0F, 1e-6F);
        EXPECT_NEAR(system[1][0], -1.0F, 1e-6F);
    }
    yld_FieldOutput& again = step().frames(0).fieldOutputs().get("S");
    EXPECT_EQ(failureOf([&] {
                  again.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3, 4}}), yld_SectionPoint(),
                                rows({{0, 1}, {-1}}));
              }),
              "A coordinate system should have three rows of three direction cosines.");
}

TEST_F(yld_FieldOutputTest, realAndComplexBlocksOfOneFieldKeepApart)
{
    for (int i = 0; i < 2; ++i) {
        yld_Frame frame = step().Frame(i, i);
        frame.FieldOutput("T", "", yld_Enum::SCALAR)
            .addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}), yld_SectionPoint(),
                     yld_Sequence<yld_Sequence<float>>(), i == 0 ? rows({}) : rows({{3}, {4}}));
    }
    reopen();
    EXPECT_FALSE(field("T", 0).isComplex());
    EXPECT_EQ(field("T", 0).values(0).data().floatConjugate(), nullptr);
    EXPECT_TRUE(field("T", 1).isComplex());
    EXPECT_EQ(field("T", 1).values(1).data().floatConjugate()[0], 4.0F);
}

TEST_F(yld_FieldOutputTest, wrongNumberOfLocalSystems)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> systems;
    systems.append(unitSystem());
    systems.append(unitSystem());
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}),
                            rows({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}}), yld_SectionPoint(),
                            systems);
              }),
              "Coordinate system definition should be of length 0, 1, or the same length as the data array.");
}

TEST_F(yld_FieldOutputTest, matricesKnowTheirShape)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.MatrixOutput("M", "", 3, 2).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3, 4, 5, 6}}));
    frame.SymmetricMatrixOutput("K", "", 3)
        .addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3, 4, 5, 6}}));
    frame.VectorOutput("W", "", 5).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1, 2, 3, 4, 5}}));
    reopen();
    const yld_FieldOutput& m = field("M");
    EXPECT_EQ(m.type(), yld_Enum::MATRIX);
    EXPECT_EQ(m.rows(), 3);
    EXPECT_EQ(m.cols(), 2);
    EXPECT_EQ(m.subtype(), yld_Enum::UNDEFINED_DATASUBTYPE);
    EXPECT_EQ(describe(m.values(0)), "n10 e-1 p-1: 1 2 3 4 5 6");
    const yld_FieldOutput& k = field("K");
    EXPECT_EQ(k.rows(), 3);
    EXPECT_EQ(k.cols(), 3);
    EXPECT_EQ(k.subtype(), yld_Enum::SYMMETRIC_MATRIX);
    EXPECT_EQ(k.bulkDataBlocks()[0].width(), 6);
    EXPECT_EQ(describe(field("W").values(0)), "n10 e-1 p-1: 1 2 3 4 5");
    // A vector without labels goes on with the width that it has.
    yld_FieldOutput& w = step().frames(0).fieldOutputs().get("W");
    w.addData(yld_Enum::NODAL, instance(), ints({20}), rows({{6, 7, 8, 9, 10}}));
    EXPECT_EQ(describe(w.values(1)), "n20 e-1 p-1: 6 7 8 9 10");
}

TEST_F(yld_FieldOutputTest, plainArraysGiveTheSameAsSequences)
{
    const int labels[] = {20, 10};
    const float data[] = {1, 2, 3, 4, 5, 6};
    const float conjugate[] = {-1, -2, -3, -4, -5, -6};
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    u.addBulkData(yld_Enum::NODAL, instance(), labels, 2, data, 2, 3, yld_SectionPoint(), conjugate);
    EXPECT_EQ(describe(u.values(1)), "n10 e-1 p-1: 4 5 6");
    EXPECT_EQ(u.values(1).data().floatConjugate()[1], -5.0F);
    EXPECT_EQ(
        failureOf([&] { u.addBulkData(yld_Enum::NODAL, instance(), labels, 2, data, 3, 2); }),
        "Length of data sequence incorrect. Data at 2 locations expected. Data at 3 locations provided. Nodal data "
        "request failed. ");
    EXPECT_EQ(failureOf([&] { u.addBulkData(yld_Enum::NODAL, instance(), labels, 2, data, 2, 2); }),
              "Data items should be of length 3");
    const int bad[] = {20, 11};
    EXPECT_EQ(failureOf([&] { u.addBulkData(yld_Enum::NODAL, instance(), bad, 2, data, 2, 3); }),
              "Invalid node label 11");
}

TEST_F(yld_FieldOutputTest, setOfTheDataIsInternalAndNumbered)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}));
    reopen();
    EXPECT_EQ(instance().nodeSets(false).size(), 0);
    EXPECT_TRUE(instance().nodeSets(true).isMember("api_set 0"));
}

TEST_F(yld_FieldOutputTest, secondStepGetsSetsOfItsOwnName)
{
    yld_Frame first = step().Frame(1, 1.0);
    first.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}));
    yld_Step& second = m_yld->Step("Step-2", "", yld_Enum::TIME, 1.0);
    yld_Frame frame = second.Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({30}), rows({{3}}));
    reopen();
    EXPECT_TRUE(instance().nodeSets(true).isMember("api_set 0"));
    EXPECT_TRUE(instance().nodeSets(true).isMember("api_set 1"));
}

TEST_F(yld_FieldOutputTest, defaultLabelsByType)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const auto labels = [&](const char* name, yld_Enum::yld_DataTypeEnum type) {
        return joined(frame.FieldOutput(name, "", type).componentLabels());
    };
    EXPECT_EQ(labels("U", yld_Enum::VECTOR), "U1,U2,U3");
    EXPECT_EQ(labels("S", yld_Enum::TENSOR_3D_FULL), "S11,S22,S33,S12,S13,S23");
    EXPECT_EQ(labels("A", yld_Enum::TENSOR_3D_PLANAR), "A11,A22,A33,A12");
    EXPECT_EQ(labels("B", yld_Enum::TENSOR_3D_SURFACE), "B11,B22,B12");
    EXPECT_EQ(labels("C", yld_Enum::TENSOR_2D_PLANAR), "C11,C22,C33,C12");
    EXPECT_EQ(labels("D", yld_Enum::TENSOR_2D_SURFACE), "D11,D22,D12");
    EXPECT_EQ(labels("T", yld_Enum::SCALAR), "");
    EXPECT_EQ(joined(frame.FieldOutput("X", "", yld_Enum::VECTOR, texts({"a", "b", "c"})).componentLabels()), "a,b,c");
    EXPECT_EQ(failureOf([&] { frame.FieldOutput("Y", "", yld_Enum::VECTOR, texts({"a"})); }),
              "The number of component labels should be 3");
    EXPECT_FALSE(frame.fieldOutputs().isMember("Y"));
}

TEST_F(yld_FieldOutputTest, invariantsThatATypeMayHave)
{
    using Invariants = yld_Sequence<yld_Enum::yld_InvariantEnum>;
    const auto isRefused = [](yld_Enum::yld_DataTypeEnum type, yld_Enum::yld_InvariantEnum which) {
        Invariants one;
        one.append(which);
        return failureOf([&] { yld_FieldOutput::checkValidInvariants(type, one); }) == "Invalid invariant";
    };
    const auto permitted = [&](yld_Enum::yld_DataTypeEnum type) {
        std::string text;
        for (int i = 1; i <= 11; ++i) {
            if (!isRefused(type, static_cast<yld_Enum::yld_InvariantEnum>(i))) text += std::to_string(i) + " ";
        }
        return text;
    };
    EXPECT_EQ(permitted(yld_Enum::VECTOR), "8 ");
    EXPECT_EQ(permitted(yld_Enum::TENSOR_3D_FULL), "1 2 3 4 5 6 7 ");
    EXPECT_EQ(permitted(yld_Enum::TENSOR_3D_PLANAR), "1 2 3 4 5 6 7 9 10 11 ");
    EXPECT_EQ(permitted(yld_Enum::TENSOR_2D_PLANAR), "1 2 3 4 5 6 7 9 10 11 ");
    EXPECT_EQ(permitted(yld_Enum::TENSOR_3D_SURFACE), "1 3 9 10 ");
    EXPECT_EQ(permitted(yld_Enum::TENSOR_2D_SURFACE), "1 3 9 10 ");
    EXPECT_EQ(permitted(yld_Enum::SCALAR), "");
    EXPECT_EQ(permitted(yld_Enum::MATRIX), "");
}

TEST_F(yld_FieldOutputTest, misesBringsPressureAlong)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL, {}, invariants({yld_Enum::MISES}));
    ASSERT_EQ(s.validInvariants().size(), 2);
    EXPECT_EQ(s.validInvariants()[1], yld_Enum::PRESS);
    const yld_FieldOutput& b =
        frame.FieldOutput("B", "", yld_Enum::TENSOR_3D_FULL, {}, invariants({yld_Enum::PRESS, yld_Enum::MISES}));
    EXPECT_EQ(b.validInvariants().size(), 2);
}

TEST_F(yld_FieldOutputTest, subsetByPositionSharesTheBlocks)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1}, {2}}));
    t.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{3}}));
    const yld_FieldOutput atNodes = t.getSubset(yld_Enum::NODAL);
    EXPECT_TRUE(atNodes.IsOrphan());
    EXPECT_EQ(atNodes.values().size(), 2);
    EXPECT_EQ(atNodes.locations().size(), 1);
    EXPECT_STREQ(atNodes.name().cStr(), "T");
    EXPECT_EQ(atNodes.fieldKeys().size(), 2);
    EXPECT_EQ(t.getSubset(yld_Enum::WHOLE_ELEMENT).values().size(), 0);
    EXPECT_EQ(t.getSubset(instance()).values().size(), 3);
    EXPECT_EQ(t.getSubset(yld_Instance()).values().size(), 0);
    yld_FieldOutput copy(atNodes);
    EXPECT_EQ(failureOf([&] { copy.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}})); }),
              "addData() not valid for an orphaned object.");
}

TEST_F(yld_FieldOutputTest, planarFieldThatReceivesAFullBlockBecomesFull)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& planar = frame.FieldOutput(
        "S", "", yld_Enum::TENSOR_3D_PLANAR, {},
        invariants({yld_Enum::MISES, yld_Enum::MAX_INPLANE_PRINCIPAL, yld_Enum::MAX_PRINCIPAL, yld_Enum::PRESS}));
    planar.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3, 4}}));
    // The same name as a full tensor, as a solver would write it: a field of another frame handle.
    yld_FieldOutput full("S", "", yld_Enum::TENSOR_3D_FULL, planar.componentLabels(),
                         invariants({yld_Enum::MISES, yld_Enum::PRESS, yld_Enum::MAX_PRINCIPAL}), step().assembly(),
                         frame.fieldOutputs().fieldFrame(), frame.fieldOutputs().fieldStep(), 0, 0, 0,
                         yld_Enum::UNDEFINED_DATASUBTYPE);
    full.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{1, 2, 3, 4, 5, 6}}));

    EXPECT_TRUE(planar.addFieldKeys(full.fieldKeys()));
    EXPECT_FALSE(planar.addFieldKeys(full.fieldKeys()));
    EXPECT_EQ(planar.type(), yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(joined(planar.componentLabels()), "S11,S22,S33,S12,S13,S23");
    ASSERT_EQ(planar.validInvariants().size(), 3);
    EXPECT_EQ(planar.validInvariants()[0], yld_Enum::MISES);
    EXPECT_EQ(planar.validInvariants()[1], yld_Enum::PRESS);
    EXPECT_EQ(planar.validInvariants()[2], yld_Enum::MAX_PRINCIPAL);
    // Blocks of the store keep the width that they have.
    EXPECT_EQ(planar.values(0).data().length(), 4);
    EXPECT_EQ(planar.values(1).data().length(), 6);

    yld_FieldOutput narrowed = planar.getSubset(yld_Enum::CENTROID);
    EXPECT_EQ(narrowed.type(), yld_Enum::TENSOR_3D_FULL);
    yld_Sequence<yld_SubField> onlyPlanar;
    onlyPlanar.append(planar.SubField()[0]);
    narrowed.values() = yld_SequenceFieldValue(onlyPlanar);
    narrowed = narrowed.getSubset(yld_Enum::CENTROID);
    EXPECT_EQ(narrowed.type(), yld_Enum::TENSOR_3D_PLANAR);
    EXPECT_EQ(narrowed.componentLabels().size(), 6);
}

TEST_F(yld_FieldOutputTest, descriptionsAreSharedByFrames)
{
    for (int i = 0; i < 3; ++i) {
        yld_Frame frame = step().Frame(i, 0.1 * i);
        yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
        u.addData(yld_Enum::NODAL, instance(), ints({30, 10, 20}),
                  rows({{1, 2, 3}, {4, 5, 6}, {7, 8, static_cast<float>(i)}}));
        yld_FieldOutput& v = frame.FieldOutput("V", "", yld_Enum::SCALAR);
        v.addData(yld_Enum::CENTROID, instance(), ints({7, 101, 5}), rows({{1}, {2}, {static_cast<float>(i)}}));
    }
    reopen();
    EXPECT_EQ(instance().nodeSets(true).size(), 1);
    EXPECT_EQ(instance().elementSets(true).size(), 1);
    const long long id = field("U", 0).SubField()[0].description().shortCut().id();
    EXPECT_EQ(field("U", 2).SubField()[0].description().shortCut().id(), id);
    EXPECT_EQ(describe(field("U", 2).values(2)), "n20 e-1 p-1: 7 8 2");
    // The tetrahedra come first, as in the labels.
    EXPECT_EQ(describe(field("V", 1).values(1)), "n-1 e5 p-1: 1");
    EXPECT_EQ(describe(field("V", 1).values(2)), "n-1 e101 p-1: 2");
}

TEST_F(yld_FieldOutputTest, defaultBlockIsEmpty)
{
    const yld_SubField block;
    EXPECT_EQ(block.length(), 0);
    EXPECT_EQ(block.storedLength(), 0);
    EXPECT_EQ(block.key(), -1);
    EXPECT_EQ(block.type(), yld_Enum::UNDEFINED_DATATYPE);
    EXPECT_EQ(block.elementClass(), -1);
    EXPECT_EQ(block.meshIndex(), -1);
    EXPECT_FALSE(block.hasDescription());
}

TEST_F(yld_FieldOutputTest, readOnlyDatabaseRefusesDataAndStaysReadable)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    m_yld->save();
    m_yld->close();
    m_yld = &openYld(m_path.c_str(), true);
    const std::string refusal = m_path + ": the database is open for reading only";
    yld_FieldOutput& t = step().frames(0).fieldOutputs().get("T");
    EXPECT_EQ(failureOf([&] { t.addData(yld_Enum::NODAL, instance(), ints({20}), rows({{1}})); }), refusal);
    EXPECT_EQ(failureOf([&] { step().Frame(2, 2.0); }), refusal);
    EXPECT_EQ(failureOf([&] { step().LoadCase("a"); }), refusal);
    EXPECT_FALSE(step().loadCases().isMember("a"));
    EXPECT_EQ(step().frames().size(), 1);
    EXPECT_EQ(field("T").values(0).data()[0], 1.0);
}

TEST_F(yld_FieldOutputTest, closedDatabaseGivesAnErrorAndNothingWorse)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    m_yld->save();
    yld_FieldOutput unread = step().frames(0).fieldOutputs().get("T");
    yld_Frame left = step().frames(0);
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(failureOf([&] { unread.values(0); }), m_path + ": the database is closed");
    EXPECT_EQ(failureOf([&] { left.fieldOutputs().isMember("U"); }), m_path + ": the database is closed");
}

TEST(yld_RowArray, rowsOfAnyWidths)
{
    const yld_RowArray uniform(rows({{1, 2}, {3, 4}, {5, 6}}));
    EXPECT_TRUE(uniform.isUniform());
    EXPECT_EQ(uniform.width(2), 2);
    EXPECT_EQ(uniform.row(2)[1], 6.0F);
    const yld_RowArray ragged(rows({{1, 2}, {3, 4}, {}, {5, 6, 7}}));
    EXPECT_FALSE(ragged.isUniform());
    EXPECT_EQ(ragged.size(), 4);
    EXPECT_EQ(ragged.width(0), 2);
    EXPECT_EQ(ragged.width(1), 2);
    EXPECT_EQ(ragged.row(1)[0], 3.0F);
    EXPECT_EQ(ragged.width(2), 0);
    EXPECT_EQ(ragged.width(3), 3);
    EXPECT_EQ(ragged.row(3)[2], 7.0F);
    const yld_RowArray lateStart(rows({{}, {1}}));
    EXPECT_FALSE(lateStart.isUniform());
    EXPECT_EQ(lateStart.width(0), 0);
    EXPECT_EQ(lateStart.width(1), 1);
    EXPECT_EQ(yld_RowArray(rows({})).size(), 0);
    EXPECT_TRUE(yld_RowArray(rows({{}, {}})).isUniform());
}
