#ifndef YLD_SECTOR_DEFINITION_H
#define YLD_SECTOR_DEFINITION_H

#include "platform/base/bas_Export.h"
#include "yld_Sequence.h"

class sto_Sto;

/// Of a model with cyclic symmetry, which holds one sector of the whole: the axis of symmetry and the number of
/// sectors. A value, as it stood when it was asked for; lengths are in the units of the model's coordinates.
class YLD_API yld_SectorDefinition
{
public:
    /// Reads it from the model. Where there is none: empty points, no sectors.
    explicit yld_SectorDefinition(const sto_Sto& store);
    yld_SectorDefinition(const yld_SectorDefinition&);
    yld_SectorDefinition& operator=(const yld_SectorDefinition&);
    ~yld_SectorDefinition();

    /// Two rows, two points on the axis: three coordinates each; empty rows without a sector definition.
    yld_Sequence<yld_Sequence<float>> symmetryAxis() const;
    /// 0 without a sector definition.
    int numSymmetricSectors() const { return m_numSymmetricSectors; }

private:
    yld_Sequence<float> m_startPoint;
    yld_Sequence<float> m_endPoint;
    int m_numSymmetricSectors = 0;
};

#endif
