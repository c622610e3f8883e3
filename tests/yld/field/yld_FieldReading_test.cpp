// What reading values costs: bytes read, memory taken, blocks visited.
#include "counted_memory.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "result_model.h"
#include "stored_blocks.h"

#include <memory>
#include <type_traits>

class yld_FieldReadingTest : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        m_frame = step().Frame(1, 1.0);
    }
    fio_Database& database() { return instance().instance().modelFile()->database(); }
    void forget() { m_frame = yld_Frame(); }

    yld_Frame m_frame;
};

TEST_F(yld_FieldReadingTest, oneNodeOfAMillionReadsKilobytes)
{
    constexpr int count = 1000000;
    {
        yld_Part& part = m_yld->Part("large", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
        std::vector<int> labels(count);
        yld_Sequence<yld_Sequence<float>> coordinates(count);
        const yld_Sequence<float> origin = floats({0, 0, 0});
        for (int i = 0; i < count; ++i) {
            labels[static_cast<std::size_t>(i)] = 3 * i + 1;
            coordinates.append(origin);
        }
        part.addNodes(yld_Sequence<int>(labels.data(), count), coordinates);
        coordinates.clearAll();
        const yld_Instance placed = m_yld->rootAssembly().Instance("large-1", part);
        std::vector<float> values(3 * labels.size());
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<float>(i);
        m_frame.FieldOutput("U", "", yld_Enum::VECTOR)
            .addBulkData(yld_Enum::NODAL, placed, labels.data(), count, values.data(), count, 3);
    }
    forget();
    reopen();
    const yld_Instance placed = m_yld->rootAssembly().instances().get("large-1");
    const yld_Node node = placed.getNodeFromLabel(3 * 765432 + 1);
    const yld_FieldOutput& u = field("U");

    const long long before = database().extentReadBytes();
    const yld_FieldOutput one = u.getSubset(node);
    ASSERT_EQ(one.values().size(), 1);
    EXPECT_EQ(one.values(0).nodeLabel(), 3 * 765432 + 1);
    EXPECT_EQ(one.values(0).data()[0], 3.0 * 765432);
    EXPECT_EQ(one.values(0).data()[2], 3.0 * 765432 + 2);
    // The labels are in memory since the node was looked for. Of twelve million bytes of values there is this:
    EXPECT_LE(database().extentReadBytes() - before, 4096);
    EXPECT_FALSE(u.SubField()[0].field().isLoaded());
    // In bulk no more.
    EXPECT_EQ(one.bulkDataBlocks()[0].data()[1], 3.0F * 765432 + 1);
    EXPECT_LE(database().extentReadBytes() - before, 8192);
    EXPECT_FALSE(u.SubField()[0].field().isLoaded());

    // Some nodes here and there cost as many rows, and what lies close between them.
    yld_Set& some = m_yld->rootAssembly().instances().get("large-1").NodeSet("some", ints({1, 4, 300001, 2999998}));
    const long long beforeSome = database().extentReadBytes();
    const yld_FieldOutput few = u.getSubset(some);
    EXPECT_EQ(few.values(3).data()[0], 3.0 * 999999);
    EXPECT_EQ(few.values(1).data()[0], 3.0);
    EXPECT_LE(database().extentReadBytes() - beforeSome, 4096);

    // A value of the whole field reads its block, once.
    const long long beforeAll = database().extentReadBytes();
    EXPECT_EQ(u.values(500000).data()[0], 1500000.0);
    const long long afterAll = database().extentReadBytes();
    EXPECT_GE(afterAll - beforeAll, 12000000);
    EXPECT_LE(afterAll - beforeAll, 12000000 + 4096);
    EXPECT_EQ(u.values(0).data()[0], 0.0);
    EXPECT_EQ(few.values(2).data()[0], 300000.0);
    EXPECT_EQ(database().extentReadBytes(), afterAll);
}

TEST_F(yld_FieldReadingTest, manyRowsAreReadWhole)
{
    const int count = 12;
    m_frame.FieldOutput("T", "", yld_Enum::SCALAR)
        .addData(yld_Enum::NODAL, instance(), ints({10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120}),
                 counted(count));
    forget();
    reopen();
    const yld_FieldOutput& t = field("T");
    const sto_Field stored = t.SubField()[0].field();
    EXPECT_TRUE(stored.isSparse({5}));
    EXPECT_TRUE(stored.isSparse({5, 6, 7}));
    EXPECT_FALSE(stored.isSparse({5, 6, 7, 8}));
    // Rows that are close to each other are read with what lies between them.
    EXPECT_FALSE(stored.isSparse({0, 11}));
    const yld_FieldOutput half = t.getSubset(instance().NodeSet("half", ints({20, 40, 60, 80, 100, 120})));
    EXPECT_EQ(half.values(5).data()[0], 12.0);
    EXPECT_TRUE(t.SubField()[0].field().isLoaded());
    EXPECT_FALSE(stored.isSparse({5}));
}

TEST_F(yld_FieldReadingTest, rowsInAnyOrderComeInThatOrder)
{
    std::vector<float> values(40000);
    std::vector<int> labels;
    yld_Sequence<yld_Sequence<float>> coordinates;
    for (int i = 0; i < 20000; ++i) {
        labels.push_back(i + 1);
        coordinates.append(floats({0, 0, 0}));
    }
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<float>(i);
    yld_Part& part = m_yld->Part("row", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    part.addNodes(yld_Sequence<int>(labels.data(), 20000), coordinates);
    const yld_Instance placed = m_yld->rootAssembly().Instance("row-1", part);
    std::vector<float> conjugate(values);
    for (float& value : conjugate) value = -value;
    m_frame.MatrixOutput("M", "", 1, 2)
        .addBulkData(yld_Enum::NODAL, placed, labels.data(), 20000, values.data(), 20000, 2, yld_SectionPoint(),
                     conjugate.data());
    forget();
    reopen();
    const sto_Field stored = field("M").SubField()[0].field();
    const std::vector<int> rows = {19999, 0, 1, 7000, 1, 6999, 7001, 0};
    ASSERT_TRUE(stored.isSparse(rows));
    const fio_Buffer picked = stored.rowsAt<float>(rows);
    const fio_Buffer imaginary = stored.rowsAt<float>(rows, true);
    ASSERT_EQ(picked.size(), rows.size() * 2 * sizeof(float));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const float first = 2.0F * static_cast<float>(rows[i]);
        EXPECT_EQ(reinterpret_cast<const float*>(picked.data())[2 * i], first);
        EXPECT_EQ(reinterpret_cast<const float*>(picked.data())[2 * i + 1], first + 1);
        EXPECT_EQ(reinterpret_cast<const float*>(imaginary.data())[2 * i], -first);
    }
    EXPECT_FALSE(stored.isLoaded());
    EXPECT_EQ(stored.rowsAt<float>({}).size(), 0u);
}

TEST_F(yld_FieldReadingTest, subsetsByLabelsReadNoValues)
{
    yld_FieldOutput& s = m_frame.FieldOutput("S", "", yld_Enum::SCALAR);
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}), counted(16));
    s.addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2));
    instance().ElementSet("upper", ints({102}));
    instance().NodeSet("first", ints({10}));
    forget();
    reopen();
    const yld_FieldOutput& read = field("S");
    const yld_FieldOutput upper = read.getSubset(instance().elementSets().get("upper"));
    const yld_FieldOutput first = read.getSubset(instance().nodeSets().get("first"));
    const yld_FieldOutput element = read.getSubset(instance().getElementFromLabel(101));
    const yld_FieldOutput node = read.getSubset(instance().getNodeFromLabel(20));
    EXPECT_EQ(upper.values().size(), 8);
    EXPECT_EQ(first.values().size(), 1);
    EXPECT_EQ(element.values().size(), 8);
    EXPECT_EQ(node.values().size(), 1);
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(read.SubField()[i].field().isLoaded());
    // Labels are in memory now: the same again reads nothing at all.
    const long long reads = database().extentReadCount();
    EXPECT_EQ(read.getSubset(instance().getElementFromLabel(101)).values().size(), 8);
    EXPECT_EQ(read.getSubset(instance().getNodeFromLabel(20)).values().size(), 1);
    EXPECT_EQ(database().extentReadCount(), reads);
}

TEST_F(yld_FieldReadingTest, walkingBackwardsReadsNothingNew)
{
    yld_FieldOutput& t = m_frame.FieldOutput("T", "", yld_Enum::SCALAR);
    t.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{0}, {1}}));
    t.addData(yld_Enum::CENTROID, instance(), ints({101}), rows({{2}}));
    t.addData(yld_Enum::NODAL, instance(), ints({30, 40, 50}), rows({{3}, {4}, {5}}));
    forget();
    reopen();
    const yld_FieldOutput& read = field("T");
    EXPECT_EQ(read.values(5).data()[0], 5.0);
    // The walk passed the other blocks without reading them.
    EXPECT_FALSE(read.SubField()[0].field().isLoaded());
    EXPECT_FALSE(read.SubField()[1].field().isLoaded());
    for (int i = 0; i < 6; ++i) EXPECT_EQ(read.values(i).data()[0], i);
    const long long reads = database().extentReadCount();
    for (int i = 5; i >= 0; --i) EXPECT_EQ(read.values(i).data()[0], i);
    EXPECT_EQ(database().extentReadCount(), reads);
    // A copy has what its source has read, and a cursor of its own.
    const yld_FieldOutput copy(read);
    EXPECT_EQ(copy.values(4).data()[0], 4.0);
    EXPECT_EQ(read.values(1).data()[0], 1.0);
    EXPECT_EQ(copy.values(5).data()[0], 5.0);
    EXPECT_EQ(database().extentReadCount(), reads);
}

TEST_F(yld_FieldReadingTest, sizeReadsNothing)
{
    m_frame.FieldOutput("T", "", yld_Enum::SCALAR).addData(yld_Enum::NODAL, instance(), ints({10, 20}), counted(2));
    forget();
    reopen();
    const yld_FieldOutput& read = field("T");
    const long long reads = database().extentReadCount();
    const long long statements = database().statementCount();
    EXPECT_EQ(read.values().size(), 2);
    EXPECT_EQ(read.SubField()[0].length(), 2);
    EXPECT_EQ(database().extentReadCount(), reads);
    EXPECT_EQ(database().statementCount(), statements);
}

TEST_F(yld_FieldReadingTest, valuesCostNoMemoryBesideTheirOwn)
{
    if (countOfAllocations() < 0) GTEST_SKIP() << "memory is watched by a tool";
    const auto allocationsOf = [](const yld_FieldOutput& field) {
        double sum = 0.0;
        sum += field.values(0).data()[0]; // reads the block
        const long long before = countOfAllocations();
        for (int i = 0; i < field.values().size(); ++i) sum += field.values(i).data()[0];
        const long long after = countOfAllocations();
        EXPECT_NE(sum, 0.0);
        return after - before;
    };
    // The count counts.
    const long long before = countOfAllocations();
    const auto one = std::make_unique<double>(1.0);
    EXPECT_EQ(countOfAllocations() - before, 1) << *one;

    yld_FieldOutput& s = m_frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_FULL);
    s.addData(
        yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}),
        [] {
            yld_Sequence<yld_Sequence<float>> data;
            for (int i = 0; i < 16; ++i) data.append(floats({1, 2, 3, 4, 5, 6}));
            return data;
        }(),
        yld_SectionPoint(), rows({{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}));
    EXPECT_EQ(allocationsOf(s), 0);
    yld_FieldOutput& u = m_frame.FieldOutput("U", "", yld_Enum::VECTOR);
    u.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1, 2, 3}, {4, 5, 6}}), yld_SectionPoint(),
              yld_Sequence<yld_Sequence<float>>(), rows({{-1, -2, -3}, {-4, -5, -6}}));
    EXPECT_EQ(allocationsOf(u), 0);
    fld_FieldDescription description =
        describe("D", fld_DataTypeEnm::TENSOR_3D_FULL, fld_OutputPositionEnm::WHOLE_MODEL, 2);
    BlockNumbers numbers;
    numbers.isDouble = true;
    numbers.values = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    writeNumbers(m_frame, description, 100, numbers);
    EXPECT_EQ(allocationsOf(m_frame.fieldOutputs().get("D")), 0);
    // More than that is the value's own: the imaginary half of a double tensor.
    numbers.conjugate = numbers.values;
    description.m_label = "C";
    writeNumbers(m_frame, description, 101, numbers);
    EXPECT_EQ(allocationsOf(m_frame.fieldOutputs().get("C")), 2);
}

TEST(yld_FieldValueData, longRowsAndHalvesAreCopiedAndMoved)
{
    // Of as many components as fit into the object, of more, and with both halves, in both precisions.
    for (const int length : {1, 6, 7, 12, 13, 40}) {
        const auto check = [length](auto zero) {
            using Real = decltype(zero);
            std::vector<Real> components(static_cast<std::size_t>(length));
            for (int i = 0; i < length; ++i) components[static_cast<std::size_t>(i)] = static_cast<Real>(i + 1);
            const auto isWhole = [&](const yld_FieldValueData& data) {
                bool good = data.length() == length;
                for (int i = 0; good && i < length; ++i) good = data[i] == i + 1;
                return good;
            };
            yld_FieldValueData data(components.data(), length);
            EXPECT_TRUE(isWhole(data)) << length;
            const yld_FieldValueData copy(data);
            EXPECT_TRUE(isWhole(copy)) << length;
            const yld_FieldValueData moved(std::move(data));
            EXPECT_TRUE(isWhole(moved)) << length;
            EXPECT_EQ(data.length(), 0); // NOLINT: what is left is empty
            EXPECT_TRUE(copy == moved);
            yld_FieldValueData target(components.data(), 1);
            target = moved;
            EXPECT_TRUE(isWhole(target)) << length;
            const Real one = 9;
            target = yld_FieldValueData(&one, 1);
            EXPECT_EQ(target.length(), 1);
            EXPECT_EQ(target[0], 9.0);
        };
        check(0.0F);
        check(0.0);
    }
}

TEST_F(yld_FieldReadingTest, bulkDataBorrowsTheStoredNumbers)
{
    yld_FieldOutput& s = m_frame.FieldOutput("S", "", yld_Enum::SCALAR);
    s.addData(yld_Enum::INTEGRATION_POINT, instance(), ints({101, 102}), counted(16));
    forget();
    reopen();
    const yld_FieldOutput& read = field("S");
    const yld_SequenceFieldBulkData kept = read.bulkDataBlocks();
    const yld_FieldBulkData& bulk = kept[0];
    EXPECT_EQ(bulk.data(), read.SubField()[0].field().view<float>().data());
    EXPECT_EQ(bulk.data(), read.bulkDataBlocks()[0].data());
    // What has one entry a value is made when it is asked for, and once.
    EXPECT_EQ(bulk.elementLabels(), bulk.elementLabels());
    EXPECT_EQ(bulk.integrationPoints(), bulk.integrationPoints());
    EXPECT_EQ(bulk.numberOfElements(), 2);
}

TEST_F(yld_FieldReadingTest, copiesOfBulkDataHaveTheirOwnExpandedArrays)
{
    yld_FieldOutput& s = m_frame.FieldOutput("S", "", yld_Enum::TENSOR_3D_PLANAR);
    s.addData(yld_Enum::CENTROID, instance(), ints({301, 302}), rows({{3, 0, 0, 4}, {0, 3, 0, 0}}));
    const yld_SequenceFieldBulkData kept = s.bulkDataBlocks();
    const yld_FieldBulkData& bulk = kept[0];
    const float* mises = bulk.mises();
    const int* labels = bulk.elementLabels();
    const yld_FieldBulkData copy(bulk);
    EXPECT_EQ(copy.data(), bulk.data());
    EXPECT_NE(copy.mises(), mises);
    EXPECT_EQ(copy.mises()[1], 3.0F);
    EXPECT_NE(copy.elementLabels(), labels);
    EXPECT_EQ(copy.elementLabels()[1], 302);
    yld_FieldBulkData target;
    target = copy;
    EXPECT_NE(target.mises(), copy.mises());
    EXPECT_EQ(target.mises()[1], 3.0F);
    const yld_FieldBulkData& alias = target;
    target = alias;
    EXPECT_EQ(target.elementLabels()[0], 301);
    target = yld_FieldBulkData();
    EXPECT_EQ(target.elementLabels(), nullptr);
    EXPECT_EQ(target.mises(), nullptr);
    EXPECT_EQ(bulk.mises(), mises);
}

TEST_F(yld_FieldReadingTest, onlyTensorsHaveMisesInBulk)
{
    const auto misesOf = [&](const char* name, fld_DataTypeEnm type, int width) {
        fld_FieldDescription description = describe(name, type, fld_OutputPositionEnm::WHOLE_MODEL, 1);
        description.m_width = width;
        BlockNumbers numbers;
        numbers.values = std::vector<double>(static_cast<std::size_t>(width), 1.0);
        writeNumbers(m_frame, description, 200 + width + static_cast<int>(type), numbers);
        m_frame.update();
        return m_frame.fieldOutputs().get(name).bulkDataBlocks()[0].mises() != nullptr;
    };
    EXPECT_FALSE(misesOf("A", fld_DataTypeEnm::SCALAR, 1));
    EXPECT_FALSE(misesOf("B", fld_DataTypeEnm::VECTOR, 3));
    EXPECT_FALSE(misesOf("C", fld_DataTypeEnm::MATRIX, 6));
    EXPECT_FALSE(misesOf("D", fld_DataTypeEnm::QUATERNION_3D, 4));
    EXPECT_TRUE(misesOf("E", fld_DataTypeEnm::TENSOR_3D_FULL, 6));
    EXPECT_TRUE(misesOf("F", fld_DataTypeEnm::TENSOR_2D_SURFACE, 3));
}

TEST_F(yld_FieldReadingTest, misesOfRowsThatAreWiderThanTheirType)
{
    // A block of full rows that presents itself as planar: the first four components count.
    BlockNumbers numbers;
    numbers.values = {3, 0, 0, 4, 100, 100, 0, 3, 0, 0, 100, 100};
    fld_FieldDescription description =
        describe("W", fld_DataTypeEnm::TENSOR_3D_FULL, fld_OutputPositionEnm::WHOLE_MODEL, 2);
    const sto_Field stored = writeNumbers(m_frame, description, 300, numbers);
    yld_SequenceFieldValue values;
    values.append(yld_SubField(300, stored, step().assembly(), yld_Enum::TENSOR_3D_PLANAR));
    const yld_SequenceFieldBulkData bulk(values);
    EXPECT_EQ(bulk[0].width(), 6);
    EXPECT_FLOAT_EQ(bulk[0].mises()[0], 7.5498344F); // root of 9 + 48
    EXPECT_FLOAT_EQ(bulk[0].mises()[1], 3.0F);
}

TEST_F(yld_FieldReadingTest, typesWithoutComponentsWarn)
{
    BlockNumbers numbers;
    numbers.values = {1, 0};
    const sto_Field stored = writeNumbers(
        m_frame, describe("B", fld_DataTypeEnm::BOOLEAN, fld_OutputPositionEnm::WHOLE_MODEL, 2), 400, numbers);
    yld_SequenceFieldValue values;
    values.append(yld_SubField(400, stored, step().assembly(), yld_Enum::BOOLEAN));
    EXPECT_EQ(warningsOf([&] { EXPECT_EQ(values.get(0).data().length(), 0); }),
              "Warning: Unknown datatype not processed.\n");
    EXPECT_EQ(warningsOf([&] { values.get(1); }), "");
    EXPECT_EQ(values.size(), 2);
}

TEST_F(yld_FieldReadingTest, valuesOutliveTheirField)
{
    yld_FieldValue kept;
    {
        yld_FieldOutput u = m_frame.FieldOutput("U", "", yld_Enum::VECTOR);
        u.addData(yld_Enum::NODAL, instance(), ints({10, 20}), rows({{1, 2, 3}, {4, 5, 6}}), yld_SectionPoint(),
                  yld_Sequence<yld_Sequence<float>>(), rows({{-1, -2, -3}, {-4, -5, -6}}));
        kept = u.values(1);
        // The imaginary half takes no part in a comparison.
        const float components[] = {4, 5, 6};
        EXPECT_TRUE(kept.data() == yld_FieldValueData(components, 3));
        EXPECT_NE(kept.data().floatConjugate(), nullptr);
    }
    forget();
    m_yld->close();
    m_yld = nullptr;
    EXPECT_EQ(kept.data()[2], 6.0);
    EXPECT_EQ(kept.data().floatConjugate()[2], -6.0F);
    EXPECT_EQ(kept.nodeLabel(), 20);
}
