#include "platform/sto/sto_FieldDescription.h"
#include "platform/sto/sto_Mesh.h"
#include "platform/sto/sto_PartInstance.h"
#include "result_model.h"

#include <csignal>
#include <vector>

using yld_FieldAddDataTest = ResultModel;

namespace {

// One field: where its values lie, what they are, and what comes with them.
struct Kind
{
    yld_Enum::yld_ResultPositionEnum position;
    int type; // a yld_DataTypeEnum, or symmetricMatrix
    bool isComplex;
    int systems; // 0 none, 1 one for all, 2 one a row

    std::string name() const
    {
        return "F" + std::to_string(position) + "_" + std::to_string(type) + (isComplex ? "c" : "r") +
               std::to_string(systems);
    }
};

constexpr int symmetricMatrix = 100;

int componentsOf(int type)
{
    switch (type) {
    case yld_Enum::SCALAR:
        return 1;
    case yld_Enum::VECTOR:
        return 3;
    case yld_Enum::TENSOR_3D_PLANAR:
    case yld_Enum::TENSOR_2D_PLANAR:
        return 4;
    case yld_Enum::TENSOR_3D_SURFACE:
    case yld_Enum::TENSOR_2D_SURFACE:
        return 3;
    default:
        return 6; // full tensors, 3 x 2 matrices, symmetric 3 x 3 matrices
    }
}

bool isPlanar(int type) { return type == yld_Enum::TENSOR_2D_PLANAR || type == yld_Enum::TENSOR_2D_SURFACE; }

std::vector<Kind> allKinds()
{
    std::vector<Kind> kinds;
    for (const auto position : {yld_Enum::NODAL, yld_Enum::ELEMENT_NODAL, yld_Enum::INTEGRATION_POINT,
                                yld_Enum::CENTROID, yld_Enum::WHOLE_ELEMENT, yld_Enum::WHOLE_MODEL}) {
        for (const bool isComplex : {false, true}) {
            for (const int type : {static_cast<int>(yld_Enum::SCALAR), static_cast<int>(yld_Enum::VECTOR),
                                   static_cast<int>(yld_Enum::MATRIX), symmetricMatrix}) {
                kinds.push_back({position, type, isComplex, 0});
            }
            for (int type = yld_Enum::TENSOR_3D_FULL; type <= yld_Enum::TENSOR_2D_SURFACE; ++type) {
                for (int systems = 0; systems < 3; ++systems) kinds.push_back({position, type, isComplex, systems});
            }
        }
    }
    return kinds;
}

// Labels in an order that is neither the mesh's nor sorted; the elements are of three classes.
const std::vector<int> nodeLabels = {70, 10, 120, 40};
const std::vector<int> elementLabels = {102, 7, 301, 101, 5, 302};

struct ElementShape
{
    int numNodes;
    int numPoints;
    std::vector<int> nodes;
};

ElementShape shapeOf(int element)
{
    switch (element) {
    case 101:
        return {8, 8, {10, 20, 30, 40, 50, 60, 70, 80}};
    case 102:
        return {8, 8, {50, 60, 70, 80, 90, 100, 110, 120}};
    case 7:
        return {4, 1, {10, 20, 30, 50}};
    case 5:
        return {4, 1, {20, 30, 40, 60}};
    case 301:
        return {4, 4, {10, 20, 30, 40}};
    default:
        return {4, 4, {50, 60, 70, 80}};
    }
}

// A location: the label of its node or element, and its place in the element from 0.
struct Location
{
    int label;
    int place;
};

std::vector<Location> locationsOf(yld_Enum::yld_ResultPositionEnum position)
{
    std::vector<Location> all;
    if (position == yld_Enum::WHOLE_MODEL) return {{0, 0}};
    if (position == yld_Enum::NODAL) {
        for (const int label : nodeLabels) all.push_back({label, 0});
        return all;
    }
    for (const int label : elementLabels) {
        const ElementShape shape = shapeOf(label);
        const int count = position == yld_Enum::ELEMENT_NODAL       ? shape.numNodes
                          : position == yld_Enum::INTEGRATION_POINT ? shape.numPoints
                                                                    : 1;
        for (int i = 0; i < count; ++i) all.push_back({label, i});
    }
    return all;
}

float numberAt(const Location& location, int component)
{
    return static_cast<float>(100 * location.label + 10 * location.place + component);
}

bool isTurned(const Location& location) { return (location.label + location.place) % 2 == 1; }

yld_Sequence<yld_Sequence<float>> systemAt(bool turned)
{
    return turned ? rows({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}) : rows({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}});
}

yld_FieldOutput& makeField(yld_Frame& frame, const Kind& kind)
{
    const yld_String name(kind.name().c_str());
    if (kind.type == yld_Enum::MATRIX) return frame.MatrixOutput(name, "", 3, 2);
    if (kind.type == symmetricMatrix) return frame.SymmetricMatrixOutput(name, "", 3);
    return frame.FieldOutput(name, "", static_cast<yld_Enum::yld_DataTypeEnum>(kind.type));
}

yld_Sequence<int> sequence(const std::vector<int>& labels)
{
    return yld_Sequence<int>(labels.data(), static_cast<int>(labels.size()));
}

void write(yld_FieldOutput& field, const Kind& kind, const yld_Instance& instance)
{
    const bool isWhole = kind.position == yld_Enum::WHOLE_MODEL;
    const yld_Sequence<int> labels =
        isWhole ? ints({}) : sequence(kind.position == yld_Enum::NODAL ? nodeLabels : elementLabels);
    yld_Sequence<yld_Sequence<float>> data;
    yld_Sequence<yld_Sequence<float>> conjugate;
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> systems;
    for (const Location& location : locationsOf(kind.position)) {
        yld_Sequence<float> row;
        yld_Sequence<float> negative;
        for (int c = 0; c < componentsOf(kind.type); ++c) {
            row.append(numberAt(location, c));
            negative.append(-numberAt(location, c));
        }
        data.append(row);
        if (kind.isComplex) conjugate.append(negative);
        if (kind.systems == 2) systems.append(systemAt(isTurned(location)));
    }
    if (kind.systems == 1) {
        field.addData(kind.position, isWhole ? yld_Instance() : instance, labels, data, yld_SectionPoint(),
                      systemAt(true), conjugate);
    } else {
        field.addData(kind.position, isWhole ? yld_Instance() : instance, labels, data, yld_SectionPoint(), systems,
                      conjugate);
    }
}

// Which location a value that was read says it lies at.
Location locationOf(const Kind& kind, const yld_FieldValue& value)
{
    switch (kind.position) {
    case yld_Enum::WHOLE_MODEL:
        return {0, 0};
    case yld_Enum::NODAL:
        return {value.nodeLabel(), 0};
    case yld_Enum::INTEGRATION_POINT:
        return {value.elementLabel(), value.integrationPoint() - 1};
    case yld_Enum::ELEMENT_NODAL: {
        const std::vector<int> nodes = shapeOf(value.elementLabel()).nodes;
        const auto found = std::find(nodes.begin(), nodes.end(), value.nodeLabel());
        EXPECT_NE(found, nodes.end());
        return {value.elementLabel(), static_cast<int>(found - nodes.begin())};
    }
    default:
        return {value.elementLabel(), 0};
    }
}

void expectSystem(const Kind& kind, const Location& location, const yld_FieldValue& value)
{
    const yld_Sequence<yld_Sequence<float>> system = value.localCoordSystem();
    const yld_Sequence<yld_Sequence<float>> wanted = systemAt(kind.systems == 1 || isTurned(location));
    const int size = isPlanar(kind.type) ? 2 : 3;
    ASSERT_EQ(system.size(), size);
    for (int i = 0; i < size; ++i) {
        for (int k = 0; k < size; ++k) EXPECT_NEAR(system[i][k], wanted[i][k], 1e-6F) << i << k;
    }
}

void expectField(const yld_FieldOutput& field, const Kind& kind)
{
    SCOPED_TRACE(kind.name());
    std::vector<Location> left = locationsOf(kind.position);
    ASSERT_EQ(field.values().size(), static_cast<int>(left.size()));
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        EXPECT_EQ(value.position(), kind.position);
        const Location at = locationOf(kind, value);
        const auto found = std::find_if(left.begin(), left.end(), [&at](const Location& each) {
            return each.label == at.label && each.place == at.place;
        });
        ASSERT_NE(found, left.end()) << at.label << " " << at.place;
        left.erase(found);
        ASSERT_EQ(value.data().length(), componentsOf(kind.type));
        for (int c = 0; c < componentsOf(kind.type); ++c) {
            EXPECT_EQ(value.data().floatData()[c], numberAt(at, c)) << at.label << " " << at.place;
            const float* conjugate = value.data().floatConjugate();
            ASSERT_EQ(conjugate != nullptr, kind.isComplex);
            if (conjugate) {
                EXPECT_EQ(conjugate[c], -numberAt(at, c)) << at.label;
            }
        }
        if (kind.systems != 0) {
            expectSystem(kind, at, value);
        } else {
            EXPECT_EQ(value.localCoordSystemData().length(), 0);
        }
    }
}

yld_Sequence<yld_Sequence<yld_Sequence<float>>> manySystems(int count)
{
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> all;
    for (int i = 0; i < count; ++i) all.append(systemAt(i % 2 == 1));
    return all;
}

yld_Sequence<yld_Sequence<float>> tensorRows(int count)
{
    yld_Sequence<yld_Sequence<float>> all;
    for (int i = 0; i < count; ++i) all.append(floats({static_cast<float>(i + 1), 0, 0, 0, 0, 0}));
    return all;
}

} // namespace

TEST_F(yld_FieldAddDataTest, everyPositionAndTypeAtOnceAfterClosingAndInAnotherProcess)
{
    const std::vector<Kind> kinds = allKinds();
    yld_Frame frame = step().Frame(1, 1.0);
    for (const Kind& kind : kinds) {
        yld_FieldOutput& written = makeField(frame, kind);
        write(written, kind, instance());
        expectField(written, kind);
        EXPECT_FALSE(written.isComplex());
    }
    reopen();
    for (const Kind& kind : kinds) {
        const yld_FieldOutput& read = field(kind.name().c_str());
        expectField(read, kind);
        EXPECT_EQ(read.isComplex(), kind.isComplex) << kind.name();
        EXPECT_EQ(read.hasLocalCoordSystem(), kind.systems != 0) << kind.name();
    }
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(inOtherProcess([&] {
                  m_yld = &openYld(m_path.c_str(), true);
                  for (const Kind& kind : kinds) expectField(field(kind.name().c_str()), kind);
                  m_yld->close();
              }),
              0);
}

TEST_F(yld_FieldAddDataTest, sectionPointsInAnotherProcess)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    for (const auto position : {yld_Enum::INTEGRATION_POINT, yld_Enum::ELEMENT_NODAL}) {
        s.addData(position, instance(), ints({302, 301}), counted(8, 1), yld_SectionPoint(1, "bottom"));
        s.addData(position, instance(), ints({302, 301}), counted(8, 101), yld_SectionPoint(2, "top"));
    }
    const auto check = [this] {
        const yld_FieldOutput& read = field("S");
        ASSERT_EQ(read.values().size(), 32);
        const yld_Sequence<yld_SectionPoint> points = read.location(0).sectionPoints();
        ASSERT_EQ(points.size(), 2);
        EXPECT_STREQ(points[0].description().cStr(), "bottom");
        EXPECT_STREQ(points[1].description().cStr(), "top");
        EXPECT_EQ(read.locations().size(), 2);
        EXPECT_EQ(read.values(4).elementLabel(), 301);
        EXPECT_EQ(read.values(4).integrationPoint(), 1);
        EXPECT_EQ(read.values(4).data()[0], 5.0);
        EXPECT_EQ(read.values(4).sectionPoint().number(), 1);
        EXPECT_EQ(read.values(8).data()[0], 101.0);
        EXPECT_EQ(read.values(8).sectionPoint().number(), 2);
        EXPECT_EQ(read.values(31).nodeLabel(), 40);
        EXPECT_EQ(read.values(31).data()[0], 108.0);
    };
    check();
    reopen();
    check();
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(inOtherProcess([&] {
                  m_yld = &openYld(m_path.c_str(), true);
                  check();
                  m_yld->close();
              }),
              0);
}

TEST_F(yld_FieldAddDataTest, sectionPointOneOfOneLocationIsTheFirst)
{
    yld_SectionCategory& single = m_yld->SectionCategory("single", "one point");
    single.SectionPoint(1, "middle");
    yld_Part& part = m_yld->parts().get("block");
    part.addElements(ints({401}), connectivity({{10, 20, 30, 40}}), "SHELL4", "", single);
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({401}), counted(1), yld_SectionPoint(1, "middle"));
    EXPECT_EQ(s.SubField()[0].description().locationIndex(), 0);
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({401}), counted(1), yld_SectionPoint(2, "middle"));
              }),
              "Section Point number 2.");
    EXPECT_EQ(
        failureOf([&] {
            s.addData(yld_Enum::CENTROID, instance(), ints({401, 101}), counted(2), yld_SectionPoint(1, "middle"));
        }),
        "Section Point number 1.");
}

TEST_F(yld_FieldAddDataTest, checksComeInTheirOrder)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    yld_FieldOutput& b = frame.FieldOutput("B", "", yld_Enum::BOOLEAN);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    const yld_SectionPoint wrongPoint(9, "no such");
    const yld_Sequence<yld_Sequence<float>> none;
    const yld_Sequence<yld_Sequence<float>> one = rows({{1}});
    const yld_Sequence<yld_Sequence<float>> two = rows({{1}, {2}});
    const auto system = systemAt(false);
    EXPECT_EQ(
        failureOf([&] { u.addData(yld_Enum::ELEMENT_FACE, yld_Instance(), ints({99}), one, wrongPoint, system, two); }),
        "Instance \"\" does not exists in this yld.");
    EXPECT_EQ(
        failureOf([&] { u.addData(yld_Enum::ELEMENT_FACE, instance(), ints({99}), one, wrongPoint, system, two); }),
        "Data and ConjugateData must have the same length.");
    EXPECT_EQ(
        failureOf([&] { u.addData(yld_Enum::ELEMENT_FACE, instance(), ints({99}), one, wrongPoint, system, one); }),
        "Transformation not allowed for scalar data.");
    EXPECT_EQ(failureOf([&] { u.addData(yld_Enum::ELEMENT_FACE, instance(), ints({99}), one, wrongPoint, none, one); }),
              "Invalid results position for field.");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::CENTROID, instance(), ints({101, 99}), one, wrongPoint, none, one);
              }),
              "Invalid element label 99");
    EXPECT_EQ(failureOf([&] { u.addData(yld_Enum::NODAL, instance(), ints({99}), one, wrongPoint, none, one); }),
              "Invalid node label 99");
    EXPECT_EQ(failureOf([&] { b.addData(yld_Enum::CENTROID, instance(), ints({301}), two, wrongPoint, none, two); }),
              "Section Point number 9.");
    EXPECT_EQ(
        failureOf([&] { b.addData(yld_Enum::NODAL, instance(), ints({10}), two); }),
        "Length of data sequence incorrect. Data at 1 locations expected. Data at 2 locations provided. Nodal data "
        "request failed. ");
    EXPECT_EQ(failureOf([&] { b.addData(yld_Enum::NODAL, instance(), ints({10}), one); }),
              "Invalid results type for field.");
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), rows({{1}, {1, 2}, {1, 2, 3, 4, 5, 6, 7}}),
                            yld_SectionPoint(), manySystems(2));
              }),
              "Coordinate system definition should be of length 0, 1, or the same length as the data array.");
    for (const yld_FieldOutput* field : {&u, &b, &s}) EXPECT_EQ(field->SubField().size(), 0);
    reopen();
    EXPECT_EQ(step().frames(0).fieldOutputs().size(), 0);
}

TEST_F(yld_FieldAddDataTest, refusedLabelsMakeNoSet)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::SCALAR);
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::NODAL, instance(), ints({10, 99, 98}), counted(3));
              }),
              "Invalid node label 99");
    EXPECT_EQ(failureOf([&] {
                  u.addData(yld_Enum::CENTROID, instance(), ints({5, 6}), counted(2));
              }),
              "Invalid element label 6");
    reopen();
    EXPECT_EQ(instance().nodeSets(true).size(), 0);
    EXPECT_EQ(instance().elementSets(true).size(), 0);
}

TEST_F(yld_FieldAddDataTest, lengthOfComplexDataCountsBothHalves)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    EXPECT_EQ(
        failureOf([&] {
            t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(3), yld_SectionPoint(),
                      yld_Sequence<yld_Sequence<float>>(), counted(3));
        }),
        "Length of data sequence incorrect. Data at 2 locations expected. Data at 6 locations provided. Nodal data "
        "request failed. ");
    EXPECT_EQ(
        failureOf([&] {
            t.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), counted(3), yld_SectionPoint(),
                      yld_Sequence<yld_Sequence<float>>(), counted(3));
        }),
        "field.addData() request not processed correctly. 4 data sequences written from the 3 supplied. Write data "
        "for each element position, element type, and section definition separately for more detailed error "
        "messages.");
    EXPECT_EQ(t.SubField().size(), 2);
}

TEST_F(yld_FieldAddDataTest, conjugateRowsAreCheckedLikeData)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const yld_Sequence<yld_Sequence<float>> none;
    const auto add = [&](yld_FieldOutput& field, const yld_Sequence<yld_Sequence<float>>& data,
                         const yld_Sequence<yld_Sequence<float>>& conjugate) {
        return failureOf([&] {
            field.addData(yld_Enum::NODAL, instance(), ints({10, 20}), data, yld_SectionPoint(), none, conjugate);
        });
    };
    EXPECT_EQ(add(frame.FieldOutput("T", "", yld_Enum::SCALAR), rows({{1}, {2}}), rows({{1}, {2, 3}})),
              "SCALAR data should be of length 1.");
    EXPECT_EQ(add(frame.FieldOutput("U", "", yld_Enum::VECTOR), rows({{1, 2, 3}, {1, 2, 3}}), rows({{1, 2}, {1, 2}})),
              "Data items should be of length 3");
    EXPECT_EQ(add(frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL), rows({{1, 2, 3}, {1, 2, 3}}),
                  rows({{1, 2, 3}, {1, 2, 3, 4}})),
              "Incorrect tensor data length");
    EXPECT_EQ(add(frame.MatrixOutput("M", "", 3, 2), rows({{1}, {1}}), rows({{1}, {1}})),
              "Data items should be of length 6");
}

TEST_F(yld_FieldAddDataTest, blocksBeforeAFailureStayInFieldAndStore)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    // The hexahedron's row fits, the tetrahedron's is too long.
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}),
                            rows({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6, 7}}));
              }),
              "Incorrect tensor data length");
    EXPECT_EQ(s.SubField().size(), 1);
    EXPECT_EQ(s.fieldKeys().size(), 1);
    EXPECT_EQ(s.locations().size(), 1);
    reopen();
    ASSERT_EQ(field("S").values().size(), 1);
    EXPECT_EQ(field("S").values(0).elementLabel(), 101);
    EXPECT_EQ(field("S").values(0).data()[5], 6.0);
}

TEST_F(yld_FieldAddDataTest, eachBlockOfATensorHasItsOwnRowLength)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 7, 102}),
              rows({{1, 2, 3, 4}, {5, 6, 7, 8, 9, 10}, {1, 2, 3, 4}}));
    ASSERT_EQ(s.values().size(), 3);
    EXPECT_EQ(s.values(0).data()[4], 0.0);
    EXPECT_EQ(s.values(2).elementLabel(), 7);
    EXPECT_EQ(s.values(2).data()[5], 10.0);
}

TEST_F(yld_FieldAddDataTest, tooFewLocalSystemsStopAtTheBlockThatLacksThem)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({101, 102, 7}), tensorRows(3), yld_SectionPoint(),
                            manySystems(2));
              }),
              "Insufficient coordSystem sequences provided.");
    EXPECT_EQ(s.SubField().size(), 1);
    // Rows are missed before systems are.
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({7, 102}), tensorRows(1), yld_SectionPoint(),
                            manySystems(1));
              }),
              "Insufficient data sequences provided.");
    EXPECT_EQ(s.SubField().size(), 2);
}

TEST_F(yld_FieldAddDataTest, superfluousLocalSystemsServeSeveralClassesButNotOne)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    s.addData(yld_Enum::CENTROID, instance(), ints({101, 7}), tensorRows(2), yld_SectionPoint(), manySystems(3));
    EXPECT_NEAR(s.values(1).localCoordSystem()[0][1], 1.0F, 1e-6F);
    EXPECT_EQ(failureOf([&] {
                  s.addData(yld_Enum::CENTROID, instance(), ints({101, 102}), tensorRows(2), yld_SectionPoint(),
                            manySystems(3));
              }),
              "Coordinate system definition should be of length 0, 1, or the same length as the data array.");
}

TEST_F(yld_FieldAddDataTest, noElementsAreNoBlock)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::SCALAR);
    EXPECT_EQ(failureOf([&] { s.addData(yld_Enum::CENTROID, instance(), ints({}), rows({})); }),
              "The element labels passed into field.addData() method contain some undefined labels.");
    EXPECT_EQ(s.SubField().size(), 0);
}

TEST_F(yld_FieldAddDataTest, orphansRefuseEveryForm)
{
    yld_FieldOutput orphan;
    yld_FieldOutput other;
    const std::string refusal = "addData() not valid for an orphaned object.";
    const yld_Sequence<yld_Sequence<float>> none;
    const yld_Sequence<yld_Sequence<yld_Sequence<float>>> noSystems;
    const int label = 10;
    const float value = 1.0F;
    const double exact = 1.0;
    EXPECT_EQ(failureOf([&] { orphan.addData(yld_Enum::NODAL, instance(), ints({10}), counted(1)); }), refusal);
    EXPECT_EQ(failureOf([&] {
                  orphan.addData(yld_Enum::NODAL, instance(), ints({10}), counted(1), yld_SectionPoint(), noSystems);
              }),
              refusal);
    EXPECT_EQ(failureOf([&] {
                  orphan.addData(yld_Enum::NODAL, instance().instance(), ints({10}), counted(1), yld_SectionPoint(),
                                 noSystems, none);
              }),
              refusal);
    EXPECT_EQ(failureOf([&] { orphan.addData(yld_Enum::NODAL, yld_Set(), counted(1)); }), refusal);
    EXPECT_EQ(failureOf([&] { orphan.addData(other); }), refusal);
    EXPECT_EQ(failureOf([&] { orphan.addBulkData(yld_Enum::NODAL, instance(), &label, 1, &value, 1, 1); }), refusal);
    EXPECT_EQ(failureOf([&] { orphan.addBulkData(yld_Enum::NODAL, instance(), &label, 1, &exact, 1, 1); }), refusal);
}

TEST_F(yld_FieldAddDataTest, plainArraysOfSeveralClassesGiveTheSameBlocks)
{
    // Two tensor components, so that rows are filled up.
    const std::vector<int> labels = {102, 7, 101, 5};
    yld_Sequence<yld_Sequence<float>> data;
    yld_Sequence<yld_Sequence<float>> conjugate;
    yld_Sequence<yld_Sequence<yld_Sequence<float>>> systems;
    std::vector<float> values;
    std::vector<float> conjugateValues;
    std::vector<float> cosines;
    for (int i = 0; i < 18; ++i) { // 8 points, 1, 8, 1
        const auto number = static_cast<float>(i);
        data.append(floats({number, number + 0.5F}));
        conjugate.append(floats({-number, 1.0F}));
        values.insert(values.end(), {number, number + 0.5F});
        conjugateValues.insert(conjugateValues.end(), {-number, 1.0F});
        systems.append(systemAt(i % 3 == 0));
        for (const auto& axis : systemAt(i % 3 == 0)) {
            for (const float cosine : axis) cosines.push_back(cosine);
        }
    }
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("A", "", yld_Enum::TENSOR_3D_FULL)
        .addData(yld_Enum::INTEGRATION_POINT, instance(), sequence(labels), data, yld_SectionPoint(), systems,
                 conjugate);
    frame.FieldOutput("B", "", yld_Enum::TENSOR_3D_FULL)
        .addBulkData(yld_Enum::INTEGRATION_POINT, instance(), labels.data(), 4, values.data(), 18, 2,
                     yld_SectionPoint(), conjugateValues.data(), cosines.data(), 18);
    reopen();
    const yld_SequenceFieldBulkData a = field("A").bulkDataBlocks();
    const yld_SequenceFieldBulkData b = field("B").bulkDataBlocks();
    ASSERT_EQ(a.size(), 2);
    ASSERT_EQ(b.size(), 2);
    EXPECT_EQ(a[0].data()[0], 0.0F);
    EXPECT_EQ(a[0].data()[6 * 8], 9.0F); // the second hexahedron's first row
    EXPECT_EQ(a[1].data()[0], 8.0F);
    EXPECT_EQ(a[1].data()[6 + 1], 17.5F);
    for (int block = 0; block < 2; ++block) {
        ASSERT_EQ(a[block].length(), b[block].length());
        for (int i = 0; i < a[block].length() * 6; ++i) {
            EXPECT_EQ(a[block].data()[i], b[block].data()[i]);
            EXPECT_EQ(a[block].conjugateData()[i], b[block].conjugateData()[i]);
        }
        for (int i = 0; i < a[block].length() * 4; ++i) {
            EXPECT_EQ(a[block].localCoordSystem()[i], b[block].localCoordSystem()[i]);
        }
        for (int i = 0; i < a[block].length(); ++i) EXPECT_EQ(a[block].elementLabels()[i], b[block].elementLabels()[i]);
    }
}

TEST_F(yld_FieldAddDataTest, doublePrecisionStaysDouble)
{
    const int labels[] = {30, 10};
    const double data[] = {0.1, 0.2, 0.3, 1e300, 1e-300, -0.1};
    const double conjugate[] = {1.1, 1.2, 1.3, 2.1, 2.2, 2.3};
    const int elements[] = {101, 102};
    const double tensors[] = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8};
    const float cosines[] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("U", "", yld_Enum::VECTOR)
        .addBulkData(yld_Enum::NODAL, instance(), labels, 2, data, 2, 3, yld_SectionPoint(), conjugate);
    frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL)
        .addBulkData(yld_Enum::CENTROID, instance(), elements, 2, tensors, 2, 4, yld_SectionPoint(), nullptr, cosines,
                     1);
    reopen();
    const yld_FieldValue u = field("U").values(1);
    EXPECT_EQ(u.precision(), yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(u.nodeLabel(), 10);
    EXPECT_EQ(u.data().doubleData()[0], 1e300);
    EXPECT_EQ(u.data().doubleData()[1], 1e-300);
    EXPECT_EQ(u.data().doubleConjugate()[2], 2.3);
    EXPECT_TRUE(field("U").isComplex());
    const yld_FieldValue s = field("S").values(1);
    EXPECT_EQ(s.data().doubleData()[3], 0.8);
    EXPECT_EQ(s.data().doubleData()[4], 0.0);
    EXPECT_NEAR(s.localCoordSystemDouble()[0][1], 1.0, 1e-15);
    EXPECT_NEAR(s.localCoordSystemDouble()[1][0], -1.0, 1e-15);
}

TEST_F(yld_FieldAddDataTest, plainArraysAreCheckedLikeSequences)
{
    const int labels[] = {101, 7};
    const float data[] = {1, 2, 3, 4, 5, 6, 7, 8};
    const float cosines[18] = {};
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::VECTOR);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_SURFACE);
    EXPECT_EQ(failureOf([&] {
                  u.addBulkData(yld_Enum::CENTROID, instance(), labels, 2, data, 2, 3, yld_SectionPoint(), nullptr,
                                cosines, 1);
              }),
              "Transformation not allowed for scalar data.");
    EXPECT_EQ(failureOf([&] { u.addBulkData(yld_Enum::CENTROID, yld_Instance(), labels, 2, data, 2, 3); }),
              "Instance \"\" does not exists in this yld.");
    EXPECT_EQ(failureOf([&] {
                  u.addBulkData(yld_Enum::CENTROID, instance(), labels, 2, data, 2, 3, yld_SectionPoint(3, "top"));
              }),
              "Section Point number 3.");
    EXPECT_EQ(failureOf([&] { s.addBulkData(yld_Enum::CENTROID, instance(), labels, 2, data, 2, 4); }),
              "Incorrect tensor data length");
    EXPECT_EQ(failureOf([&] {
                  s.addBulkData(yld_Enum::CENTROID, instance(), labels, 1, data, 1, 3, yld_SectionPoint(), nullptr,
                                cosines, 2);
              }),
              "Coordinate system definition should be of length 0, 1, or the same length as the data array.");
    EXPECT_EQ(failureOf([&] { s.addBulkData(yld_Enum::INTEGRATION_POINT, instance(), labels, 2, data, 2, 3); }),
              "Insufficient data sequences provided.");
    EXPECT_EQ(failureOf([&] { s.addBulkData(yld_Enum::CENTROID, instance(), labels, -1, data, 2, 3); }),
              "addBulkData() takes no negative count.");
    EXPECT_EQ(failureOf([&] { s.addBulkData(yld_Enum::CENTROID, instance(), labels, 2, data, 2, -1); }),
              "addBulkData() takes no negative count.");
    EXPECT_EQ(s.SubField().size() + u.SubField().size(), 0);
}

TEST_F(yld_FieldAddDataTest, callersMemoryIsNotNeededAfterTheCall)
{
    // Twelve nodes, each with so large a matrix that the block goes to disk at once, and with a small one.
    const std::vector<int> labels = {10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120};
    yld_Frame frame = step().Frame(1, 1.0);
    for (const int order : {600, 2}) {
        const std::size_t size = labels.size() * static_cast<std::size_t>(order) * static_cast<std::size_t>(order);
        std::vector<float> values(size);
        std::vector<float> conjugate(size);
        for (std::size_t i = 0; i < size; ++i) {
            values[i] = static_cast<float>(i);
            conjugate[i] = -static_cast<float>(i);
        }
        frame.MatrixOutput(order == 2 ? "small" : "large", "", order, order)
            .addBulkData(yld_Enum::NODAL, instance(), labels.data(), 12, values.data(), 12, order * order,
                         yld_SectionPoint(), conjugate.data());
        std::fill(values.begin(), values.end(), 0.5F);
        std::fill(conjugate.begin(), conjugate.end(), 0.5F);
    }
    const auto check = [this] {
        for (const auto& [name, width] : {std::pair("small", 4), std::pair("large", 360000)}) {
            const yld_FieldBulkData& bulk = field(name).bulkDataBlocks()[0];
            ASSERT_EQ(bulk.length(), 12);
            for (int i = 0; i < 12 * width; ++i) {
                ASSERT_EQ(bulk.data()[i], static_cast<float>(i)) << name;
                ASSERT_EQ(bulk.conjugateData()[i], -static_cast<float>(i)) << name;
            }
        }
    };
    check();
    reopen();
    check();
}

TEST_F(yld_FieldAddDataTest, labelsInStoredOrderNeedNeitherSearchNorList)
{
    // A mesh whose labels have no order: any search that is not a plain comparison has to make an index.
    yld_Part& part = m_yld->Part("shuffled", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    const std::vector<int> labels = {50, 10, 40, 20, 30, 5};
    yld_Sequence<yld_Sequence<float>> coordinates;
    for (int i = 0; i < 6; ++i) coordinates.append(floats({static_cast<float>(i), 0, 0}));
    part.addNodes(sequence(labels), coordinates);
    m_yld->rootAssembly().Instance("shuffled-1", part);
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("V", "", yld_Enum::SCALAR);
    reopen();

    const auto& shuffled = m_yld->rootAssembly().instances().get("shuffled-1");
    const auto indexed = [&] { return shuffled.instance().mesh().nodeData().data()->m_labels.numIndexed(); };
    yld_Frame next = step().Frame(2, 2.0);
    const float values[] = {1, 2, 3, 4, 5, 6};
    yld_FieldOutput& t = next.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addBulkData(yld_Enum::NODAL, shuffled, labels.data(), 6, values, 6, 1);
    t.addBulkData(yld_Enum::NODAL, shuffled, labels.data() + 2, 3, values, 3, 1);
    EXPECT_EQ(indexed(), 0);
    EXPECT_TRUE(t.SubField()[0].description().set().subSet(0).isRun());
    EXPECT_TRUE(t.SubField()[1].description().set().subSet(0).isRun());
    EXPECT_EQ(t.SubField()[1].description().set().subSet(0).firstMember(), 2);
    EXPECT_EQ(t.values(8).nodeLabel(), 30);
    // Out of order an index is made, and the set lists its members.
    const int mixed[] = {10, 50};
    t.addBulkData(yld_Enum::NODAL, shuffled, mixed, 2, values, 2, 1);
    EXPECT_EQ(indexed(), 6);
    EXPECT_FALSE(t.SubField()[2].description().set().subSet(0).isRun());
}

TEST_F(yld_FieldAddDataTest, setsOfOneSizeAreToldApartByTheirMembers)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    t.addData(yld_Enum::NODAL, instance(), ints({10, 30, 20}), counted(3));
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20, 30}), counted(3));
    EXPECT_EQ(t.values(1).nodeLabel(), 20);
    EXPECT_EQ(t.values(4).nodeLabel(), 30);
    EXPECT_EQ(t.values(7).nodeLabel(), 20);
    reopen();
    EXPECT_EQ(instance().nodeSets(true).size(), 2);
    // The blank belongs to the name.
    EXPECT_TRUE(instance().nodeSets(true).isMember("api_set 0"));
    EXPECT_TRUE(instance().nodeSets(true).isMember("api_set 1"));
}

TEST_F(yld_FieldAddDataTest, killedWriterLosesWhatItHadNotSavedAndNothingElse)
{
    m_yld->save();
    m_yld->close();
    m_yld = nullptr;
    constexpr int numNodes = 12;
    EXPECT_EQ(inOtherProcess([&] {
                  m_yld = &openYld(m_path.c_str(), false);
                  for (int i = 0; i < 5; ++i) {
                      yld_Frame frame = step().Frame(i, 0.1 * i);
                      yld_FieldOutput& u = frame.FieldOutput("U", "", yld_Enum::SCALAR);
                      std::vector<int> labels;
                      std::vector<float> values;
                      for (int n = 0; n < numNodes; ++n) {
                          labels.push_back(10 * (n + 1));
                          values.push_back(static_cast<float>(100 * i + n));
                      }
                      u.addBulkData(yld_Enum::NODAL, instance(), labels.data(), numNodes, values.data(), numNodes, 1);
                      // Enough to send values of frames that are never saved to the disk.
                      yld_FieldOutput& wide = frame.MatrixOutput("W", "", 1000, 1500);
                      const std::vector<float> many(1500000, static_cast<float>(i));
                      for (int n = 0; n < 4; ++n) {
                          wide.addBulkData(yld_Enum::NODAL, instance(), &labels[static_cast<std::size_t>(n)], 1,
                                           many.data(), 1, 1500000);
                      }
                      if (i < 3) m_yld->save();
                  }
                  kill(getpid(), SIGKILL);
              }),
              -SIGKILL);
    // Its lock file stands, and is for the user to remove.
    std::filesystem::remove(m_folder.file("results.lck"));
    m_yld = &openYld(m_path.c_str(), false);
    ASSERT_EQ(step().frames().size(), 3);
    for (int i = 0; i < 3; ++i) {
        const yld_FieldOutput& u = field("U", i);
        ASSERT_EQ(u.values().size(), numNodes);
        for (int n = 0; n < numNodes; ++n) EXPECT_EQ(u.values(n).data()[0], 100.0 * i + n);
        EXPECT_EQ(field("W", i).bulkDataBlocks()[3].data()[1499999], static_cast<float>(i));
    }
    // The next writer goes on where the last save was.
    yld_Frame frame = step().Frame(3, 0.3);
    frame.FieldOutput("U", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10}), counted(1, 7));
    reopen();
    EXPECT_EQ(field("U", 3).values(0).data()[0], 7.0);
    EXPECT_EQ(field("U", 2).values(11).data()[0], 211.0);
}
