#ifndef STO_DATUM_H
#define STO_DATUM_H

#include "platform/sto/sto_DatumCsys.h"

/// A handle on a stored datum of any kind.
class sto_Datum
{
public:
    explicit sto_Datum(const lnk_ShortCut<axs_DatumCsys>& reference) : m_reference(reference) {}

    /// 4 for a coordinate system.
    int GetDatumType() const { return m_reference.fetch()->m_datumType; }
    int GetDatumId() const { return m_reference.fetch()->m_id; }
    /// The same datum as a coordinate system.
    sto_DatumCsys CvtDatumCsys() const { return sto_DatumCsys(m_reference); }

private:
    lnk_ShortCut<axs_DatumCsys> m_reference;
};

#endif
