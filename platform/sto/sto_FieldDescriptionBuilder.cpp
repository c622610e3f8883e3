#include "platform/sto/sto_FieldDescriptionBuilder.h"

#include "platform/sto/sto_FieldStep.h"

sto_FieldDescriptionBuilder::sto_FieldDescriptionBuilder(std::string label, std::string description,
                                                         fld_DataTypeEnm type)
{
    m_made.m_label = std::move(label);
    m_made.m_description = std::move(description);
    m_made.m_dataType = static_cast<int>(type);
    m_made.m_width = fld_DataType::of(type).width;
}

void sto_FieldDescriptionBuilder::shape(int width, int rows, int cols, bool isSymmetric)
{
    m_made.m_width = width;
    m_made.m_rows = rows;
    m_made.m_cols = cols;
    m_made.m_matrixKind = isSymmetric ? 1 : 0;
}

void sto_FieldDescriptionBuilder::shapeOf(const fld_FieldDescription& like)
{
    m_made.m_width = like.m_width;
    m_made.m_rows = like.m_rows;
    m_made.m_cols = like.m_cols;
    m_made.m_matrixKind = like.m_matrixKind;
    m_made.m_engineeringTensor = like.m_engineeringTensor;
}

void sto_FieldDescriptionBuilder::completenessOf(const fld_FieldDescription& like)
{
    constexpr int partial = 1;
    constexpr int lower = 1;
    constexpr int upper = 2;
    constexpr int both = 3;
    if (like.m_completeness == partial) m_made.m_completeness = partial;
    m_made.m_clampType = like.m_clampType;
    if (like.m_clampType == lower || like.m_clampType == both) m_made.m_minClamp = like.m_minClamp;
    if (like.m_clampType == upper || like.m_clampType == both) m_made.m_maxClamp = like.m_maxClamp;
}

void sto_FieldDescriptionBuilder::components(std::vector<std::string> labels, std::vector<int> order)
{
    m_made.m_componentLabels = std::move(labels);
    m_made.m_labelComponents = std::move(order);
}

void sto_FieldDescriptionBuilder::at(fld_OutputPositionEnm position, int sectionPointIndex)
{
    m_made.m_position = static_cast<int>(position);
    m_made.m_locationIndex = sectionPointIndex;
}

void sto_FieldDescriptionBuilder::on(const sto_PartInstance& instance)
{
    m_made.m_instance = instance.shortCut();
    m_made.m_instanceName = instance.name();
    m_made.m_meshIndex = instance.mesh().meshIndex();
}

void sto_FieldDescriptionBuilder::on(const sto_Assembly& assembly)
{
    m_made.m_rootAssembly = assembly.shortCut();
    if (assembly.hasMesh()) m_made.m_meshIndex = assembly.mesh().meshIndex();
}

void sto_FieldDescriptionBuilder::onMeshOf(const fld_FieldDescription& like)
{
    m_made.m_instance = like.m_instance;
    m_made.m_instanceName = like.m_instanceName;
    m_made.m_rootAssembly = like.m_rootAssembly;
    m_made.m_meshIndex = like.m_meshIndex;
}

void sto_FieldDescriptionBuilder::of(const sto_Set& set, int classIndex, int length)
{
    m_made.m_set = set.shortCut();
    m_made.m_classIndex = classIndex;
    m_made.m_length = length;
}

fld_FieldDescription sto_FieldDescriptionBuilder::ofSystems(fld_DataTypeEnm type, int key) const
{
    sto_FieldDescriptionBuilder systems("orientation", "orientation for result", type);
    systems.at(m_made.position(), m_made.m_locationIndex);
    systems.onMeshOf(m_made);
    fld_FieldDescription made = systems.m_made;
    made.m_key = key;
    made.m_set = m_made.m_set;
    made.m_classIndex = m_made.m_classIndex;
    made.m_length = m_made.m_length;
    return made;
}

sto_FieldDescription sto_FieldDescriptionBuilder::enter(sto_FieldStep& step, int key, fld_DataTypeEnm systems,
                                                        int systemsKey) const
{
    const bool hasSystems = systems != fld_DataTypeEnm::UNDEFINED;
    const sto_FieldDescription present = step.find(m_made, hasSystems);
    if (present.isValid()) return present;
    fld_FieldDescription wanted(m_made);
    wanted.m_key = key;
    if (hasSystems) wanted.m_orientation = step.Field(ofSystems(systems, systemsKey)).shortCut();
    return step.Field(std::move(wanted));
}
