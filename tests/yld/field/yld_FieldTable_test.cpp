// Every position that values can be at, with every type, in both precisions, real and complex, with and without local
// systems, on sets of nodes, elements and faces, of regular and irregular elements and two instances: written, read
// back from the closed file, and compared one by one and in bulk, whole, as subsets and as subsets of subsets.
#include "platform/sto/sto_Assembly.h"
#include "result_model.h"
#include "stored_blocks.h"

#include <algorithm>
#include <cmath>

namespace {

using Position = yld_Enum::yld_ResultPositionEnum;

// One element of the model: what it says is known here by itself.
struct Shape
{
    const char* type;
    std::vector<int> elements;                  // labels
    std::vector<std::vector<int>> connectivity; // one list an element
    int points;
    std::vector<int> pointsOnFace; // by face
};

// Nodes 10, 20 ... 120; labels of the elements ascend within a type.
const std::vector<Shape>& shapes()
{
    static const std::vector<Shape> all = {
        {"HEX8",
         {101, 102, 104},
         {{10, 20, 30, 40, 50, 60, 70, 80}, {50, 60, 70, 80, 90, 100, 110, 120}, {10, 20, 30, 40, 90, 100, 110, 120}},
         8,
         {4, 4, 4, 4, 4, 4}},
        {"TET4", {5, 7}, {{10, 20, 30, 50}, {20, 30, 40, 60}}, 1, {1, 1, 1, 1}},
        {"WEDGE6",
         {201, 202, 203},
         {{10, 20, 30, 50, 60, 70}, {50, 60, 70, 90, 100, 110}, {10, 30, 40, 50, 70, 80}},
         2,
         {4, 4, 4, 1, 1}},
        {"PYRAMID5", {251, 252}, {{10, 20, 30, 40, 50}, {50, 60, 70, 80, 90}}, 5, {1, 1, 1, 1, 4}},
        {"SHELL4", {301, 302}, {{10, 20, 30, 40}, {50, 60, 70, 80}}, 4, {}},
    };
    return all;
}

struct Type
{
    const char* name;
    yld_Enum::yld_DataTypeEnum type;
    fld_DataTypeEnm stored;
    int width;
    int systemWidth; // of the local systems that it can have
};

const std::vector<Type>& types()
{
    static const std::vector<Type> all = {
        {"scalar", yld_Enum::SCALAR, fld_DataTypeEnm::SCALAR, 1, 0},
        {"vector", yld_Enum::VECTOR, fld_DataTypeEnm::VECTOR, 3, 4},
        {"matrix", yld_Enum::MATRIX, fld_DataTypeEnm::MATRIX, 6, 0},
        {"full", yld_Enum::TENSOR_3D_FULL, fld_DataTypeEnm::TENSOR_3D_FULL, 6, 4},
        {"planar", yld_Enum::TENSOR_3D_PLANAR, fld_DataTypeEnm::TENSOR_3D_PLANAR, 4, 4},
        {"surface", yld_Enum::TENSOR_3D_SURFACE, fld_DataTypeEnm::TENSOR_3D_SURFACE, 3, 4},
        {"plane", yld_Enum::TENSOR_2D_PLANAR, fld_DataTypeEnm::TENSOR_2D_PLANAR, 4, 2},
        {"plane surface", yld_Enum::TENSOR_2D_SURFACE, fld_DataTypeEnm::TENSOR_2D_SURFACE, 3, 2},
        {"quaternion", yld_Enum::QUATERNION_3D, fld_DataTypeEnm::QUATERNION_3D, 4, 0},
        {"plane quaternion", yld_Enum::QUATERNION_2D, fld_DataTypeEnm::QUATERNION_2D, 2, 0},
    };
    return all;
}

struct At
{
    Position position;
    fld_OutputPositionEnm stored;
    const char* name;
};

const std::vector<At>& positions()
{
    using Stored = fld_OutputPositionEnm;
    static const std::vector<At> all = {
        {yld_Enum::NODAL, Stored::NODAL, "nodal"},
        {yld_Enum::ELEMENT_NODAL, Stored::ELEMENT_NODAL, "element nodal"},
        {yld_Enum::INTEGRATION_POINT, Stored::INTEGRATION_POINT, "points"},
        {yld_Enum::CENTROID, Stored::CENTROID, "centroid"},
        {yld_Enum::WHOLE_ELEMENT, Stored::WHOLE_ELEMENT, "whole"},
        {yld_Enum::ELEMENT_FACE, Stored::ELEMENT_FACE, "faces"},
        {yld_Enum::ELEMENT_FACE_INTEGRATION_POINT, Stored::ELEMENT_FACE_INTEGRATION_POINT, "face points"},
        {yld_Enum::SURFACE_INTEGRATION_POINT, Stored::SURFACE_INTEGRATION_POINT, "surface points"},
        {yld_Enum::WHOLE_MODEL, Stored::WHOLE_MODEL, "model"},
    };
    return all;
}

bool isOnFaces(Position position)
{
    return position == yld_Enum::ELEMENT_FACE || position == yld_Enum::ELEMENT_FACE_INTEGRATION_POINT ||
           position == yld_Enum::SURFACE_INTEGRATION_POINT;
}

bool isQuaternion(yld_Enum::yld_DataTypeEnum type)
{
    return type == yld_Enum::QUATERNION_2D || type == yld_Enum::QUATERNION_3D;
}

// Everything that a value says of itself.
struct Row
{
    Position position;
    std::string instance;
    std::string elementType;
    int element = -1;
    int node = -1;
    int point = -1;
    int face = 0;
    int entity = 0; // the number of its node, element or face in the block
    int sectionNumber = -1;
    std::string sectionText;
    bool isDouble = false;
    std::vector<double> data;
    std::vector<double> conjugate;
    std::vector<double> system;
};

using Block = std::vector<Row>;
using Blocks = std::vector<Block>;

struct Field
{
    std::string name;
    At at;
    Type type;
    bool isComplex;
    bool hasSystems;
    Blocks blocks;
};

template<class T> std::vector<double> numbersOf(const T* numbers, int count)
{
    if (!numbers) return {};
    return std::vector<double>(numbers, numbers + count);
}

std::vector<double> rounded(const std::vector<double>& numbers)
{
    std::vector<double> all;
    for (const double number : numbers) all.push_back(static_cast<double>(static_cast<float>(number)));
    return all;
}

// What is kept of numbers in a precision.
std::vector<double> kept(const std::vector<double>& numbers, bool isDouble)
{
    return isDouble ? numbers : rounded(numbers);
}

void expectValue(const yld_FieldValue& value, const Row& row, yld_Enum::yld_DataTypeEnum type)
{
    EXPECT_EQ(value.position(), row.position);
    EXPECT_EQ(value.type(), type);
    EXPECT_EQ(value.precision(), row.isDouble ? yld_Enum::DOUBLE_PRECISION : yld_Enum::SINGLE_PRECISION);
    EXPECT_STREQ(value.instance().name().cStr(), row.instance.c_str());
    EXPECT_STREQ(value.baseElementType().cStr(), row.elementType.c_str());
    EXPECT_EQ(value.elementLabel(), row.element);
    EXPECT_EQ(value.nodeLabel(), row.node);
    EXPECT_EQ(value.integrationPoint(), row.point);
    EXPECT_EQ(value.face(), row.face);
    EXPECT_EQ(value.sectionPoint().number(), row.sectionNumber);
    EXPECT_STREQ(value.sectionPoint().description().cStr(), row.sectionText.c_str());
    const auto numbers = [](const yld_FieldValueData& data) {
        return data.doubleData() ? numbersOf(data.doubleData(), data.length())
                                 : numbersOf(data.floatData(), data.length());
    };
    EXPECT_EQ(value.data().doubleData() != nullptr, row.isDouble);
    EXPECT_EQ(numbers(value.data()), kept(row.data, row.isDouble));
    const yld_FieldValueData& data = value.data();
    EXPECT_EQ(row.isDouble ? numbersOf(data.doubleConjugate(), data.length())
                           : numbersOf(data.floatConjugate(), data.length()),
              kept(row.conjugate, row.isDouble));
    EXPECT_EQ(numbers(value.localCoordSystemData()), kept(row.system, row.isDouble));
}

void expectValues(const yld_FieldOutput& field, const Blocks& blocks, yld_Enum::yld_DataTypeEnum type)
{
    ASSERT_EQ(field.SubField().size(), static_cast<int>(blocks.size()));
    int total = 0;
    for (std::size_t b = 0; b < blocks.size(); ++b) {
        ASSERT_EQ(field.SubField()[static_cast<int>(b)].length(), static_cast<int>(blocks[b].size()));
        for (const Row& row : blocks[b]) {
            SCOPED_TRACE("value " + std::to_string(total));
            expectValue(field.values(total++), row, type);
        }
    }
    EXPECT_EQ(field.values().size(), total);
}

void expectBulk(const yld_FieldOutput& field, const Blocks& blocks, yld_Enum::yld_DataTypeEnum type)
{
    const yld_SequenceFieldBulkData& all = field.bulkDataBlocks();
    ASSERT_EQ(all.size(), static_cast<int>(blocks.size()));
    for (int b = 0; b < all.size(); ++b) {
        SCOPED_TRACE("block " + std::to_string(b));
        const yld_FieldBulkData& bulk = all[b];
        const Block& block = blocks[static_cast<std::size_t>(b)];
        const Row& first = block[0];
        const int length = static_cast<int>(block.size());
        ASSERT_EQ(bulk.length(), length);
        EXPECT_EQ(bulk.type(), type);
        EXPECT_EQ(bulk.position(), first.position);
        EXPECT_EQ(bulk.precision(), first.isDouble ? yld_Enum::DOUBLE_PRECISION : yld_Enum::SINGLE_PRECISION);
        EXPECT_STREQ(bulk.instance().name().cStr(), first.instance.c_str());
        EXPECT_STREQ(bulk.baseElementType().cStr(), first.elementType.c_str());
        EXPECT_EQ(bulk.sectionPoint().number(), first.sectionNumber);
        ASSERT_EQ(bulk.width(), static_cast<int>(first.data.size()));
        ASSERT_EQ(bulk.orientationWidth(), static_cast<int>(first.system.size()));
        std::vector<double> data;
        std::vector<double> conjugate;
        std::vector<double> systems;
        std::vector<int> nodes;
        std::vector<int> elements;
        std::vector<int> points;
        std::vector<int> faces;
        for (const Row& row : block) {
            data.insert(data.end(), row.data.begin(), row.data.end());
            conjugate.insert(conjugate.end(), row.conjugate.begin(), row.conjugate.end());
            systems.insert(systems.end(), row.system.begin(), row.system.end());
            if (row.node >= 0) nodes.push_back(row.node);
            if (row.element >= 0) elements.push_back(row.element);
            const bool areNumbered =
                row.position == yld_Enum::INTEGRATION_POINT || row.position == yld_Enum::ELEMENT_FACE_INTEGRATION_POINT;
            if (areNumbered) points.push_back(row.point);
            if (row.face != 0) faces.push_back(row.face);
        }
        const auto integers = [length](const auto* numbers) {
            return numbers ? std::vector<int>(numbers, numbers + length) : std::vector<int>();
        };
        const int count = length * bulk.width();
        const int systemCount = length * bulk.orientationWidth();
        if (first.isDouble) {
            EXPECT_EQ(bulk.data(), nullptr);
            EXPECT_EQ(numbersOf(bulk.dataDouble(), count), data);
            EXPECT_EQ(numbersOf(bulk.conjugateDataDouble(), count), conjugate);
            EXPECT_EQ(numbersOf(bulk.localCoordSystemDouble(), systemCount), systems);
        } else {
            EXPECT_EQ(bulk.dataDouble(), nullptr);
            EXPECT_EQ(numbersOf(bulk.data(), count), rounded(data));
            EXPECT_EQ(numbersOf(bulk.conjugateData(), count), rounded(conjugate));
            EXPECT_EQ(numbersOf(bulk.localCoordSystem(), systemCount), rounded(systems));
        }
        EXPECT_EQ(integers(bulk.nodeLabels()), nodes);
        EXPECT_EQ(integers(bulk.elementLabels()), elements);
        EXPECT_EQ(integers(bulk.integrationPoints()), points);
        EXPECT_EQ(integers(bulk.faces()), faces);
    }
}

template<class Keeps> Blocks filtered(const Blocks& blocks, Keeps keeps)
{
    Blocks all;
    for (const Block& block : blocks) {
        Block part;
        std::copy_if(block.begin(), block.end(), std::back_inserter(part), keeps);
        if (!part.empty()) all.push_back(part);
    }
    return all;
}

// As values at nodes, taken out: single precision, without element.
Blocks atNodes(Blocks blocks)
{
    for (Block& block : blocks) {
        for (Row& row : block) {
            if (row.position == yld_Enum::NODAL) continue;
            row.position = yld_Enum::NODAL;
            row.element = -1;
            row.elementType.clear();
            row.sectionText.clear();
            row.isDouble = false;
            row.data = rounded(row.data);
            row.conjugate = rounded(row.conjugate);
            row.system = rounded(row.system);
        }
    }
    return blocks;
}

// As they are after they have been taken out: single precision; on faces, without their face.
Blocks takenOut(Blocks blocks)
{
    for (Block& block : blocks) {
        for (Row& row : block) {
            row.isDouble = false;
            row.face = 0;
        }
    }
    return blocks;
}

} // namespace

class yld_FieldTableTest : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        yld_Part& part = m_yld->parts().get("block");
        part.addElements(ints({104}), connectivity({{10, 20, 30, 40, 90, 100, 110, 120}}), "HEX8");
        part.addElements(ints({201, 202, 203}),
                         connectivity({{10, 20, 30, 50, 60, 70}, {50, 60, 70, 90, 100, 110}, {10, 30, 40, 50, 70, 80}}),
                         "WEDGE6");
        part.addElements(ints({251, 252}), connectivity({{10, 20, 30, 40, 50}, {50, 60, 70, 80, 90}}), "PYRAMID5");
        m_yld->rootAssembly().Instance("block-2", part);
        for (const char* name : {"block-1", "block-2"}) {
            yld_Instance& placed = m_yld->rootAssembly().instances().get(name);
            placed.NodeSet("some nodes", ints({20, 50, 60, 110}));
            placed.NodeSet("other nodes", ints({10, 50, 60, 70}));
            placed.ElementSet("some elements", ints({102, 104, 202, 251, 302}));
            placed.ElementSet("other elements", ints({101, 104, 201, 202, 252}));
        }
        m_yld->save();
        m_frame = step().Frame(1, 1.0);
    }

    sto_PartInstance placed(const std::string& name)
    {
        return m_yld->rootAssembly().instances().get(name.c_str()).instance();
    }

    // Gives the rows of a block their numbers and writes it.
    void write(Field& field, Block rows, const fld_FieldDescription& like, bool isDouble)
    {
        BlockNumbers numbers;
        numbers.isDouble = isDouble;
        int k = 0;
        for (Row& row : rows) {
            row.position = field.at.position;
            row.isDouble = isDouble;
            for (int c = 0; c < field.type.width; ++c, ++k) {
                // More digits than a float keeps.
                row.data.push_back(m_nextKey + k + 1e-9);
                if (field.isComplex) row.conjugate.push_back(-0.5 * k - 1e-9);
            }
            if (field.hasSystems && field.type.systemWidth > 0) {
                const double angle = 0.01 * k + 0.3;
                if (field.type.systemWidth == 4) row.system = {0.0, 0.0, std::sin(angle), std::cos(angle)};
                else row.system = {std::sin(angle), std::cos(angle)};
                numbers.systems.insert(numbers.systems.end(), row.system.begin(), row.system.end());
            }
            numbers.values.insert(numbers.values.end(), row.data.begin(), row.data.end());
            numbers.conjugate.insert(numbers.conjugate.end(), row.conjugate.begin(), row.conjugate.end());
        }
        fld_FieldDescription description(like);
        description.m_label = field.name;
        description.m_dataType = static_cast<int>(field.type.stored);
        description.m_position = static_cast<int>(field.at.stored);
        description.m_width = field.type.width;
        description.m_length = static_cast<int>(rows.size());
        if (field.type.type == yld_Enum::MATRIX) {
            description.m_rows = 2;
            description.m_cols = 3;
        }
        writeNumbers(m_frame, description, m_nextKey, numbers);
        m_nextKey += 2;
        field.blocks.push_back(rows);
    }

    void writeNodal(Field& field, const std::string& instance, const std::vector<int>& labels, bool isDouble)
    {
        sto_PartInstance on = placed(instance);
        fld_FieldDescription description;
        description.m_instance = on.shortCut();
        const int count = static_cast<int>(labels.size());
        description.m_set = on.Nset("own " + std::to_string(m_nextKey), labels.data(), count, true, false).shortCut();
        Block rows;
        for (const int label : labels) {
            Row row;
            row.instance = instance;
            row.node = label;
            row.entity = static_cast<int>(rows.size());
            rows.push_back(row);
        }
        write(field, rows, description, isDouble);
    }

    // Values on some elements of a shape.
    void writeElements(Field& field, const std::string& instance, const Shape& shape, const std::vector<int>& chosen,
                       bool isDouble, int section = -1)
    {
        sto_PartInstance on = placed(instance);
        std::vector<int> labels;
        Block rows;
        for (const int place : chosen) {
            const auto at = static_cast<std::size_t>(place);
            Row row;
            row.instance = instance;
            row.elementType = shape.type;
            row.element = shape.elements[at];
            row.entity = static_cast<int>(labels.size());
            if (section >= 0) {
                row.sectionNumber = section + 1;
                row.sectionText = section == 0 ? "bottom" : "top";
            }
            labels.push_back(row.element);
            if (field.at.position == yld_Enum::ELEMENT_NODAL) {
                for (const int node : shape.connectivity[at]) {
                    row.node = node;
                    rows.push_back(row);
                }
            } else if (field.at.position == yld_Enum::INTEGRATION_POINT) {
                for (int point = 1; point <= shape.points; ++point) {
                    row.point = point;
                    rows.push_back(row);
                }
            } else {
                rows.push_back(row);
            }
        }
        fld_FieldDescription description;
        description.m_instance = on.shortCut();
        description.m_locationIndex = section;
        const sto_Set set =
            on.Elset("own " + std::to_string(m_nextKey), labels.data(), static_cast<int>(labels.size()), true);
        description.m_set = set.shortCut();
        description.m_classIndex = set.subSet(0).classIndex();
        write(field, rows, description, isDouble);
    }

    // Values on faces: element by place in the shape, and face counted from 0.
    void writeFaces(Field& field, const std::string& instance, const Shape& shape,
                    const std::vector<std::pair<int, int>>& chosen, bool isDouble)
    {
        sto_PartInstance on = placed(instance);
        sto_SurfaceSubset faces;
        Block rows;
        for (const auto& [place, face] : chosen) {
            Row row;
            row.instance = instance;
            row.elementType = shape.type;
            row.element = shape.elements[static_cast<std::size_t>(place)];
            row.face = yld_Enum::FACE1 + face;
            row.entity = static_cast<int>(faces.labels.size());
            faces.labels.push_back(row.element);
            faces.facets.push_back(face);
            if (field.at.position == yld_Enum::ELEMENT_FACE) {
                rows.push_back(row);
                continue;
            }
            for (int point = 1; point <= shape.pointsOnFace[static_cast<std::size_t>(face)]; ++point) {
                row.point = point;
                rows.push_back(row);
            }
        }
        fld_FieldDescription description;
        description.m_instance = on.shortCut();
        const sto_Set set = on.Surface("own " + std::to_string(m_nextKey), {faces}, true);
        description.m_set = set.shortCut();
        description.m_classIndex = set.subSet(0).classIndex();
        write(field, rows, description, isDouble);
    }

    Field writeField(const At& at, const Type& type, bool isDouble, bool isComplex, bool hasSystems)
    {
        Field field{std::string(at.name) + " " + type.name, at, type, isComplex, hasSystems, {}};
        if (isDouble) field.name += " double";
        if (isComplex) field.name += " complex";
        if (hasSystems) field.name += " turned";
        const Shape& hexahedra = shapes()[0];
        const Shape& wedges = shapes()[2];
        const Shape& pyramids = shapes()[3];
        const Shape& shells = shapes()[4];
        if (at.position == yld_Enum::WHOLE_MODEL) {
            Row row;
            write(field, {row}, {}, isDouble);
        } else if (at.position == yld_Enum::NODAL) {
            writeNodal(field, "block-1", {10, 20, 50, 60}, isDouble);     // scattered
            writeNodal(field, "block-2", {20, 30, 40, 50, 60}, isDouble); // a run
        } else if (isOnFaces(at.position)) {
            writeFaces(field, "block-1", hexahedra, {{0, 0}, {1, 5}, {2, 0}, {2, 3}}, isDouble);
            writeFaces(field, "block-2", wedges, {{0, 3}, {0, 0}, {1, 4}, {2, 2}}, isDouble);
            writeFaces(field, "block-1", wedges, {{1, 1}, {2, 2}}, isDouble); // all alike
            writeFaces(field, "block-1", pyramids, {{0, 4}, {1, 0}, {1, 4}}, isDouble);
        } else {
            writeElements(field, "block-1", hexahedra, {0, 2}, isDouble);
            writeElements(field, "block-2", hexahedra, {0, 1, 2}, isDouble);
            writeElements(field, "block-1", wedges, {0, 1}, isDouble);
            writeElements(field, "block-1", pyramids, {1}, isDouble);
            writeElements(field, "block-1", shells, {0, 1}, isDouble, 1);
            writeElements(field, "block-1", shells, {1}, isDouble, 0);
        }
        return field;
    }

    // What keeps a part of a block from being taken out: its warning and the message; empty when nothing does.
    static std::string obstacle(const Field& field)
    {
        if (isQuaternion(field.type.type)) {
            return "Warning: Quaternions result not read.\nSubfield spanning subsets is invalid.";
        }
        if (field.at.position == yld_Enum::ELEMENT_FACE_INTEGRATION_POINT ||
            field.at.position == yld_Enum::SURFACE_INTEGRATION_POINT) {
            return "Warning: Results at unknown location not read.\nSubfield spanning subsets is invalid.";
        }
        if (field.type.type == yld_Enum::VECTOR && field.hasSystems) {
            return "Transformation not allowed for scalar, vector or matrix data.";
        }
        return {};
    }

    static std::string outcomeOf(const std::function<void()>& action)
    {
        std::string failure;
        const std::string warning = warningsOf([&] { failure = failureOf(action); });
        return warning + failure;
    }

    // A subset by labels: one by one, in bulk, and one by one once more, when its values have been taken out.
    void expectChosen(const Field& field, const yld_FieldOutput& subset, const Blocks& expected)
    {
        expectValues(subset, expected, field.type.type);
        if (expected.empty()) {
            EXPECT_EQ(subset.bulkDataBlocks().size(), 0);
            return;
        }
        const std::string wanted = obstacle(field);
        if (!wanted.empty()) {
            EXPECT_EQ(outcomeOf([&] { subset.bulkDataBlocks(); }), wanted);
            expectValues(subset, expected, field.type.type);
            return;
        }
        expectBulk(subset, takenOut(expected), field.type.type);
        expectValues(subset, takenOut(expected), field.type.type);
    }

    void expectSubsets(const Field& field, const yld_FieldOutput& read)
    {
        const yld_Enum::yld_DataTypeEnum type = field.type.type;
        const yld_Instance& first = m_yld->rootAssembly().instances().constGet("block-1");
        const auto isInFirst = [](const Row& row) { return row.instance == "block-1"; };
        const Blocks inFirst = filtered(field.blocks, isInFirst);
        const bool isOnModel = field.at.position == yld_Enum::WHOLE_MODEL;
        {
            SCOPED_TRACE("whole blocks");
            const auto compare = [&](const yld_FieldOutput& subset, const Blocks& expected) {
                expectValues(subset, expected, type);
                expectBulk(subset, expected, type);
                EXPECT_TRUE(subset.IsOrphan());
            };
            compare(read.getSubset(field.at.position), field.blocks);
            compare(read.getSubset(first), inFirst);
            const auto isWedge = [](const Row& row) { return row.elementType == "WEDGE6"; };
            compare(read.getSubset(yld_String("WEDGE6")), filtered(field.blocks, isWedge));
            compare(read.getSubset(first).getSubset(yld_String("WEDGE6")), filtered(inFirst, isWedge));
            const auto isTop = [](const Row& row) { return row.sectionNumber == 2; };
            compare(read.getSubset(yld_SectionPoint(2, "top")), filtered(field.blocks, isTop));
            compare(read.getSubset(yld_FieldLocation(field.at.position, yld_SectionPoint(2, "top"))),
                    filtered(field.blocks, [](const Row& row) { return row.sectionNumber != 1; }));
        }
        const yld_Set& someNodes = first.nodeSets().constGet("some nodes");
        const yld_Set& someElements = first.elementSets().constGet("some elements");
        if (isOnModel) {
            EXPECT_EQ(failureOf([&] { read.getSubset(someNodes); }), "Unknown Set type.");
            EXPECT_EQ(read.getSubset(first.getElementFromLabel(101)).values().size(), 0);
            return;
        }
        const bool byElement = !isOnFaces(field.at.position);
        const auto isSomeElement = [&](const Row& row) {
            const std::vector<int> labels = {102, 104, 202, 251, 302};
            return byElement && isInFirst(row) && std::count(labels.begin(), labels.end(), row.element) > 0;
        };
        const auto isOtherElement = [](const Row& row) {
            const std::vector<int> labels = {101, 104, 201, 202, 252};
            return std::count(labels.begin(), labels.end(), row.element) > 0;
        };
        {
            SCOPED_TRACE("element set");
            expectChosen(field, read.getSubset(someElements), filtered(field.blocks, isSomeElement));
            const auto isBoth = [&](const Row& row) { return isSomeElement(row) && isOtherElement(row); };
            expectChosen(field, read.getSubset(someElements).getSubset(first.elementSets().constGet("other elements")),
                         filtered(field.blocks, isBoth));
            expectChosen(field, read.getSubset(yld_String("HEX8")).getSubset(someElements),
                         filtered(field.blocks,
                                  [&](const Row& row) { return isSomeElement(row) && row.elementType == "HEX8"; }));
        }
        {
            SCOPED_TRACE("element");
            // Of a face with several points the number of the face is taken for that of the value.
            const auto ofElement = [&](int label) {
                Blocks all;
                for (const Block& block : inFirst) {
                    Block part;
                    for (std::size_t k = 0; k < block.size(); ++k) {
                        const bool isOwn = byElement ? block[k].element == label : [&] {
                            return std::any_of(block.begin(), block.end(), [&](const Row& row) {
                                return row.entity == static_cast<int>(k) && row.element == label;
                            });
                        }();
                        if (isOwn && label >= 0) part.push_back(block[k]);
                    }
                    if (!part.empty()) all.push_back(part);
                }
                return all;
            };
            expectChosen(field, read.getSubset(first.getElementFromLabel(104)), ofElement(104));
            expectChosen(field, read.getSubset(first.getElementFromLabel(202)), ofElement(202));
            expectChosen(field, read.getSubset(first.getElementFromLabel(302)), ofElement(302));
            if (byElement && obstacle(field).empty()) {
                const Blocks some = filtered(field.blocks, isSomeElement);
                expectChosen(field, read.getSubset(someElements).getSubset(first.getElementFromLabel(104)),
                             takenOut(filtered(some, [](const Row& row) { return row.element == 104; })));
            }
        }
        {
            SCOPED_TRACE("nodes");
            const auto isSomeNode = [&](const Row& row) {
                const std::vector<int> labels = {20, 50, 60, 110};
                return isInFirst(row) && std::count(labels.begin(), labels.end(), row.node) > 0;
            };
            const bool isMoved = field.at.position == yld_Enum::ELEMENT_NODAL;
            if (isMoved && !obstacle(field).empty()) {
                EXPECT_EQ(outcomeOf([&] { read.getSubset(someNodes); }), obstacle(field));
                EXPECT_EQ(outcomeOf([&] { read.getSubset(first.getNodeFromLabel(50)); }), obstacle(field));
                return;
            }
            const Blocks some = atNodes(filtered(field.blocks, isSomeNode));
            expectChosen(field, read.getSubset(someNodes), some);
            if (!isMoved) {
                expectChosen(field, read.getSubset(someNodes).getSubset(first.nodeSets().constGet("other nodes")),
                             filtered(some, [](const Row& row) { return row.node == 50 || row.node == 60; }));
            }
            Blocks firsts;
            for (const Block& block : inFirst) {
                const auto found =
                    std::find_if(block.begin(), block.end(), [](const Row& row) { return row.node == 50; });
                if (found != block.end()) firsts.push_back({*found});
            }
            expectChosen(field, read.getSubset(first.getNodeFromLabel(50)), atNodes(firsts));
        }
    }

    // Writes a field of every type at a position, reads them back and compares.
    void expectPosition(const At& at)
    {
        std::vector<Field> written;
        for (const Type& type : types()) {
            for (const bool isDouble : {false, true}) {
                for (const bool isComplex : {false, true}) {
                    for (const bool hasSystems : {false, true}) {
                        if (hasSystems && (type.systemWidth == 0 || at.position == yld_Enum::WHOLE_MODEL)) continue;
                        written.push_back(writeField(at, type, isDouble, isComplex, hasSystems));
                    }
                }
            }
        }
        ASSERT_EQ(written.size(), at.position == yld_Enum::WHOLE_MODEL ? 40u : 64u);
        m_frame = yld_Frame();
        reopen();
        for (const Field& each : written) {
            SCOPED_TRACE(each.name);
            const yld_FieldOutput& read = field(each.name.c_str());
            EXPECT_EQ(read.type(), each.type.type);
            EXPECT_EQ(read.isComplex(), each.isComplex);
            EXPECT_EQ(read.hasLocalCoordSystem(), each.hasSystems);
            expectValues(read, each.blocks, each.type.type);
            expectBulk(read, each.blocks, each.type.type);
            expectSubsets(each, read);
            // Subsets have left the field as it was.
            expectValues(read, each.blocks, each.type.type);
            if (HasFailure()) return; // one field tells enough
        }
    }

    yld_Frame m_frame;
    int m_nextKey = 0;
};

TEST_F(yld_FieldTableTest, nodal) { expectPosition(positions()[0]); }
TEST_F(yld_FieldTableTest, elementNodal) { expectPosition(positions()[1]); }
TEST_F(yld_FieldTableTest, integrationPoint) { expectPosition(positions()[2]); }
TEST_F(yld_FieldTableTest, centroid) { expectPosition(positions()[3]); }
TEST_F(yld_FieldTableTest, wholeElement) { expectPosition(positions()[4]); }
TEST_F(yld_FieldTableTest, elementFace) { expectPosition(positions()[5]); }
TEST_F(yld_FieldTableTest, elementFaceIntegrationPoint) { expectPosition(positions()[6]); }
TEST_F(yld_FieldTableTest, surfaceIntegrationPoint) { expectPosition(positions()[7]); }
TEST_F(yld_FieldTableTest, wholeModel) { expectPosition(positions()[8]); }
