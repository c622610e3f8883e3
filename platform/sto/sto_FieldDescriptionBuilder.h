#ifndef STO_FIELDDESCRIPTIONBUILDER_H
#define STO_FIELDDESCRIPTIONBUILDER_H

#include "platform/sto/sto_FieldBlock.h"

class sto_FieldStep;

/// Makes descriptions of blocks: what the values are, then where they belong. All writers go this way, so that an
/// attribute that is new in descriptions is filled in here.
class sto_FieldDescriptionBuilder
{
public:
    /// @param type  decides the width until shape() or shapeOf() tell another
    sto_FieldDescriptionBuilder(std::string label, std::string description, fld_DataTypeEnm type);

    // What the values are.

    /// Components a value, and rows and columns of a matrix.
    void shape(int width, int rows = 0, int cols = 0, bool isSymmetric = false);
    void width(int components) { m_made.m_width = components; }
    /// Width, rows, columns, kind and shear convention of other values.
    void shapeOf(const fld_FieldDescription& like);
    /// How complete other values are, and the bounds that they were cut at.
    void completenessOf(const fld_FieldDescription& like);
    void engineeringTensor(bool isEngineering) { m_made.m_engineeringTensor = isEngineering; }
    /// @param order  the component that each label names; empty when they stand in order
    void components(std::vector<std::string> labels, std::vector<int> order = {});
    /// Store codes of valid invariants.
    void invariants(std::vector<int> codes) { m_made.m_invariants = std::move(codes); }
    void pair(bool isPair) { m_made.m_isPair = isPair; }
    /// 1 for values that turn with the system of the loads, 3 for those that do not.
    void loadCoordSystem(int code) { m_made.m_loadCoordSystem = code; }

    // Where they belong.

    void at(fld_OutputPositionEnm position, int sectionPointIndex = -1);
    void on(const sto_PartInstance& instance);
    void on(const sto_Assembly& assembly);
    /// On the instance or assembly of other values.
    void onMeshOf(const fld_FieldDescription& like);
    /// The set whose members the values belong to, its class there and how many values there are.
    void of(const sto_Set& set, int classIndex, int length);

    const fld_FieldDescription& made() const { return m_made; }
    /// The description of the local systems of such values.
    /// @param type  of the systems, a quaternion type
    fld_FieldDescription ofSystems(fld_DataTypeEnm type, int key) const;
    /// The description in a step: one that is there already and says the same, or a new one.
    /// @param systems  the type of the block's local systems, which get a description too; UNDEFINED for none
    sto_FieldDescription enter(sto_FieldStep& step, int key, fld_DataTypeEnm systems = fld_DataTypeEnm::UNDEFINED,
                               int systemsKey = -1) const;

private:
    fld_FieldDescription m_made;
};

#endif
