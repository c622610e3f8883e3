#ifndef STO_MODEL_SECTOR_DEFINITION_H
#define STO_MODEL_SECTOR_DEFINITION_H

#include "platform/model/mshK_Model.h"

#include <array>

/// A handle on how the sector that a model holds makes up the whole.
class sto_ModelSectorDefinition
{
public:
    explicit sto_ModelSectorDefinition(const lnk_ShortCut<mshK_Model>& model) : m_model(model) {}

    bool isValid() const { return m_model.fetch()->m_sectorAxis.size() == 6; }
    /// Two points of the axis; of a model without a sector definition, the origin.
    std::array<float, 3> GetStartPoint() const { return point(0); }
    std::array<float, 3> GetEndPoint() const { return point(3); }
    int GetNumberOfSectors() const { return m_model.fetch()->m_sectors; }

private:
    std::array<float, 3> point(std::size_t first) const
    {
        std::array<float, 3> coordinates{};
        const auto model = m_model.fetch();
        if (model->m_sectorAxis.size() != 6) return coordinates;
        for (std::size_t i = 0; i < 3; ++i) coordinates[i] = static_cast<float>(model->m_sectorAxis[first + i]);
        return coordinates;
    }

    lnk_ShortCut<mshK_Model> m_model;
};

#endif
