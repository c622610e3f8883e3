#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_FieldContainer.h"
#include "result_model.h"
#include "stored_blocks.h"
#include "yld/impl/field/yld_FieldValueList.h"

#include <cmath>

using yld_FieldBulkDataTest = ResultModel;
using yld_SequenceFieldValueTest = ResultModel;

TEST_F(yld_FieldBulkDataTest, nodeBlock)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("U", "", yld_Enum::VECTOR)
        .addData(yld_Enum::NODAL, instance(), ints({20, 30, 40}), rows({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    reopen();
    const yld_SequenceFieldBulkData& blocks = field("U").bulkDataBlocks();
    ASSERT_EQ(blocks.size(), 1);
    const yld_FieldBulkData& bulk = blocks[0];
    EXPECT_EQ(bulk.length(), 3);
    EXPECT_EQ(bulk.width(), 3);
    EXPECT_EQ(bulk.position(), yld_Enum::NODAL);
    EXPECT_EQ(bulk.type(), yld_Enum::VECTOR);
    EXPECT_EQ(bulk.precision(), yld_Enum::SINGLE_PRECISION);
    EXPECT_EQ(bulk.data()[5], 6.0F);
    EXPECT_EQ(bulk.dataDouble(), nullptr);
    EXPECT_EQ(bulk.conjugateData(), nullptr);
    EXPECT_EQ(bulk.localCoordSystem(), nullptr);
    EXPECT_EQ(listed(bulk.nodeLabels(), 3), "20 30 40 ");
    EXPECT_EQ(bulk.numberOfNodes(), 3);
    EXPECT_EQ(bulk.setType(), 0);
    EXPECT_EQ(bulk.valuesPerElement(), 0);
    EXPECT_EQ(bulk.numberOfElements(), 0);
    EXPECT_EQ(bulk.elementLabels(), nullptr);
    EXPECT_EQ(bulk.faces(), nullptr);
    EXPECT_EQ(bulk.integrationPoints(), nullptr);
    EXPECT_EQ(bulk.mises(), nullptr);
    EXPECT_STREQ(bulk.instance().name().cStr(), "block-1");
    EXPECT_STREQ(bulk.baseElementType().cStr(), "");
    EXPECT_EQ(joined(bulk.componentLabels()), "U1,U2,U3");
}

TEST_F(yld_FieldBulkDataTest, integrationPointBlock)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("P", "", yld_Enum::SCALAR)
        .addData(yld_Enum::INTEGRATION_POINT, instance(), ints({301, 302}), counted(8), yld_SectionPoint(1, "bottom"));
    reopen();
    const yld_FieldBulkData& bulk = field("P").bulkDataBlocks()[0];
    EXPECT_EQ(bulk.numberOfElements(), 2);
    EXPECT_EQ(listed(bulk.elementLabels(), 8), "301 301 301 301 302 302 302 302 ");
    EXPECT_EQ(listed(bulk.integrationPoints(), 8), "1 2 3 4 1 2 3 4 ");
    EXPECT_EQ(bulk.elementLabels(), bulk.elementLabels());
    EXPECT_EQ(bulk.nodeLabels(), nullptr);
    EXPECT_STREQ(bulk.baseElementType().cStr(), "SHELL4");
    EXPECT_STREQ(bulk.sectionPoint().description().cStr(), "bottom");
    const yld_FieldBulkData copy(bulk);
    EXPECT_NE(copy.elementLabels(), bulk.elementLabels());
    EXPECT_EQ(listed(copy.integrationPoints(), 8), "1 2 3 4 1 2 3 4 ");
    EXPECT_EQ(copy.data(), bulk.data());
}

TEST_F(yld_FieldBulkDataTest, elementNodalAndCentroidBlocks)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& f = frame.FieldOutput("F", "", yld_Enum::SCALAR);
    f.addData(yld_Enum::ELEMENT_NODAL, instance(), ints({5, 7}), counted(8));
    f.addData(yld_Enum::CENTROID, instance(), ints({102, 101}), counted(2));
    reopen();
    const yld_SequenceFieldBulkData& blocks = field("F").bulkDataBlocks();
    EXPECT_EQ(listed(blocks[0].nodeLabels(), 8), "20 30 40 60 10 20 30 50 ");
    EXPECT_EQ(listed(blocks[0].elementLabels(), 8), "5 5 5 5 7 7 7 7 ");
    EXPECT_EQ(blocks[0].integrationPoints(), nullptr);
    EXPECT_EQ(listed(blocks[1].elementLabels(), 2), "102 101 ");
    EXPECT_EQ(blocks[1].integrationPoints(), nullptr);
    EXPECT_EQ(blocks[1].valuesPerElement(), 1);
}

TEST_F(yld_FieldBulkDataTest, misesByType)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const auto mises = [&](const char* name, yld_Enum::yld_DataTypeEnum type,
                           const yld_Sequence<yld_Sequence<float>>& data) {
        yld_FieldOutput& s = frame.FieldOutput(name, "", type);
        s.addData(yld_Enum::CENTROID, instance(), ints({301}), data);
        return s.bulkDataBlocks()[0].mises()[0];
    };
    EXPECT_FLOAT_EQ(mises("A", yld_Enum::TENSOR_3D_FULL, rows({{3, 0, 0, 4, 5, 6}})), std::sqrt(9.0F + 3.0F * 77.0F));
    EXPECT_FLOAT_EQ(mises("B", yld_Enum::TENSOR_3D_PLANAR, rows({{3, 0, 0, 4}})), std::sqrt(9.0F + 48.0F));
    // s11 + s22 over three, and the mean as the third deviator: 3 and 6 give 3; 0, 3, -3; 18 + 2 * 4.
    EXPECT_FLOAT_EQ(mises("C", yld_Enum::TENSOR_3D_SURFACE, rows({{3, 6, 2}})), std::sqrt(1.5F * 26.0F));
    EXPECT_FLOAT_EQ(mises("D", yld_Enum::TENSOR_2D_PLANAR, rows({{0, 3, 0, 0}})), 3.0F);
    EXPECT_FLOAT_EQ(mises("E", yld_Enum::TENSOR_2D_SURFACE, rows({{3, 6, 2}})), std::sqrt(1.5F * 26.0F));
}

TEST_F(yld_FieldBulkDataTest, engineeringShearsCountHalf)
{
    yld_Frame frame = step().Frame(1, 1.0);
    frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL)
        .addData(yld_Enum::WHOLE_MODEL, yld_Instance(), ints({}), rows({{0, 0, 0, 10, 0, 0}}));
    fld_FieldDescription strain = describe("E", fld_DataTypeEnm::TENSOR_3D_FULL, fld_OutputPositionEnm::WHOLE_MODEL, 1);
    strain.m_engineeringTensor = true;
    writeBlock(frame, strain, 1, {0, 0, 0, 10, 0, 0});
    reopen();
    EXPECT_FLOAT_EQ(field("S").bulkDataBlocks()[0].mises()[0], 17.320508F);
    const yld_FieldOutput& e = field("E");
    EXPECT_TRUE(e.bulkDataBlocks()[0].engineeringTensor());
    EXPECT_FLOAT_EQ(e.bulkDataBlocks()[0].mises()[0], 8.660254F);
    EXPECT_FLOAT_EQ(e.values(0).mises(), 17.320508F);
}

TEST_F(yld_FieldBulkDataTest, successiveCallsGiveOneAddress)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10}), rows({{1}}));
    const yld_SequenceFieldBulkData& first = t.bulkDataBlocks();
    EXPECT_EQ(first.size(), 1);
    t.addData(yld_Enum::NODAL, instance(), ints({20}), rows({{2}}));
    EXPECT_EQ(&t.bulkDataBlocks(), &first);
    EXPECT_EQ(first.size(), 2);
}

TEST_F(yld_FieldBulkDataTest, onlyAnIndexBehindTheCountIsRefused)
{
    yld_SequenceFieldBulkData none;
    EXPECT_EQ(failureOf([&] { none.constGet(1); }), "Field bulk data index is out of range.");
    EXPECT_EQ(failureOf([&] { none.get(1); }), "Field bulk data index is out of range.");
    EXPECT_EQ(none.constGet(0).length(), 0);
    EXPECT_EQ(none.constGet(-1).length(), 0);
    EXPECT_EQ(none.get(0).type(), yld_Enum::UNDEFINED_DATATYPE);
}

TEST_F(yld_FieldBulkDataTest, blockWithoutValues)
{
    yld_Frame frame = step().Frame(1, 1.0);
    writeBlock(frame, describe("T", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::WHOLE_MODEL, 0), 0, {});
    const yld_FieldBulkData& bulk = step().frames(0).fieldOutputs().constGet("T").bulkDataBlocks()[0];
    EXPECT_EQ(bulk.length(), 0);
    EXPECT_EQ(bulk.type(), yld_Enum::UNDEFINED_DATATYPE);
    EXPECT_EQ(bulk.sectionPoint().number(), -1);
    EXPECT_STREQ(bulk.instance().name().cStr(), "");
}

TEST_F(yld_FieldBulkDataTest, doublePrecision)
{
    yld_Frame frame = step().Frame(1, 1.0);
    fld_FieldDescription description =
        describe("S", fld_DataTypeEnm::TENSOR_3D_PLANAR, fld_OutputPositionEnm::WHOLE_MODEL, 2);
    writeBlock(frame, description, 0, {}, {3.0, 0.0, 0.0, 4.0, 1.0 / 3.0, 0.0, 0.0, 0.0});
    reopen();
    const yld_FieldOutput& s = field("S");
    const yld_FieldBulkData& bulk = s.bulkDataBlocks()[0];
    EXPECT_EQ(bulk.data(), nullptr);
    EXPECT_EQ(bulk.precision(), yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(bulk.dataDouble()[4], 1.0 / 3.0);
    EXPECT_FLOAT_EQ(bulk.mises()[0], std::sqrt(9.0F + 48.0F));
    EXPECT_EQ(s.values(1).precision(), yld_Enum::DOUBLE_PRECISION);
    EXPECT_EQ(s.values(1).data().doubleData()[0], 1.0 / 3.0);
    EXPECT_FLOAT_EQ(s.values(1).maxPrincipal(), 1.0F / 3.0F);
}

TEST_F(yld_FieldBulkDataTest, chosenValuesOfABlockStandSideBySide)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p = frame.FieldOutput("P", "", yld_Enum::SCALAR);
    p.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}), counted(16));
    yld_SubField part(p.SubField()[0]);
    part.setIndices(ints({8, 9, 10, 11, 12, 13, 14, 15}));
    yld_Sequence<yld_SubField> blocks;
    blocks.append(part);
    const yld_SequenceFieldValue values(blocks);
    EXPECT_EQ(values.size(), 8);
    EXPECT_EQ(values.get(1).data()[0], 10.0);
    EXPECT_EQ(values.get(1).elementLabel(), 102);
    EXPECT_EQ(values.get(1).integrationPoint(), 2);
    const yld_SequenceFieldBulkData bulk(values);
    EXPECT_EQ(bulk[0].length(), 8);
    EXPECT_EQ(bulk[0].data()[2], 11.0F);
    EXPECT_EQ(listed(bulk[0].elementLabels(), 8), "102 102 102 102 102 102 102 102 ");
    EXPECT_EQ(listed(bulk[0].integrationPoints(), 8), "1 2 3 4 5 6 7 8 ");
    // The block itself has changed, for everyone who holds it; the field's own block has not.
    EXPECT_TRUE(part.indices().isEmpty());
    EXPECT_EQ(part.storedLength(), 8);
    EXPECT_EQ(p.SubField()[0].storedLength(), 16);
}

TEST_F(yld_FieldBulkDataTest, partsOfAnElementHaveNoPlainArrays)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& p = frame.FieldOutput("P", "", yld_Enum::SCALAR);
    p.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}), counted(16));
    yld_SubField part(p.SubField()[0]);
    part.setIndices(ints({1, 9, 15}));
    yld_Sequence<yld_SubField> blocks;
    blocks.append(part);
    const yld_SequenceFieldValue values(blocks);
    EXPECT_EQ(failureOf([&] { const yld_SequenceFieldBulkData bulk(values); }),
              "Length of data sequence incorrect. Data at 8 locations expected. Data at 3 locations provided. Element "
              "data request failed. Element type is HEX8. Data at 8 integration points per element expected.");
    // One by one they are there, and nothing has changed.
    EXPECT_EQ(part.indices().size(), 3);
    EXPECT_EQ(values.get(2).data()[0], 16.0);
    EXPECT_EQ(values.get(2).elementLabel(), 102);
    EXPECT_EQ(values.get(2).integrationPoint(), 8);
}

TEST_F(yld_FieldBulkDataTest, labelsOutliveASave)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({20, 30}), rows({{1}, {2}}));
    const yld_FieldBulkData& bulk = t.bulkDataBlocks()[0];
    m_yld->save();
    EXPECT_EQ(listed(bulk.nodeLabels(), 2), "20 30 ");
    EXPECT_EQ(bulk.data()[1], 2.0F);
}

TEST_F(yld_SequenceFieldValueTest, indicesOutOfRange)
{
    const yld_SequenceFieldValue empty;
    EXPECT_EQ(empty.size(), 0);
    EXPECT_EQ(failureOf([&] { empty.get(0); }), "FieldValue index out of range.");
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({20, 30}), rows({{1}, {2}}));
    EXPECT_EQ(failureOf([&] { t.values(2); }), "FieldValue index out of range.");
    EXPECT_EQ(failureOf([&] { t.values(-1); }), "FieldValue index out of range.");
    EXPECT_EQ(t.values(1).data()[0], 2.0);
}

TEST_F(yld_SequenceFieldValueTest, walksInAnyOrder)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& t = frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{0}, {1}}));
    t.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{2}}));
    t.addData(yld_Enum::NODAL, instance(), ints({30, 40, 50}), rows({{3}, {4}, {5}}));
    const yld_SequenceFieldValue values(t.values());
    for (int i = 5; i >= 0; --i) EXPECT_EQ(values.get(static_cast<unsigned>(i)).data()[0], i);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(values[static_cast<unsigned>(i)].data()[0], i);
    for (const int i : {5, 0, 2, 4, 1, 3, 2}) EXPECT_EQ(values.value(static_cast<unsigned>(i)).data()[0], i);
}

TEST_F(yld_SequenceFieldValueTest, appendingValuesIsRefused)
{
    yld_SequenceFieldValue values;
    EXPECT_EQ(failureOf([&] { values.append(yld_FieldValue()); }), "Appending field values not allowed.");
    yld_SequenceFieldValue other;
    EXPECT_EQ(failureOf([&] { values.append(other); }), "Appending an yld_SequenceFieldValue not allowed.");
    values.append(yld_FieldValueList());
    EXPECT_TRUE(values.isListOnly());
    EXPECT_EQ(values.size(), 0);
}

TEST_F(yld_SequenceFieldValueTest, missingFieldIsNamed)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_SequenceFieldValue values;
    EXPECT_EQ(failureOf([&] {
                  values.appendSubField(ints({77}), frame.fieldOutputs().fieldFrame().ConstGet().field(),
                                        step().assembly());
              }),
              "Could not read field '77':\n  " + m_path + ": the frame has no field with the key 77");
}

TEST_F(yld_SequenceFieldValueTest, widenedPlanarRowsEndInZeros)
{
    yld_Frame frame = step().Frame(1, 1.0);
    yld_FieldOutput& s = frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_PLANAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3, 4}}));
    yld_FieldOutput& m = frame.FieldOutput("M", "", yld_Enum::TENSOR_3D_SURFACE);
    m.addData(yld_Enum::CENTROID, instance(), ints({301}), rows({{1, 2, 3}}));
    const auto widened = [&](const yld_FieldOutput& source) {
        yld_SequenceFieldValue values;
        values.append(yld_SubField(0, source.SubField()[0].field(), step().assembly(), yld_Enum::TENSOR_3D_FULL));
        const yld_FieldValue value = values.get(0);
        std::string text;
        for (int i = 0; i < value.data().length(); ++i) {
            text += std::to_string(static_cast<int>(value.data()[i])) + " ";
        }
        return text;
    };
    EXPECT_EQ(s.values(0).data().length(), 4);
    EXPECT_EQ(widened(s), "1 2 3 4 0 0 ");
    EXPECT_EQ(widened(m), "1 2 3 0 0 0 ");
}

TEST_F(yld_SequenceFieldValueTest, positionsWithoutValuesWarn)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const sto_PartInstance on = instance().instance();
    int key = 0;
    const auto warningOf = [&](fld_OutputPositionEnm position) {
        fld_FieldDescription description = describe("R", fld_DataTypeEnm::SCALAR, position, 2);
        description.m_instance = on.shortCut();
        yld_SequenceFieldValue values;
        const sto_Field field = writeBlock(frame, description, key, {1, 2});
        values.append(yld_SubField(key++, field, step().assembly(), yld_Enum::SCALAR));
        const std::string first = warningsOf([&] { EXPECT_EQ(values.get(0).data().length(), 0); });
        EXPECT_EQ(warningsOf([&] { values.get(1); }), "");
        EXPECT_EQ(values.size(), 2);
        EXPECT_EQ(yld_SequenceFieldBulkData(values)[0].length(), 2);
        return first;
    };
    EXPECT_EQ(warningOf(fld_OutputPositionEnm::WHOLE_REGION), "Warning: WHOLE_REGION data are not read.\n");
    EXPECT_EQ(warningOf(fld_OutputPositionEnm::WHOLE_PART_INSTANCE),
              "Warning: WHOLE_PART_INSTANCE data are not read.\n");
    EXPECT_EQ(warningOf(fld_OutputPositionEnm::GENERAL_PARTICLE), "Warning: GENERAL_PARTICLE data are not read.\n");
    EXPECT_EQ(warningOf(fld_OutputPositionEnm::WHOLE_FACE), "Warning: Results at unknown location not read.\n");
}

TEST_F(yld_SequenceFieldValueTest, blockOnNoMeshIsRefused)
{
    yld_Frame frame = step().Frame(1, 1.0);
    const sto_Field field =
        writeBlock(frame, describe("T", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::NODAL, 1), 0, {1});
    yld_SequenceFieldValue values;
    values.append(yld_SubField(0, field, step().assembly(), yld_Enum::SCALAR));
    EXPECT_EQ(failureOf([&] { values.get(0); }), "Unable to determine mesh index for field T");
}

TEST_F(yld_SequenceFieldValueTest, nodalValuesCarriedByElementsReadAsNodal)
{
    yld_Frame frame = step().Frame(1, 1.0);
    sto_PartInstance on = instance().instance();
    const int labels[] = {20, 40};
    fld_FieldDescription description =
        describe("T", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::NODAL_BY_ELEMENT, 2);
    description.m_instance = on.shortCut();
    description.m_set = on.Nset("solver", labels, 2, true, false).shortCut();
    description.m_description = "temperature: ASURF";
    writeBlock(frame, description, 0, {1, 2});
    reopen();
    yld_Frame& read = step().frames(0);
    EXPECT_EQ(read.fieldOutputs().size(), 1);
    const yld_FieldOutput& t = read.fieldOutputs().constGet("T        ");
    EXPECT_STREQ(t.description().cStr(), "temperature");
    EXPECT_EQ(t.location(0).position(), yld_Enum::NODAL);
    EXPECT_EQ(t.values(1).nodeLabel(), 40);
}

TEST_F(yld_SequenceFieldValueTest, valuesOnFacesCarryTheFace)
{
    yld_Frame frame = step().Frame(1, 1.0);
    sto_PartInstance on = instance().instance();
    sto_SurfaceSubset faces;
    faces.labels = {101, 102};
    faces.facets = {0, 4};
    const sto_Set surface = on.Surface("face", {faces}, true);
    fld_FieldDescription description =
        describe("P", fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::SURFACE_INTEGRATION_POINT, 8);
    description.m_instance = on.shortCut();
    description.m_set = surface.shortCut();
    description.m_classIndex = surface.subSet(0).classIndex();
    writeBlock(frame, description, 0, {1, 2, 3, 4, 5, 6, 7, 8});
    reopen();
    const yld_FieldOutput& p = field("P");
    ASSERT_EQ(p.values().size(), 8);
    EXPECT_EQ(p.values(5).elementLabel(), 102);
    EXPECT_EQ(p.values(5).face(), yld_Enum::FACE5);
    EXPECT_EQ(p.values(5).integrationPoint(), 2);
    EXPECT_EQ(p.values(0).face(), yld_Enum::FACE1);
    const yld_FieldBulkData& bulk = p.bulkDataBlocks()[0];
    EXPECT_EQ(bulk.setType(), 2);
    EXPECT_EQ(listed(bulk.elementLabels(), 8), "101 101 101 101 102 102 102 102 ");
    EXPECT_EQ(bulk.faces()[3], yld_Enum::FACE1);
    EXPECT_EQ(bulk.faces()[4], yld_Enum::FACE5);
    // Only face integration points have numbers of their own here.
    EXPECT_EQ(bulk.integrationPoints(), nullptr);
}

TEST_F(yld_SequenceFieldValueTest, facesOfAWedgeDifferInTheirPoints)
{
    yld_Part& part = m_yld->Part("wedge", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(ints({1, 2, 3, 4, 5, 6}), rows({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}}));
    part.addElements(ints({11}), connectivity({{1, 2, 3, 4, 5, 6}}), "WEDGE6");
    sto_PartInstance on = m_yld->rootAssembly().Instance("wedge-1", part).instance();
    yld_Frame frame = step().Frame(1, 1.0);
    int key = 0;
    const auto write = [&](const char* name, std::vector<int> facets, int length) {
        sto_SurfaceSubset faces;
        faces.labels = std::vector<int>(facets.size(), 11);
        faces.facets = std::move(facets);
        const sto_Set surface = on.Surface(name, {faces}, true);
        fld_FieldDescription description =
            describe(name, fld_DataTypeEnm::SCALAR, fld_OutputPositionEnm::ELEMENT_FACE_INTEGRATION_POINT, length);
        description.m_instance = on.shortCut();
        description.m_set = surface.shortCut();
        description.m_classIndex = surface.subSet(0).classIndex();
        std::vector<float> values;
        for (int i = 0; i < length; ++i) values.push_back(static_cast<float>(i));
        writeBlock(frame, description, key++, values);
    };
    // Four points on a quadrilateral, one on a triangle.
    write("mixed", {3, 0, 4}, 6);
    write("even", {1, 2}, 8);
    write("wrong", {3, 0}, 6);
    reopen();

    const yld_SequenceFieldBulkData kept = field("mixed").bulkDataBlocks();
    EXPECT_EQ(listed(kept[0].elementLabels(), 6), "11 11 11 11 11 11 ");
    EXPECT_EQ(listed(kept[0].integrationPoints(), 6), "1 1 2 3 4 1 ");
    EXPECT_EQ(kept[0].faces()[0], yld_Enum::FACE4);
    EXPECT_EQ(kept[0].faces()[4], yld_Enum::FACE1);
    EXPECT_EQ(kept[0].faces()[5], yld_Enum::FACE5);
    EXPECT_EQ(field("mixed").values(4).integrationPoint(), 4);
    EXPECT_EQ(field("mixed").values(4).face(), yld_Enum::FACE1);
    EXPECT_EQ(field("mixed").values(5).integrationPoint(), 1);

    const yld_SequenceFieldBulkData even = field("even").bulkDataBlocks();
    EXPECT_EQ(listed(even[0].integrationPoints(), 8), "1 2 3 4 1 2 3 4 ");
    EXPECT_EQ(even[0].numberOfElements(), 2);
    EXPECT_EQ(even[0].faces()[7], yld_Enum::FACE3);

    EXPECT_EQ(failureOf([&] { field("wrong").values(0); }),
              m_path + ": a field does not fit its set: another number of points on faces than values");
}

TEST_F(yld_SequenceFieldValueTest, setsThatDoNotFitAreRefused)
{
    yld_Frame frame = step().Frame(1, 1.0);
    sto_PartInstance on = instance().instance();
    int key = 0;
    const auto failure = [&](fld_FieldDescription description, const sto_Set& set, int length) {
        description.m_length = length;
        description.m_instance = on.shortCut();
        description.m_set = set.shortCut();
        const sto_Field field =
            writeBlock(frame, description, key, std::vector<float>(static_cast<std::size_t>(length), 1.0F));
        yld_SequenceFieldValue values;
        values.append(yld_SubField(key++, field, step().assembly(), yld_Enum::SCALAR));
        const std::string text = failureOf([&] { values.get(0); });
        return text.starts_with(m_path) ? text.substr(m_path.size() + 2) : text;
    };
    const auto scalarAt = [](fld_OutputPositionEnm position, int classIndex) {
        fld_FieldDescription description = describe("T", fld_DataTypeEnm::SCALAR, position, 0);
        description.m_classIndex = classIndex;
        return description;
    };
    const int nodes[] = {10, 40, 20};
    const int run[] = {10, 20, 30};
    const int elements[] = {101};
    const sto_Set scattered = on.Nset("scattered", nodes, 3, true, false);
    const sto_Set consecutive = on.Nset("consecutive", run, 3, true, false);
    const sto_Set hexahedra = on.Elset("hexahedra", elements, 1, true);
    const fld_FieldDescription nodal = scalarAt(fld_OutputPositionEnm::NODAL, -1);
    EXPECT_EQ(failure(nodal, scattered, 3), "no exception");
    EXPECT_EQ(failure(nodal, scattered, 2), "a field does not fit its set: another number of nodes than values");
    EXPECT_EQ(failure(nodal, scattered, 4), "a field does not fit its set: another number of nodes than values");
    EXPECT_EQ(failure(nodal, consecutive, 4), "a field does not fit its set: another number of nodes than values");
    EXPECT_EQ(failure(scalarAt(fld_OutputPositionEnm::CENTROID, 0), hexahedra, 1), "no exception");
    EXPECT_EQ(failure(scalarAt(fld_OutputPositionEnm::CENTROID, 0), hexahedra, 2),
              "a field does not fit its set: another number of elements than values");
    EXPECT_EQ(failure(scalarAt(fld_OutputPositionEnm::INTEGRATION_POINT, 0), hexahedra, 7),
              "a field does not fit its set: another number of elements than values");
    EXPECT_EQ(failure(scalarAt(fld_OutputPositionEnm::CENTROID, 1), hexahedra, 1),
              "a field does not fit its set: no elements of its class");
}
