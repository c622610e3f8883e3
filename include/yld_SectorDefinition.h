#ifndef YLD_SECTOR_DEFINITION_H
#define YLD_SECTOR_DEFINITION_H

#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"

class sto_Sto;

/// How the one sector that a model of cyclic symmetry holds makes up the whole. A value, as it stood when it was asked
/// for; in the units of the model's coordinates.
class YLD_API yld_SectorDefinition
{
public:
    /// Of the store's model. Without a sector definition there: empty points, no sectors.
    explicit yld_SectorDefinition(const sto_Sto& store);
    yld_SectorDefinition(const yld_SectorDefinition&);
    yld_SectorDefinition& operator=(const yld_SectorDefinition&);
    ~yld_SectorDefinition();

    /// Always two rows, the start and the end of the axis: of three coordinates each, or empty without a sector
    /// definition.
    yld_Sequence<yld_Sequence<float>> symmetryAxis() const;
    /// 0 without a sector definition.
    int numSymmetricSectors() const { return m_numSymmetricSectors; }

private:
    yld_Sequence<float> m_startPoint;
    yld_Sequence<float> m_endPoint;
    int m_numSymmetricSectors = 0;
};

#endif
