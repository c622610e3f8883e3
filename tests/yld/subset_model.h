#ifndef SUBSET_MODEL_H
#define SUBSET_MODEL_H

#include "platform/sto/sto_Assembly.h"
#include "platform/store/fio_File.h"
#include "result_model.h"
#include "stored_blocks.h"
#include "yld/impl/model/yld_Mesh.h"

#include <cmath>

// Label, point and first component of each value: "n10 e-1 p-1: 5; ".
inline std::string valuesOf(const yld_FieldOutput& field)
{
    std::string text;
    for (int i = 0; i < field.values().size(); ++i) {
        const yld_FieldValue value = field.values(i);
        if (value.nodeLabel() >= 0) text += "n" + std::to_string(value.nodeLabel()) + " ";
        if (value.elementLabel() >= 0) text += "e" + std::to_string(value.elementLabel()) + " ";
        if (value.integrationPoint() >= 0) text += "p" + std::to_string(value.integrationPoint()) + " ";
        text += std::to_string(static_cast<int>(value.data()[0])) + "; ";
    }
    return text;
}

inline std::string componentsOf(const yld_FieldValue& value)
{
    std::string text;
    for (int i = 0; i < value.data().length(); ++i) text += std::to_string(static_cast<int>(value.data()[i])) + " ";
    return text;
}

// A field of blocks that are put together by hand.
inline yld_FieldOutput fieldOf(std::initializer_list<yld_SubField> blocks,
                               yld_Enum::yld_DataTypeEnum type = yld_Enum::SCALAR)
{
    yld_FieldOutput field("T", "", type, {}, {}, blocks.begin()->assembly(), 0);
    for (const yld_SubField& block : blocks) field.values().append(block);
    return field;
}

// A quaternion for a turn about the third axis.
inline std::vector<double> turned(double angle) { return {0.0, 0.0, std::sin(angle / 2), std::cos(angle / 2)}; }

/// The model of results, with blocks on sets of its instance and a frame to write them into.
class SubsetModel : public ResultModel
{
protected:
    void SetUp() override
    {
        ResultModel::SetUp();
        m_frame = step().Frame(1, 1.0);
    }

    yld_FieldOutput& newField(const char* name, yld_Enum::yld_DataTypeEnum type = yld_Enum::SCALAR)
    {
        return m_frame.FieldOutput(name, "", type);
    }
    sto_PartInstance on() { return instance().instance(); }
    fio_Database& database() { return on().modelFile()->database(); }

    // A block of a type at a position, on a set of the instance.
    yld_SubField blockOn(const sto_Set& set, fld_DataTypeEnm type, fld_OutputPositionEnm position, int length,
                         const BlockNumbers& numbers, yld_Enum::yld_DataTypeEnum shown)
    {
        fld_FieldDescription description = describe("T", type, position, length);
        description.m_instance = on().shortCut();
        description.m_set = set.shortCut();
        if (set.setType() != setC_Set::nodeSet) description.m_classIndex = set.subSet(0).classIndex();
        if (type == fld_DataTypeEnm::VECTOR) {
            description.m_width = static_cast<int>(numbers.values.size()) / length;
        }
        const int key = m_nextKey;
        m_nextKey += 2;
        return yld_SubField(key, writeNumbers(m_frame, description, key, numbers), step().assembly(), shown);
    }
    sto_Set elementSet(const char* name, std::vector<int> labels)
    {
        return on().Elset(name, labels.data(), static_cast<int>(labels.size()), true);
    }
    sto_Set nodeSet(const char* name, std::vector<int> labels)
    {
        return on().Nset(name, labels.data(), static_cast<int>(labels.size()), true, true);
    }
    sto_Set surface(const char* name, std::vector<int> labels, std::vector<int> facets)
    {
        sto_SurfaceSubset faces;
        faces.labels = std::move(labels);
        faces.facets = std::move(facets);
        return on().Surface(name, {faces}, true);
    }

    yld_Frame m_frame;
    int m_nextKey = 1000;
};

#endif
